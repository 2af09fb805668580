#include "money/partner_statement.h"

#include "core/session.h"
#include "core/visible_warehouses.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "money/list_conditions.h"

namespace jxc {

namespace {

/// The documents of one side: those that make a debt and, `ret`, those that lower it.
struct Side {
    QString prefix; ///< of the partner's columns
    QString debt, debtNumber, debtDate, debtPrefix, debtKind, debtLines, debtQuantity;
    QString ret, returnDate, returnKind;
    QString flags; ///< kinds of the journal
};

const Side &sideOf(Partner::Kind kind) {
    const auto t = [](const char16_t *text) { return QString::fromUtf16(text); };
    static const Side customers{t(u"kh"),         t(u"jxc_lsxsd"),    t(u"gl_djh"),
                                t(u"ls_xsrq"),    t(u"ls"),           t(u"商品销售付款"),
                                t(u"jxc_lsxssp"), t(u"ls_sl"),        t(u"jxc_xsthd"),
                                t(u"th_xsrq"),    t(u"销售退货支出"), t(u"'xs','xt'")};
    static const Side suppliers{t(u"ghs"),     t(u"jxc_jhd"),  t(u"j_sn"),     t(u"j_jhrq"),
                                t(u"j"),       t(u"进货支付"), t(u"jxc_jhsp"), t(u"jh_sl"),
                                t(u"jxc_thd"), t(u"th_thrq"),  t(u"退货还款"), t(u"'cj','ct'")};
    return kind == Partner::Kind::customer ? customers : suppliers;
}

/// A date may carry the time of the day.
QString endOf(const QString &day) {
    return day.isEmpty() ? day : day + QStringLiteral(" 23:59:59");
}

Where documentsOf(const Session &session, const StatementQuery &query, const Side &side,
                  const QString &status, const QString &date, const QString &number) {
    Where where;
    where.add(status + QStringLiteral("=1"));
    addPeriod(where, date, query.from, endOf(query.to));
    where.addEqual(QStringLiteral("a.%1_sn").arg(side.prefix), query.partner);
    where.addEqual(QStringLiteral("a.ck_sn"), query.warehouse);
    addSearch(where, {number}, query.number);
    addWarehouseRestriction(session, where, QStringLiteral("a.ck_sn"));
    return where;
}

/// The partner by what is typed of him; `p` is his own table.
void addPartnerSearch(Where &where, const Side &side, const QString &search) {
    addSearch(where,
              {QStringLiteral("p.%1_sn").arg(side.prefix),
               QStringLiteral("p.%1_jm").arg(side.prefix),
               QStringLiteral("p.%1_name").arg(side.prefix)},
              search);
}

Where linesOf(const Session &session, const StatementQuery &query, const Side &side) {
    Where where;
    where.add(QStringLiteral("a.gl_flag in (%1)").arg(side.flags));
    addPeriod(where, QStringLiteral("a.gl_kdrq"), query.from, endOf(query.to));
    where.addEqual(QStringLiteral("a.ghs_sn"), query.partner);
    where.addEqual(QStringLiteral("a.ck_sn"), query.warehouse);
    addSearch(where, {QStringLiteral("a.gl_djh")}, query.number);
    addPartnerSearch(where, side, query.search);
    addWarehouseRestriction(session, where, QStringLiteral("a.ck_sn"));
    return where;
}

QString joinPartner(const Side &side, const QString &column) {
    return QStringLiteral(" left join jxc_%1xx p on p.%1_sn=%2 ").arg(side.prefix, column);
}

QString directionOf(const StatementQuery &query) {
    return query.newestFirst ? QStringLiteral(" desc") : QString();
}

QString limitOf(const StatementQuery &query) {
    return query.most > 0 ? QStringLiteral(" limit %1").arg(query.most) : QString();
}

/// The two halves of a statement, each cut to the piece that is asked for before they meet.
class Branches {
public:
    Branches(const StatementQuery &query, const Side &side)
        : m_query(query)
        , m_side(side) {}

    /// `sort` is the half's place on one day.
    void add(const QString &columns, const QString &table, const QString &sort, const QString &date,
             const QString &number, Where where) {
        addPartnerSearch(where, m_side, m_query.search);
        if (m_query.after)
            startAfter(where, sort, date, number);
        const QString down = directionOf(m_query);
        m_halves << QStringLiteral("select * from (select %1,p.%2_name as partner_name,p.%2_jm as "
                                   "partner_jm from %3 a")
                            .arg(columns, m_side.prefix, table) +
                        joinPartner(m_side, QStringLiteral("a.%1_sn").arg(m_side.prefix)) +
                        QStringLiteral("where %1 order by %2%4,%3%4")
                            .arg(where.text(), date, number, down) +
                        limitOf(m_query) + QStringLiteral(") h%1").arg(sort);
        m_values.insert(m_values.end(), where.values().begin(), where.values().end());
    }

