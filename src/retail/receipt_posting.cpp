#include "retail/receipt_posting.h"

#include "core/rights.h"
#include "core/session.h"
#include "retail/member_card.h"
#include "retail/receipt_hold.h"
#include "retail/receipt_rows.h"
#include "stock/draft.h"
#include "stock/posting.h"
#include "stock/proposals.h"

#include <algorithm>
#include <map>

namespace jxc {

namespace {

/// The till sells what is good first and comes to expired batches only when nothing else is left;
/// the sale is stopped then, or asks.
std::vector<BatchChoice> goodOnesFirst(std::vector<BatchChoice> batches) {
    std::stable_partition(batches.begin(), batches.end(), [](const BatchChoice &choice) {
        return choice.daysLeft.value_or(0) >= 0;
    });
    return batches;
}

/// Turns the lines of a receipt into those of a sale, one per batch.
class LineMaker {
public:
    LineMaker(Session &session, const CounterSettings &settings, const Receipt &receipt)
        : m_session(session)
        , m_settings(settings)
        , m_receipt(receipt)
        , m_parameters(Parameters::load(session.db())) {}

    std::vector<DraftLine> make() {
        QStringList goods;
        for (const ReceiptLine &line : m_receipt.lines)
            goods << line.goods;
        goods.removeDuplicates();
        m_batches = batchesOut(m_session, goods, m_receipt.warehouse);
        for (std::vector<BatchChoice> &batches : m_batches)
            batches = goodOnesFirst(std::move(batches));
        for (const ReceiptLine &line : m_receipt.lines)
            add(line);
        return std::move(m_lines);
    }

private:
    void add(const ReceiptLine &line) {
        const Decimal total = line.total(m_settings.amountDecimals);
        Decimal restQuantity = line.quantity, restTotal = total;
        for (const BatchPart &part : splitOverBatches(m_batches[line.goods], line.quantity,
                                                      line.factor, m_taken[line.goods])) {
            m_taken[line.goods].push_back({part.batch, (part.quantity * line.factor).rounded(6)});
            const bool isLast = part.quantity == restQuantity;
            // The parts come to the total of the line to the cent: the last one takes the rest.
            const Decimal share =
                isLast ? restTotal
                       : (total * part.quantity / line.quantity).rounded(m_settings.amountDecimals);
            m_lines.push_back(lineOf(line, part, share));
            restQuantity -= part.quantity;
            restTotal -= share;
        }
    }

    [[nodiscard]] DraftLine lineOf(const ReceiptLine &line, const BatchPart &part,
                                   Decimal total) const {
        DraftLine d{.goods = line.goods};
        d.unit = line.unit;
        d.factor = line.factor;
        d.quantity = part.quantity;
        d.price = typedPrice(line);
        d.discount = line.discount;
        d.batch = part.batch;
        d.barcode = line.barcode;
        d.total = total;
        if (line.isGift)
            d.gift = giftMark;
        d.buyer = line.buyer;
        d.identityNo = line.identityNo;
        d.mobile = line.mobile;
        d.address = line.address;
        d.use = line.use;
        return d;
    }

    /// The counter's prices include tax; documents take them as the shop types them.
    [[nodiscard]] Decimal typedPrice(const ReceiptLine &line) const {
        if (m_parameters.pricesIncludeTax)
            return line.price;
        return (line.price * Decimal(100) / (Decimal(100) + m_parameters.taxRate)).rounded(6);
    }

    Session &m_session;
    const CounterSettings &m_settings;
    const Receipt &m_receipt;
    Parameters m_parameters;
    std::vector<DraftLine> m_lines;
    QHash<QString, std::vector<BatchChoice>> m_batches;
    std::map<QString, std::vector<BatchChoice>> m_taken;
};

Draft draftOf(Session &session, const CounterSettings &settings, const Receipt &receipt,
              const Tender &tender, const TenderOutcome &outcome) {
    Draft draft;
    draft.code = QStringLiteral("XS");
    draft.date = session.today();
    draft.partner = receipt.customer;
    draft.warehouse = receipt.warehouse;
    draft.clerk = receipt.clerk;
    draft.member = receipt.member;
    draft.lines = LineMaker(session, settings, receipt).make();
    draft.paid = outcome.paid();
    draft.newTotal = outcome.due;
    draft.tenders = {outcome.method, tender.cash, tender.other.storedValue, tender.other.bankCard,
                     tender.other.voucher};
    draft.atCounter = true;
    draft.reservedNumber = receipt.number;
    return draft;
}

void checkAllowed(const Session &session, const CounterSettings &settings, const Receipt &receipt) {
    if (!hasRight(session, u"xsgl", 1))
        throw Refusal(noRightMessage(QStringLiteral("收银！")));
    if (receipt.lines.empty())
        throw Refusal(QStringLiteral("请先录入商品！"));
    for (const ReceiptLine &line : receipt.lines)
        if (!line.quantity.isPositive())
            throw Refusal(QStringLiteral("商品“%1”的数量必须大于零！").arg(line.name));
    if (!linesToAllow(session, settings, receipt).empty())
        throw Refusal(QStringLiteral("折扣不能低于%1！").arg(settings.lowestDiscount.toText()));
}

/// The card is held against what it holds now, not against what the till saw when its owner came.
void checkCard(Session &session, const Receipt &receipt, Tender &tender) {
    if (receipt.member.isEmpty())
        return;
    const Member member = loadMember(session.db(), receipt.member);
    memberUsable(session, member);
    if (tender.other.storedValue.isPositive())
        checkMemberPassword(member, tender.cardPassword);
    tender.memberBalance = member.value;
}

} // namespace

std::vector<size_t> linesToAllow(const Session &session, const CounterSettings &settings,
                                 const Receipt &receipt) {
    std::vector<size_t> lines;
    for (size_t i = 0; i < receipt.lines.size(); ++i) {
        const ReceiptLine &line = receipt.lines[i];
        if (line.isGift || line.discount >= settings.lowestDiscount)
            continue;
        if (!line.authorisedBy.isEmpty() && userHasRight(session, line.authorisedBy, u"xsgl", 7))
            continue;
        lines.push_back(i);
    }
    if (!lines.empty() && hasRight(session, u"xsgl", 7))
        lines.clear();
    return lines;
}

PostedReceipt postReceiptInTransaction(Session &session, Answers &answers, const Receipt &receipt,
                                       Tender tender) {
    const CounterSettings settings = CounterSettings::load(session);
    checkAllowed(session, settings, receipt);
    checkCard(session, receipt, tender);
    PostedReceipt posted{{}, checkTender(settings, receipt, tender)};
    Draft draft = draftOf(session, settings, receipt, tender, posted.outcome);
    saveDraftInTransaction(session, answers, draft);
    posted.number = draft.number;
    // Before the approval, which posts the member's purchase by the rows of the receipt.
    writeReceipt(session, {draft.number, {}, tender, posted.outcome});
    approveAtCounter(session, answers, draft.number);
    moveReceiptTenders(session, draft.number, tender.other, 1);
    dropKeptReceipt(session, receipt.number);
    return posted;
}

Outcome postReceipt(Session &session, Prompter &prompter, const Receipt &receipt,
                    const Tender &tender, PostedReceipt *posted) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        *posted = postReceiptInTransaction(session, answers, receipt, tender);
    });
}

} // namespace jxc
