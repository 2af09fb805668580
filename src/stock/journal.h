#pragma once

#include "base/decimal.h"
#include "stock/batches.h"

#include <QString>
#include <vector>

namespace jxc {

class Database;
class Row;
class Session;
struct Document;

/// A row of the movement journal jxc_goodslist as a document's kind states it. Quantities are in
/// base units and signed as the kind of row wants them; prices are per base unit.
struct JournalRow {
    QString flag;
    QString goods;
    QString nameSuffix{}; ///< the gift mark, appended to the copied name
    QString warehouse{}, warehouseName{};
    QString partnerNo{}, partnerName{};
    Decimal quantity{}, price{};
    Decimal costPrice{}, totalCost{};
    Decimal discount = 1;
    Decimal amountWithTax{}; ///< gl_zje
    Decimal amount{};        ///< gl_je
    Decimal taxRate{}, taxPrice{}, taxAmount{};
    Decimal retailPrice{}, profit{};
    Decimal entryQuantity{}; ///< gl_sysl, in the unit of entry
    Batch batch{};
    qint64 line = 0; ///< id2
    QString sourceNumber{}, lineNote{}, branch{};
    // the buyer record of restricted goods
    QString use{}, buyer{}, identityNo{}, prescription{}, address{}, mobile{};

    bool physical = true; ///< whether the stock that is there moves, or only the books
    qint64 id = 0;        ///< set once written
};

/// Fills in what all rows of a document copy alike from the line: batch and line id, note, source.
[[nodiscard]] JournalRow journalRowOfLine(const Document &document, const Row &line);

/// Appends the rows; their ids are set. Running figures start at 0, the average cost at the goods'.
void writeJournal(Session &session, const Document &document, std::vector<JournalRow> &rows);

/// What cancelling needs of the rows that approval wrote, in their order, the discount line left
/// out: kind, goods, warehouse, quantity, price, batch, line and id.
[[nodiscard]] std::vector<JournalRow> readJournal(Database &db, const Document &document);

} // namespace jxc
