#pragma once

#include "ui/plain_editor.h"

class QLineEdit;

namespace jxc {

/// The current operator's password.
class TF_PwdModi : public PlainEditor {
    Q_OBJECT
public:
    explicit TF_PwdModi(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    QLineEdit *m_current, *m_wanted, *m_confirmation;
};

} // namespace jxc
