#include "ui/line_columns.h"

#include "core/parameters.h"
#include "core/session.h"

namespace jxc {

namespace {

LineColumn shown(LineField field, ColumnSpec spec) {
    return {field, std::move(spec), false, false};
}
LineColumn typed(LineField field, ColumnSpec spec) {
    return {field, std::move(spec), true, false};
}
LineColumn stop(LineField field, ColumnSpec spec) {
    return {field, std::move(spec), true, true};
}

struct Kind {
    bool purchase, sale, isReturn, follows;
};

Kind kindOf(const QString &code) {
    return {code.startsWith(u'C') && code != u"CK", code.startsWith(u'X'), code.endsWith(u'T'),
            code.endsWith(u'K')};
}

void addGoods(std::vector<LineColumn> &columns, const Kind &kind) {
    const ColumnSpec goods = text(u"g_sn", u"商品", 92);
    columns.push_back(kind.follows ? shown(LineField::goods, goods)
                                   : stop(LineField::goods, goods));
    columns.push_back(shown(LineField::name, text(u"g_name", u"商品名称", 184)));
    columns.push_back(shown(LineField::commonName, text(u"g_tym", u"有效成分", 80)));
    columns.push_back(shown(LineField::dosageForm, hidden(text(u"g_yjlx", u"剂型", 72))));
    columns.push_back(shown(LineField::specification, text(u"gg_name", u"规格", 68)));
    columns.push_back(shown(LineField::maker, hidden(text(u"g_sccs", u"生产厂商", 120))));
    columns.push_back(shown(LineField::licence, hidden(text(u"color_name", u"登记证号", 112))));
}

/// Price, discount, tax and amount: what is typed depends on the parameters.
void addMoney(std::vector<LineColumn> &columns, const Kind &kind, const Parameters &p) {
    const ColumnSpec unitPrice =
        column(u"dj", p.pricesIncludeTax ? u"含税单价" : u"单价", ValueKind::price, 84);
    columns.push_back(p.pricesEditable ? stop(LineField::price, unitPrice)
                                       : shown(LineField::price, unitPrice));
    if (kind.sale || p.purchaseDiscount)
        columns.push_back(
            typed(LineField::discount, column(u"dzl", u"折扣", ValueKind::factor, 56)));
    if (kind.sale)
        columns.push_back(
            shown(LineField::discounted, hidden(column(u"zhje", u"折后价", ValueKind::price))));
    if (p.pricesIncludeTax || !p.taxRate.isZero()) {
        columns.push_back(
            typed(LineField::taxRate, column(u"tax", u"税率%", ValueKind::percent, 64)));
        columns.push_back(
            shown(LineField::tax, hidden(column(u"taxje", u"税额", ValueKind::amount, 88))));
    }
    const ColumnSpec total = summed(column(u"zje", u"金额", ValueKind::amount, 96));
    const bool amountTyped = kind.sale ? p.saleAmountEditable : p.purchaseAmountEditable;
    columns.push_back(amountTyped ? typed(LineField::total, total)
                                  : shown(LineField::total, total));
}

void addBatch(std::vector<LineColumn> &columns, const Kind &kind, bool comesIn) {
    const auto cell = [&](LineField field, ColumnSpec spec) {
        columns.push_back(comesIn && !kind.sale ? stop(field, std::move(spec))
                                                : typed(field, std::move(spec)));
    };
    cell(LineField::batch, text(u"t_ph", u"批号", 100));
    cell(LineField::produced, column(u"t_scrq", u"生产日期", ValueKind::date, 96));
    cell(LineField::expiry, column(u"t_yxq", u"有效期至", ValueKind::date, 96));
}

} // namespace

std::vector<LineColumn> lineColumns(const QString &code, const Parameters &p,
                                    const CachedRights &rights) {
    const Kind kind = kindOf(code);
    std::vector<LineColumn> columns;
    addGoods(columns, kind);
    columns.push_back(kind.follows ? shown(LineField::unit, text(u"dw_name", u"单位", 52))
                                   : typed(LineField::unit, text(u"dw_name", u"单位", 52)));
    columns.push_back(
        stop(LineField::quantity, summed(column(u"sl", u"数量", ValueKind::quantity, 76))));
    if (!kind.follows)
        addMoney(columns, kind, p);
    addBatch(columns, kind, code == u"CJ" || code == u"RK");
    if (code == u"XS")
        columns.push_back(shown(LineField::gift, hidden(text(u"t_zp", u"赠品", 64))));
    if (!kind.follows)
        columns.push_back(shown(LineField::stock, column(u"kc", u"库存", ValueKind::quantity, 76)));
    if (kind.sale) {
        if (p.showsRetailPrice)
            columns.push_back(
                shown(LineField::retailPrice,
                      sellingPriceOnly(column(u"lsj", u"零售价", ValueKind::price, 76))));
        ColumnSpec cost = costOnly(hidden(column(u"cbj", u"成本", ValueKind::price)));
        columns.push_back(rights.changeSaleCost && code == u"XS" ? typed(LineField::cost, cost)
                                                                 : shown(LineField::cost, cost));
        columns.push_back(
            shown(LineField::profit, costOnly(hidden(column(u"lr", u"毛利", ValueKind::amount)))));
    }
    if (kind.follows || kind.isReturn)
        columns.push_back(shown(LineField::source, text(u"gl_djh2", u"原单号", 124)));
    columns.push_back(typed(LineField::note, text(u"bz", u"备注", 64)));
    std::erase_if(columns, [&](const LineColumn &c) {
        return (c.spec.secrecy == Secrecy::cost && !rights.showCostPrice) ||
               (c.spec.secrecy == Secrecy::selling && !rights.showSellingPrice);
    });
    return columns;
}

} // namespace jxc
