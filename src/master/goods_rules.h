#pragma once

#include <QString>

namespace jxc {

class Database;
class Record;
class Session;

/// The goods of the discount line; no list shows it.
inline const QString discountGoods = QStringLiteral("00000000");

/// The code of a new goods. With automatic codes: the number of its class in at least two digits
/// and a six-digit serial, one above the greatest of that form; else what was typed, or eight
/// digits as a proposal.
[[nodiscard]] QString goodsCode(const Session &session, const Record &goods);
/// Whether goods get their codes by themselves (cs_spbh).
[[nodiscard]] bool goodsCodeIsAutomatic(Database &db);

/// The rules of a goods' own row: a restricted one bears a registration number, its base unit stays
/// once it moved. Throws FieldRefusal.
void checkGoodsRow(const Session &session, Record &goods);
/// Whether the journal knows the goods.
[[nodiscard]] bool hasMoved(Database &db, const QString &goods);

} // namespace jxc
