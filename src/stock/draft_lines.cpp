#include "stock/draft_lines.h"

#include "core/rights.h"
#include "db/in_list.h"
#include "stock/cost.h"
#include "stock/return_ties.h"

#include <algorithm>

namespace jxc {

namespace {

/// The cost of a line as it was stored, while the line is still of the same goods and place: it is
/// fixed from the first saving on.
std::optional<Decimal> storedCost(const DraftContext &c, const DraftLine &line) {
    if (!c.stored || c.stored->header.text(u"ck_sn") != c.draft.warehouse)
        return std::nullopt;
    for (const Row &row : c.stored->lines)
        if (row.integer(u"id") == line.id && row.text(u"g_sn") == line.goods &&
            row.decimal(u"g_zhxs") == line.factor)
            return row.decimal(QString(c.linePrefix() + QStringLiteral("_cbj")));
    return std::nullopt;
}

bool wasStoredSo(const DraftContext &c, const DraftLine &line) {
    return c.stored &&
           std::any_of(c.stored->lines.begin(), c.stored->lines.end(), [&](const Row &row) {
               return row.integer(u"id") == line.id && row.decimal(u"ls_cbj") == line.cost;
           });
}

class Completer {
public:
    explicit Completer(const DraftContext &context)
        : m_context(context)
        , m_db(context.db) {
        readGoods();
    }

    CompleteLine complete(const DraftLine &typed) {
        CompleteLine line{.typed = typed, .goods = goodsOf(typed.goods)};
        line.unit = typed.unit.isEmpty() ? line.goods.unit : typed.unit;
        line.barcode = typed.barcode.isEmpty() ? line.goods.barcode : typed.barcode;
        line.baseQuantity = (typed.quantity * typed.factor).rounded(6);
        line.retailPrice = (line.goods.retailPrice * typed.factor).rounded(6);
        line.presetPrice = (line.goods.presetPrice * typed.factor).rounded(6);
        if (line.unit != line.goods.unit)
            takeUnitPrices(line);
        if (m_context.isFollower)
            return line;
        line.rate = typed.taxRate.value_or(m_context.parameters.taxRate);
        foldDiscount(line.typed);
        line.amounts = lineAmounts(m_context.parameters, line.typed.quantity, line.typed.price,
                                   line.rate, line.typed.discount, line.typed.total);
        if (m_context.isSale)
            chargeCost(line);
        return line;
    }

private:
    const LineGoods &goodsOf(const QString &number) {
        const auto known = m_goods.constFind(number);
        if (known == m_goods.constEnd() || number == discountGoods)
            throw Refusal(QStringLiteral("商品“%1”不存在！").arg(number));
        return *known;
    }

    /// Of all lines at once: a till does not ask the server for every line.
    void readGoods() {
        for (const DraftLine &line : m_context.draft.lines)
            m_numbers << line.goods;
        m_numbers.removeDuplicates();
        const InList list(m_numbers);
        for (const Row &row :
             m_db.rows(QStringLiteral("select g_sn,g_name,dw_name,g_sptm,ghs_sn,g_lsj,g_sj,g_iscf,"
                                      "g_bzq from jxc_goods where g_sn in %1 order by id desc")
                           .arg(list.marks),
                       list.values))
            m_goods.insert(row.text(u"g_sn"),
                           {row.text(u"g_name"), row.text(u"dw_name"), row.text(u"g_sptm"),
                            row.text(u"ghs_sn"), row.decimal(u"g_lsj"), row.decimal(u"g_sj"),
                            row.flag(u"g_iscf"), static_cast<int>(row.integer(u"g_bzq"))});
    }

    Decimal costBefore(const QString &goods) {
        if (m_costs.isEmpty())
            m_costs = costsBefore(m_db, m_context.draft.warehouse, m_numbers, m_context.draft.date);
        return m_costs.value(goods);
    }

