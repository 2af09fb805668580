#include "retail/member.h"

#include "core/action.h"
#include "db/database.h"

namespace jxc {

namespace {

std::optional<Member> findBy(Database &db, const QString &column, const QString &text) {
    const auto row =
        db.row(QStringLiteral("select id,hy_sn,hy_bh,hy_name,hy_mobile,hy_sr,hy_mm,hl_sn,hh_sn,"
                              "hy_sj,hy_status,hy_qx,hy_dqrq,hy_zhje,hy_jf,hy_zjf,hy_zje,hy_ye,"
                              "hy_cs from jxc_hyxx where %1=? order by id")
                   .arg(column),
               {text});
    if (!row)
        return std::nullopt;
    Member m;
    m.id = row->integer(u"id");
    m.key = row->text(u"hy_sn");
    m.number = row->text(u"hy_bh");
    m.name = row->text(u"hy_name");
    m.mobile = row->text(u"hy_mobile");
    m.birthday = row->text(u"hy_sr");
    m.password = row->text(u"hy_mm");
    m.level = row->text(u"hl_sn");
    m.offer = row->text(u"hh_sn");
    m.levelFollows = row->flag(u"hy_sj");
    m.lost = row->flag(u"hy_status");
    m.expires = row->flag(u"hy_qx");
    m.expiry = row->text(u"hy_dqrq");
    m.value = row->decimal(u"hy_zhje");
    m.points = row->decimal(u"hy_jf");
    m.allPoints = row->decimal(u"hy_zjf");
    m.spent = row->decimal(u"hy_zje");
    m.remainder = row->decimal(u"hy_ye");
    m.visits = row->integer(u"hy_cs");
    return m;
}

} // namespace

std::optional<Member> findMember(Database &db, const QString &key) {
    return findBy(db, QStringLiteral("hy_sn"), key);
}

std::optional<Member> findMemberByNumber(Database &db, const QString &number) {
    return findBy(db, QStringLiteral("hy_bh"), number);
}

Member loadMember(Database &db, const QString &key) {
    auto member = findMember(db, key);
    if (!member)
        throw Refusal(QStringLiteral("会员“%1”不存在！").arg(key));
    return *std::move(member);
}

void storeMemberFigures(Database &db, const Member &m) {
    db.updateRows(QStringLiteral("jxc_hyxx"),
                  {{QStringLiteral("hy_zhje"), m.value},
                   {QStringLiteral("hy_jf"), m.points},
                   {QStringLiteral("hy_zjf"), m.allPoints},
                   {QStringLiteral("hy_zje"), m.spent},
                   {QStringLiteral("hy_ye"), m.remainder},
                   {QStringLiteral("hy_cs"), m.visits},
                   {QStringLiteral("hl_sn"), m.level}},
                  QStringLiteral("id=?"), {m.id});
}

std::optional<QString> levelHolding(Database &db, Decimal points) {
    for (const Row &row :
         db.rows(QStringLiteral("select hl_sn,hl_jfxx,hl_jfsx from jxc_hyfl order by id")))
        if (row.decimal(u"hl_jfxx") <= points && points <= row.decimal(u"hl_jfsx"))
            return row.text(u"hl_sn");
    return std::nullopt;
}

QString LevelForPoints(Database &db, Decimal points) {
    return levelHolding(db, points).value_or(QStringLiteral("100001"));
}

} // namespace jxc
