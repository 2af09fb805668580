#include "master/goods_search.h"

#include "db/database.h"
#include "master/goods_rules.h"

#include <QSet>
#include <algorithm>

namespace jxc {

namespace {

GoodsHit hitOf(const Row &row) {
    GoodsHit hit;
    hit.id = row.integer(u"id");
    hit.code = row.text(u"g_sn");
    hit.name = row.text(u"g_name");
    hit.genericName = row.text(u"g_tym");
    hit.dosageForm = row.text(u"g_yjlx");
    hit.specification = row.text(u"gg_name");
    hit.unit = row.text(u"dw_name");
    hit.maker = row.text(u"g_sccs");
    hit.registration = row.text(u"color_name");
    hit.classNumber = row.integer(u"gc_cid");
    hit.stock = row.decimal(u"kc_sl");
    hit.bookStock = row.decimal(u"kc_zsl");
    hit.presetPurchasePrice = row.decimal(u"g_jj");
    hit.lastPurchasePrice = row.decimal(u"g_scjj");
    hit.sellingPrice = row.decimal(u"g_sj");
    hit.retailPrice = row.decimal(u"g_lsj");
    hit.barcodeFactor = 1;
    return hit;
}

/// One statement for any number of goods: the places that are not needed ask for row 0.
QString detailSql() {
    QString places = QStringLiteral("?");
    for (size_t i = 1; i < GoodsFinder::mostHits; ++i)
        places += QStringLiteral(",?");
    return QStringLiteral("select g.id,g.g_sn,g.g_name,g.g_tym,g.g_yjlx,g.gg_name,g.dw_name,"
                          "g.g_sccs,g.color_name,g.gc_cid,g.g_jj,g.g_scjj,g.g_sj,g.g_lsj,k.kc_sl,"
                          "k.kc_zsl from jxc_goods g left join jxc_kcsp k on k.g_sn=g.g_sn and "
                          "k.ck_sn=? where g.id in (%1) and coalesce(g.g_jy,0)=0")
        .arg(places);
}

} // namespace

std::vector<GoodsHit> GoodsFinder::details(const std::vector<qint64> &ids,
                                           const QString &warehouse) {
    static const QString sql = detailSql();
    Values values{warehouse};
    for (size_t i = 0; i < mostHits; ++i)
        values.emplace_back(i < ids.size() ? ids[i] : qint64{0});
    QHash<qint64, GoodsHit> found;
    for (const Row &row : m_db.rows(sql, values))
        found.insert(row.integer(u"id"), hitOf(row));
    std::vector<GoodsHit> hits;
    for (const qint64 id : ids)
        if (const auto hit = found.constFind(id); hit != found.constEnd())
            hits.push_back(*hit);
    return hits;
}

std::vector<GoodsFinder::BarcodeHit> GoodsFinder::barcodeHits(const QString &barcode) {
    std::vector<BarcodeHit> hits;
    QSet<qint64> seen;
    for (const Row &row : m_db.rows(
             QStringLiteral(
                 "select id,dw_name as unit,1 as factor,1 as place from jxc_goods where g_sptm=? "
                 "union all select g.id,g.dw_name,1,2 from jxc_goodstm t join jxc_goods g on "
                 "g.g_sn=t.g_sn where t.g_sptm=? "
                 "union all select g.id,d.dw_name,d.g_zhxs,3 from jxc_goodsdw d join jxc_goods g "
                 "on "
                 "g.g_sn=d.g_sn where d.g_sptm=? order by 4,1"),
             {barcode, barcode, barcode})) {
        const qint64 id = row.integer(u"id");
        if (seen.contains(id) || hits.size() == mostHits)
            continue;
        seen.insert(id);
        hits.push_back({id, row.text(u"unit"), row.decimal(u"factor")});
    }
    return hits;
}

std::vector<GoodsHit> GoodsFinder::findBarcode(const QString &barcode, const QString &warehouse) {
    const QString scanned = barcode.trimmed();
    if (scanned.isEmpty())
        return {};
    const std::vector<BarcodeHit> bearers = barcodeHits(scanned);
    if (bearers.empty())
        return {};
    std::vector<qint64> ids;
    for (const BarcodeHit &bearer : bearers)
        ids.push_back(bearer.id);
    std::vector<GoodsHit> hits = details(ids, warehouse);
    std::erase_if(hits, [](const GoodsHit &hit) { return hit.code == discountGoods; });
    for (GoodsHit &hit : hits) {
        const auto bearer =
            std::find_if(bearers.begin(), bearers.end(),
                         [&](const BarcodeHit &candidate) { return candidate.id == hit.id; });
        hit.exact = true;
        hit.barcode = scanned;
        hit.barcodeUnit = bearer->unit;
        hit.barcodeFactor = bearer->factor;
    }
    return hits;
}

std::vector<GoodsHit> GoodsFinder::find(const QString &typed, const QString &warehouse,
                                        GoodsUse use) {
    std::vector<GoodsHit> hits = findBarcode(typed, warehouse);
    QSet<qint64> taken;
    for (const GoodsHit &hit : hits)
        taken.insert(hit.id);
    std::vector<GoodsIndex::Match> matches = m_index.find(typed);
    std::erase_if(matches,
                  [&](const GoodsIndex::Match &match) { return taken.contains(match.id); });
    const auto usual = [use](const GoodsIndex::Match &match) {
        return use == GoodsUse::purchase ? match.purchases : match.sales;
    };
    const size_t wanted = std::min(matches.size(), mostHits - hits.size());
    std::partial_sort(matches.begin(), matches.begin() + static_cast<std::ptrdiff_t>(wanted),
                      matches.end(), [&](const auto &a, const auto &b) {
                          return std::make_tuple(!a.exact, -usual(a), a.id) <
                                 std::make_tuple(!b.exact, -usual(b), b.id);
                      });
    matches.resize(wanted);
    std::vector<qint64> ids;
    for (const GoodsIndex::Match &match : matches)
        ids.push_back(match.id);
    if (ids.empty())
        return hits;
    std::vector<GoodsHit> more = details(ids, warehouse);
    for (GoodsHit &hit : more) {
        hit.exact = std::any_of(matches.begin(), matches.end(), [&](const auto &match) {
            return match.id == hit.id && match.exact;
        });
        hits.push_back(hit);
    }
    return hits;
}

} // namespace jxc
