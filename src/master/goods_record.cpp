#include "master/goods_record.h"

#include "core/session.h"
#include "db/schema.h"
#include "master/barcodes.h"
#include "master/goods_rules.h"
#include "master/kind_parts.h"
#include "master/record_checks.h"
#include "master/record_values.h"

#include <QSet>
#include <algorithm>

namespace jxc {

namespace {

const QString goodsTable = QStringLiteral("jxc_goods");
const QString priceTable = QStringLiteral("jxc_goodsprice");
const QString unitTable = QStringLiteral("jxc_goodsdw");
const QString barcodeTable = QStringLiteral("jxc_goodstm");

std::vector<MasterField> unitFields() {
    std::vector<MasterField> fields{
        Field(u"dw_name").required().unique().pick(pickName(u"jxc_dw", u"dw_name")),
        Field(u"g_zhxs", ValueKind::factor).required().positive(), Field(u"g_sptm"),
        Field(u"g_jj", ValueKind::price).notNegative().cost()};
    for (const char16_t *column :
         {u"g_sj", u"g_sj1", u"g_sj2", u"g_sj3", u"g_sj4", u"g_sj5", u"g_lsj"})
        fields.push_back(Field(column, ValueKind::price).notNegative().selling());
    return fields;
}

std::vector<GoodsGrid> allGrids() {
    std::vector<GoodsGrid> grids{
        {priceTable,
         QStringLiteral("附加价格"),
         QStringLiteral("价格"),
         {Field(u"gp_name").caption(u"价格名称").required().unique().words(),
          Field(u"gp_price", ValueKind::price).caption(u"价格").notNegative().selling()}},
        {unitTable, QStringLiteral("辅助单位"), QStringLiteral("单位条码"), unitFields()},
        {barcodeTable,
         QStringLiteral("附加条码"),
         QStringLiteral("单位条码"),
         {Field(u"g_sptm").required().unique()}}};
    for (GoodsGrid &grid : grids)
        for (MasterField &field : grid.fields)
            if (field.caption.isEmpty())
                field.caption = column(grid.table, field.column)->caption;
    return grids;
}

bool isEmptyRow(const GoodsGrid &grid, const Record &row) {
    return std::all_of(grid.fields.begin(), grid.fields.end(), [&](const MasterField &field) {
        const QString text = row.text(field.column).trimmed();
        return text.isEmpty() || (isNumber(field.kind) && text == QLatin1String("0"));
    });
}

std::vector<Record> loadRows(Database &db, const GoodsGrid &grid, const QString &goods) {
    std::vector<Record> records;
    for (const Row &row :
         db.rows(QStringLiteral("select * from %1 where g_sn=? order by id").arg(grid.table),
                 {goods})) {
        Record record;
        record.id = row.integer(u"id");
        for (const MasterField &field : grid.fields)
            record.set(field.column, fieldText(row, grid.table, field.column));
        record.settle();
        records.push_back(record);
    }
    return records;
}

/// Saves the rows of one grid of one goods.
class GridSaving {
public:
    GridSaving(Session &session, const GoodsGrid &grid, GoodsRecord &record, GoodsField *field)
        : m_session(session)
        , m_grid(grid)
        , m_record(record)
        , m_rows(record.rows(grid.table))
        , m_field(field) {}

    void prepare(size_t loadedRows) {
        refuseChangedMeanwhile(loadedRows);
        std::erase_if(m_rows, [&](const Record &row) { return isEmptyRow(m_grid, row); });
        MasterKind kind;
        kind.fields = m_grid.fields;
        for (Record &row : m_rows)
            prepareRecord(m_session, kind, row);
    }

    void check() {
        MasterKind kind;
        kind.table = m_grid.table;
        kind.fields = m_grid.fields;
        for (MasterField &field : kind.fields)
            field.unique = false; // unique within the goods, not in the whole table
        for (int i = 0; i < static_cast<int>(m_rows.size()); ++i) {
            at(i, [&](Record &row) {
                checkRecord(m_session, kind, row);
                refuseRepeated(i);
            });
        }
    }

    /// Runs a check of one row; a refusal of it belongs to that row.
    template<typename Check>
    void at(int index, Check run) {
        try {
            run(m_rows[static_cast<size_t>(index)]);
        } catch (const FieldRefusal &refusal) {
            if (m_field != nullptr)
                *m_field = {m_grid.table, index, refusal.column()};
            throw;
        }
    }

