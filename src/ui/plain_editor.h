#pragma once

#include "ui/form.h"

class QFormLayout;
class QPushButton;

namespace jxc {

/// A small dialog of fields: Enter goes on, F5 stores, Esc leaves and asks when something was
/// changed. It closes when its content is stored.
class PlainEditor : public Form {
    Q_OBJECT
public:
    PlainEditor(const FormContext &context, const QString &className, const QString &title,
                QWidget *parent);

    /// Begins at the first field.
    void FormActivate() override;
    bool mayLeave() override;
    void accept() override;

protected:
    /// Stores what the fields hold; on a refusal it has been told and the dialog stays.
    virtual bool save() = 0;
    /// What the fields hold, to see whether something was changed.
    [[nodiscard]] virtual QStringList content() const = 0;

    void keyPressEvent(QKeyEvent *event) override;

    [[nodiscard]] QFormLayout *fields() const { return m_fields; }
    /// Room between the fields and the buttons.
    void addBelowFields(QWidget *widget);

private:
    [[nodiscard]] QList<QWidget *> inOrder() const;

    QFormLayout *m_fields;
    QWidget *m_below = nullptr;
    QPushButton *m_ok, *m_cancel;
    QStringList m_shown;
};

} // namespace jxc
