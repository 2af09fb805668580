#pragma once

#include "money/expense.h"
#include "money/forms/entry_editor.h"

namespace jxc {

/// An expense or other income; its type says which.
class ExpenseEditor : public EntryEditor {
    Q_OBJECT
public:
    ExpenseEditor(const FormContext &context, QWidget *parent);

    void startNew();
    bool open(const QString &number);
    void FormActivate() override;

protected:
    Outcome store(QString *number) override;
    Outcome approve(const QString &number) override;
    void startAnew() override { startNew(); }

private:
    void fill();

    ExpenseDraft m_draft;
    DateField *m_date;
    PickField *m_type, *m_account, *m_clerk, *m_department;
    NumberField *m_amount;
    QLineEdit *m_note;
};

} // namespace jxc