    void write() {
        Database &db = m_session.db();
        const QString goods = m_record.goods.text(u"g_sn");
        QSet<qint64> kept;
        for (const Record &row : m_rows)
            kept.insert(row.id);
        for (const Record &before : loadRows(db, m_grid, goods))
            if (!kept.contains(before.id))
                db.execute(QStringLiteral("delete from %1 where id=?").arg(m_grid.table),
                           {before.id});
        for (Record &row : m_rows) {
            Assignments columns = assignments(row);
            if (row.isNew())
                row.id = db.insertRow(m_grid.table, completed(std::move(columns), goods));
            else
                db.updateRows(m_grid.table, columns, QStringLiteral("id=?"), {row.id});
            row.settle();
        }
    }

private:
    void refuseChangedMeanwhile(size_t loadedRows) {
        if (m_record.goods.isNew())
            return;
        const auto now = loadRows(m_session.db(), m_grid, m_record.goods.text(u"g_sn"));
        if (now.size() != loadedRows)
            throw recordChangedMeanwhile();
        for (const Record &row : m_rows) {
            if (row.isNew())
                continue;
            const auto same = std::find_if(now.begin(), now.end(),
                                           [&](const Record &other) { return other.id == row.id; });
            if (same == now.end())
                throw recordChangedMeanwhile();
            for (const MasterField &field : m_grid.fields)
                if (same->text(field.column) != row.stored(field.column))
                    throw recordChangedMeanwhile();
        }
    }

    void refuseRepeated(int index) {
        for (const MasterField &field : m_grid.fields) {
            if (!field.unique)
                continue;
            const QString text = m_rows[static_cast<size_t>(index)].text(field.column);
            const bool repeated =
                std::any_of(m_rows.begin(), m_rows.begin() + index,
                            [&](const Record &row) { return row.text(field.column) == text; }) ||
                // The base unit is a unit of the goods too.
                (m_grid.table == unitTable && field.column == QLatin1String("dw_name") &&
                 text == m_record.goods.text(u"dw_name"));
            if (repeated)
                refuseField(field, QStringLiteral("不能重复！"));
        }
    }

    [[nodiscard]] Assignments assignments(const Record &row) const {
        Assignments columns;
        for (const MasterField &field : m_grid.fields)
            columns.push_back(
                {field.column, fieldValue(m_grid.table, field.column, row.text(field.column))});
        return columns;
    }

    /// Nothing in the books is null.
    [[nodiscard]] Assignments completed(Assignments columns, const QString &goods) const {
        columns.push_back({QStringLiteral("g_sn"), goods});
        for (const Column &column : jxc::table(m_grid.table).columns)
            if (std::none_of(columns.begin(), columns.end(),
                             [&](const Assignment &a) { return a.column == column.name; }))
                columns.push_back({column.name, fieldValue(m_grid.table, column.name,
                                                           emptyText(m_grid.table, column.name))});
        return columns;
    }

