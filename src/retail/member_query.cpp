#include "retail/member_query.h"

#include "base/dates.h"
#include "base/sanitize.h"
#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"
#include "retail/member_search.h"

namespace jxc {

namespace {

void addRange(Where &where, const char16_t *column, const std::optional<Decimal> &from,
              const std::optional<Decimal> &to) {
    const QString figure = QStringLiteral("coalesce(m.%1,0)").arg(QString::fromUtf16(column));
    if (from)
        where.add(figure + QStringLiteral(">=?"), {*from});
    if (to)
        where.add(figure + QStringLiteral("<=?"), {*to});
}

void addSearch(Where &where, const QString &search) {
    if (search.isEmpty())
        return;
    QStringList alternatives;
    Values bound;
    for (const char *column :
         {"m.hy_bh", "m.hy_name", "m.hy_jm", "m.hy_mobile", "m.hy_tele", "m.hy_zjhm"}) {
        const QString name = QString::fromLatin1(column);
        alternatives << contains(name);
        bound.emplace_back(containsPattern(name == u"m.hy_name" ? sanitizeSqlText(search)
                                                                : sanitizeSqlTextLight(search)));
    }
    where.add(u'(' + alternatives.join(QStringLiteral(" or ")) + u')', bound);
}

/// Who joined a week ago is not one who stayed away for a month.
void addIdle(Where &where, const Session &session, int days) {
    if (days <= 0)
        return;
    const QString since = toDateText(session.now().date().addDays(-days));
    where.add(QStringLiteral("coalesce(m.hy_jrrq,'')<=?"), {since});
    where.add(QStringLiteral("not exists (select 1 from jxc_posxsd p where p.hy_sn=m.hy_sn and "
                             "p.pos_xsrq>? and p.pos_yfje>0)"),
              {since + QStringLiteral(" 23:59:59")});
}

void addBirthMonth(Where &where, int month) {
    if (month < 1)
        return;
    // Old books hold "1980-5-3" too.
    where.add(
        QStringLiteral("substr(m.hy_sr,6,2) in (?,?)"),
        {QStringLiteral("%1").arg(month, 2, 10, QChar(u'0')), QStringLiteral("%1-").arg(month)});
}

Where whereOf(const Session &session, const MemberFilter &filter) {
    Where where;
    addSearch(where, filter.search.trimmed());
    where.addEqual(QStringLiteral("m.hl_sn"), filter.level);
    where.addEqual(QStringLiteral("m.hh_sn"), filter.offer);
    addRange(where, u"hy_zhje", filter.valueFrom, filter.valueTo);
    addRange(where, u"hy_jf", filter.pointsFrom, filter.pointsTo);
    addRange(where, u"hy_zje", filter.spentFrom, filter.spentTo);
    if (!filter.joinedFrom.isEmpty())
        where.add(QStringLiteral("m.hy_jrrq>=?"), {filter.joinedFrom});
    if (!filter.joinedTo.isEmpty())
        where.add(QStringLiteral("m.hy_jrrq<=?"), {filter.joinedTo});
    addBirthMonth(where, filter.birthMonth);
    addIdle(where, session, filter.idleDays);
    return where;
}

/// "100 – 500", "100 以上", "500 以下"; empty without bounds.
QString spanWords(const QString &from, const QString &to) {
    if (!from.isEmpty() && !to.isEmpty())
        return QStringLiteral("%1 – %2").arg(from, to);
    if (!from.isEmpty())
        return from + QStringLiteral(" 以上");
    return to.isEmpty() ? QString() : to + QStringLiteral(" 以下");
}

QString boundWords(const std::optional<Decimal> &bound) {
    return bound ? bound->toText() : QString();
}

QString nameOf(const Session &session, const QString &sql, const QString &code) {
    const QString name = session.db().scalar(sql, {code});
    return name.isEmpty() ? code : name;
}

} // namespace

bool MemberFilter::isActive() const {
    MemberFilter bare;
    bare.search = search;
    return *this != bare;
}

Rows listMembers(const Session &session, const MemberFilter &filter, bool cardsOnly) {
    Where where = whereOf(session, filter);
    if (cardsOnly)
        where.add(QStringLiteral("m.hy_sn<>?"), {noMember});
    return session.db().rows(
        QStringLiteral(
            "select m.id,m.hy_sn,m.hy_bh,m.hy_name,m.hy_jm,l.hl_name,h.hh_name,m.hy_mobile,m.hy_jf,"
            "m.hy_zjf,m.hy_zhje,m.hy_zje,m.hy_cs,m.hy_jrrq,m.hy_dqrq,m.hy_status,m.hy_note,m.hy_sr,"
            "m.hy_qx,0 as disabled from jxc_hyxx m "
            "left join (select hl_sn,max(hl_name) as hl_name from jxc_hyfl group by hl_sn) l on "
            "l.hl_sn=m.hl_sn "
            "left join (select hh_sn,max(hh_name) as hh_name from jxc_hyyh group by hh_sn) h on "
            "h.hh_sn=m.hh_sn where %1 order by m.id")
            .arg(where.text()),
        where.values());
}

QStringList filterWords(const Session &session, const MemberFilter &filter) {
    QStringList words;
    const auto add = [&](const char16_t *caption, const QString &what) {
        if (!what.isEmpty())
            words << QString::fromUtf16(caption) + u' ' + what;
    };
    if (!filter.level.isEmpty())
        add(u"会员级别",
            nameOf(session, QStringLiteral("select hl_name from jxc_hyfl where hl_sn=?"),
                   filter.level));
    if (!filter.offer.isEmpty())
        add(u"优惠方式",
            nameOf(session, QStringLiteral("select hh_name from jxc_hyyh where hh_sn=?"),
                   filter.offer));
    add(u"卡内金额", spanWords(boundWords(filter.valueFrom), boundWords(filter.valueTo)));
    add(u"会员积分", spanWords(boundWords(filter.pointsFrom), boundWords(filter.pointsTo)));
    add(u"累计消费", spanWords(boundWords(filter.spentFrom), boundWords(filter.spentTo)));
    add(u"加入日期", spanWords(filter.joinedFrom, filter.joinedTo));
    if (filter.birthMonth > 0)
        words << QStringLiteral("%1月生日").arg(filter.birthMonth);
    if (filter.idleDays > 0)
        words << QStringLiteral("%1天未消费").arg(filter.idleDays);
    return words;
}

} // namespace jxc
