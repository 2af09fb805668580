#include "support/shop.h"

#include "core/login.h"
#include "retail/document_posting.h"
#include "stock/posting.h"
#include "stock/source_entry.h"

namespace jxc::test {

namespace {

bool isGiven(const Assignments &row, const QString &column) {
    return std::any_of(row.begin(), row.end(),
                       [&](const Assignment &a) { return a.column == column; });
}

} // namespace

QString day(int number) {
    return QStringLiteral("2026-03-%1").arg(number, 2, 10, QChar(u'0'));
}

Shop::Shop() {
    if (!authenticate(session, QStringLiteral("admin"), {}))
        qFatal("the administrator cannot log in");
    db.insertRow(QStringLiteral("jxc_ckxx"), {{QStringLiteral("ck_sn"), u"100002"},
                                              {QStringLiteral("ck_name"), u"东库"},
                                              {QStringLiteral("ck_asn"), u"100001,"}});
    loadGlobals(session);
    session.members = &documentPosting();
}

void Shop::addGoods(const QString &goods, const Assignments &more) {
    Assignments row = {{QStringLiteral("g_sn"), goods},
                       {QStringLiteral("g_name"), QStringLiteral("农药") + goods},
                       {QStringLiteral("dw_name"), u"瓶"},
                       {QStringLiteral("g_sptm"), QStringLiteral("690") + goods},
                       {QStringLiteral("ghs_sn"), u""}};
    for (const char16_t *zero : {u"g_kc", u"g_pjjj", u"g_scjj", u"g_cgpl", u"g_xspl", u"g_xzsl",
                                 u"g_iscf", u"g_jy", u"g_sj", u"g_lsj"}) {
        const QString column = QString::fromUtf16(zero);
        if (!isGiven(more, column))
            row.push_back({column, 0});
    }
    row.insert(row.end(), more.begin(), more.end());
    db.insertRow(QStringLiteral("jxc_goods"), row);
}

void Shop::addCard(const QString &key, const QString &number, const Assignments &more) {
    Assignments row = {{QStringLiteral("hy_sn"), key},
                       {QStringLiteral("hy_bh"), number},
                       {QStringLiteral("hl_sn"), u"100001"},
                       {QStringLiteral("hh_sn"), u"100001"}};
    for (const char16_t *zero : {u"hy_jf", u"hy_zjf", u"hy_zhje", u"hy_ye", u"hy_zje", u"hy_cs",
                                 u"hy_status", u"hy_qx", u"hy_sj"})
        if (const QString column = QString::fromUtf16(zero); !isGiven(more, column))
            row.push_back({column, 0});
    for (const char16_t *empty : {u"hy_mm", u"hy_mobile"})
        if (const QString column = QString::fromUtf16(empty); !isGiven(more, column))
            row.push_back({column, u""});
    row.insert(row.end(), more.begin(), more.end());
    db.insertRow(QStringLiteral("jxc_hyxx"), row);
}

void Shop::addUnit(const QString &goods, const QString &unit, Decimal factor,
                   const Assignments &more) {
    Assignments row = {{QStringLiteral("g_sn"), goods},
                       {QStringLiteral("dw_name"), unit},
                       {QStringLiteral("g_zhxs"), factor}};
    row.insert(row.end(), more.begin(), more.end());
    db.insertRow(QStringLiteral("jxc_goodsdw"), row);
}

void Shop::addCustomer(const QString &number, const QString &name, const QString &type) {
    db.insertRow(QStringLiteral("jxc_khxx"), {{QStringLiteral("kh_sn"), number},
                                              {QStringLiteral("kh_name"), name},
                                              {QStringLiteral("kt_sn"), type},
                                              {QStringLiteral("kh_lwje"), 0}});
}

void Shop::set(const QString &parameter, const Value &value) {
    db.execute(QStringLiteral("update jxc_xtcs set %1=?").arg(parameter), {value});
    loadGlobals(session);
}

Session Shop::clerk(const QString &group, const QList<int> &rights) {
    QString flags(60, u'0');
    for (const int right : rights)
        flags[right - 1] = u'1';
    db.execute(QStringLiteral("delete from jxc_role where r_sn='100002'"));
    db.execute(QStringLiteral("delete from jxc_admin where a_sn='100002'"));
    db.insertRow(
        QStringLiteral("jxc_role"),
        {{QStringLiteral("r_sn"), u"100002"}, {QStringLiteral("r_name"), u"店员"}, {group, flags}});
    db.insertRow(QStringLiteral("jxc_admin"), {{QStringLiteral("a_sn"), u"100002"},
                                               {QStringLiteral("a_name"), u"小王"},
                                               {QStringLiteral("a_pwd"), u""},
                                               {QStringLiteral("r_sn"), u"100002"}});
    Session own(db, clock);
    if (!authenticate(own, QStringLiteral("小王"), {}))
        qFatal("the clerk cannot log in");
    loadGlobals(own);
    own.members = &documentPosting();
    return own;
}

QString Shop::save(const QString &code, const QString &date, const std::vector<DraftLine> &lines,
                   const std::function<void(Draft &)> &more) {
    Draft draft;
    draft.code = code;
    draft.date = date;
    draft.partner = draft.warehouse = draft.clerk = administratorNo;
    draft.lines = lines;
    if (more)
        more(draft);
    QString number;
    demand(saveDraft(session, user, draft, &number));
    return number;
}

QString Shop::post(const QString &code, const QString &date, const std::vector<DraftLine> &lines,
                   const std::function<void(Draft &)> &more) {
    QString number = save(code, date, lines, more);
    approve(number);
    return number;
}

Outcome Shop::tryApprove(const QString &number) {
    return approveDocument(session, user, number);
}

Outcome Shop::tryCancel(const QString &number) {
    return cancelDocument(session, user, number);
}

QString Shop::follow(const QString &source, Decimal quantity) {
    QString number;
    demand(fillFromSource(session, user, source, session.today(), &number));
    if (quantity.isZero())
        return number;
    const bool in = number.startsWith(QLatin1String("RK"));
    const QString table = in ? QStringLiteral("jxc_rksp") : QStringLiteral("jxc_cksp");
    const QString prefix = in ? QStringLiteral("rk") : QStringLiteral("ck");
    db.execute(QStringLiteral("update %1 set %2_sl=?,%2_zsl=? where id=(select min(id) from %1 "
                              "where gl_djh=?)")
                   .arg(table, prefix),
               {quantity, quantity, number});
    return number;
}

QString Shop::figures(const QString &sql, const Values &values) {
    const auto row = db.row(sql, values);
    if (!row)
        return {};
    QStringList figures;
    for (size_t i = 0; i < row->columns().names().size(); ++i)
        figures << row->decimal(i).toText();
    return figures.join(u' ');
}

QStringList Shop::texts(const QString &sql, const Values &values) {
    QStringList lines;
    for (const Row &row : db.rows(sql, values)) {
        QStringList cells;
        for (size_t i = 0; i < row.columns().names().size(); ++i)
            cells << row.text(i);
        lines << cells.join(u'|');
    }
    return lines;
}

QString Shop::stock(const QString &goods) {
    return figures(QStringLiteral("select kc_sl,kc_zsl,kc_xssl,kc_cbj from jxc_kcsp where g_sn=? "
                                  "and ck_sn='100001'"),
                   {goods});
}

QString Shop::lastLog() {
    return db.scalar(QStringLiteral("select log_note from jxc_log order by id desc limit 1"));
}

QStringList Shop::everything() {
    QStringList all;
    for (const QString &table : db.tableNames()) {
        QStringList rows = texts(QStringLiteral("select * from ") + table);
        rows.sort();
        all << table << rows;
    }
    return all;
}

void Shop::demand(const Outcome &outcome) {
    if (!outcome.isDone())
        qFatal("%s", qPrintable(outcome.text));
}

} // namespace jxc::test