    Session &m_session;
    const GoodsGrid &m_grid;
    GoodsRecord &m_record;
    std::vector<Record> &m_rows;
    GoodsField *m_field;
};

/// Barcodes of the goods itself may not repeat among one another, those of its further list
/// nowhere in that list, and with unique barcodes none anywhere.
void checkBarcodes(Session &session, GoodsRecord &record, GoodsField *field) {
    const BarcodeRules rules = BarcodeRules::load(session.db());
    const QString goods = record.goods.text(u"g_sn");
    const QString column = QStringLiteral("g_sptm");
    QSet<QString> own{record.goods.text(column)};
    for (const GoodsGrid &grid : goodsGrids()) {
        if (grid.table == priceTable)
            continue;
        const bool listed = grid.table == barcodeTable;
        const auto &rows = record.rows(grid.table);
        for (size_t i = 0; i < rows.size(); ++i) {
            const QString barcode = rows[i].text(column);
            const bool taken =
                !barcode.isEmpty() &&
                ((rules.unique &&
                  (own.contains(barcode) || isForeignBarcode(session.db(), barcode, goods))) ||
                 (listed && isForeignListedBarcode(session.db(), barcode, goods)));
            if (taken) {
                if (field != nullptr)
                    *field = {grid.table, static_cast<int>(i), column};
                throw FieldRefusal(column, repeatedBarcodeText);
            }
            own.insert(barcode);
        }
    }
}

Record withoutId(const Record &row, const GoodsGrid &grid) {
    Record copy;
    for (const MasterField &field : grid.fields)
        if (field.column != QLatin1String("g_sptm"))
            copy.set(field.column, row.text(field.column));
    return copy;
}

} // namespace

const std::vector<GoodsGrid> &goodsGrids() {
    static const std::vector<GoodsGrid> grids = allGrids();
    return grids;
}

std::vector<Record> &GoodsRecord::rows(QStringView table) {
    if (table == priceTable)
        return prices;
    return table == unitTable ? units : barcodes;
}

const std::vector<Record> &GoodsRecord::rows(QStringView table) const {
    return const_cast<GoodsRecord *>(this)->rows(
        table); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

bool GoodsRecord::isChanged() const {
    if (goods.isChanged())
        return true;
    for (size_t i = 0; i < goodsGrids().size(); ++i) {
        const GoodsGrid &grid = goodsGrids()[i];
        size_t filled = 0;
        for (const Record &row : rows(grid.table)) {
            if (isEmptyRow(grid, row))
                continue;
            ++filled;
            if (row.isNew() || row.isChanged())
                return true;
        }
        if (filled != loadedRows[i])
            return true;
    }
    return false;
}

GoodsRecord newGoods(const Session &session) {
    GoodsRecord record;
    record.goods = newRecord(session, masterKind(goodsTable));
    return record;
}

Record newGoodsRow(const GoodsGrid &grid) {
    Record row;
    for (const MasterField &field : grid.fields)
        row.set(field.column, emptyText(grid.table, field.column));
    row.settle();
    return row;
}

std::optional<GoodsRecord> loadGoods(const Session &session, qint64 id) {
    const auto goods = loadRecord(session, masterKind(goodsTable), id);
    if (!goods)
        return std::nullopt;
    GoodsRecord record;
    record.goods = *goods;
    for (size_t i = 0; i < goodsGrids().size(); ++i) {
        const GoodsGrid &grid = goodsGrids()[i];
        record.rows(grid.table) = loadRows(session.db(), grid, goods->text(u"g_sn"));
        record.loadedRows[i] = record.rows(grid.table).size();
    }
    return record;
}

GoodsRecord copiedGoods(const Session &session, const GoodsRecord &from) {
    GoodsRecord record;
    record.goods = copiedRecord(session, masterKind(goodsTable), from.goods);
    record.goods.set(QStringLiteral("g_sptm"), {});
    for (const GoodsGrid &grid : goodsGrids())
        if (grid.table != barcodeTable)
            for (const Record &row : from.rows(grid.table))
                record.rows(grid.table).push_back(withoutId(row, grid));
    return record;
}

QString proposedGoodsCode(const Session &session, const GoodsRecord &record) {
    return goodsCode(session, record.goods);
}

bool baseUnitIsFixed(const Session &session, const GoodsRecord &record) {
    return !record.goods.isNew() && hasMoved(session.db(), record.goods.text(u"g_sn"));
}

void saveGoodsInTransaction(Session &session, GoodsRecord &record, GoodsField *field) {
    GoodsRecord work = record;
    const bool isNew = work.goods.isNew();
    try {
        if (isNew && work.goods.text(u"g_sptm").trimmed().isEmpty() &&
            BarcodeRules::load(session.db()).automatic)
            work.goods.set(QStringLiteral("g_sptm"), drawBarcode(session.db()));
        saveRecordInTransaction(session, masterKind(goodsTable), work.goods);
    } catch (const FieldRefusal &refusal) {
        if (field != nullptr)
            *field = {goodsTable, -1, refusal.column()};
        throw;
    }
    std::vector<GridSaving> grids;
    for (size_t i = 0; i < goodsGrids().size(); ++i) {
        grids.emplace_back(session, goodsGrids()[i], work, field);
        grids.back().prepare(isNew ? 0 : work.loadedRows[i]);
    }
    for (GridSaving &grid : grids)
        grid.check();
    checkBarcodes(session, work, field);
    for (GridSaving &grid : grids)
        grid.write();
    for (size_t i = 0; i < goodsGrids().size(); ++i)
        work.loadedRows[i] = work.rows(goodsGrids()[i].table).size();
    record = work;
}

Outcome saveGoods(Session &session, Prompter &prompter, GoodsRecord &record, GoodsField *field) {
    GoodsRecord saved;
    if (field != nullptr)
        *field = {};
    Outcome outcome = runAction(session.db(), prompter, [&](Answers &) {
        saved = record; // the action may run more than once
        saveGoodsInTransaction(session, saved, field);
    });
    if (outcome.isDone())
        record = saved;
    return outcome;
}

} // namespace jxc
