#include "retail/till_cash.h"

#include "core/numbering.h"
#include "core/session.h"
#include "db/database.h"
#include "db/like.h"

namespace jxc {

Outcome recordTillCash(Session &session, Prompter &prompter, const TillCash &cash,
                       QString *number) {
    const bool isIn = cash.direction == TillDirection::in;
    const QString table = QStringLiteral("jxc_crk");
    return runAction(session.db(), prompter, [&](Answers &answers) {
        if (!cash.amount.isPositive())
            throw Refusal(QStringLiteral("金额必须大于零！"));
        // The two questions differ in wording and blanks, deliberately.
        answers.require((isIn ? QStringLiteral("您确认生成入款单吗 %1？")
                              : QStringLiteral("您确认生成出款单 %1 吗？"))
                            .arg(cash.amount.toText()));
        *number = newDocNumber(session, table, QStringLiteral("gl_djh"),
                               isIn ? QStringLiteral("RK") : QStringLiteral("CK"));
        session.db().insertRow(table, {{QStringLiteral("gl_djh"), *number},
                                       {QStringLiteral("crk_rq"), session.today()},
                                       {QStringLiteral("crk_je"), cash.amount},
                                       {QStringLiteral("crk_flag"), isIn ? u"r" : u"c"},
                                       {QStringLiteral("crk_note"), cash.note},
                                       {QStringLiteral("a_name"), session.currentOperatorName},
                                       {QStringLiteral("a_name2"), u""}});
    });
}

std::vector<TillRow> listTillCash(Session &session, const QString &from, const QString &to,
                                  const QString &cashier) {
    QString sql = QStringLiteral("select gl_djh,crk_rq,crk_je,crk_flag,crk_note,a_name from "
                                 "jxc_crk where crk_rq>=? and crk_rq<=?");
    Values values{from, QString(to + QStringLiteral(" 23:59:59"))};
    if (!cashier.isEmpty() && cashier != everyCashier) {
        sql += QStringLiteral(" and ") + contains(QStringLiteral("a_name"));
        values.emplace_back(containsPattern(cashier));
    }
    std::vector<TillRow> rows;
    for (const Row &row : session.db().rows(sql + QStringLiteral(" order by id desc"), values)) {
        const bool isIn = row.text(u"crk_flag") == QLatin1String("r");
        const Decimal amount = row.decimal(u"crk_je");
        rows.push_back({row.text(u"gl_djh"), row.text(u"crk_rq"),
                        isIn ? QStringLiteral("POS 入款") : QStringLiteral("POS 出款"),
                        isIn ? amount : Decimal(), isIn ? Decimal() : amount, row.text(u"a_name"),
                        row.text(u"crk_note")});
    }
    return rows;
}

} // namespace jxc
