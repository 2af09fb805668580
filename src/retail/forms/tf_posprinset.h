#pragma once

#include "retail/print_settings.h"
#include "ui/form.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

namespace jxc {

/// 打印设置: what a receipt looks like and where it goes.
class TF_PosPrinSet : public Form {
    Q_OBJECT
public:
    explicit TF_PosPrinSet(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    bool mayLeave() override;
    /// F5: saves and closes.
    void btnOKClick();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    QLineEdit *addText(QFormLayout *form, const QString &caption, const QString &name);
    QCheckBox *addSwitch(QBoxLayout *column, const QString &caption, const QString &name);
    [[nodiscard]] PrintSettings typed() const;

    PrintSettings m_stored;
    QComboBox *m_way, *m_printer, *m_width;
    QLineEdit *m_title1, *m_title2, *m_foot1, *m_foot2;
    QSpinBox *m_lines, *m_copies;
    QCheckBox *m_after, *m_preview, *m_cuts, *m_drawer, *m_member, *m_capitals, *m_tenders;
};

} // namespace jxc
