#include "stock/draft_checks.h"

#include "base/dates.h"
#include "core/approval.h"
#include "core/rights.h"
#include "stock/expiry.h"
#include "stock/return_check.h"
#include "stock/return_ties.h"

#include <set>

namespace jxc {

namespace {

QString lineOpening(size_t index) {
    return QStringLiteral("第%1行：").arg(index + 1);
}

void demandFilled(bool filled, const QString &caption) {
    if (!filled)
        throw Refusal(caption + QStringLiteral("必须填写！"));
}

void checkDate(const DraftContext &c) {
    const QDate date = parseDate(c.draft.date);
    if (!date.isValid())
        throw Refusal(QStringLiteral("开单日期必须填写！"));
    const QDate today = c.session.now().date();
    if (date > today)
        throw Refusal(QStringLiteral("单据日期不能大于当前日期！"));
    const int days = c.parameters.daysBack;
    if (days > 0 && date < today.addDays(-days))
        throw Refusal(QStringLiteral("单据日期不能早于当前日期%1天！").arg(days));
}

/// Adding lines to a stored receipt or sale has a right of its own.
void checkMayAddLines(const DraftContext &c) {
    const int right = c.is(QLatin1String("CJ")) ? 16 : c.is(QLatin1String("XS")) ? 18 : 0;
    if (right == 0 || hasRight(c.session, c.kind.rightGroup, right))
        return;
    const bool adds = std::any_of(c.draft.lines.begin(), c.draft.lines.end(),
                                  [](const DraftLine &line) { return line.id == 0; });
    if (adds)
        throw Refusal(noRightMessage(c.kind.title + QStringLiteral("添加商品！")));
}

/// Lines of one goods that differ in their batch, or in being a gift, are no repeats: a quantity
/// taken from two batches stands on two lines.
class Repeats {
public:
    explicit Repeats(const DraftContext &context)
        : m_context(context)
        , m_allowed(context.parameters.goodsMayRepeat || context.isFollower ||
                    context.draft.atCounter) {}

