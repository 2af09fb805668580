#pragma once

#include "core/action.h"
#include "core/approval_query.h"
#include "money/partner_ledger.h"

namespace jxc {

class Session;

/// An invoice received (CP) or issued (XP) as it is typed. Positive amounts lower what is still to
/// be invoiced.
struct InvoiceDraft {
    Partner partner;
    QString date;
    Decimal invoiced;  ///< fp_kpje
    Decimal opening;   ///< fp_qcje: what was to be invoiced before the books began
    QString invoiceNo; ///< fp_no, once per partner
    QString invoiceDate{};
    QString clerk{}, note{};
    QString number{}; ///< empty until it is saved for the first time
    QString stored{}; ///< how it stood when it was loaded
    bool approved = false;
};

/// "进货发票" or "销售发票".
[[nodiscard]] QString invoiceTitle(Partner::Kind kind);

[[nodiscard]] std::optional<InvoiceDraft> loadInvoice(const Session &session,
                                                      const QString &number);
Outcome saveInvoice(Session &session, Prompter &prompter, const InvoiceDraft &draft,
                    QString *number);
Outcome deleteInvoice(Session &session, Prompter &prompter, const QString &number);
/// Lets the invoice count in the partner's balance of what is to be invoiced.
Outcome approveInvoice(Session &session, Prompter &prompter, const QString &number);
Outcome cancelInvoice(Session &session, Prompter &prompter, const QString &number);

/// The register of one side, newest first, by one statement: id rq number fp_djtxt partner
/// partner_name fp_qcje fp_yfje fp_kpje fp_ljje fp_no fp_kprq u_name fp_note a_name fp_checker
/// fp_chkrq. Rows of stock documents are among the approved ones.
[[nodiscard]] Rows listInvoices(const Session &session, Partner::Kind kind,
                                const ApprovalQuery &query);

} // namespace jxc
