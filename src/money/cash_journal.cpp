#include "money/cash_journal.h"

#include "core/action.h"
#include "core/parameters.h"
#include "db/database.h"
#include "db/fitted.h"
#include "money/fees.h"

#include <map>

namespace jxc {

void refuseShortAccount(Database &db, const Parameters &parameters, const QString &account,
                        Decimal amount) {
    if (!parameters.refuseShortAccount || !amount.isNegative())
        return;
    if ((AccountBalance(db, account) + amount).isNegative())
        throw Refusal(QStringLiteral("账户“%1”余额不足，不能付款！").arg(account));
}

void addCashEntry(Database &db, const CashEntry &entry) {
    const QString table = QStringLiteral("jxc_xjyh");
    db.insertRow(table, {{QStringLiteral("xj_rq"), entry.date},
                         {QStringLiteral("gl_djh"), entry.number},
                         {QStringLiteral("xj_dlx"), entry.kind},
                         {QStringLiteral("xj_je"), entry.amount},
                         {QStringLiteral("xj_ljje"), Decimal()},
                         {QStringLiteral("xj_chk"), u"1"},
                         {QStringLiteral("u_name"), entry.clerkName},
                         {QStringLiteral("ghs_name"), entry.partnerName},
                         {QStringLiteral("ghs_sn"), entry.partnerNo},
                         {QStringLiteral("ck_name"), entry.warehouseName},
                         {QStringLiteral("xj_kmmc"), entry.account},
                         {QStringLiteral("xj_note"), fitted(table, u"xj_note", entry.note)},
                         {QStringLiteral("a_name"), entry.operatorName}});
    RecomputeAccountBalance(db, entry.account, entry.date);
}

Decimal AccountBalance(Database &db, const QString &account) {
    const auto row = db.row(QStringLiteral("select xj_ljje from jxc_xjyh where xj_chk='1' and "
                                           "xj_kmmc=? order by xj_rq desc,id desc limit 1"),
                            {account});
    return row ? row->decimal(u"xj_ljje") : Decimal();
}

void RecomputeAccountBalance(Database &db, const QString &account, const QString &fromDate) {
    const auto before =
        db.row(QStringLiteral("select xj_ljje from jxc_xjyh where xj_chk='1' and "
                              "xj_kmmc=? and xj_rq<? order by xj_rq desc,id desc limit 1"),
               {account, fromDate});
    Decimal balance = before ? before->decimal(u"xj_ljje") : Decimal();
    std::vector<Values> changed;
    for (const Row &row :
         db.rows(QStringLiteral("select id,xj_je,xj_ljje from jxc_xjyh where xj_chk='1' "
                                "and xj_kmmc=? and xj_rq>=? order by xj_rq,id"),
                 {account, fromDate})) {
        balance += row.decimal(u"xj_je");
        if (row.isNull(u"xj_ljje") || row.decimal(u"xj_ljje") != balance)
            changed.push_back({row.integer(u"id"), balance});
    }
    db.updateById(QStringLiteral("jxc_xjyh"), {QStringLiteral("xj_ljje")}, changed);
}

void removeCashEntries(Database &db, const QString &number, const QStringList &feeNotes) {
    std::map<QString, QString> lostFrom; // account, earliest date
    const auto remove = [&](const QString &where, const Values &values) {
        const Rows lost =
            db.rows(QStringLiteral("select xj_kmmc,min(xj_rq) as xj_rq from jxc_xjyh where ") +
                        where + QStringLiteral(" group by xj_kmmc"),
                    values);
        if (lost.empty())
            return;
        for (const Row &row : lost) {
            auto [place, isNew] = lostFrom.try_emplace(row.text(u"xj_kmmc"), row.text(u"xj_rq"));
            if (!isNew)
                place->second = std::min(place->second, row.text(u"xj_rq"));
        }
        db.execute(QStringLiteral("delete from jxc_xjyh where ") + where, values);
    };
    remove(QStringLiteral("gl_djh=?"), {number});
    for (const QString &note : feeNotes)
        remove(QStringLiteral("xj_dlx=? and xj_note=?"), {feePaymentKind, note});
    for (const auto &[account, date] : lostFrom)
        RecomputeAccountBalance(db, account, date);
}

} // namespace jxc
