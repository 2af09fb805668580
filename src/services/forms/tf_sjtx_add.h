#pragma once

#include "services/reminders.h"
#include "ui/plain_editor.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace jxc {

/// One reminder: for whom, when, what.
class TF_Sjtx_Add : public PlainEditor {
    Q_OBJECT
public:
    TF_Sjtx_Add(const FormContext &context, Reminder reminder, QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    void wayChanged();

    Reminder m_reminder;
    QComboBox *m_audience, *m_way;
    QLineEdit *m_when, *m_note;
    QLabel *m_hint;
};

} // namespace jxc
