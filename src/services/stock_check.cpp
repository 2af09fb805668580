#include "services/stock_check.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "db/computed_rows.h"
#include "db/transaction.h"
#include "services/verify_journal.h"
#include "services/verify_stock.h"
#include "services/verify_walk.h"
#include "stock/batches.h"
#include "stock/cost.h"
#include "stock/goods_search.h"

namespace jxc {

namespace {

using verify::StockDifference;
using Figure = StockDifference::Figure;

std::vector<StockDifference> stockDifferences(Database &db) {
    verify::DueStock due;
    verify::Findings others; // of documents and journal: jxcctl verify tells them
    verify::checkJournalAgainstDocuments(db, verify::documentsBeforeTheBooks(db), due, others);
    verify::checkJournalFigures(db, Parameters::load(db), false, due, others);
    return due.differences(db);
}

QString itemText(Figure figure) {
    switch (figure) {
    case Figure::book:
        return QStringLiteral("帐面库存");
    case Figure::physical:
        return QStringLiteral("实际库存");
    case Figure::batch:
        return QStringLiteral("批号库存");
    case Figure::goods:
        return QStringLiteral("库存合计");
    }
    return {};
}

/// A goods and warehouse may have two rows: the first gets the figure, the others nothing.
void writeStock(Database &db, const QString &column, const StockDifference &d) {
    const auto row =
        db.row(QStringLiteral("select id from jxc_kcsp where g_sn=? and ck_sn=? order by id"),
               {d.place.goods, d.place.warehouse});
    if (!row) {
        const Decimal cost =
            getCbjAt(db, d.place.warehouse, d.place.goods, QStringLiteral("9999-12-31"));
        const bool isBook = column == u"kc_zsl";
        const Assignments fresh = {{QStringLiteral("g_sn"), d.place.goods},
                                   {QStringLiteral("ck_sn"), d.place.warehouse},
                                   {QStringLiteral("kc_zsl"), isBook ? d.due : Decimal()},
                                   {QStringLiteral("kc_sl"), isBook ? Decimal() : d.due},
                                   {QStringLiteral("kc_cbj"), cost},
                                   {QStringLiteral("kc_xssl"), 0}};
        db.insertRow(QStringLiteral("jxc_kcsp"), fresh);
        return;
    }
    db.updateRows(QStringLiteral("jxc_kcsp"), {{column, 0}}, QStringLiteral("g_sn=? and ck_sn=?"),
                  {d.place.goods, d.place.warehouse});
    db.updateRows(QStringLiteral("jxc_kcsp"), {{column, d.due}}, QStringLiteral("id=?"),
                  {row->integer(u"id")});
}

void repair(Database &db, const StockDifference &d) {
    switch (d.figure) {
    case Figure::book:
        writeStock(db, QStringLiteral("kc_zsl"), d);
        break;
    case Figure::physical:
        writeStock(db, QStringLiteral("kc_sl"), d);
        break;
    case Figure::batch:
        addTkc(db, d.place.goods, d.place.warehouse, d.due - d.found,
               {d.batch.number, d.batch.expiry, d.batch.produced});
        break;
    case Figure::goods:
        db.updateRows(QStringLiteral("jxc_goods"), {{QStringLiteral("g_kc"), d.due}},
                      QStringLiteral("g_sn=?"), {d.place.goods});
        break;
    }
}

/// The rows that name goods, or warehouses, by their number.
QHash<QString, Row> rowsByNumber(Database &db, const QString &sql) {
    QHash<QString, Row> byNumber;
    for (const Row &row : db.rows(sql))
        byNumber.insert(row.text(size_t{0}), row);
    return byNumber;
}

} // namespace

Rows checkStock(Session &session) {
    Database &db = session.db();
    Transaction snapshot(db); // nothing is written; what is read belongs together
    const std::vector<StockDifference> differences = stockDifferences(db);
    const auto goods = rowsByNumber(
        db, QStringLiteral("select %1 from jxc_goods a order by a.id desc").arg(goodsColumns));
    const auto warehouses =
        rowsByNumber(db, QStringLiteral("select ck_sn,ck_name from jxc_ckxx order by id desc"));
    snapshot.commit();

    const QStringList own =
        QStringLiteral("ck_sn ck_name item t_ph t_scrq t_yxq found due diff").split(u' ');
    const QStringList names = QString(goodsColumns).remove(QStringLiteral("a.")).split(u',');
    ComputedRows list({names.begin(), names.end()}, own);
    for (const StockDifference &d : differences) {
        std::vector<std::pair<QStringView, Cell>> fields = {
            {u"ck_sn", d.place.warehouse}, {u"item", itemText(d.figure)},
            {u"t_ph", d.batch.number},     {u"t_scrq", d.batch.produced},
            {u"t_yxq", d.batch.expiry},    {u"found", cellOf(d.found)},
            {u"due", cellOf(d.due)},       {u"diff", cellOf(d.found - d.due)}};
        if (const auto warehouse = warehouses.find(d.place.warehouse);
            warehouse != warehouses.end())
            fields.emplace_back(u"ck_name", warehouse->text(u"ck_name"));
        if (const auto row = goods.find(d.place.goods); row != goods.end())
            for (const QString &name : names)
                fields.emplace_back(name, row->text(name));
        else
            fields.emplace_back(u"g_sn", d.place.goods);
        list.add(fields);
    }
    return list.take();
}

Outcome repairStock(Session &session, Prompter &prompter, int *repaired) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        answers.require(QStringLiteral("您的操作将按已审核的单据重新计算库存，确认吗？"));
        const std::vector<StockDifference> differences = stockDifferences(session.db());
        for (const StockDifference &d : differences)
            repair(session.db(), d);
        writeLog(session, QStringLiteral("库存核对，修复%1项").arg(differences.size()));
        *repaired = static_cast<int>(differences.size());
    });
}

} // namespace jxc
