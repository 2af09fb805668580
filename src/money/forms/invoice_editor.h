#pragma once

#include "money/forms/entry_editor.h"
#include "money/invoice_draft.h"
#include "ui/approval_list.h"

namespace jxc {

/// An invoice received or issued.
class InvoiceEditor : public EntryEditor {
    Q_OBJECT
public:
    InvoiceEditor(const FormContext &context, Partner::Kind kind, QWidget *parent);

    void startNew();
    bool open(const QString &number);
    void FormActivate() override;

protected:
    Outcome store(QString *number) override;
    Outcome approve(const QString &number) override;
    void startAnew() override { startNew(); }

private:
    void fill();

    Partner::Kind m_kind;
    InvoiceDraft m_draft;
    DateField *m_date, *m_invoiceDate;
    PickField *m_partner, *m_clerk;
    NumberField *m_amount, *m_opening;
    QLineEdit *m_invoiceNo, *m_note;
};

/// The register of one side, 进货发票 or 销售发票.
[[nodiscard]] ApprovalSpec invoiceSpec(Partner::Kind kind);

} // namespace jxc
