#pragma once

#include "core/action.h"
#include "money/partner_ledger.h"

namespace jxc {

class Session;

/// What the account tables show; empty texts narrow nothing.
struct AccountQuery {
    Partner::Kind kind = Partner::Kind::customer;
    QString partner{};
    QString from{}, to{}; ///< "yyyy-MM-dd", both included
    QString search{};     ///< part of number, name or initials of the partner
};

/// 汇总, one row per partner that has a ledger, by one statement: partner partner_name opening due
/// settled discount closing. opening + due - settled - discount = closing; what a receipt or
/// payment grants is discount, no debt.
[[nodiscard]] Rows partnerSummary(const Session &session, const AccountQuery &query);

/// 明细, the ledger in its order: id k_rq number partner_name k_djtxt k_qcje k_yfje k_sfje k_ljje
/// k_fkfs u_name k_note. One partner's rows begin with what he owed before.
[[nodiscard]] Rows partnerDetail(const Session &session, const AccountQuery &query);

/// 未结单据: partner partner_name number kind rq days total settled open note.
[[nodiscard]] Rows openDocumentRows(const Session &session, const AccountQuery &query);

/// 账龄, one row per partner with anything open: partner partner_name age30 age60 age90 age180
/// age365 older credit total. Debts stand by their age; returns and advances are negative, in
/// `credit`.
[[nodiscard]] Rows partnerAgeing(const Session &session, const AccountQuery &query);

/// 重算余额: rebuilds every running balance of the partner from the first day on.
Outcome recomputePartner(Session &session, Prompter &prompter, const Partner &partner);

} // namespace jxc
