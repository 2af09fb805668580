#include "retail/member_shop.h"

namespace jxc::test {

MemberShop::MemberShop() {
    addMember(QStringLiteral("100002"), QStringLiteral("老李"));
    addGoods(QStringLiteral("G1"));
    addGoods(QStringLiteral("G2"), {{QStringLiteral("g_tjsp"), 1}});
    db.execute(QStringLiteral("update jxc_goods set g_tjsp=0 where g_tjsp is null"));
    db.execute(QStringLiteral("delete from jxc_hyfl"));
    int from = 0;
    for (const char16_t *level : {u"100001", u"100002", u"100003"}) {
        db.insertRow(QStringLiteral("jxc_hyfl"), {{QStringLiteral("hl_sn"), level},
                                                  {QStringLiteral("hl_name"), level},
                                                  {QStringLiteral("hl_zk"), 1},
                                                  {QStringLiteral("hl_jfxx"), from},
                                                  {QStringLiteral("hl_jfsx"), from + 99}});
        from += 100;
    }
}

void MemberShop::addMember(const QString &number, const QString &name) {
    addCard(number, number,
            {{QStringLiteral("hy_name"), name},
             {QStringLiteral("hy_sr"), u"1970-06-15"},
             {QStringLiteral("hy_sj"), 1}});
}

void MemberShop::change(const QString &table, const QString &assignments, const QString &where) {
    for (const QString &assignment : assignments.split(u' ', Qt::SkipEmptyParts)) {
        const QString text = assignment.section(u'=', 1);
        bool isNumber = false;
        (void)text.toLongLong(&isNumber);
        const bool isFigure = isNumber || (text.contains(u'.') && !text.contains(u'-'));
        db.updateRows(table,
                      {{assignment.section(u'=', 0, 0), isFigure && !text.startsWith(u"0000")
                                                            ? Value(Decimal::fromText(text))
                                                            : Value(text)}},
                      where, {});
    }
}

void MemberShop::addReceipt(const QString &number, const QString &day, Decimal due,
                            Decimal storedValue, const QString &goods) {
    db.insertRow(QStringLiteral("jxc_posxsd"),
                 {{QStringLiteral("gl_djh"), number},
                  {QStringLiteral("hy_sn"), member},
                  {QStringLiteral("pos_xsrq"), QString(day + QStringLiteral(" 10:11:12"))},
                  {QStringLiteral("pos_yfje"), due},
                  {QStringLiteral("pos_sfje"), due},
                  {QStringLiteral("pos_xj"), due - storedValue},
                  {QStringLiteral("pos_czk"), storedValue},
                  {QStringLiteral("a_name"), u"admin"}});
    db.insertRow(QStringLiteral("jxc_posxssp"), {{QStringLiteral("gl_djh"), number},
                                                 {QStringLiteral("g_sn"), goods},
                                                 {QStringLiteral("pos_dj"), due},
                                                 {QStringLiteral("pos_sl"), 1},
                                                 {QStringLiteral("pos_zje"), due}});
}

QString MemberShop::figuresOf(const QString &key) {
    const QString figures =
        this->figures(QStringLiteral("select hy_jf,hy_zjf,hy_zje,hy_cs,hy_zhje,hy_ye from jxc_hyxx "
                                     "where hy_sn=?"),
                      {key});
    return figures + u' ' +
           db.scalar(QStringLiteral("select hl_sn from jxc_hyxx where hy_sn=?"), {key});
}

QString MemberShop::posted(const QString &receipt) {
    return figures(
        QStringLiteral("select pos_bcjf,pos_zjf,pos_jfye from jxc_posxsd where gl_djh=?"),
        {receipt});
}

} // namespace jxc::test
