#pragma once

#include "db/schema.h"

#include <QDate>

namespace jxc {

/// One starting row: a text per column of its table, in their order. Figures are written plainly,
/// so that the column's type says how to store them; nothing is null.
using DefaultRow = QStringList;

/// The rows that a new account set holds in this table, in the order in which they are written;
/// most tables start empty. `today` is the day of the opening balances.
std::vector<DefaultRow> defaultRows(const Table &table, QDate today);

} // namespace jxc
