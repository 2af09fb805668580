#pragma once

#include <QString>

namespace jxc {

class Database;

/// The system parameters of jxc_xtcs that only printing reads.
struct PrintSettings {
    bool byGoodsCode = false;    ///< cs_dysx: lines in the order of the goods' codes, not of entry
    bool showRetailPrice = true; ///< cs_lsj
    bool beforeSaving = false;   ///< cs_bcqdy
    bool afterApproval = false;  ///< cs_djzddy
    int copies = 1;              ///< cs_djzddysl
    QString foot;                ///< cs_ts

    static PrintSettings load(Database &db);
};

} // namespace jxc
