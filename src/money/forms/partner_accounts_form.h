#pragma once

#include "money/forms/ledger_tabs.h"
#include "money/partner_accounts.h"

namespace jxc {

/// 应收帐表, 应付帐表: what each partner owes or is owed, how it came about, what of it is open and
/// how old it is.
class PartnerAccountsForm : public LedgerTabs {
    Q_OBJECT
public:
    PartnerAccountsForm(const FormContext &context, const QString &className, const QString &title,
                        Partner::Kind kind, QWidget *parent);

    enum Page { summary, detail, open, ageing };

public Q_SLOTS:
    void btnRecomputeClick();
    /// Receives from, or pays, the partner of the current row.
    void btnSettleClick();

protected:
    /// A partner's row leads to his ledger.
    void openRow(const Row &row) override;

private:
    [[nodiscard]] AccountQuery query() const;
    [[nodiscard]] Rows readSummary() const;
    void addPages();

    QCheckBox *m_hideZero;
};

} // namespace jxc
