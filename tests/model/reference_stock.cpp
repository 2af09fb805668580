#include "model/reference.h"

#include <iterator>

namespace jxc::test {

namespace {

const QString discountGoods = QStringLiteral("00000000");

Decimal divided(Decimal amount, Decimal by) {
    return by == 0 ? Decimal() : (amount / by).rounded(6);
}

} // namespace

Cells ReferenceBooks::journalRow(const Names &names, const Record &header, const Record &line) {
    const auto figure = [&](const char16_t *column) { return line.number(names.ofLine(column)); };
    const QString goods = line.text(u"g_sn");
    const Decimal base = figure(u"_zsl");
    const bool isReturn = names.isReturn();
    const auto signedAs = [&](Decimal value) { return isReturn ? -value : value; };

    Decimal price;
    Decimal profit;
    if (names.isSales()) {
        price = divided(figure(u"_dj"), line.number(u"g_zhxs"));
        if (isReturn)
            profit = figure(u"_zcb") - figure(u"_je");
        else
            profit = goods == discountGoods ? figure(u"_je") : figure(u"_je") - figure(u"_zcb");
    } else if (isReturn && line.number(u"id2") != 0) {
        price = divided(figure(u"_je"), base); // closes the rest of a receipt
    } else if (figure(u"_sl") == base) {
        price = figure(u"_dj");
    } else if (base != 0) {
        price = (figure(u"_dj") * figure(u"_sl") / base).rounded(6);
    }
    const Decimal cost = names.isSales() ? divided(figure(u"_cbj"), line.number(u"g_zhxs")) : price;
    return {{QStringLiteral("gl_flag"), names.code.toLower()},
            {QStringLiteral("gl_djh"), header.text(names.number)},
            {QStringLiteral("gl_kdrq"), header.text(names.date)},
            {QStringLiteral("g_sn"), goods},
            {QStringLiteral("ck_sn"), header.text(u"ck_sn")},
            {QStringLiteral("gl_sl"), signedAs(base)},
            {QStringLiteral("gl_dj"), price},
            {QStringLiteral("gl_cbj"), cost},
            {QStringLiteral("gl_zje"), signedAs(figure(u"_zje"))},
            {QStringLiteral("gl_je"), signedAs(figure(u"_je"))},
            {QStringLiteral("gl_lr"), profit},
            {QStringLiteral("gl_pjjj"),
             table(QStringLiteral("jxc_goods")).first(u"g_sn", goods)->number(u"g_pjjj")},
            {QStringLiteral("ghs_sn"), header.text(names.partner)},
            {QStringLiteral("t_ph"), line.text(u"t_ph")},
            {QStringLiteral("t_yxq"), line.text(u"t_yxq")},
            {QStringLiteral("t_scrq"), line.text(u"t_scrq")},
            {QStringLiteral("id2"), line.number(u"id2")}};
}

bool ReferenceBooks::isPhysical(const Names &names, const Record &row) {
    if (names.isReturn())
        return row.number(u"id2") == 0;
    for (const Record *line : table(names.lines).where(names.number, row.text(u"gl_djh")))
        if (line->number(u"id2") == row.number(u"id2"))
            return line->number(names.done) != 0;
    throw std::logic_error("a journal row without its line");
}

void ReferenceBooks::moveStock(const Names &names, const std::vector<Record> &rows, int direction) {
    MemoryTable &stocks = table(QStringLiteral("jxc_kcsp"));
    MemoryTable &goodsTable = table(QStringLiteral("jxc_goods"));
    std::map<std::pair<QString, QString>, std::pair<QString, QString>> walks;
    for (const Record &row : rows) {
        const QString &goods = row.text(u"g_sn");
        const QString &warehouse = row.text(u"ck_sn");
        const Decimal quantity = direction < 0 ? -row.number(u"gl_sl") : row.number(u"gl_sl");
        const Decimal change = names.isSales() ? -quantity : quantity;
        const bool physical = isPhysical(names, row);
        const auto found = stocks.where([&](const Record &stock) {
            return stock.text(u"g_sn") == goods && stock.text(u"ck_sn") == warehouse;
        });
        Record &stock = found.empty()
                            ? stocks.insert({{QStringLiteral("g_sn"), goods},
                                             {QStringLiteral("ck_sn"), warehouse},
                                             {QStringLiteral("kc_cbj"),
                                              row.number(names.isSales() ? u"gl_cbj" : u"gl_dj")}})
                            : *found.front();
        stock.add(u"kc_zsl", change);
        if (names.isSales())
            stock.add(u"kc_xssl", quantity);
        if (physical) {
            stock.add(u"kc_sl", change);
            goodsTable.first(u"g_sn", goods)->add(u"g_kc", change);
            changeBatch(goods, warehouse, row, change);
        }
        walks[{goods, warehouse}] = {row.text(u"gl_kdrq"), row.text(u"gl_flag")};
    }
    for (const auto &[key, start] : walks)
        walk(key.first, key.second, start.first, start.second);
    for (const Record &row : rows) {
        Record &goods = *goodsTable.first(u"g_sn", row.text(u"g_sn"));
        if (names.code == u"CJ")
            goods.add(u"g_cgpl", direction);
        if (names.code == u"CT")
            goods.add(u"g_cgpl", -direction);
        if (names.code == u"XS")
            goods.add(u"g_xspl", direction);
        if (names.code == u"XT" && direction > 0)
            goods.add(u"g_xspl", 1); // and cancelling leaves it
        if (names.code == u"CJ" && direction > 0) {
            goods.set(u"g_scjj", row.number(u"gl_dj"));
            goods.set(u"ghs_sn", row.text(u"ghs_sn"));
        }
        if (!names.isSales())
            refreshGoodsCost(row);
    }
}

void ReferenceBooks::refreshGoodsCost(const Record &row) {
    Product worth;
    Decimal quantity;
    for (const Record *stock :
         table(QStringLiteral("jxc_kcsp")).where(u"g_sn", row.text(u"g_sn"))) {
        worth += stock->number(u"kc_cbj") * stock->number(u"kc_zsl");
        quantity += stock->number(u"kc_zsl");
    }
    Record &goods = *table(QStringLiteral("jxc_goods")).first(u"g_sn", row.text(u"g_sn"));
    if (quantity != 0)
        goods.set(u"g_pjjj", (worth / quantity).roundedUp9(settings.priceDecimals).abs());
    else
        goods.set(u"g_pjjj", row.number(u"gl_dj"));
}

void ReferenceBooks::changeBatch(const QString &goods, const QString &warehouse, const Record &of,
                                 Decimal quantity) {
    if (quantity == 0)
        return;
    const QString batch = of.text(u"t_ph");
    const QString expiry = batch.isEmpty() ? QStringLiteral("0000-00") : of.text(u"t_yxq");
    MemoryTable &batches = table(QStringLiteral("jxc_tkc"));
    const auto found = batches.where([&](const Record &row) {
        return row.text(u"ck_sn") == warehouse && row.text(u"g_sn") == goods &&
               row.text(u"t_yxq") == expiry && row.text(u"t_ph") == batch &&
               row.text(u"t_scrq") == of.text(u"t_scrq");
    });
    if (found.empty())
        batches.insert({{QStringLiteral("g_sn"), goods},
                        {QStringLiteral("ck_sn"), warehouse},
                        {QStringLiteral("t_ph"), batch},
                        {QStringLiteral("t_yxq"), expiry},
                        {QStringLiteral("t_scrq"), of.text(u"t_scrq")},
                        {QStringLiteral("t_sl"), quantity}});
    else
        found.front()->add(u"t_sl", quantity);
}

void ReferenceBooks::moveAgainstSource(const Names &names, const QString &number, int direction) {
    const bool isIn = names.code == u"RK";
    const Names &source = *namesOf(isIn ? QStringLiteral("CJ") : QStringLiteral("XS"));
    const QString warehouse = table(names.header).first(names.number, number)->text(u"ck_sn");
    for (const Record *line : table(names.lines).where(names.number, number)) {
        const QString goods = line->text(u"g_sn");
        const Decimal base = line->number(names.ofLine(u"_zsl"));
        const Decimal change = isIn == (direction > 0) ? base : -base;
        for (Record *stock : table(QStringLiteral("jxc_kcsp")).where(u"g_sn", goods))
            if (stock->text(u"ck_sn") == warehouse)
                stock->add(u"kc_sl", change);
        table(QStringLiteral("jxc_goods")).first(u"g_sn", goods)->add(u"g_kc", change);
        changeBatch(goods, warehouse, *line, change);
        const Decimal quantity = line->number(names.ofLine(u"_sl"));
        for (Record *from : table(source.lines).where([&](const Record &row) {
                 return row.number(u"id2") == line->number(u"id2");
             })) {
            from->add(names.done, direction > 0 ? quantity : -quantity);
            if (from->number(names.done) < 0)
                from->set(names.done, Decimal());
        }
    }
}

void ReferenceBooks::updateMonth(const QString &month) {
    MemoryTable &stocks = table(QStringLiteral("jxc_kcsp"));
    MemoryTable &months = table(QStringLiteral("jxc_kcjs"));
    for (const Record &place : table(QStringLiteral("jxc_ckxx")).rows()) {
        const QString &warehouse = place.text(u"ck_sn");
        const auto ofWarehouse = stocks.where(u"ck_sn", warehouse);
        if (std::none_of(ofWarehouse.begin(), ofWarehouse.end(),
                         [](const Record *row) { return row->text(u"g_sn") == discountGoods; }))
            stocks.insert(
                {{QStringLiteral("ck_sn"), warehouse}, {QStringLiteral("g_sn"), discountGoods}});
        Decimal quantity;
        Product value;
        for (const Record *row : stocks.where(u"ck_sn", warehouse)) {
            quantity += row->number(u"kc_sl");
            value += row->number(u"kc_sl") * row->number(u"kc_cbj");
        }
        const auto isThis = [&](const Record &row) {
            return row.text(u"js_rq") == month && row.text(u"ck_sn") == warehouse;
        };
        if (months.where(isThis).empty())
            months.insert({{QStringLiteral("js_rq"), month}, {QStringLiteral("ck_sn"), warehouse}});
        Record &row = *months.where(isThis).front();
        row.set(u"js_sl", quantity);
        row.set(u"js_zje", value.rounded(6));
    }
}

Verdict ReferenceBooks::closeRest(const QString &number, const QString &returnNumber) {
    return run([&](QStringList &questions) {
        const Names &source = *namesOf(number);
        const QString in = source.isSales() ? QStringLiteral("出库") : QStringLiteral("入库");
        if (table(source.header)
                .first(source.number, number)
                ->number(source.ofHeader(u"_status")) != 1)
            throw Refused{QStringLiteral("单据“%1”还没有审核！").arg(number)};
        const auto isOpen = [&](const Record *line) {
            return line->text(u"g_sn") != discountGoods &&
                   line->number(source.ofLine(u"_sl")) >
                       line->number(source.done) + line->number(source.cancelled);
        };
        const auto lines = table(source.lines).where(source.number, number);
        if (std::none_of(lines.begin(), lines.end(), isOpen))
            throw Refused{QStringLiteral("该单据没有未%1的商品！").arg(in)};
        questions << QStringLiteral(
                         "您的操作将取消当前单据所有未%1的商品，\r\n\r\n"
                         "未%1的商品数量将不再%1，\r\n\r\n将会自动生成一个新的%2单据\r\n\r\n"
                         "冲平本单据未%1商品的数量，确认吗？")
                         .arg(in, source.isSales() ? QStringLiteral("顾客退货")
                                                   : QStringLiteral("采购退货"));
        std::vector<Record *> closed;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(closed), isOpen);
        for (Record *line : closed)
            line->set(source.cancelled,
                      line->number(source.ofLine(u"_sl")) - line->number(source.done));
        writeReturn(source, number, returnNumber, closed);
        post(*namesOf(returnNumber), returnNumber);
    });
}

