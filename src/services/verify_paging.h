#pragma once

#include "db/database.h"

#include <functional>

namespace jxc::verify {

/// A query that is read to its end in pages, so that memory stays small however long the books are.
struct PagedQuery {
    QString select; ///< begins with the keys
    QString from;
    QString where{};  ///< may be empty
    QStringList keys; ///< order of the rows, unique together; a key ending in "id" is a number
    Values values{};  ///< of the "?" in `where`
};

/// Visits every row in the order of the keys. Rows whose key is null are not met.
void eachRow(Database &db, const PagedQuery &query, const std::function<void(const Row &)> &visit);

/// A stretch of document numbers of one code: those above `after`, up to `upTo`.
struct NumberRange {
    QString after, upTo;

    /// "gl_djh>? and gl_djh<=?"
    [[nodiscard]] static QString condition(const QString &column);
    [[nodiscard]] Values values() const { return {after, upTo}; }
};

/// The header table of a kind of document.
struct HeaderTable {
    QString table, number, status;
    QString columns; ///< to be read beside the number and the status
};

/// Headers by number; of several with one number the approved one.
using Headers = std::map<QString, Row>;

/// Walks through all headers whose numbers begin with a code, a page at a time. The ranges of the
/// pages cover every number that begins with the code, so that rows of ledgers whose document is
/// gone are met too.
void eachHeaderPage(Database &db, const HeaderTable &table, const QString &code,
                    const std::function<void(const Headers &, const NumberRange &)> &visit);

} // namespace jxc::verify
