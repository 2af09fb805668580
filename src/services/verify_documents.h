#pragma once

#include "services/verify_paging.h"
#include "services/verify_stock.h"

#include <QHash>
#include <optional>

namespace jxc::verify {

/// A row that the journal must hold because a document is approved, and what it moves.
struct DueRow {
    QString flag;
    StockPlace place;
    Decimal quantity;             ///< gl_sl, signed as the kind wants it
    std::optional<Decimal> price; ///< gl_dj; nothing where it carries history
    BatchText batch;
    Decimal moved{}; ///< physically: positive what came, negative what went
    // gl_zje, gl_je, gl_zcb, where the document's own lines state them
    std::optional<Decimal> amountWithTax{}, amount{}, totalCost{};
};

/// What other documents did to the lines of receipts and sales, by the id that they carry.
struct LineFlow {
    struct Done {
        Decimal quantity; ///< taken in or issued, in the unit of entry
        QString goods;
        QString number;       ///< the first document that did it
        QString claimed = {}; ///< goods of the approved line that was found for it
    };
    QHash<qint64, Done> done;        ///< by goods-in and goods-out documents
    QHash<qint64, Decimal> returned; ///< by returns that close the rest
};

/// A document with its lines, as its kind's rule reads it.
struct Posted {
    const Row &header;
    QString warehouse;
    const std::vector<const Row *> &lines;
    const LineFlow &flow;
};

/// A kind of document that writes the journal, and the rule of its rows.
struct PostingKind {
    QString code;
    QString headerTable, lineTable, number, date, status, warehouse;
    QString headerColumns; ///< beside date and warehouse
    QString lineColumns;   ///< beside the id, the goods and the number
    std::vector<DueRow> (*rows)(const Posted &document);
    /// Where a line keeps what was ordered, done and cancelled; empty for other kinds.
    QString ordered{}, done{}, cancelled{};
    /// The lines name no batch: posting took the one that expired first, and the journal keeps it.
    bool batchFromJournal = false;
};

[[nodiscard]] const std::vector<PostingKind> &postingKinds();

} // namespace jxc::verify
