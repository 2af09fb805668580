#include "retail/counter_rows.h"

#include "core/visible_warehouses.h"
#include "db/where.h"
#include "master/goods_rules.h"

#include <QDate>
#include <QStringList>

namespace jxc {

namespace {

/// One of the two pairs of tables; figures of returns turn.
struct Side {
    QString headers, lines;
    bool isReturn;

    [[nodiscard]] QString turned(const QString &figure) const {
        return isReturn ? u'-' + figure : figure;
    }
    [[nodiscard]] QString backFlag() const { return isReturn ? QStringLiteral("1") : flagOfCopy(); }

private:
    /// What a member brought back to the back office is known among the receipts by its number.
    [[nodiscard]] static QString flagOfCopy() {
        return QStringLiteral("case when substr(h.gl_djh,1,2)='XT' then 1 else 0 end");
    }
};

const Side &receipts() {
    static const Side side{QStringLiteral("jxc_posxsd"), QStringLiteral("jxc_posxssp"), false};
    return side;
}

const Side &returns() {
    static const Side side{QStringLiteral("jxc_posthd"), QStringLiteral("jxc_posthsp"), true};
    return side;
}

void addEqualOrNone(Where &where, const QString &column, const QString &value) {
    if (value == noneAtAll)
        where.add(QStringLiteral("coalesce(%1,'')=''").arg(column));
    else
        where.addEqual(column, value);
}

Where conditions(const Session &session, const Side &side, const CounterFilter &filter) {
    Where where;
    where.add(QStringLiteral("h.pos_xsrq>=?"), {filter.from});
    where.add(QStringLiteral("h.pos_xsrq<=?"), {endOf(filter.to)});
    where.addEqual(QStringLiteral("h.a_name"), filter.cashier);
    where.addEqual(QStringLiteral("h.ck_sn"), filter.warehouse);
    addEqualOrNone(where, QStringLiteral("h.hy_sn"), filter.member);
    where.addEqual(QStringLiteral("h.pos_rjid"), filter.settlement);
    if (filter.ofTillOnly)
        where.add(QStringLiteral("length(h.pos_xsrq)>10"));
    addWarehouseRestriction(session, where, QStringLiteral("h.ck_sn"));
    if (!side.isReturn)
        where.add(
            QStringLiteral("not exists (select 1 from jxc_posthd t where t.gl_djh=h.gl_djh)"));
    return where;
}

/// Short enough for its receipts to be fewer than what a goods sold in years.
bool isShort(const CounterFilter &filter) {
    constexpr int quarter = 92;
    const auto day = [](const QString &moment) {
        return QDate::fromString(moment.left(10), Qt::ISODate);
    };
    return day(filter.from).daysTo(day(filter.to)) <= quarter;
}

QString headerSelect(const Side &side) {
    QStringList figures;
    for (const char16_t *name : {u"pos_yfje", u"pos_sfje", u"pos_zlje", u"pos_xj", u"pos_czk",
                                 u"pos_yhk", u"pos_djq", u"pos_wxje", u"pos_zfbje", u"pos_mlje"}) {
        const QString column = QString::fromUtf16(name);
        figures
            << QStringLiteral("%1 as %2").arg(side.turned(QStringLiteral("h.") + column), column);
    }
    // The points of a return are kept with its copy among the receipts alone.
    const QString points = side.isReturn ? QStringLiteral("coalesce(c.pos_bcjf,0) as pos_bcjf,"
                                                          "coalesce(c.pos_jfye,0) as pos_jfye")
                                         : QStringLiteral("h.pos_bcjf,h.pos_jfye");
    return QStringLiteral("select h.id,h.gl_djh,h.pos_xsrq,coalesce(h.hy_sn,'') as hy_sn,h.ck_sn,"
                          "h.a_name,h.pos_rjid,%1,%2,%3 as is_return,%4 as is_back from %5 h%6")
        .arg(figures.join(u','), points, QString::number(side.isReturn ? 1 : 0), side.backFlag(),
             side.headers,
             side.isReturn ? QStringLiteral(" left join jxc_posxsd c on c.gl_djh=h.gl_djh")
                           : QString());
}

/// A quantity of goods; a discount is none.
QString quantity(const Side &side, const QString &expression, const char16_t *name) {
    return QStringLiteral("case when l.g_sn='%1' then 0 else %2 end as %3")
        .arg(discountGoods, side.turned(expression), QString::fromUtf16(name));
}

QString lineSelect(const Side &side) {
    // Receipts of other counter programs may leave the base quantity empty.
    const QString base =
        QStringLiteral("(case when coalesce(l.pos_zsl,0)=0 then l.pos_sl else l.pos_zsl end)");
    return QStringLiteral("select l.id,h.gl_djh,h.pos_xsrq,coalesce(h.hy_sn,'') as hy_sn,h.ck_sn,"
                          "h.a_name,l.g_sn,l.dw_name,%1 as t_zp,l.t_ph,l.t_yxq,l.pos_dj,l.pos_dzl,")
               .arg(side.isReturn ? QStringLiteral("''") : QStringLiteral("l.t_zp")) +
           quantity(side, QStringLiteral("l.pos_sl"), u"pos_sl") + u',' +
           quantity(side, base, u"pos_zsl") +
           QStringLiteral(",%1 as pos_zje,%2 as pos_zcb,%3 as is_return,%4 as is_back from %5 h "
                          "join %6 l on l.gl_djh=h.gl_djh")
               .arg(side.turned(QStringLiteral("l.pos_zje")),
                    side.turned(QStringLiteral("l.pos_zcb")),
                    QString::number(side.isReturn ? 1 : 0), side.backFlag(), side.headers,
                    side.lines);
}

void append(SqlPart &part, const QString &select, const Where &where) {
    if (!part.text.isEmpty())
        part.text += QStringLiteral(" union all ");
    part.text += select + QStringLiteral(" where ") + where.text();
    part.values.insert(part.values.end(), where.values().begin(), where.values().end());
}

} // namespace

QString endOf(const QString &moment) {
    return moment.size() > 10 ? moment : moment + QStringLiteral(" 23:59:59");
}

SqlPart counterReceipts(const Session &session, const CounterFilter &filter) {
    SqlPart part;
    for (const Side *side : {&receipts(), &returns()})
        append(part, headerSelect(*side), conditions(session, *side, filter));
    part.text = u'(' + part.text + u')';
    return part;
}

SqlPart counterLines(const Session &session, const CounterFilter &filter) {
    SqlPart part;
    for (const Side *side : {&receipts(), &returns()}) {
        Where where = conditions(session, *side, filter);
        // Left to itself, the engine may begin with every line that the goods ever had.
        where.addEqual(isShort(filter) ? QStringLiteral("l.g_sn||''") : QStringLiteral("l.g_sn"),
                       filter.goods);
        if (!filter.goodsClass.isEmpty()) {
            Where goods;
            goods.add(QStringLiteral("g.g_sn=l.g_sn"));
            addEqualOrNone(goods, QStringLiteral("g.gc_sn"), filter.goodsClass);
            where.add(
                QStringLiteral("exists (select 1 from jxc_goods g where %1)").arg(goods.text()),
                goods.values());
        }
        append(part, lineSelect(*side), where);
    }
    part.text = u'(' + part.text + u')';
    return part;
}

} // namespace jxc
