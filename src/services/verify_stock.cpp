#include "services/verify_stock.h"

#include "services/verify_paging.h"
#include "stock/document_kind.h"

namespace jxc::verify {

namespace {

const QString stockTable = QStringLiteral("jxc_kcsp");
const QString batchTable = QStringLiteral("jxc_tkc");
const QString goodsTable = QStringLiteral("jxc_goods");
const QString bookCaption = QStringLiteral("帐面库存 kc_zsl ");
const QString physicalCaption = QStringLiteral("实际库存 kc_sl ");

/// The figure kept for a key, 0 when there is none.
template<class Map>
typename Map::mapped_type valueOf(const Map &map, const typename Map::key_type &key) {
    const auto found = map.find(key);
    return found == map.end() ? typename Map::mapped_type{} : found->second;
}

} // namespace

QString StockPlace::text() const {
    return QStringLiteral("商品 %1 仓库 %2").arg(goods, warehouse);
}

BatchText BatchText::of(const Row &row) {
    return {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
}

BatchText BatchText::kept() const {
    return number.isEmpty() ? BatchText{number, QStringLiteral("0000-00"), produced} : *this;
}

QString BatchText::text() const {
    return QStringLiteral("批号“%1” 有效期“%2” 生产日期“%3”").arg(number, expiry, produced);
}

void DueStock::setBook(const StockPlace &place, Decimal quantity, Decimal cost, bool costIsKnown) {
    Stock &stock = m_stock[place];
    stock.book = quantity;
    stock.cost = cost;
    stock.costIsKnown = costIsKnown;
}

void DueStock::move(const StockPlace &place, const BatchText &batch, Decimal quantity) {
    if (place.goods == discountGoods)
        return;
    Stock &stock = m_stock[place];
    stock.physical += quantity;
    stock.batches[batch.kept()] += quantity;
}

DueStock::KeptStock DueStock::keptStock(Database &db) {
    KeptStock kept;
    eachRow(
        db,
        {.select = QStringLiteral("id,g_sn,ck_sn,kc_sl,kc_zsl,kc_cbj"),
         .from = stockTable,
         .where = QStringLiteral("g_sn<>?"),
         .keys = {QStringLiteral("id")},
         .values = {discountGoods}},
        [&](const Row &row) {
            // Should a goods have two rows, their sum is what the shop has; the first holds the
            // cost.
            const auto [place, isNew] = kept.try_emplace({row.text(u"g_sn"), row.text(u"ck_sn")});
            place->second.physical += row.decimal(u"kc_sl");
            place->second.book += row.decimal(u"kc_zsl");
            if (isNew)
                place->second.cost = row.decimal(u"kc_cbj");
        });
    return kept;
}

std::vector<StockDifference> DueStock::differences(Database &db) const {
    std::vector<StockDifference> all;
    compareStock(db, all);
    compareBatches(db, all);
    compareGoods(db, all);
    return all;
}

void DueStock::check(Database &db, Findings &findings) const {
    const std::vector<StockDifference> all = differences(db);
    for (size_t i = 0; i < all.size(); ++i) {
        const StockDifference &d = all[i];
        const auto line = [&](const QString &store, const QString &key, const QString &caption) {
            findings.add(store, key, key + u'：' + compared(caption, d.found, d.due));
        };
        switch (d.figure) {
        case StockDifference::Figure::book: {
            // Both figures of a stock row are one difference.
            QString text = compared(bookCaption, d.found, d.due);
            const bool both = i + 1 < all.size() && all[i + 1].place == d.place &&
                              all[i + 1].figure == StockDifference::Figure::physical;
            if (both) {
                ++i;
                text += QStringLiteral("；") + compared(physicalCaption, all[i].found, all[i].due);
            }
            findings.add(stockTable, d.place.text(), d.place.text() + u'：' + text);
            break;
        }
        case StockDifference::Figure::physical:
            line(stockTable, d.place.text(), physicalCaption);
            break;
        case StockDifference::Figure::batch:
            line(batchTable, d.place.text() + u' ' + d.batch.text(),
                 QStringLiteral("批号库存 t_sl "));
            break;
        case StockDifference::Figure::goods:
            line(goodsTable, QStringLiteral("商品 %1").arg(d.place.goods),
                 QStringLiteral("库存合计 g_kc "));
            break;
        }
    }
}

void DueStock::compareStock(Database &db, std::vector<StockDifference> &all) const {
    using Figure = StockDifference::Figure;
    const KeptStock kept = keptStock(db);
    const auto compare = [&](const StockPlace &place, const Kept &found, const Stock &due) {
        if (found.book != due.book)
            all.push_back({Figure::book, place, {}, found.book, due.book});
        if (found.physical != due.physical)
            all.push_back({Figure::physical, place, {}, found.physical, due.physical});
    };
    for (const auto &[place, due] : m_stock)
        compare(place, valueOf(kept, place), due);
    for (const auto &[place, found] : kept)
        if (!m_stock.contains(place))
            compare(place, found, {});
}

void DueStock::compareBatches(Database &db, std::vector<StockDifference> &all) const {
    std::map<StockPlace, std::map<BatchText, Decimal>> kept;
    eachRow(db,
            {.select = QStringLiteral("id,g_sn,ck_sn,t_ph,t_yxq,t_scrq,t_sl"),
             .from = batchTable,
             .keys = {QStringLiteral("id")}},
            [&](const Row &row) {
                kept[{row.text(u"g_sn"), row.text(u"ck_sn")}][BatchText::of(row)] +=
                    row.decimal(u"t_sl");
            });
    const auto compare = [&](const StockPlace &place, const BatchText &batch, Decimal found,
                             Decimal due) {
        if (found != due)
            all.push_back({StockDifference::Figure::batch, place, batch, found, due});
    };
    for (const auto &[place, stock] : m_stock) {
        const auto found = valueOf(kept, place);
        for (const auto &[batch, due] : stock.batches)
            compare(place, batch, valueOf(found, batch), due);
    }
    for (const auto &[place, batches] : kept) {
        const auto due = valueOf(m_stock, place).batches;
        for (const auto &[batch, found] : batches)
            if (!due.contains(batch))
                compare(place, batch, found, {});
    }
}

void DueStock::compareGoods(Database &db, std::vector<StockDifference> &all) const {
    std::map<QString, Decimal> due;
    for (const auto &[place, stock] : m_stock)
        due[place.goods] += stock.physical;
    std::map<QString, Decimal> kept;
    eachRow(db,
            {.select = QStringLiteral("id,g_sn,g_kc"),
             .from = goodsTable,
             .where = QStringLiteral("g_sn<>?"),
             .keys = {QStringLiteral("id")},
             .values = {discountGoods}},
            [&](const Row &row) { kept.try_emplace(row.text(u"g_sn"), row.decimal(u"g_kc")); });
    const auto compare = [&](const QString &goods, Decimal found, Decimal expected) {
        if (found != expected)
            all.push_back({StockDifference::Figure::goods, {goods, {}}, {}, found, expected});
    };
    for (const auto &[goods, expected] : due)
        compare(goods, valueOf(kept, goods), expected);
    for (const auto &[goods, found] : kept)
        if (!due.contains(goods))
            compare(goods, found, {});
}

void DueStock::compareCosts(Database &db, int priceDecimals, Findings &findings) const {
    struct Average {
        Product worth;
        Decimal quantity;
        bool known = false;
    };
    std::map<QString, Average> averages;
    const KeptStock kept = keptStock(db);
    for (const auto &[place, due] : m_stock) {
        Average &average = averages[place.goods];
        average.worth += due.cost * due.book;
        average.quantity += due.book;
        if (!due.costIsKnown)
            continue;
        average.known = true;
        const QString differs =
            compared(QStringLiteral("当前成本价 kc_cbj "), valueOf(kept, place).cost, due.cost);
        if (!differs.isEmpty())
            findings.inform(stockTable, place.text(), place.text() + u'：' + differs);
    }
    for (const Row &row :
         db.rows(QStringLiteral("select g_sn,g_pjjj from jxc_goods order by id"))) {
        const QString goods = row.text(u"g_sn");
        const auto average = averages.find(goods);
        if (average == averages.end() || !average->second.known ||
            average->second.quantity.isZero())
            continue;
        const Decimal due =
            (average->second.worth / average->second.quantity).roundedUp9(priceDecimals).abs();
        const QString differs =
            compared(QStringLiteral("平均成本价 g_pjjj "), row.decimal(u"g_pjjj"), due);
        if (!differs.isEmpty())
            findings.inform(goodsTable, QStringLiteral("商品 %1 g_pjjj").arg(goods),
                            QStringLiteral("商品 %1：%2").arg(goods, differs));
    }
}

} // namespace jxc::verify
