#include "retail/member_search.h"

#include "base/pinyin.h"
#include "base/sanitize.h"
#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "db/where.h"

namespace jxc {

namespace {

Rows read(const Session &session, const Where &where, const QString &order, const Values &ranked,
          int most) {
    Values values = where.values();
    values.insert(values.end(), ranked.begin(), ranked.end());
    return session.db().rows(
        QStringLiteral("select m.hy_sn,m.hy_bh,m.hy_name,m.hy_jm,m.hy_mobile,m.hl_sn,l.hl_name,"
                       "m.hh_sn,h.hh_name,m.hy_sr,m.hy_zhje,m.hy_jf,m.hy_zjf,m.hy_status "
                       "from jxc_hyxx m "
                       "left join (select hl_sn,max(hl_name) as hl_name from jxc_hyfl group by "
                       "hl_sn) l on l.hl_sn=m.hl_sn "
                       "left join (select hh_sn,max(hh_name) as hh_name from jxc_hyyh group by "
                       "hh_sn) h on h.hh_sn=m.hh_sn "
                       "where %1 order by %2 limit %3")
            .arg(where.text(), order)
            .arg(most),
        values);
}

Where membersOnly() {
    Where where;
    where.add(QStringLiteral("m.hy_sn<>?"), {noMember});
    return where;
}

Rows exactly(const Session &session, const QString &column, const QString &text, int most) {
    Where where = membersOnly();
    where.addEqual(column, text);
    return read(session, where, QStringLiteral("m.id"), {}, most);
}

Rows containing(const Session &session, const QString &text, int most) {
    const QString number = sanitizeSqlTextLight(text);
    const QString words = sanitizeSqlText(text);
    QStringList alternatives;
    Values bound;
    for (const char *column : {"m.hy_bh", "m.hy_name", "m.hy_jm", "m.hy_mobile", "m.hy_tele"}) {
        const QString name = QString::fromLatin1(column);
        alternatives << contains(name);
        bound.emplace_back(containsPattern(name == u"m.hy_name" ? words : number));
    }
    Where where = membersOnly();
    where.add(u'(' + alternatives.join(QStringLiteral(" or ")) + u')', bound);

    QStringList order;
    Values ranked;
    const auto prefer = [&](const QString &condition, const QString &value) {
        order << QStringLiteral("case when %1 then 0 else 1 end").arg(condition);
        ranked.emplace_back(value);
    };
    for (const char *column : {"m.hy_name", "m.hy_jm", "m.hy_bh"}) {
        const QString name = QString::fromLatin1(column);
        const QString &sought = name == u"m.hy_name" ? words : number;
        prefer(QStringLiteral("lower(%1)=lower(?)").arg(name), sought);
        prefer(contains(name), containsPattern(sought).mid(1));
    }
    order << QStringLiteral("m.id");
    return read(session, where, order.join(u','), ranked, most);
}

/// Nobody has that name or number: perhaps another reading of its characters was meant.
Rows readOtherwise(const Session &session, const QString &text, int most) {
    if (pinyinInitials(text).isEmpty())
        return {}; // of signs alone, which any name would begin with
    QStringList keys;
    for (const Row &row : session.db().rows(
             QStringLiteral("select hy_sn,hy_name from jxc_hyxx where hy_sn<>? order by id"),
             {noMember}))
        if (keys.size() < most && initialsMatch(row.text(u"hy_name"), text))
            keys << row.text(u"hy_sn");
    if (keys.isEmpty())
        return {};
    Where where;
    where.addOneOf(QStringLiteral("m.hy_sn"), keys);
    return read(session, where, QStringLiteral("m.id"), {}, most);
}

} // namespace

Rows findMembers(const Session &session, const QString &typed, int most) {
    const QString text = typed.trimmed();
    if (text.isEmpty())
        return read(session, membersOnly(), QStringLiteral("coalesce(m.hy_cs,0) desc,m.id"), {},
                    most);
    const QString number = sanitizeSqlTextLight(text);
    if (number.isEmpty())
        return {}; // only of signs that nobody's name or number holds
    for (const auto &column : {QStringLiteral("m.hy_bh"), QStringLiteral("m.hy_mobile")})
        if (Rows rows = exactly(session, column, number, most); !rows.empty())
            return rows;
    Rows rows = containing(session, text, most);
    return rows.empty() ? readOtherwise(session, text, most) : rows;
}

std::optional<Row> memberRow(const Session &session, const QString &key) {
    Where where;
    where.add(QStringLiteral("m.hy_sn=?"), {key});
    Rows rows = read(session, where, QStringLiteral("m.id"), {}, 1);
    return rows.empty() ? std::nullopt : std::optional<Row>(std::move(rows.front()));
}

} // namespace jxc
