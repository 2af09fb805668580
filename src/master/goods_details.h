#pragma once

#include "db/row.h"

#include <QString>

namespace jxc {

class Database;

// What the editor shows of a goods and nobody types there.

/// Batches with stock: ck_name t_ph t_scrq t_yxq t_sl, the one that expires first leading.
[[nodiscard]] Rows goodsBatches(Database &db, const QString &goods);
/// Stock per warehouse: ck_name kc_sl kc_zsl kc_cbj.
[[nodiscard]] Rows goodsStock(Database &db, const QString &goods);

/// The file of a goods' picture below the home folder; empty when it has none.
[[nodiscard]] QString goodsPicture(const QString &home, const QString &goods);
/// Copies a .png or .jpg there in place of the old one. Answers what went wrong; empty when it is
/// done.
[[nodiscard]] QString storeGoodsPicture(const QString &home, const QString &goods,
                                        const QString &file);
/// Also called when the goods is deleted: its code may be given again.
void removeGoodsPicture(const QString &home, const QString &goods);

} // namespace jxc