    [[nodiscard]] QString text() const {
        return m_halves.join(QStringLiteral(" union all ")) +
               QStringLiteral(" order by rq%1,dsort,djh%1").arg(directionOf(m_query));
    }
    [[nodiscard]] const Values &values() const { return m_values; }

private:
    void startAfter(Where &where, const QString &sort, const QString &date,
                    const QString &number) const {
        const QString day = m_query.after->text(u"rq");
        const QString last = m_query.after->text(u"dsort");
        const QString beyond = m_query.newestFirst ? QStringLiteral("<") : QStringLiteral(">");
        if (sort == last)
            where.add(QStringLiteral("(%1%3? or (%1=? and %2%3?))").arg(date, number, beyond),
                      {day, day, m_query.after->text(u"djh")});
        else // of the same day the other half follows wholly, or stands before wholly
            where.add(date + beyond + (sort > last ? QStringLiteral("=?") : QStringLiteral("?")),
                      {day});
    }

    const StatementQuery &m_query;
    const Side &m_side;
    QStringList m_halves;
    Values m_values;
};

/// Sums of the journal's columns, named as they are.
QString sums(const Session &session, const QStringList &columns) {
    QStringList all;
    for (const QString &column : columns)
        all << QStringLiteral("%1 as %2")
                   .arg(session.db().dialect().exactSum(QStringLiteral("a.") + column), column);
    return all.join(u',');
}

} // namespace

Rows statementDocuments(const Session &session, const StatementQuery &query) {
    const Side &side = sideOf(query.kind);
    const QString &k = side.debtPrefix;
    const auto a = [](const QString &column) { return QStringLiteral("a.") + column; };
    // A tenth of a second for every hundred thousand documents: the engine subtracts.
    const QString ofDebts =
        QStringLiteral("a.%1 as djh,a.%2_sn as partner,a.ck_sn,a.%3 as rq,a.%4_yfje as yfje,"
                       "a.%4_sfje as sfje,a.%4_yhje as yhje,a.%4_hkje as hkje,"
                       "(a.%4_yfje-a.%4_sfje-a.%4_yhje-a.%4_hkje) as wfje,'%5' as fktype,a.u_sn,"
                       "a.%4_note as dnote,a.a_name,'1' as dsort,a.%4_checker as checker,"
                       "a.%4_chkrq as chkrq,a.%4_yf as yf,a.%4_bzf as bzf,a.%4_yffs as yffs")
            .arg(side.debtNumber, side.prefix, side.debtDate, k, side.debtKind);
    const QString sign = query.netted ? QStringLiteral("-") : QString();
    const QString ofReturns =
        QStringLiteral("a.gl_djh,a.%1_sn,a.ck_sn,a.%2,%4a.th_yfje,%4a.th_sfje,0,%4a.th_hkje,"
                       "%4(a.th_yfje-a.th_sfje-a.th_hkje),'%3',a.u_sn,a.th_note,a.a_name,'2',"
                       "a.th_checker,a.th_chkrq,0,0,''")
            .arg(side.prefix, side.returnDate, side.returnKind, sign);
    Branches branches(query, side);
    branches.add(ofDebts, side.debt, QStringLiteral("1"), a(side.debtDate), a(side.debtNumber),
                 documentsOf(session, query, side, QStringLiteral("a.%1_status").arg(k),
                             a(side.debtDate), a(side.debtNumber)));
    branches.add(ofReturns, side.ret, QStringLiteral("2"), a(side.returnDate),
                 QStringLiteral("a.gl_djh"),
                 documentsOf(session, query, side, QStringLiteral("a.th_status"),
                             a(side.returnDate), QStringLiteral("a.gl_djh")));
    const QString down = directionOf(query);
    return session.db().rows(
        QStringLiteral("select d.*,u.u_name,c.ck_name from (%1) d left join jxc_user u on "
                       "u.u_sn=d.u_sn left join jxc_ckxx c on c.ck_sn=d.ck_sn order by "
                       "d.rq%2,d.dsort,d.djh%2")
            .arg(branches.text() + limitOf(query), down),
        branches.values());
}

Rows statementGoods(const Session &session, const StatementQuery &query) {
    const Side &side = sideOf(query.kind);
    const Where where = linesOf(session, query, side);
    return session.db().rows(
        QStringLiteral("select a.g_sn,min(a.g_name) as g_name,min(a.gg_name) as gg_name,"
                       "min(a.dw_name) as dw_name,") +
            sums(session, QStringLiteral("gl_sl gl_zje gl_je gl_taxje").split(u' ')) +
            QStringLiteral(" from jxc_goodslist a") +
            joinPartner(side, QStringLiteral("a.ghs_sn")) +
            QStringLiteral("where %1 group by a.g_sn order by a.g_sn").arg(where.text()),
        where.values());
}

Rows statementLines(const Session &session, const StatementQuery &query) {
    const Side &side = sideOf(query.kind);
    Where where = linesOf(session, query, side);
    if (query.after) {
        const QString day = query.after->text(u"gl_kdrq");
        where.add(QStringLiteral("(a.gl_kdrq%1? or (a.gl_kdrq=? and a.id%1?))")
                      .arg(query.newestFirst ? QStringLiteral("<") : QStringLiteral(">")),
                  {day, day, query.after->integer(u"id")});
    }
    const QString down = directionOf(query);
    const Rows rows = session.db().rows(
        QStringLiteral("select a.id,a.gl_kdrq,a.gl_djh,a.gl_flag,a.ghs_sn as partner,a.ghs_name as "
                       "partner_name,a.ck_name,a.g_sn,a.g_name,a.gg_name,a.dw_name,a.gl_sl,a.gl_dj,"
                       "a.gl_taxdj,a.gl_zje,a.gl_je,a.gl_taxje,a.gl_lr,a.t_ph,a.u_name,a.gl_bz "
                       "from jxc_goodslist a") +
            joinPartner(side, QStringLiteral("a.ghs_sn")) +
            QStringLiteral("where %1 order by a.gl_kdrq%2,a.id%2").arg(where.text(), down) +
            limitOf(query),
        where.values());
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(), {QStringLiteral("lrl")});
    for (const Row &row : rows) {
        // A quotient by zero is zero here, as the rate of a line without amount is to be.
        const Ratio rate = (row.decimal(u"gl_lr") * Decimal(100)) / row.decimal(u"gl_je");
        list.add(row, {rate.rounded(2)});
    }
    return list.take();
}

