#include "stock/against_source.h"

#include "core/action.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/document.h"
#include "stock/stock_book.h"

#include <map>

namespace jxc {

namespace {

struct SourceLine {
    qint64 id = 0;
    QString number, goods, warehouse;
    bool approved = false;
    Decimal quantity, done, cancelled;
};

/// The source's lines by the id that the document's lines carry.
std::map<qint64, SourceLine> sourceLines(Database &db, const Document &d, const SourceLines &s) {
    std::map<qint64, SourceLine> lines;
    for (const Row &row : db.rows(
             QStringLiteral(
                 "select a.id,a.id2,a.g_sn,a.%1 as number,a.%2 as sl,a.%3 as done,a.%4 as "
                 "cancelled,"
                 "b.ck_sn,b.%5 as status from %6 a,%7 b where a.%1=b.%1 and a.id2<>0 and a.id2 in "
                 "(select id2 from %8 where gl_djh=?)")
                 .arg(s.numberColumn, s.quantity, s.done, s.cancelled, s.statusColumn, s.lineTable,
                      s.headerTable, d.kind.lineTable),
             {d.number}))
        lines[row.integer(u"id2")] = {row.integer(u"id"),          row.text(u"number"),
                                      row.text(u"g_sn"),           row.text(u"ck_sn"),
                                      row.integer(u"status") == 1, row.decimal(u"sl"),
                                      row.decimal(u"done"),        row.decimal(u"cancelled")};
    return lines;
}

} // namespace

void checkOpenQuantities(Session &session, const Document &d, const SourceLines &s) {
    const auto lines = sourceLines(session.db(), d, s);
    std::map<qint64, Decimal> here;
    for (const Row &line : d.lines) {
        const QString goods = line.text(u"g_sn");
        if (goods == discountGoods)
            continue;
        const qint64 key = line.integer(u"id2");
        const Decimal quantity = here[key] += line.decimal(d.kind.quantityColumn);
        const auto source = lines.find(key);
        const bool possible =
            source != lines.end() && source->second.goods == goods && source->second.approved &&
            source->second.warehouse == d.warehouse &&
            source->second.quantity >= source->second.done + source->second.cancelled + quantity;
        if (!possible)
            throw Refusal(QString(s.tooMuch).arg(line.text(s.numberInFollower), goods));
    }
}

void moveAgainstSourceLines(Session &session, const Document &d, const SourceLines &s,
                            int direction) {
    Database &db = session.db();
    auto sources = sourceLines(db, d, s);
    StockBook stock(db, d);
    BatchChanges batches;
    const bool raises = s.physicalSign * direction > 0;
    for (const Row &line : d.lines) {
        const QString goods = line.text(u"g_sn");
        if (goods == discountGoods)
            continue;
        const Decimal base = line.decimal(d.kind.baseQuantityColumn);
        const Decimal change = raises ? base : -base;
        stock.movePhysically(goods, d.warehouse, change);
        batches.add(goods, d.warehouse,
                    {line.text(u"t_ph"), line.text(u"t_yxq"), line.text(u"t_scrq")}, change);
        const auto source = sources.find(line.integer(u"id2"));
        if (source == sources.end())
            continue;
        const Decimal quantity = line.decimal(d.kind.quantityColumn);
        Decimal &done = source->second.done;
        done += direction > 0 ? quantity : -quantity;
        if (direction < 0 && done.isNegative())
            done = 0;
    }
    stock.writeStock();
    stock.writeGoods();
    batches.write(db);
    std::vector<Values> updates;
    updates.reserve(sources.size());
    for (const auto &[key, line] : sources)
        updates.push_back({line.id, line.done});
    db.updateById(s.lineTable, {s.done}, updates);
}

} // namespace jxc
