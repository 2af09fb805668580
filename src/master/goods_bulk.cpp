#include "master/goods_bulk.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "master/record.h"

namespace jxc {

namespace {

void changeClass(Database &db, qint64 number, QStringList &columns, Values &values) {
    const auto row = db.row(
        QStringLiteral("select gc_sn from jxc_goodsclass where gc_cid=? order by id"), {number});
    if (!row)
        throw Refusal(QStringLiteral("商品类别不存在！"));
    columns << QStringLiteral("gc_cid") << QStringLiteral("gc_sn");
    values.insert(values.end(), {number, row->text(u"gc_sn")});
}

void changeSupplier(Database &db, const QString &supplier, QStringList &columns, Values &values) {
    if (!db.exists(QStringLiteral("select id from jxc_ghsxx where ghs_sn=?"), {supplier}))
        throw Refusal(QStringLiteral("供货商不存在！"));
    columns << QStringLiteral("ghs_sn");
    values.emplace_back(supplier);
}

/// Each goods as it stands now; one that is gone, or that may not be restricted, refuses it all.
void checkGoods(Database &db, const std::vector<qint64> &ids, bool restricting) {
    for (const qint64 id : ids) {
        const auto row =
            db.row(QStringLiteral("select g_name,color_name from jxc_goods where id=?"), {id});
        if (!row)
            throw recordChangedMeanwhile();
        if (restricting && row->text(u"color_name").isEmpty())
            throw Refusal(QStringLiteral("商品“%1”：\r\n\r\n处方药必须填写批准文号！")
                              .arg(row->text(u"g_name")));
    }
}

} // namespace

Outcome bulkEditGoods(Session &session, Prompter &prompter, const std::vector<qint64> &ids,
                      const BulkChange &change) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        if (ids.empty())
            throw Refusal(QStringLiteral("请先选择一条记录！"));
        QStringList columns;
        Values values;
        if (change.classNumber)
            changeClass(db, *change.classNumber, columns, values);
        if (change.supplier)
            changeSupplier(db, *change.supplier, columns, values);
        if (change.restricted) {
            columns << QStringLiteral("g_iscf");
            values.emplace_back(*change.restricted);
        }
        if (change.disabled) {
            columns << QStringLiteral("g_jy");
            values.emplace_back(*change.disabled);
        }
        if (columns.isEmpty())
            return;
        checkGoods(db, ids, change.restricted.value_or(false));
        std::vector<Values> rows;
        for (const qint64 id : ids) {
            rows.push_back({id});
            rows.back().insert(rows.back().end(), values.begin(), values.end());
        }
        db.updateById(QStringLiteral("jxc_goods"), columns, rows);
        writeLog(session, QStringLiteral("批量修改商品，共%1种").arg(ids.size()));
    });
}

} // namespace jxc
