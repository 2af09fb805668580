#pragma once

#include "db/row.h"
#include "money/partner_ledger.h"

#include <optional>

namespace jxc {

class Session;

/// What a statement of a partner's account covers; empty texts narrow nothing.
struct StatementQuery {
    Partner::Kind kind = Partner::Kind::customer;
    QString partner{};
    QString from{}, to{}; ///< "yyyy-MM-dd", both included
    QString warehouse{};  ///< number of the warehouse
    QString number{};     ///< part of the document's number
    QString search{};     ///< part of the partner's number, initials or name
    bool newestFirst = false;
    /// Amounts of returned documents with a minus, so that the sums are net; otherwise as they
    /// stand on the document.
    bool netted = false;

    // For long statements, that are read in pieces: at most so many rows (0: all), those that
    // follow the last row of the piece before.
    int most = 0;
    std::optional<Row> after{};
};

// Each is one statement. Nothing is written.

/// 往来单据: every approved document that made or lowered a debt, by date, debts before returns on
/// one day (also with the newest first), then by number:
/// djh partner partner_name partner_jm ck_sn ck_name rq yfje sfje wfje yhje fktype u_sn u_name
/// dnote a_name dsort ("1" debt, "2" return) checker chkrq hkje yf bzf yffs.
[[nodiscard]] Rows statementDocuments(const Session &session, const StatementQuery &query);

/// 商品汇总: per goods gl_sl gl_zje gl_je gl_taxje; returns count against.
[[nodiscard]] Rows statementGoods(const Session &session, const StatementQuery &query);

/// 商品明细: the lines, with profit gl_lr and its rate lrl in percent, 0 for an amount of 0.
[[nodiscard]] Rows statementLines(const Session &session, const StatementQuery &query);

/// 按月汇总: month ("yyyy-MM") gl_sl gl_zje gl_je gl_taxje gl_lr.
[[nodiscard]] Rows statementMonths(const Session &session, const StatementQuery &query);

/// 运费汇总: per partner and freight payer, of approved documents that carry freight or packing:
/// partner partner_name yffs count sl yfje sfje yhje yf bzf.
[[nodiscard]] Rows statementFreight(const Session &session, const StatementQuery &query);

} // namespace jxc
