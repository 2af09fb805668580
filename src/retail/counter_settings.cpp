#include "retail/counter_settings.h"

#include "core/session.h"
#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

int decimalsOf(const Row &row, QStringView column) {
    return static_cast<int>(std::clamp<qint64>(row.integer(column), 0, 6));
}

void takeOwnSettings(CounterSettings &s, Database &db) {
    const auto row = db.row(QStringLiteral("select * from jxc_poscs"));
    if (!row)
        return;
    s.amountDecimals = decimalsOf(*row, u"pos_jews");
    s.priceDecimals = decimalsOf(*row, u"pos_djws");
    s.weightPrefix = row->text(u"pos_jzqz").trimmed();
    s.countPrefix = row->text(u"pos_jsqz").trimmed();
    s.scaleCarriesAmount = row->integer(u"pos_tmlx") == 1;
    s.opensDrawer = row->flag(u"pos_dkqx");
    s.drawerOnPort = row->integer(u"pos_qxjk") == 1;
    s.customerDisplay = row->integer(u"pos_kxjk") == 1;
}

void takeParameters(CounterSettings &s, Database &db) {
    const auto row =
        db.row(QStringLiteral("select cs_posdj,cs_posblur,cs_poshooktoday,cs_possk,cs_posfkws,"
                              "cs_zdzk,cs_wxzf from jxc_xtcs"));
    if (!row)
        return;
    s.pricesEditable = row->flag(u"cs_posdj");
    s.listsMatches = row->flag(u"cs_posblur");
    s.onlyTodaysHeld = row->flag(u"cs_poshooktoday");
    s.memberRequired = row->flag(u"cs_possk");
    s.chargesWallets = row->flag(u"cs_wxzf");
    s.dueDecimals = decimalsOf(*row, u"cs_posfkws");
    s.lowestDiscount = row->decimal(u"cs_zdzk");
}

} // namespace

CounterSettings CounterSettings::load(const Session &session) {
    Database &db = session.db();
    CounterSettings s;
    takeOwnSettings(s, db);
    takeParameters(s, db);
    if (const auto row = db.row(QStringLiteral("select a_zreoje from jxc_admin where a_name=?"),
                                {session.currentOperatorName}))
        s.mostRounding = row->decimal(u"a_zreoje");
    s.port = db.scalar(QStringLiteral("select pos_com from jxc_poskx")).trimmed();
    s.warehouse =
        db.scalar(QStringLiteral("select ck_sn from jxc_ckxx order by coalesce(ck_pos,0) desc,"
                                 "coalesce(ck_default,0) desc,id limit 1"));
    for (const Row &row : db.rows(QStringLiteral("select gn_name,gn_jz from jxc_gnb order by id")))
        s.keys.push_back({row.text(u"gn_name"), static_cast<int>(row.integer(u"gn_jz"))});
    return s;
}

} // namespace jxc