Rows statementMonths(const Session &session, const StatementQuery &query) {
    const Side &side = sideOf(query.kind);
    const Where where = linesOf(session, query, side);
    const QString month = QStringLiteral("substr(a.gl_kdrq,1,7)");
    return session.db().rows(
        QStringLiteral("select %1 as month,").arg(month) +
            sums(session, QStringLiteral("gl_sl gl_zje gl_je gl_taxje gl_lr").split(u' ')) +
            QStringLiteral(" from jxc_goodslist a") +
            joinPartner(side, QStringLiteral("a.ghs_sn")) +
            QStringLiteral("where %1 group by %2 order by %2").arg(where.text(), month),
        where.values());
}

Rows statementFreight(const Session &session, const StatementQuery &query) {
    const Side &side = sideOf(query.kind);
    const QString &k = side.debtPrefix;
    Where where =
        documentsOf(session, query, side, QStringLiteral("a.%1_status").arg(k),
                    QStringLiteral("a.") + side.debtDate, QStringLiteral("a.") + side.debtNumber);
    where.add(QStringLiteral("(a.%1_yf>0 or a.%1_bzf>0)").arg(k));
    addPartnerSearch(where, side, query.search);
    const auto sum = [&](const QString &column) { return session.db().dialect().exactSum(column); };
    QStringList amounts;
    for (const char16_t *name : {u"yfje", u"sfje", u"yhje", u"yf", u"bzf"})
        amounts << QStringLiteral("%1 as %2")
                       .arg(sum(QStringLiteral("a.%1_%2").arg(k, QString::fromUtf16(name))),
                            QString::fromUtf16(name));
    const QString quantity =
        QStringLiteral("(select %1 from %2 l where l.%3=a.%3 and l.g_sn<>'00000000')")
            .arg(sum(QStringLiteral("l.") + side.debtQuantity), side.debtLines, side.debtNumber);
    return session.db().rows(
        QStringLiteral("select a.partner,min(a.partner_name) as partner_name,a.%1_yffs as yffs,"
                       "count(*) as count,%2 as sl,%3 from (select a.*,a.%4_sn as partner,"
                       "p.%4_name as partner_name,%5 as quantity from %6 a")
                .arg(k, sum(QStringLiteral("a.quantity")), amounts.join(u','), side.prefix,
                     quantity, side.debt) +
            joinPartner(side, QStringLiteral("a.%1_sn").arg(side.prefix)) +
            QStringLiteral("where %1) a group by a.partner,a.%2_yffs order by a.partner")
                .arg(where.text(), k),
        where.values());
}

} // namespace jxc