    /// A further unit may have prices of its own.
    void takeUnitPrices(CompleteLine &line) {
        const auto row = m_db.row(QStringLiteral("select g_lsj,g_sj from jxc_goodsdw where g_sn=? "
                                                 "and dw_name=? order by id"),
                                  {line.typed.goods, line.unit});
        if (!row)
            return;
        if (const Decimal retail = row->decimal(u"g_lsj"); !retail.isZero())
            line.retailPrice = retail;
        if (const Decimal preset = row->decimal(u"g_sj"); !preset.isZero())
            line.presetPrice = preset;
    }

    void foldDiscount(DraftLine &typed) const {
        if (!typed.gift.isEmpty()) {
            typed.price = 0;
            typed.total = Decimal();
        }
        if (m_context.isSale || typed.discount == Decimal(1))
            return;
        // The journal takes the cost of a purchase from its price alone.
        const QString noted = QStringLiteral("折扣") + typed.discount.toText();
        typed.price =
            (typed.price * typed.discount).rounded(std::max(3, m_context.parameters.priceDecimals));
        typed.discount = 1;
        typed.note = typed.note.isEmpty() ? noted : typed.note + u' ' + noted;
    }

    void chargeCost(CompleteLine &line) {
        line.cost = costOf(line);
        line.totalCost =
            (line.cost * line.typed.quantity).rounded(m_context.parameters.amountDecimals);
    }

    Decimal costOf(const CompleteLine &line) {
        const DraftLine &typed = line.typed;
        const Draft &draft = m_context.draft;
        if (m_context.isReturn) {
            if (!typed.sourceNumber.isEmpty())
                if (const auto sold = costOfSale(line))
                    return *sold;
            if (typed.cost)
                return *typed.cost;
            return perUnit(getCbjAt(m_db, draft.warehouse, typed.goods, draft.date), typed);
        }
        const auto before = storedCost(m_context, typed);
        if (before && typed.cost == before)
            return *before;
        if (typed.cost && !wasStoredSo(m_context, typed)) {
            if (!hasRight(m_context.session, u"xsgl", 14))
                throw Refusal(noRightMessage(QStringLiteral("修改销售成本价！")));
            return *typed.cost;
        }
        return perUnit(costBefore(typed.goods), typed);
    }

    static Decimal perUnit(Decimal base, const DraftLine &typed) {
        return (base * typed.factor).rounded(6);
    }

    /// What comes back costs what it cost when it was sold.
    std::optional<Decimal> costOfSale(const CompleteLine &line) {
        const Batch batch = line.typed.batch.normalised();
        const auto row = m_db.row(
            QStringLiteral("select ls_cbj from jxc_lsxssp where gl_djh=? and g_sn=? and dw_name=? "
                           "and t_ph=? and t_yxq=? and t_scrq=? order by id"),
            {line.typed.sourceNumber, line.typed.goods, line.unit, batch.number, batch.expiry,
             batch.produced});
        if (!row)
            return std::nullopt;
        return row->decimal(u"ls_cbj");
    }

