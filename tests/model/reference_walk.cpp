#include "model/reference.h"

namespace jxc::test {

namespace {

bool isOneOf(const QString &flag, std::initializer_list<const char16_t *> flags) {
    return std::any_of(flags.begin(), flags.end(), [&](const char16_t *f) { return flag == f; });
}

bool subtracts(const QString &flag) {
    return isOneOf(flag, {u"xs", u"xt", u"jh", u"dh", u"lt", u"ly"});
}

bool setsCost(const QString &flag, Decimal quantity) {
    if (isOneOf(flag, {u"db", u"bh", u"cf"}))
        return quantity > 0;
    return isOneOf(flag, {u"cj", u"ct", u"jg", u"sc", u"st", u"qc", u"kb", u"ws", u"pd"});
}

bool writesStockCost(const QString &flag) {
    return isOneOf(
        flag, {u"cj", u"ct", u"jg", u"sc", u"st", u"qc", u"db", u"bh", u"cf", u"kb", u"ws", u"pd"});
}

/// What the walk carries from row to row.
struct Running {
    Decimal stock, cost, value;
};

Running after(const Running &before, const Record &row, const ReferenceSettings &settings) {
    const QString &flag = row.text(u"gl_flag");
    const Decimal q = row.number(u"gl_sl");
    const Decimal price = row.number(u"gl_dj");
    Decimal stock = before.stock;
    Decimal cost = before.cost;
    Decimal averaged; // stays 0 for the kinds that subtract
    Product worth;
    if (subtracts(flag)) {
        stock -= q;
    } else {
        averaged = before.stock;
        worth = Product(before.value);
        Product amount = q * price;
        Decimal quantity = q;
        if ((q > 0 && before.stock < 0) || (q < 0 && before.stock > 0)) {
            averaged = averaged.abs();
            worth = worth.abs();
            amount = amount.abs();
            quantity = quantity.abs();
        }
        stock += q;
        averaged += quantity;
        worth += amount;
    }
    if (setsCost(flag, q) && averaged != 0) {
        if (stock != 0)
            stock = stock.roundedUp9(settings.quantityDecimals);
        if (stock != 0)
            cost = (worth / averaged).abs().roundedUp9(settings.priceDecimals);
        else
            cost = price;
    }
    cost = cost.roundedUp9(settings.priceDecimals);
    stock = stock.roundedUp9(settings.quantityDecimals);
    Decimal value;
    if (stock != 0)
        value = (cost * stock).roundedUp9(settings.amountDecimals);
    return {stock, cost, value};
}

} // namespace

std::vector<Record *> ReferenceBooks::journalOf(const QString &goods, const QString &warehouse) {
    auto rows = table(QStringLiteral("jxc_goodslist")).where([&](const Record &row) {
        return row.text(u"g_sn") == goods && row.text(u"ck_sn") == warehouse;
    });
    // Rows come in the order of their ids, which decides among those of one day.
    std::stable_sort(rows.begin(), rows.end(), [](const Record *a, const Record *b) {
        return a->text(u"gl_kdrq") < b->text(u"gl_kdrq");
    });
    return rows;
}

void ReferenceBooks::walk(const QString &goods, const QString &warehouse, const QString &date,
                          const QString &flag) {
    Running running;
    running.cost = table(QStringLiteral("jxc_goods")).first(u"g_sn", goods)->number(u"g_pjjj");
    for (Record *row : journalOf(goods, warehouse)) {
        if (row->text(u"gl_kdrq") < date) {
            running = {row->number(u"gl_kc"), row->number(u"gl_pjjj"), row->number(u"gl_kczje")};
            continue;
        }
        row->set(u"gl_sqsl", running.stock);
        row->set(u"gl_sqje", running.value);
        running = after(running, *row, settings);
        row->set(u"gl_pjjj", running.cost);
        row->set(u"gl_kc", running.stock);
        row->set(u"gl_kczje", running.value);
    }
    if (settings.costStaysOffStock || !writesStockCost(flag))
        return;
    for (Record *stock : table(QStringLiteral("jxc_kcsp")).where(u"g_sn", goods))
        if (stock->text(u"ck_sn") == warehouse)
            stock->set(u"kc_cbj", running.cost);
}

Decimal ReferenceBooks::costAt(const QString &warehouse, const QString &goods,
                               const QString &date) {
    const auto rows = journalOf(goods, warehouse);
    const auto later = std::find_if(
        rows.begin(), rows.end(), [&](const Record *row) { return row->text(u"gl_kdrq") > date; });
    if (later != rows.begin())
        return (*(later - 1))->number(u"gl_pjjj");
    if (later != rows.end())
        return (*later)->number(u"gl_pjjj");
    for (const Record *stock : table(QStringLiteral("jxc_kcsp")).where(u"g_sn", goods))
        if (stock->text(u"ck_sn") == warehouse)
            return stock->number(u"kc_cbj");
    return table(QStringLiteral("jxc_goods")).first(u"g_sn", goods)->number(u"g_pjjj");
}

Decimal ReferenceBooks::costForEntry(const QString &warehouse, const QString &goods,
                                     const QString &date) {
    const auto rows = journalOf(goods, warehouse);
    // The steps that bound the id fall together: a line being entered has an id above them all.
    Decimal upToDateNoOpening, before, upToDate, later;
    for (const Record *row : rows) {
        const Decimal cost = row->number(u"gl_pjjj");
        const bool isLater = row->text(u"gl_kdrq") > date;
        if (isLater) {
            later = cost;
            break; // the first one only
        }
        if (row->text(u"gl_flag") != u"qc")
            upToDateNoOpening = cost;
        if (row->text(u"gl_kdrq") < date)
            before = cost;
        upToDate = cost;
    }
    for (const Decimal cost : {upToDateNoOpening, before, upToDate, later})
        if (cost != 0)
            return cost;
    for (const Record *stock : table(QStringLiteral("jxc_kcsp")).where(u"g_sn", goods))
        if (stock->text(u"ck_sn") == warehouse && stock->number(u"kc_cbj") != 0)
            return stock->number(u"kc_cbj");
    return table(QStringLiteral("jxc_goods")).first(u"g_sn", goods)->number(u"g_pjjj");
}

} // namespace jxc::test
