#include "stock/batches.h"

#include "core/action.h"
#include "core/parameters.h"
#include "db/database.h"
#include "db/in_list.h"
#include "stock/document_kind.h"
#include "stock/goods_of.h"

namespace jxc {

namespace {

Batch batchOf(const Row &row) {
    return {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
}

void change(Database &db, const QString &goods, const QString &warehouse, Decimal quantity,
            const Batch &batch) {
    BatchChanges changes;
    changes.add(goods, warehouse, batch, quantity);
    changes.write(db);
}

struct BatchOfGoods {
    QString goods;
    Batch batch;
    friend bool operator<(const BatchOfGoods &a, const BatchOfGoods &b) {
        return std::tie(a.goods, a.batch) < std::tie(b.goods, b.batch);
    }
};

/// Base quantity that a document takes from each batch.
std::map<BatchOfGoods, Decimal> taken(Database &db, const DocumentKind &kind,
                                      const QString &number) {
    std::map<BatchOfGoods, Decimal> sums;
    for (const Row &row : db.rows(
             QStringLiteral("select g_sn,t_ph,t_yxq,t_scrq,%1 as sl from %2 where %3=? and g_sn<>?")
                 .arg(kind.baseQuantityColumn, kind.lineTable, kind.numberColumn),
             {number, discountGoods}))
        sums[{row.text(u"g_sn"), batchOf(row)}] += row.decimal(u"sl");
    return sums;
}

std::map<BatchOfGoods, Decimal> held(Database &db, const DocumentKind &kind, const QString &number,
                                     const QString &warehouse) {
    std::map<BatchOfGoods, Decimal> stock;
    const GoodsOf goods(kind, number);
    for (const Row &row :
         db.rows(QStringLiteral("select g_sn,t_ph,t_yxq,t_scrq,t_sl from jxc_tkc where "
                                "ck_sn=? and g_sn in %1")
                     .arg(goods.set),
                 goods.after({warehouse})))
        stock[{row.text(u"g_sn"), batchOf(row)}] += row.decimal(u"t_sl");
    return stock;
}

} // namespace

Batch Batch::normalised() const {
    if (!number.isEmpty())
        return *this;
    return {number, QStringLiteral("0000-00"), produced};
}

void BatchChanges::add(const QString &goods, const QString &warehouse, const Batch &batch,
                       Decimal quantity) {
    if (!quantity.isZero())
        m_changes[{goods, warehouse, batch.normalised()}] += quantity;
}

/// The rows of the batches that change, one statement for each warehouse; the first row of a batch
/// counts.
std::map<BatchChanges::Key, BatchChanges::Held> BatchChanges::readHeld(Database &db) const {
    std::map<QString, std::pair<QStringList, QStringList>> ofWarehouse; // goods, numbers
    for (const auto &[key, quantity] : m_changes) {
        auto &[goods, numbers] = ofWarehouse[key.warehouse];
        goods << key.goods;
        numbers << key.batch.number;
    }
    std::map<Key, Held> held;
    for (auto &[warehouse, wanted] : ofWarehouse) {
        auto &[goodsList, numberList] = wanted;
        goodsList.removeDuplicates();
        numberList.removeDuplicates();
        const InList goods(goodsList), numbers(numberList);
        Values values{warehouse};
        values.insert(values.end(), goods.values.begin(), goods.values.end());
        values.insert(values.end(), numbers.values.begin(), numbers.values.end());
        for (const Row &row :
             db.rows(QStringLiteral("select id,g_sn,t_ph,t_yxq,t_scrq,t_sl from jxc_tkc where "
                                    "ck_sn=? and g_sn in %1 and t_ph in %2 order by id")
                         .arg(goods.marks, numbers.marks),
                     values))
            held.try_emplace({row.text(u"g_sn"),
                              warehouse,
                              {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")}},
                             Held{row.integer(u"id"), row.decimal(u"t_sl")});
    }
    return held;
}

void BatchChanges::write(Database &db) const {
    const QString table = QStringLiteral("jxc_tkc");
    std::vector<Values> updates;
    std::vector<Values> inserts;
    const std::map<Key, Held> before = readHeld(db);
    for (const auto &[key, quantity] : m_changes) {
        if (const auto held = before.find(key); held != before.end())
            updates.push_back({held->second.id, held->second.quantity + quantity});
        else
            inserts.push_back({key.goods, QString(), key.batch.number, key.batch.expiry, quantity,
                               key.warehouse, key.batch.produced});
    }
    db.updateById(table, {QStringLiteral("t_sl")}, updates);
    db.insertRows(table,
                  {QStringLiteral("g_sn"), QStringLiteral("t_jhrq"), QStringLiteral("t_ph"),
                   QStringLiteral("t_yxq"), QStringLiteral("t_sl"), QStringLiteral("ck_sn"),
                   QStringLiteral("t_scrq")},
                  inserts);
}

Decimal getTkcSl(Database &db, const QString &goods, const QString &warehouse, const Batch &batch) {
    const auto row =
        db.row(QStringLiteral("select t_sl from jxc_tkc where g_sn=? and ck_sn=? and t_ph=? "
                              "and t_yxq=? and t_scrq=?"),
               {goods, warehouse, batch.number, batch.expiry, batch.produced});
    return row ? row->decimal(u"t_sl") : Decimal();
}

void addTkc(Database &db, const QString &goods, const QString &warehouse, Decimal quantity,
            const Batch &batch) {
    change(db, goods, warehouse, quantity, batch);
}

void subTkc(Database &db, const QString &goods, const QString &warehouse, Decimal quantity,
            const Batch &batch) {
    change(db, goods, warehouse, -quantity, batch);
}

void checkTkcEnough(Database &db, const Parameters &parameters, Answers &answers,
                    const DocumentKind &kind, const QString &number, const QString &warehouse) {
    if (kind.shortageWord.isEmpty())
        return;
    const auto stock = held(db, kind, number, warehouse);
    for (const auto &[key, quantity] : taken(db, kind, number)) {
        const auto batch = stock.find(key);
        if (batch == stock.end() || !batch->second.isPositive() || quantity <= batch->second)
            continue;
        const QString opening =
            QStringLiteral("该单据对应的批号、有效期中至少一种商品库存不足，\r\n\r\n“%1”：")
                .arg(key.goods);
        if (!parameters.negativeStockAsks)
            throw Refusal(opening + QStringLiteral("不能%1！").arg(kind.shortageWord));
        answers.require(opening +
                        QStringLiteral("%1将会出现负库存，是否继续？").arg(kind.shortageWord));
        return;
    }
}

} // namespace jxc
