#pragma once

#include "master/master_kind.h"
#include "master/record.h"

#include <optional>
#include <vector>

namespace jxc {

/// A grid of the goods editor: rows that belong to one goods.
struct GoodsGrid {
    QString table;
    QString caption;
    QString page; ///< tab of the editor
    std::vector<MasterField> fields;
};

/// jxc_goodsprice, jxc_goodsdw and jxc_goodstm, in the order of the editor and of the checks.
[[nodiscard]] const std::vector<GoodsGrid> &goodsGrids();

/// A goods while it is edited, with the rows of its grids.
struct GoodsRecord {
    Record goods;
    std::vector<Record> prices;   ///< jxc_goodsprice
    std::vector<Record> units;    ///< jxc_goodsdw
    std::vector<Record> barcodes; ///< jxc_goodstm

    [[nodiscard]] std::vector<Record> &rows(QStringView table);
    [[nodiscard]] const std::vector<Record> &rows(QStringView table) const;
    [[nodiscard]] bool isChanged() const;
    /// How many rows each grid had when it was loaded.
    std::vector<size_t> loadedRows{0, 0, 0};
};

/// Where a refusal of saveGoods belongs.
struct GoodsField {
    QString table = QStringLiteral("jxc_goods");
    int row = -1; ///< of a grid
    QString column;
};

[[nodiscard]] GoodsRecord newGoods(const Session &session);
/// A row for a grid, with the proposals of its fields.
[[nodiscard]] Record newGoodsRow(const GoodsGrid &grid);
[[nodiscard]] std::optional<GoodsRecord> loadGoods(const Session &session, qint64 id);
/// A new goods like another one: without its code, barcodes, stock and costs.
[[nodiscard]] GoodsRecord copiedGoods(const Session &session, const GoodsRecord &from);
/// What the code of a new goods would be now, after its class was chosen.
[[nodiscard]] QString proposedGoodsCode(const Session &session, const GoodsRecord &record);
/// Whether the base unit may no longer be changed.
[[nodiscard]] bool baseUnitIsFixed(const Session &session, const GoodsRecord &record);

/// Saves a goods with the rows of its grids as one action. Empty rows of a grid are left out.
Outcome saveGoods(Session &session, Prompter &prompter, GoodsRecord &record,
                  GoodsField *field = nullptr);
/// The same inside a transaction that is already open. Throws Refusal; `field` is set before.
void saveGoodsInTransaction(Session &session, GoodsRecord &record, GoodsField *field = nullptr);

} // namespace jxc
