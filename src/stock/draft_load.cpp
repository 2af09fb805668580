#include "stock/draft_context.h"
#include "stock/return_ties.h"

namespace jxc {

namespace {

/// Stock without a batch number is kept under an expiry that means nothing to the eye.
Batch shownBatch(const Row &row) {
    Batch batch{row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
    if (batch.number.isEmpty() && batch.expiry == QLatin1String("0000-00"))
        batch.expiry.clear();
    return batch;
}

class Loader {
public:
    Loader(Session &session, Draft &draft, const StoredState &state)
        : m_context(session, draft)
        , m_draft(draft)
        , m_state(state) {}

    void load() {
        loadHeader();
        if (!m_context.isFollower)
            loadSettlement();
        Decimal total;
        bool hasDiscountLine = false;
        for (const Row &row : m_state.lines) {
            if (!m_context.isFollower)
                total += row.decimal(named(m_context.linePrefix(), u"_zje"));
            if (row.text(u"g_sn") == discountGoods)
                hasDiscountLine = true;
            else
                m_draft.lines.push_back(line(row));
        }
        if (hasDiscountLine)
            m_draft.newTotal = total;
    }

private:
    static QString named(const QString &prefix, const char16_t *name) {
        return prefix + QString::fromUtf16(name);
    }
    [[nodiscard]] QString headerColumn(const char16_t *name) const {
        return named(m_context.kind.prefix, name);
    }

    void loadHeader() {
        const Row &h = m_state.header;
        const DocumentKind &kind = m_context.kind;
        m_draft.date = h.text(kind.dateColumn);
        m_draft.partner = h.text(m_context.partnerColumn());
        m_draft.warehouse = h.text(kind.warehouseColumn);
        m_draft.clerk = h.text(u"u_sn");
        m_draft.note = h.text(kind.noteColumn);
        m_draft.approved = h.integer(kind.statusColumn()) == 1;
        m_draft.number = h.text(kind.numberColumn);
        m_draft.fingerprint = m_state.fingerprint;
    }

    void loadSettlement() {
        const Row &h = m_state.header;
        m_draft.due = h.decimal(headerColumn(u"_yfje"));
        if (const Decimal paid = h.decimal(headerColumn(u"_sfje")); paid != m_draft.due)
            m_draft.paid = paid;
        m_draft.account = h.text(headerColumn(u"_kmmc"));
        m_draft.invoiceNo = h.text(headerColumn(u"_fpno"));
        m_draft.invoiced = h.decimal(headerColumn(u"_fpje"));
        if (m_context.isSale) {
            m_draft.member = h.text(u"hy_sn");
            m_draft.tenders = {static_cast<int>(h.integer(u"pos_zffs")), h.decimal(u"pos_xj"),
                               h.decimal(u"pos_czk"), h.decimal(u"pos_yhk"), h.decimal(u"pos_djq")};
        }
        if (m_context.isReturn)
            return;
        m_draft.restForgiven = !h.decimal(headerColumn(u"_yhje")).isZero();
        m_draft.freight = h.decimal(headerColumn(u"_yf"));
        m_draft.packing = h.decimal(headerColumn(u"_bzf"));
        m_draft.freightTerms = h.text(headerColumn(u"_yffs"));
        m_draft.contract = h.text(u"ht_sn");
        if (m_context.isSale)
            m_draft.reminderDate = h.text(u"ls_ckrq");
        else
            m_draft.supplierNumber = h.text(u"j_sn2");
    }

    DraftLine line(const Row &row) {
        const QString prefix = m_context.linePrefix();
        DraftLine l{.goods = row.text(u"g_sn")};
        l.id = row.integer(u"id");
        l.unit = row.text(u"dw_name");
        l.barcode = row.text(u"g_sptm");
        l.quantity = row.decimal(named(prefix, u"_sl"));
        l.factor = (row.decimal(named(prefix, u"_zsl")) / l.quantity).rounded(6);
        l.batch = shownBatch(row);
        if (m_context.isFollower) {
            l.sourceNumber = row.text(m_context.isSale ? u"gl_djh2" : u"j_sn");
            l.sourceLine = row.integer(u"id2");
            return l;
        }
        loadTrade(l, row, prefix);
        return l;
    }

    void loadTrade(DraftLine &l, const Row &row, const QString &prefix) {
        l.discount = row.decimal(named(prefix, u"_dzl"));
        l.taxRate = row.decimal(named(prefix, u"_tax"));
        l.price =
            row.decimal(named(prefix, m_context.parameters.pricesIncludeTax ? u"_taxdj" : u"_dj"));
        l.note = row.text(named(prefix, u"_bz"));
        if (m_context.isReturn) {
            const TiedNote tied = readTiedNote(l.note);
            l.sourceNumber = tied.number;
            l.note = tied.note;
            l.closedLine = row.integer(u"id2");
        } else {
            l.sourceNumber = row.text(u"gl_djh2");
            l.sourceLine = row.integer(u"id3");
        }
        if (m_context.isSale)
            loadSale(l, row, prefix);
        const Decimal stored = row.decimal(named(prefix, u"_zje"));
        if (l.discount.isZero() && !stored.isZero())
            l.discount = 1; // older files have none on purchases
        // An amount that was typed, or that a discount left, is kept as it is.
        const LineAmounts reckoned =
            lineAmounts(m_context.parameters, l.quantity, l.price, *l.taxRate, l.discount);
        if (reckoned.total != stored && l.gift.isEmpty())
            l.total = stored;
    }

    void loadSale(DraftLine &l, const Row &row, const QString &prefix) {
        if (const Decimal factor = row.decimal(u"g_zhxs"); factor.isPositive())
            l.factor = factor;
        l.cost = row.decimal(named(prefix, u"_cbj"));
        l.use = row.text(u"t_cfsm");
        if (m_context.isReturn)
            return;
        l.gift = row.text(u"t_zp");
        l.buyer = row.text(u"ls_xm");
        l.identityNo = row.text(u"ls_cardno");
        l.mobile = row.text(u"t_mobile");
        l.address = row.text(u"t_addr");
        l.prescription = row.text(u"t_cfhm");
    }

    DraftContext m_context;
    Draft &m_draft;
    const StoredState &m_state;
};

} // namespace

std::optional<Draft> loadDraft(Session &session, const QString &number) {
    const DocumentKind *kind = findDocumentKind(number);
    if (kind == nullptr)
        return std::nullopt;
    const auto state = readStoredState(session.db(), *kind, number);
    if (!state)
        return std::nullopt;
    Draft draft;
    draft.code = kind->code;
    Loader(session, draft, *state).load();
    return draft;
}

std::optional<Draft> copyDraft(Session &session, const QString &number) {
    auto original = loadDraft(session, number);
    if (!original || draftKind(original->code).moveAgainstSource != nullptr)
        return std::nullopt;
    Draft copy;
    copy.code = original->code;
    copy.date = session.today();
    copy.partner = original->partner;
    copy.warehouse = original->warehouse;
    copy.clerk = original->clerk;
    copy.note = original->note;
    copy.account = original->account;
    copy.freightTerms = original->freightTerms;
    copy.contract = original->contract;
    copy.member = original->member;
    copy.newTotal = original->newTotal;
    copy.lines = std::move(original->lines);
    for (DraftLine &line : copy.lines) {
        line.id = line.sourceLine = line.closedLine = 0;
        line.sourceNumber.clear();
        line.cost.reset();
    }
    return copy;
}

} // namespace jxc
