#include "stock/document.h"

#include "base/dates.h"
#include "core/action.h"
#include "core/approval.h"
#include "db/database.h"
#include "stock/document_kind.h"
#include "stock/goods_of.h"

namespace jxc {

namespace {

Row loadHeader(Database &db, const DocumentKind &kind, const QString &number) {
    // Should a number stand on two rows, the approved one is the document.
    const QString first =
        kind.prefix.isEmpty() ? QString() : QStringLiteral("%1 desc,").arg(kind.statusColumn());
    auto row = db.row(QStringLiteral("select * from %1 where %2=? order by %3id")
                          .arg(kind.headerTable, kind.numberColumn, first),
                      {number});
    if (!row)
        throw unknownDocument(number);
    return *std::move(row);
}

std::optional<QString> nameOf(Database &db, const QString &sql, const QString &number) {
    const auto row = db.row(sql, {number});
    if (!row)
        return std::nullopt;
    return row->text(size_t{0});
}

QHash<QString, GoodsCopy> loadGoods(Database &db, const DocumentKind &kind, const QString &number) {
    const GoodsOf named(kind, number);
    QHash<QString, GoodsCopy> goods;
    for (const Row &row :
         db.rows(QStringLiteral("select g_sn,g_name,g_jm,dw_name,gg_name,color_name,g_pjjj,"
                                "g_lsj from jxc_goods where g_sn in %1")
                     .arg(named.set),
                 named.values))
        goods.insert(row.text(u"g_sn"),
                     {row.text(u"g_name"), row.text(u"g_jm"), row.text(u"dw_name"),
                      row.text(u"gg_name"), row.text(u"color_name"), row.decimal(u"g_pjjj"),
                      row.decimal(u"g_lsj")});
    return goods;
}

} // namespace

bool Document::isApproved() const {
    return header.integer(kind.statusColumn()) == 1;
}

qsizetype Document::goodsLines() const {
    return std::count_if(lines.begin(), lines.end(),
                         [](const Row &line) { return line.text(u"g_sn") != discountGoods; });
}

QString Document::note() const {
    return header.text(kind.noteColumn);
}

Document loadDocument(Database &db, const DocumentKind &kind, const QString &number) {
    Document d{
        .kind = kind,
        .number = number,
        .header = loadHeader(db, kind, number),
        .lines = db.rows(QStringLiteral("select * from %1 where %2=? order by id")
                             .arg(kind.lineTable, kind.numberColumn),
                         {number}),
        .goods = loadGoods(db, kind, number),
    };
    d.date = d.header.text(kind.dateColumn);
    d.warehouse = d.header.text(kind.warehouseColumn);
    d.warehouseName =
        nameOf(db, QStringLiteral("select ck_name from jxc_ckxx where ck_sn=?"), d.warehouse);
    if (!kind.clerkColumn.isEmpty()) {
        d.clerkNo = d.header.text(kind.clerkColumn);
        d.clerkName =
            nameOf(db, QStringLiteral("select u_name from jxc_user where u_sn=?"), d.clerkNo)
                .value_or(QString());
    }
    if (!kind.partnerColumn.isEmpty()) {
        d.partner = {kind.partnerKind, d.header.text(kind.partnerColumn)};
        d.partnerName = partnerName(db, d.partner);
    }
    return d;
}

void checkReferences(const Document &d) {
    if (!isDate(d.date))
        throw Refusal(QStringLiteral("单据日期“%1”无效，不能审核！").arg(d.date));
    if (d.lines.empty())
        throw Refusal(QStringLiteral("单据没有明细，不能审核！"));
    if (!d.warehouseName)
        throw Refusal(QStringLiteral("单据的仓库“%1”不存在，不能审核！").arg(d.warehouse));
    if (!d.kind.partnerColumn.isEmpty() && !d.partnerName)
        throw Refusal(QStringLiteral("单据的往来单位“%1”不存在，不能审核！").arg(d.partner.number));
    for (const Row &line : d.lines)
        if (!d.goods.contains(line.text(u"g_sn")))
            throw Refusal(QStringLiteral("商品“%1”不存在，不能审核！").arg(line.text(u"g_sn")));
}

} // namespace jxc
