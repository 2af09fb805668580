#include "reports/print_settings.h"

#include "db/database.h"

namespace jxc {

PrintSettings PrintSettings::load(Database &db) {
    PrintSettings s;
    const auto row = db.row(
        QStringLiteral("select cs_dysx,cs_lsj,cs_bcqdy,cs_djzddy,cs_djzddysl,cs_ts from jxc_xtcs "
                       "order by id limit 1"));
    if (!row)
        return s;
    s.byGoodsCode = row->flag(u"cs_dysx");
    s.showRetailPrice = row->flag(u"cs_lsj");
    s.beforeSaving = row->flag(u"cs_bcqdy");
    s.afterApproval = row->flag(u"cs_djzddy");
    s.copies = static_cast<int>(qBound(qint64(1), row->integer(u"cs_djzddysl"), qint64(99)));
    s.foot = row->text(u"cs_ts");
    return s;
}

} // namespace jxc
