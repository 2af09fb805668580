#include "retail/counter_goods.h"

#include "core/session.h"
#include "db/database.h"
#include "master/goods_search.h"

#include <algorithm>

namespace jxc {

namespace {

/// One exact hit needs no choosing.
void narrow(std::vector<GoodsHit> &hits, bool listsMatches) {
    const auto isExact = [](const GoodsHit &hit) { return hit.exact; };
    const auto exact = std::count_if(hits.begin(), hits.end(), isExact);
    if (exact == 1 || !listsMatches)
        std::erase_if(hits, [&](const GoodsHit &hit) { return !hit.exact; });
}

Decimal priceOf(Session &session, const CounterSettings &settings, const ReceiptLine &line,
                const PriceBuyer &buyer) {
    return counterPrice(session.db(), line.goods, line.unit, line.factor, buyer, session.today(),
                        settings.priceDecimals);
}

/// Of the unit: its own, else the base unit's.
Decimal retailPriceOf(Database &db, const ReceiptLine &line, const Row &goods) {
    if (line.unit != goods.text(u"dw_name")) {
        const auto row = db.row(
            QStringLiteral("select g_lsj from jxc_goodsdw where g_sn=? and dw_name=? order by id"),
            {line.goods, line.unit});
        if (row && row->decimal(u"g_lsj").isPositive())
            return row->decimal(u"g_lsj");
    }
    return (goods.decimal(u"g_lsj") * line.factor).rounded(6);
}

} // namespace

CounterFind findForCounter(GoodsFinder &finder, const CounterSettings &settings,
                           const QString &typed) {
    CounterFind found{.input = parseCounterInput(settings, typed), .hits = {}};
    if (found.input.code.isEmpty())
        return found;
    found.hits = finder.findBarcode(found.input.code, settings.warehouse);
    if (found.hits.empty() && found.input.label) {
        found.hits = finder.find(found.input.label->goods, settings.warehouse, GoodsUse::sale);
        narrow(found.hits, false);
        found.isLabel = true;
        return found;
    }
    if (found.hits.empty()) {
        found.hits = finder.find(found.input.code, settings.warehouse, GoodsUse::sale);
        narrow(found.hits, settings.listsMatches);
    }
    return found;
}

ReceiptLine counterLine(Session &session, const CounterSettings &settings, const CounterFind &found,
                        const GoodsHit &hit, const PriceBuyer &buyer) {
    Database &db = session.db();
    ReceiptLine line;
    line.goods = hit.code;
    line.name = hit.name;
    line.specification = hit.specification;
    line.unit = hit.barcodeUnit.isEmpty() ? hit.unit : hit.barcodeUnit;
    line.factor = hit.barcodeFactor.isPositive() ? hit.barcodeFactor : Decimal(1);
    line.barcode = hit.barcode;
    line.quantity = found.input.quantity.value_or(Decimal(1));
    line.price = priceOf(session, settings, line, buyer);
    if (const auto goods =
            db.row(QStringLiteral("select dw_name,g_lsj,g_iscf from jxc_goods where g_sn=?"),
                   {hit.code})) {
        line.retailPrice = retailPriceOf(db, line, *goods);
        line.restricted = goods->flag(u"g_iscf");
    }
    if (!found.isLabel)
        return line;
    const CounterInput::Label &label = *found.input.label;
    if (label.amount) {
        line.labelAmount = label.amount;
        line.quantity = (*label.amount / line.price).rounded(3);
        if (!line.quantity.isPositive())
            line.quantity = 1;
    } else {
        line.quantity = *label.quantity;
    }
    return line;
}

size_t addLine(Receipt &receipt, ReceiptLine line) {
    const auto equal = [&](const ReceiptLine &other) {
        return other.goods == line.goods && other.unit == line.unit && other.price == line.price &&
               other.discount == line.discount && other.isGift == line.isGift &&
               !other.labelAmount && !line.labelAmount;
    };
    const auto same = std::find_if(receipt.lines.begin(), receipt.lines.end(), equal);
    if (same != receipt.lines.end()) {
        same->quantity += line.quantity;
        return static_cast<size_t>(same - receipt.lines.begin());
    }
    receipt.lines.push_back(std::move(line));
    return receipt.lines.size() - 1;
}

void priceAnew(Session &session, const CounterSettings &settings, Receipt &receipt,
               const PriceBuyer &before, const PriceBuyer &now) {
    for (ReceiptLine &line : receipt.lines)
        if (!line.labelAmount && line.price == priceOf(session, settings, line, before))
            line.price = priceOf(session, settings, line, now);
}

} // namespace jxc