    void check(size_t index, const DraftLine &line) {
        const bool isNew =
            m_seen.emplace(line.goods, line.batch.normalised(), line.gift.isEmpty()).second;
        if (isNew || m_allowed)
            return;
        const QString name = m_context.db.scalar(
            QStringLiteral("select g_name from jxc_goods where g_sn=?"), {line.goods});
        throw Refusal(lineOpening(index) +
                      QStringLiteral("商品“%1”已在单据中，不能重复添加！").arg(name));
    }

private:
    const DraftContext &m_context;
    bool m_allowed;
    std::set<std::tuple<QString, Batch, bool>> m_seen;
};

void checkLine(size_t index, const DraftLine &line, Decimal lowestDiscount) {
    const QString opening = lineOpening(index);
    if (!line.quantity.isPositive())
        throw Refusal(opening + QStringLiteral("数量必须大于零！"));
    if (line.price.isNegative() || line.total.value_or(Decimal()).isNegative())
        throw Refusal(opening + QStringLiteral("单价不能小于零！"));
    if (line.discount.isNegative())
        throw Refusal(opening + QStringLiteral("折扣不能小于零！"));
    if (line.gift.isEmpty() && line.discount < lowestDiscount)
        throw Refusal(opening + QStringLiteral("折扣不能低于%1！").arg(lowestDiscount.toText()));
    if (!line.factor.isPositive())
        throw Refusal(opening + QStringLiteral("单位换算系数必须大于零！"));
}

void checkBuyers(const DraftContext &c, const std::vector<CompleteLine> &lines) {
    if (!c.is(QLatin1String("XS")))
        return;
    for (const CompleteLine &line : lines)
        if (line.goods.restricted &&
            (line.typed.buyer.trimmed().isEmpty() || line.typed.identityNo.trimmed().isEmpty()))
            throw Refusal(QStringLiteral("商品“%1”属限制使用商品，必须登记购买人姓名和身份证号！")
                              .arg(line.goods.name));
}

/// "商品“…”批号…已过有效期…" for a batch that is past on the document's day, else empty.
QString expiredText(const DraftContext &c, const CompleteLine &line) {
    const Batch &batch = line.typed.batch;
    const QDate last = lastGoodDay(batch.expiry, batch.produced, line.goods.shelfLifeMonths);
    if (!last.isValid() || last >= parseDate(c.draft.date))
        return {};
    return QStringLiteral("商品“%1”批号%2已过有效期%3，")
        .arg(line.goods.name, batch.number, toDateText(last));
}

void refuseExpired(const DraftContext &c, const std::vector<CompleteLine> &lines) {
    if (!c.is(QLatin1String("XS")) || !c.parameters.refuseExpired)
        return;
    for (const CompleteLine &line : lines)
        if (const QString text = expiredText(c, line); !text.isEmpty())
            throw Refusal(text + QStringLiteral("不能销售！"));
}

void askExpired(const DraftContext &c, Answers &answers, const std::vector<CompleteLine> &lines) {
    for (const CompleteLine &line : lines)
        if (const QString text = expiredText(c, line); !text.isEmpty())
            answers.require(text + QStringLiteral("是否继续？"));
}

void askSupplierNumber(const DraftContext &c, Answers &answers) {
    if (!c.is(QLatin1String("CJ")) || c.draft.supplierNumber.isEmpty())
        return;
    if (c.db.exists(QStringLiteral("select id from jxc_jhd where ghs_sn=? and j_sn2=? and j_sn<>?"),
                    {c.draft.partner, c.draft.supplierNumber, c.draft.number}))
        answers.require(QStringLiteral("该原始单号已存在，是否继续？"));
}

void askOwing(const DraftContext &c, Answers &answers, const Settlement &settlement) {
    if (!settlement.owing || c.draft.partner != administratorNo)
        return;
    answers.require(c.isSale ? QStringLiteral("普通客户一般应当面结清，确认记入应收帐吗？")
                             : QStringLiteral("普通供货商一般应当面结清，确认记入应付帐吗？"));
}

/// Compared as they are stored, a whole-document discount included.
void askLowPrices(const DraftContext &c, Answers &answers, const std::vector<CompleteLine> &lines) {
    if (c.parameters.lowPriceWarning == LowPriceWarning::none)
        return;
    const bool preset = c.parameters.lowPriceWarning == LowPriceWarning::belowPreset;
    for (size_t i = 0; i < lines.size(); ++i) {
        const CompleteLine &line = lines[i];
        if (!line.typed.gift.isEmpty())
            continue;
        const LineAmounts &a = line.amounts;
        const Decimal price = (c.parameters.pricesIncludeTax ? a.taxPrice : a.price);
        const Decimal sold = (price * line.typed.discount).rounded(6);
        const Decimal net = (a.price * line.typed.discount).rounded(6);
        if (preset ? sold < line.presetPrice : net < line.cost)
            answers.require(lineOpening(i) + (preset
                                                  ? QStringLiteral("售价低于预设售价，是否继续？")
                                                  : QStringLiteral("售价低于成本价，是否继续？")));
    }
}

void askNoCost(const DraftContext &c, Answers &answers, const std::vector<CompleteLine> &lines) {
    if (c.parameters.saleWithoutCost)
        return;
    for (const CompleteLine &line : lines)
        if (line.cost.isZero())
            answers.require(QStringLiteral("商品“%1”没有成本价，是否继续？").arg(line.goods.name));
}

} // namespace

void checkMaySave(const DraftContext &c) {
    if (!c.draft.atCounter && !hasRight(c.session, c.kind.rightGroup, c.kind.entryRight))
        throw Refusal(noRightMessage(c.kind.title + QStringLiteral("！")));
    if (c.draft.number.isEmpty())
        return;
    if (!c.stored || c.stored->header.integer(c.kind.statusColumn()) == 1 ||
        c.stored->fingerprint != c.draft.fingerprint)
        throw changedMeanwhile();
    checkMayAddLines(c);
}

void checkHeader(const DraftContext &c) {
    checkDate(c);
    if (!c.isFollower)
        demandFilled(partnerName(c.db, {c.kind.partnerKind, c.draft.partner}).has_value(),
                     c.isSale ? QStringLiteral("客户") : QStringLiteral("供货商"));
    demandFilled(
        c.db.exists(QStringLiteral("select id from jxc_ckxx where ck_sn=?"), {c.draft.warehouse}),
        QStringLiteral("仓库"));
    demandFilled(
        c.db.exists(QStringLiteral("select id from jxc_user where u_sn=?"), {c.draft.clerk}),
        QStringLiteral("经手人"));
    if (c.is(QLatin1String("CJ")) && c.parameters.supplierNumberRequired)
        demandFilled(!c.draft.supplierNumber.trimmed().isEmpty(), QStringLiteral("原始单号"));
}

void checkTypedLines(const DraftContext &c) {
    if (c.draft.lines.empty())
        throw Refusal(QStringLiteral("单据没有明细，不能保存！"));
    const bool isLimited = c.is(QLatin1String("XS")) && !c.draft.atCounter;
    const Decimal lowest = isLimited ? c.parameters.lowestDiscount : Decimal();
    Repeats repeats(c);
    for (size_t i = 0; i < c.draft.lines.size(); ++i) {
        checkLine(i, c.draft.lines[i], lowest);
        repeats.check(i, c.draft.lines[i]);
    }
}

void checkCompleteLines(const DraftContext &c, const std::vector<CompleteLine> &lines) {
    if (c.isReturn)
        checkReturnSources(c, lines);
    checkBuyers(c, lines);
    refuseExpired(c, lines);
}

Settlement settle(const DraftContext &c, Decimal due) {
    Settlement s;
    s.due = due;
    s.paid = c.draft.paid.value_or(due);
    const bool receives = c.is(QLatin1String("XS"));
    if (s.paid > s.due)
        throw Refusal(receives ? QStringLiteral("实收金额不能大于应收金额！")
                               : QStringLiteral("实付金额不能大于应付金额！"));
    if (s.paid.isNegative())
        throw Refusal(receives ? QStringLiteral("实收金额不能小于零！")
                               : QStringLiteral("实付金额不能小于零！"));
    if (!s.paid.isZero())
        demandFilled(!c.draft.account.isEmpty(), QStringLiteral("结算账户"));
    if (s.paid < s.due && c.draft.restForgiven && !c.isReturn)
        s.forgiven = s.due - s.paid;
    else
        s.owing = s.paid < s.due;
    return s;
}

void askQuestions(const DraftContext &c, Answers &answers, const std::vector<CompleteLine> &lines,
                  const Settlement &settlement) {
    askSupplierNumber(c, answers);
    const bool isSale = c.is(QLatin1String("XS"));
    if (isSale)
        askExpired(c, answers, lines);
    askOwing(c, answers, settlement);
    if (isSale) {
        // The counter's prices are the shop's own, and a queue is waiting.
        if (!c.draft.atCounter)
            askLowPrices(c, answers, lines);
        askNoCost(c, answers, lines);
    }
}

} // namespace jxc
