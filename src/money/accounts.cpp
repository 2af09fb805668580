#include "money/accounts.h"

#include "base/sanitize.h"
#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"
#include "money/cash_journal.h"
#include "money/entry_checks.h"

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_yhzh");
const QString cashName = QStringLiteral("现金");

Row load(Database &db, qint64 id) {
    auto row = db.row(QStringLiteral("select * from jxc_yhzh where id=?"), {id});
    if (!row)
        throw Refusal(QStringLiteral("该记录已被其他操作员修改，请刷新后重试！"));
    return *std::move(row);
}

bool isUsed(Database &db, const QString &name) {
    return db.exists(QStringLiteral("select id from jxc_xjyh where xj_kmmc=? and "
                                    "coalesce(xj_dlx,'')<>? limit 1"),
                     {name, openingCashKind});
}

void refuseUsed(Database &db, const QString &name) {
    if (isUsed(db, name))
        throw Refusal(QStringLiteral("该账户已有业务，不能改名或删除！"));
}

/// The row that an account begins with; made when an older account set lacks it.
void writeOpening(Session &session, const QString &name, Decimal opening) {
    Database &db = session.db();
    const auto row = db.row(QStringLiteral("select id,xj_rq from jxc_xjyh where xj_kmmc=? and "
                                           "xj_dlx=? order by xj_rq,id limit 1"),
                            {name, openingCashKind});
    if (!row) {
        CashEntry entry;
        entry.account = name;
        entry.date = session.today();
        entry.kind = openingCashKind;
        entry.amount = opening;
        entry.note = name + QStringLiteral("期初数");
        entry.operatorName = session.currentOperatorName;
        addCashEntry(db, entry);
        return;
    }
    db.updateRows(QStringLiteral("jxc_xjyh"), {{QStringLiteral("xj_je"), opening}},
                  QStringLiteral("id=?"), {row->integer(u"id")});
    RecomputeAccountBalance(db, name, row->text(u"xj_rq"));
}

void checkName(Database &db, const AccountDraft &d) {
    demandFilled(!d.type.isEmpty(), QStringLiteral("账户类型"));
    demandFilled(!d.name.isEmpty(), QStringLiteral("账户名称"));
    if (db.exists(QStringLiteral("select id from jxc_yhzh where yh_name=? and id<>?"),
                  {d.name, d.id}))
        throw Refusal(QStringLiteral("账户名称不能重复！"));
}

void write(Session &session, AccountDraft d) {
    Database &db = session.db();
    d.type = sanitizeSqlText(d.type.trimmed());
    d.name = sanitizeSqlText(d.name.trimmed());
    checkName(db, d);
    const Assignments typed = {{QStringLiteral("yh_type"), d.type},
                               {QStringLiteral("yh_name"), d.name},
                               {QStringLiteral("yh_note"), sanitizeSqlText(d.note)}};
    if (d.id == 0) {
        // A name that older rows of the journal bear would take them over.
        refuseUsed(db, d.name);
        d.number = nextSerialNumber(db, table, QStringLiteral("yh_sn"));
        Assignments all = typed;
        all.push_back({QStringLiteral("yh_sn"), d.number});
        all.push_back({QStringLiteral("yh_zje"), d.opening});
        db.insertRow(table, all);
        writeOpening(session, d.name, d.opening);
    } else {
        const Row stored = load(db, d.id);
        const QString before = stored.text(u"yh_name");
        d.number = stored.text(u"yh_sn");
        if (before != d.name) {
            if (before == cashName)
                throw Refusal(QStringLiteral("系统默认数据，不能修改！"));
            refuseUsed(db, before);
            db.updateRows(QStringLiteral("jxc_xjyh"), {{QStringLiteral("xj_kmmc"), d.name}},
                          QStringLiteral("xj_kmmc=?"), {before});
        }
        db.updateRows(table, typed, QStringLiteral("id=?"), {d.id});
    }
    writeLog(session, QStringLiteral("%1银行账户：%2，%3")
                          .arg(d.id == 0 ? QStringLiteral("增加") : QStringLiteral("修改"),
                               d.number, d.name));
}

} // namespace

Rows listAccounts(const Session &session) {
    return session.db().rows(
        QStringLiteral("select a.id,a.yh_sn,a.yh_type,a.yh_name,a.yh_zje,a.yh_note,(select "
                       "xj_ljje from jxc_xjyh x where x.xj_chk='1' and x.xj_kmmc=a.yh_name order "
                       "by x.xj_rq desc,x.id desc limit 1) as balance from jxc_yhzh a order by "
                       "a.id"));
}

Outcome saveAccount(Session &session, Prompter &prompter, const AccountDraft &draft) {
    return runAction(session.db(), prompter, [&](Answers &) { write(session, draft); });
}

Outcome deleteAccount(Session &session, Prompter &prompter, qint64 id) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        Database &db = session.db();
        const Row stored = load(db, id);
        const QString name = stored.text(u"yh_name");
        if (name == cashName)
            throw Refusal(QStringLiteral("系统默认数据，不能删除！"));
        refuseUsed(db, name);
        answers.require(QStringLiteral("您的操作将删除银行账户：%1，确认吗？").arg(name));
        db.execute(QStringLiteral("delete from jxc_yhzh where id=?"), {id});
        db.execute(QStringLiteral("delete from jxc_xjyh where xj_kmmc=? and xj_dlx=?"),
                   {name, openingCashKind});
        writeLog(session, QStringLiteral("删除银行账户：%1，%2").arg(stored.text(u"yh_sn"), name));
    });
}

Outcome setAccountOpening(Session &session, Prompter &prompter, qint64 id, Decimal opening) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const Row stored = load(session.db(), id);
        const QString name = stored.text(u"yh_name");
        session.db().updateRows(table, {{QStringLiteral("yh_zje"), opening}},
                                QStringLiteral("id=?"), {id});
        writeOpening(session, name, opening);
        writeLog(session, QStringLiteral("账户期初金额：%1，%2").arg(name, opening.toText()));
    });
}

} // namespace jxc
