#pragma once

#include "money/cash_entry.h"
#include "money/forms/entry_editor.h"

namespace jxc {

/// 存款 (XC), 取款 (XJ) or 转账 (XZ).
class CashEditor : public EntryEditor {
    Q_OBJECT
public:
    CashEditor(const FormContext &context, const QString &code, QWidget *parent);

    void startNew();
    /// False when there is no such entry.
    bool open(const QString &number);
    void chooseAccount(const QString &account);
    void FormActivate() override;

protected:
    Outcome store(QString *number) override;
    Outcome approve(const QString &number) override;
    void startAnew() override { startNew(); }

private:
    void fill();

    CashDraft m_draft;
    DateField *m_date;
    PickField *m_account, *m_target = nullptr, *m_clerk;
    NumberField *m_amount;
    QLineEdit *m_note;
};

} // namespace jxc