void ReferenceBooks::writeReturn(const Names &source, const QString &number,
                                 const QString &returnNumber, const std::vector<Record *> &lines) {
    const Names &names = *namesOf(returnNumber);
    Decimal total;
    for (const Record *line : lines) {
        const auto figure = [&](const char16_t *column) {
            return line->number(source.ofLine(column));
        };
        const Decimal closed = line->number(source.cancelled);
        const int places = settings.amountDecimals;
        const Decimal rate = (figure(u"_tax") / Decimal(100)).rounded(6);
        const Decimal gross =
            roundedProduct(closed, figure(u"_taxdj"), figure(u"_dzl"), 6).rounded(places);
        total += gross;
        Cells row{
            {QStringLiteral("gl_djh"), returnNumber},
            {QStringLiteral("g_sn"), line->text(u"g_sn")},
            {QStringLiteral("th_dj"), figure(u"_dj")},
            {QStringLiteral("th_sl"), closed},
            {QStringLiteral("th_zje"), gross},
            {QStringLiteral("th_je"),
             roundedProduct(closed, figure(u"_dj"), figure(u"_dzl"), 6).rounded(places)},
            {QStringLiteral("th_taxje"),
             roundedProduct(closed, figure(u"_dj"), rate, 6).rounded(places)},
            {QStringLiteral("th_zsl"), (figure(u"_zsl") * closed / figure(u"_sl")).rounded(6)},
            {QStringLiteral("t_ph"), line->text(u"t_ph")},
            {QStringLiteral("t_yxq"), line->text(u"t_yxq")},
            {QStringLiteral("t_scrq"), line->text(u"t_scrq")},
            {QStringLiteral("id2"), line->number(u"id2")}};
        if (source.isSales()) {
            row[QStringLiteral("g_zhxs")] = line->number(u"g_zhxs");
            row[QStringLiteral("th_cbj")] = figure(u"_cbj");
            row[QStringLiteral("th_zcb")] = (figure(u"_cbj") * closed).rounded(places);
        }
        table(names.lines).insert(row);
    }
    const Record &from = *table(source.header).first(source.number, number);
    table(names.header)
        .insert({{QStringLiteral("gl_djh"), returnNumber},
                 {names.date, from.text(source.date)},
                 {names.partner, from.text(source.partner)},
                 {QStringLiteral("ck_sn"), from.text(u"ck_sn")},
                 {QStringLiteral("th_kmmc"), from.text(source.ofHeader(u"_kmmc"))},
                 {QStringLiteral("th_yfje"), total},
                 {QStringLiteral("th_qk"), Decimal(1)},
                 {QStringLiteral("th_note"), QStringLiteral("单据%1取消出库").arg(number)}});
}

} // namespace jxc::test
