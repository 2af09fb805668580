#pragma once

#include <QString>

namespace jxc {

class Database;
class Session;

/// What a receipt looks like and where it goes: the one row of jxc_posprint.
struct PrintSettings {
    bool usesEscPos = false; ///< pp_dyfs 1: a receipt printer takes our bytes as they are
    int printer = 0;         ///< pp_dyj, index among the system's printers
    bool isWide = false;     ///< pp_kd 1: 80 mm, else 58 mm
    QString title1, title2, foot1, foot2; ///< pp_bt1 pp_bt2 pp_jz1 pp_jz2
    int emptyLines = 2;                   ///< pp_khs, fed after a receipt
    int copies = 1;                       ///< pp_fs
    bool cuts = false;                    ///< pp_zdqz
    bool opensDrawer = false;             ///< pp_dkqx
    bool printsMember = false;            ///< pp_xfjf: spending and points
    bool printsCapitals = false;          ///< pp_jedx
    bool printsTenders = false;           ///< pp_fkfs
    bool previews = false;                ///< pp_zjdy 小票打印之前先预览
    bool printsAfterPaying = true;        ///< pp_bzxx 结账后打印销售单

    /// Columns of a line of the receipt, a Chinese sign taking two.
    [[nodiscard]] int columns() const { return isWide ? 48 : 32; }

    static PrintSettings load(Database &db);
    /// Replaces the row; inside a transaction that is open.
    void store(Database &db) const;
};

} // namespace jxc
