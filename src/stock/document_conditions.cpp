#include "stock/document_conditions.h"

#include "core/visible_warehouses.h"
#include "db/like.h"

namespace jxc {

namespace {

/// The document holds the goods and batch, in a line or in its header.
void addContent(Where &where, const DocumentSource &source, const DocumentQuery &filter) {
    if (filter.goods.isEmpty() && filter.batch.isEmpty())
        return;
    Where line;
    line.addEqual(QStringLiteral("l.g_sn"), filter.goods);
    line.addEqual(QStringLiteral("l.t_ph"), filter.batch);
    // Not by each document in turn: the lines of a goods are few beside all documents.
    QString condition = QStringLiteral("h.%1 in (select l.%1 from %2 l where %3)")
                            .arg(source.number, source.lines, line.text());
    Values values = line.values();
    if (source.headerHasGoods) {
        Where header;
        header.addEqual(QStringLiteral("h.g_sn"), filter.goods);
        header.addEqual(QStringLiteral("h.t_ph"), filter.batch);
        condition = QStringLiteral("(%1 or (%2))").arg(condition, header.text());
        values.insert(values.end(), header.values().begin(), header.values().end());
    }
    where.add(condition, values);
}

void addWarehouse(const Session &session, Where &where, const DocumentSource &source,
                  const QString &warehouse) {
    const bool isTransfer = source.secondWarehouse != u"''";
    if (!warehouse.isEmpty() && isTransfer)
        where.add(QStringLiteral("(%1=? or %2=?)").arg(source.warehouse, source.secondWarehouse),
                  {warehouse, warehouse});
    else
        where.addEqual(source.warehouse, warehouse);
    Where first;
    addWarehouseRestriction(session, first, source.warehouse);
    if (first.values().empty())
        return;
    if (!isTransfer) {
        where.add(first.text(), first.values());
        return;
    }
    Where second;
    addWarehouseRestriction(session, second, source.secondWarehouse);
    where.add(QStringLiteral("(%1 or %2)").arg(first.text(), second.text()),
              {first.values().front(), second.values().front()});
}

} // namespace

Where documentConditions(const Session &session, const DocumentSource &source,
                         const DocumentQuery &filter) {
    Where where;
    if (!filter.from.isEmpty())
        where.add(source.date + QStringLiteral(">=?"), {filter.from});
    if (!filter.to.isEmpty()) // a time of day may follow
        where.add(source.date + QStringLiteral("<=?"), {QString(filter.to + u'~')});
    if (filter.state != DocumentState::any)
        where.add(source.status + QStringLiteral("=?"),
                  {filter.state == DocumentState::approved ? 1 : 0});
    where.addEqual(source.partner, filter.partner);
    where.addEqual(QStringLiteral("h.u_sn"), filter.clerk);
    addWarehouse(session, where, source, filter.warehouse);
    if (!filter.search.isEmpty())
        where.add(QStringLiteral("(%1 or %2)")
                      .arg(contains(QStringLiteral("h.") + source.number), contains(source.note)),
                  {containsPattern(filter.search), containsPattern(filter.search)});
    addContent(where, source, filter);
    if (!source.condition.isEmpty())
        where.add(source.condition);
    return where;
}

} // namespace jxc
