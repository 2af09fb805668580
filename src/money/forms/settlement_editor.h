#pragma once

#include "money/forms/entry_editor.h"
#include "money/settlement_draft.h"
#include "money/settlement_kind.h"

namespace jxc {

class SettlementParts;
class DateField;

/// A receipt, payment or amount entered as owed. Receipts and payments are spread over what is
/// open: F7 does it, oldest first.
class SettlementEditor : public EntryEditor {
    Q_OBJECT
public:
    SettlementEditor(const FormContext &context, const SettlementKind &kind, QWidget *parent);

    void startNew();
    /// False when there is no such document.
    bool open(const QString &number);
    /// Begins with this partner.
    void choosePartner(const QString &partner);
    void FormActivate() override;
    void setReadOnly() override;

public Q_SLOTS:
    void btnAutoClick();

protected:
    Outcome store(QString *number) override;
    Outcome approve(const QString &number) override;
    void startAnew() override { startNew(); }
    [[nodiscard]] QStringList content() const override;

private:
    void addFields();
    void addParts();
    void fill();
    void partnerChanged();
    void showRest();

    const SettlementKind &m_kind;
    SettlementDraft m_draft;
    DateField *m_date;
    PickField *m_partner, *m_account = nullptr, *m_clerk;
    NumberField *m_amount, *m_discount = nullptr;
    QLineEdit *m_note;
    QLabel *m_balance, *m_rest = nullptr;
    SettlementParts *m_parts = nullptr; ///< of receipts and payments
};

/// The editor of a kind by its number, of a new one for an empty number; null, and told so, when
/// there is no such document.
[[nodiscard]] SettlementEditor *makeSettlementEditor(const FormContext &context,
                                                     const SettlementKind &kind,
                                                     const QString &number, QWidget *parent);

} // namespace jxc
