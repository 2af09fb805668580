#include "money/entry_checks.h"

#include "base/dates.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"

namespace jxc {

void demandFilled(bool filled, const QString &caption) {
    if (!filled)
        throw Refusal(caption + QStringLiteral("必须填写！"));
}

void checkEntryDate(const Session &session, const QString &date, const QString &stored,
                    bool mayChoose) {
    if (!isDate(date))
        throw Refusal(QStringLiteral("开单日期必须填写！"));
    if (date > session.today())
        throw Refusal(QStringLiteral("单据日期不能大于当前日期！"));
    if (!mayChoose && date != session.today() && date != stored)
        throw Refusal(noRightMessage(QStringLiteral("修改单据日期！")));
}

void checkAccount(const Session &session, const QString &account, const QString &caption) {
    demandFilled(!account.isEmpty(), caption);
    if (!session.db().exists(QStringLiteral("select id from jxc_yhzh where yh_name=?"), {account}))
        throw Refusal(caption + QStringLiteral("不存在！"));
}

void checkClerk(const Session &session, const QString &clerk) {
    const QString caption = QStringLiteral("经手人");
    demandFilled(!clerk.isEmpty(), caption);
    if (!session.db().exists(QStringLiteral("select id from jxc_user where u_sn=?"), {clerk}))
        throw Refusal(caption + QStringLiteral("不存在！"));
}

QString fingerprint(Database &db, const QString &table, const QString &column,
                    const QString &number) {
    QStringList all;
    for (const Row &row :
         db.rows(QStringLiteral("select * from %1 where %2=? order by id").arg(table, column),
                 {number}))
        for (size_t i = 0; i < row.columns().names().size(); ++i)
            all << row.text(i);
    return all.join(QChar(0x1f));
}

void confirmDeleting(Answers &answers, const QString &number, bool approved) {
    if (approved)
        throw Refusal(QStringLiteral("已审核的单据不能删除！"));
    answers.require(QStringLiteral("您的操作将删除单据：%1，确认吗？").arg(number));
}

} // namespace jxc
