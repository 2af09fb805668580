#include "services/tips.h"

#include "core/session.h"

namespace jxc {

std::vector<Tip> listTips(const Session &session) {
    std::vector<Tip> tips;
    for (const Row &row :
         session.db().rows(QStringLiteral("select id,mr_ts from jxc_mryt order by id")))
        tips.push_back({row.integer(u"id"), row.text(u"mr_ts")});
    return tips;
}

qint64 takeNextTip(const Session &session, Prompter &prompter) {
    Database &db = session.db();
    qint64 id = 0;
    runAction(db, prompter, [&](Answers &) {
        const QString next = QStringLiteral(
            "select id from jxc_mryt where coalesce(mr_state,'0')<>'1' order by id limit 1");
        auto row = db.row(next);
        if (!row) {
            db.execute(QStringLiteral("update jxc_mryt set mr_state='0'"));
            row = db.row(next);
        }
        if (!row)
            return;
        id = row->integer(u"id");
        db.execute(QStringLiteral("update jxc_mryt set mr_state='1' where id=?"), {id});
    });
    return id;
}

} // namespace jxc
