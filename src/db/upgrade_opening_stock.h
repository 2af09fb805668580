#pragma once

#include <QDate>

namespace jxc {

class Database;
class Layout;

/// Starts the journal's running stock, which older releases did not keep: the rows so far are
/// marked as before the books, and every goods gets an opening row per warehouse with its present
/// stock at its average cost, dated just after the newest of them (`today` without any).
void startJournal(Database &db, Layout &layout, QDate today);

} // namespace jxc