    const DraftContext &m_context;
    Database &m_db;
    QStringList m_numbers; ///< of the goods of all lines
    QHash<QString, LineGoods> m_goods;
    QHash<QString, Decimal> m_costs; ///< charged by lines that have none of their own
};

using Named = std::function<QString(const char16_t *)>;

/// What was taken in or issued at once: all of it, or nothing while separate documents do that.
void addFlowColumns(Assignments &row, const DraftContext &c, const CompleteLine &line,
                    const Named &named) {
    const bool later = c.draft.laterInOut ||
                       (c.isSale ? c.parameters.separateGoodsOut : c.parameters.separateGoodsIn);
    row.push_back({named(c.isSale ? u"_cksl" : u"_rksl"), later ? Decimal() : line.typed.quantity});
    row.push_back({named(u"_qxsl"), 0});
    row.push_back({QStringLiteral("id3"), line.typed.sourceLine});
    row.push_back({QStringLiteral("gl_djh2"), line.typed.sourceNumber});
}

void addSaleColumns(Assignments &row, const DraftContext &c, const CompleteLine &line,
                    const Named &named) {
    row.push_back({QStringLiteral("g_zhxs"), line.typed.factor});
    row.push_back({named(u"_cbj"), line.cost});
    row.push_back({named(u"_zcb"), line.totalCost});
    row.push_back({named(u"_lsj"), line.retailPrice});
    row.push_back({named(u"_zhje"), line.amounts.discounted});
    row.push_back({QStringLiteral("t_cfsm"), line.typed.use});
    if (c.isReturn)
        return;
    row.push_back({QStringLiteral("t_zp"), line.typed.gift});
    row.push_back({QStringLiteral("ghs_sn"), line.goods.supplier});
    row.push_back({QStringLiteral("ls_xm"), line.typed.buyer});
    row.push_back({QStringLiteral("ls_cardno"), line.typed.identityNo});
    row.push_back({QStringLiteral("t_mobile"), line.typed.mobile});
    row.push_back({QStringLiteral("t_addr"), line.typed.address});
    row.push_back({QStringLiteral("t_cfhm"), line.typed.prescription});
    for (const char16_t *zero : {u"ls_cbj2", u"ls_dhdj", u"ls_dhbz"})
        row.push_back({QString::fromUtf16(zero), 0});
}

void addTradeColumns(Assignments &row, const DraftContext &c, const CompleteLine &line,
                     const Named &named) {
    QString note = line.typed.note;
    if (c.isReturn)
        note = tiedNote({line.typed.sourceNumber, note});
    row.push_back({named(u"_dj"), line.amounts.price});
    row.push_back({named(u"_je"), line.amounts.amount});
    row.push_back({named(u"_tax"), line.rate});
    row.push_back({named(u"_taxdj"), line.amounts.taxPrice});
    row.push_back({named(u"_taxje"), line.amounts.tax});
    row.push_back({named(u"_zje"), line.amounts.total});
    row.push_back({named(u"_dzl"), line.typed.discount});
    row.push_back({named(u"_bz"), note});
    row.push_back({QStringLiteral("id2"), c.isReturn ? line.typed.closedLine : qint64{0}});
    if (c.isSale)
        addSaleColumns(row, c, line, named);
    if (!c.isReturn)
        addFlowColumns(row, c, line, named);
}

} // namespace

std::vector<CompleteLine> completeLines(const DraftContext &context) {
    Completer completer(context);
    std::vector<CompleteLine> lines;
    lines.reserve(context.draft.lines.size());
    for (const DraftLine &line : context.draft.lines)
        lines.push_back(completer.complete(line));
    return lines;
}

Assignments lineRow(const DraftContext &c, const CompleteLine &line) {
    const QString prefix = c.linePrefix();
    const Named named = [&](const char16_t *name) {
        return QString(prefix + QString::fromUtf16(name));
    };
    const Batch batch = line.typed.batch.normalised();
    Assignments row = {{c.kind.numberColumn, c.draft.number},
                       {QStringLiteral("g_sn"), line.typed.goods},
                       {named(u"_sl"), line.typed.quantity},
                       {named(u"_zsl"), line.baseQuantity},
                       {QStringLiteral("dw_name"), line.unit},
                       {QStringLiteral("g_sptm"), line.barcode},
                       {QStringLiteral("a_name"), c.session.currentOperatorName},
                       {QStringLiteral("t_ph"), batch.number},
                       {QStringLiteral("t_scrq"), batch.produced},
                       {QStringLiteral("t_yxq"), batch.expiry}};
    if (c.isFollower) {
        row.push_back({c.isSale ? QStringLiteral("gl_djh2") : QStringLiteral("j_sn"),
                       line.typed.sourceNumber});
        row.push_back({QStringLiteral("id2"), line.typed.sourceLine});
        row.push_back({QStringLiteral("t_jhrq"), c.draft.date});
        row.push_back({QStringLiteral("g_xlh"), u""});
        return row;
    }
    addTradeColumns(row, c, line, named);
    return row;
}

} // namespace jxc
