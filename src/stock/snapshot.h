#pragma once

#include <QString>

namespace jxc {

class Database;

/// Refreshes the monthly stock value jxc_kcjs of every warehouse for a month ("yyyy-MM"): what is
/// in stock now, at its current cost. Rows that are missing, also the stock row of the discount
/// goods, are made. Called at the end of every approval and cancelling with the document's month.
void updateKcjs(Database &db, const QString &month);
/// The same for one warehouse; 0 when it has no stock at all.
void updateKcjsCk(Database &db, const QString &warehouse, const QString &month);

} // namespace jxc
