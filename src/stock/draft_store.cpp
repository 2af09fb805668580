#include "core/employees.h"
#include "core/numbering.h"
#include "stock/discount.h"
#include "stock/draft_checks.h"
#include "stock/draft_lines.h"
#include "stock/order_progress.h"

namespace jxc {

namespace {

class DraftWriter {
public:
    DraftWriter(Session &session, Answers &answers, Draft &draft)
        : m_context(session, draft)
        , m_answers(answers)
        , m_session(session)
        , m_db(session.db())
        , m_draft(draft)
        , m_kind(m_context.kind) {}

    void write() {
        if (!m_draft.number.isEmpty())
            m_context.stored = readStoredState(m_db, m_kind, m_draft.number);
        checkMaySave(m_context);
        checkHeader(m_context);
        checkTypedLines(m_context);
        m_lines = completeLines(m_context);
        checkCompleteLines(m_context, m_lines);
        store();
        refreshOrders();
        Settlement settlement;
        if (!m_context.isFollower) {
            settlement = settle(m_context, discountedDue());
            m_db.updateRows(m_kind.headerTable, settlementColumns(settlement),
                            QStringLiteral("%1=?").arg(m_kind.numberColumn), {m_draft.number});
        }
        askQuestions(m_context, m_answers, m_lines, settlement);
        countChoices();
        m_draft.fingerprint = readStoredState(m_db, m_kind, m_draft.number)->fingerprint;
    }

private:
    void store() {
        if (m_context.isFollower)
            takePartnerOfSource();
        const bool isNew = m_draft.number.isEmpty();
        if (isNew)
            m_draft.number = numberForNew();
        else
            m_db.execute(QStringLiteral("delete from %1 where %2=?")
                             .arg(m_kind.lineTable, m_kind.numberColumn),
                         {m_draft.number});
        storeLines();
        Assignments header = typedHeader();
        if (!isNew) {
            m_db.updateRows(m_kind.headerTable, header, QStringLiteral("id=?"),
                            {m_context.stored->header.integer(u"id")});
            return;
        }
        addUntypedHeader(header);
        m_db.insertRow(m_kind.headerTable, header);
    }

    QString numberForNew() {
        const QString &reserved = m_draft.reservedNumber;
        if (!reserved.isEmpty() && !m_db.exists(QStringLiteral("select id from %1 where %2=?")
                                                    .arg(m_kind.headerTable, m_kind.numberColumn),
                                                {reserved}))
            return reserved;
        return newDocNumberForDate(m_session, m_kind.headerTable, m_kind.numberColumn, m_kind.code,
                                   m_draft.date);
    }

    void storeLines() {
        QStringList columns;
        std::vector<Values> rows;
        for (const CompleteLine &line : m_lines) {
            Values &row = rows.emplace_back();
            for (Assignment &a : lineRow(m_context, line)) {
                if (rows.size() == 1)
                    columns << a.column;
                row.push_back(std::move(a.value));
            }
        }
        const std::vector<qint64> ids = m_db.insertRows(m_kind.lineTable, columns, rows);
        for (size_t i = 0; i < ids.size(); ++i)
            m_draft.lines[i].id = ids[i];
    }

    /// The orders that the draft's lines follow, and those that its former lines followed.
    void refreshOrders() {
        if (m_context.isFollower || m_context.isReturn)
            return;
        std::vector<qint64> orderLines;
        for (const DraftLine &line : m_draft.lines)
            orderLines.push_back(line.sourceLine);
        if (m_context.stored)
            for (const Row &row : m_context.stored->lines)
                orderLines.push_back(row.integer(u"id3"));
        refreshOrderProgress(m_db, m_kind.code, std::move(orderLines));
    }

    /// Goods-in is of the supplier whose receipt it takes from, goods-out of the sale's customer.
    void takePartnerOfSource() {
        for (size_t i = 0; i < m_draft.lines.size(); ++i)
            if (m_draft.lines[i].sourceNumber.isEmpty())
                throw Refusal(QStringLiteral("第%1行：必须选择原单！").arg(i + 1));
        const DocumentKind &source =
            draftKind(m_context.isSale ? QStringLiteral("XS") : QStringLiteral("CJ"));
        m_draft.partner =
            m_db.scalar(QStringLiteral("select %1 from %2 where %3=?")
                            .arg(source.partnerColumn, source.headerTable, source.numberColumn),
                        {m_draft.lines.front().sourceNumber});
    }

    /// What is due once the whole-document discount is booked. The lines then have the figures that
    /// it left them.
    Decimal discountedDue() {
        Decimal due;
        for (const CompleteLine &line : m_lines)
            due += line.amounts.total;
        if (!m_draft.newTotal || *m_draft.newTotal == due)
            return due;
        if (m_draft.newTotal->isNegative())
            throw Refusal(QStringLiteral("优惠后的金额不能小于零！"));
        // At the counter the due may be rounded up.
        if (*m_draft.newTotal > due && !m_draft.atCounter)
            throw Refusal(QStringLiteral("优惠后的金额不能大于原金额！"));
        if (m_draft.atCounter)
            bookSaleDiscount(m_session, m_draft.number, due, *m_draft.newTotal);
        else if (m_context.is(QLatin1String("XS")))
            spreadDjYhSale(m_session, m_draft.number, due, *m_draft.newTotal);
        else if (m_context.is(QLatin1String("CJ")))
            spreadDjYhPurchase(m_session, m_draft.number, due, *m_draft.newTotal);
        else
            throw Refusal(QStringLiteral("退货单不能做整单优惠！"));
        return readDiscounted();
    }

    Decimal readDiscounted() {
        const QString prefix = m_context.linePrefix();
        Decimal due;
        size_t next = 0;
        for (const Row &row : m_db.rows(
                 QStringLiteral("select g_sn,%1_dj as dj,%1_taxdj as taxdj,%1_zje as zje from %2 "
                                "where %3=? order by id")
                     .arg(prefix, m_kind.lineTable, m_kind.numberColumn),
                 {m_draft.number})) {
            due += row.decimal(u"zje");
            if (row.text(u"g_sn") == discountGoods || next == m_lines.size())
                continue;
            LineAmounts &amounts = m_lines[next++].amounts;
            amounts.price = row.decimal(u"dj");
            amounts.taxPrice = row.decimal(u"taxdj");
            amounts.total = row.decimal(u"zje");
        }
        return due;
    }

    [[nodiscard]] QString named(const char16_t *name) const {
        return m_kind.prefix + QString::fromUtf16(name);
    }

    [[nodiscard]] Assignments settlementColumns(const Settlement &s) const {
        Assignments columns = {{named(u"_yfje"), s.due},
                               {named(u"_sfje"), s.paid},
                               {named(u"_qk"), s.owing},
                               {named(u"_jsfs"), s.owing ? 1 : 0}};
        if (!m_context.isReturn)
            columns.push_back({named(u"_yhje"), s.forgiven});
        return columns;
    }

    /// What a clerk types, also when the draft is replaced.
    [[nodiscard]] Assignments typedHeader() const {
        Assignments row = {{m_context.partnerColumn(), m_draft.partner},
                           {m_kind.warehouseColumn, m_draft.warehouse},
                           {m_kind.dateColumn, m_draft.date},
                           {QStringLiteral("u_sn"), m_draft.clerk},
                           {m_kind.noteColumn, m_draft.note},
                           {QStringLiteral("a_name"), m_session.currentOperatorName}};
        if (m_context.isFollower) {
            Decimal total;
            for (const CompleteLine &line : m_lines)
                total += line.baseQuantity;
            row.push_back({m_kind.baseQuantityColumn, total});
            return row;
        }
        row.push_back({named(u"_kmmc"), m_draft.account});
        row.push_back({named(u"_fpno"), m_draft.invoiceNo});
        row.push_back({named(u"_fpje"), m_draft.invoiced});
        if (m_context.isSale)
            addMember(row);
        if (m_context.isReturn)
            return row;
        row.push_back({named(u"_yf"), m_draft.freight});
        row.push_back({named(u"_bzf"), m_draft.packing});
        row.push_back({named(u"_yffs"), m_draft.freightTerms});
        row.push_back({QStringLiteral("ht_sn"), m_draft.contract});
        if (m_context.isSale)
            row.push_back({QStringLiteral("ls_ckrq"), m_draft.reminderDate});
        else
            row.push_back({QStringLiteral("j_sn2"), m_draft.supplierNumber});
        return row;
    }

    void addMember(Assignments &row) const {
        const Tenders &t = m_draft.tenders;
        row.push_back({QStringLiteral("hy_sn"), m_draft.member});
        row.push_back({QStringLiteral("pos_zffs"), t.method});
        row.push_back({QStringLiteral("pos_xj"), t.cash});
        row.push_back({QStringLiteral("pos_czk"), t.storedValue});
        row.push_back({QStringLiteral("pos_yhk"), t.bankCard});
        row.push_back({QStringLiteral("pos_djq"), t.voucher});
    }

    /// What only a new row needs: others write these columns later, and a replaced draft keeps
    /// them.
    void addUntypedHeader(Assignments &row) const {
        row.push_back({m_kind.numberColumn, m_draft.number});
        row.push_back({m_kind.statusColumn(), 0});
        row.push_back({m_kind.checkerColumn(), u""});
        row.push_back({m_kind.checkDateColumn(), u""});
        if (m_context.isFollower)
            return;
        QStringList zeroes{named(u"_hkje")};
        QStringList empty;
        if (m_context.isSale)
            empty << QStringLiteral("pos_rjid");
        if (!m_context.isReturn)
            zeroes << named(u"_th") << named(u"_dhbz");
        if (m_context.is(QLatin1String("XT"))) {
            zeroes << QStringLiteral("th_lr") << QStringLiteral("pos_yhje");
            empty << QStringLiteral("th_fdmc");
        } else if (m_context.is(QLatin1String("XS"))) {
            zeroes << QStringLiteral("ls_lr");
            empty << QStringLiteral("gl_djh2") << QStringLiteral("ls_fdmc")
                  << QStringLiteral("ls_hy") << QStringLiteral("ls_zftype")
                  << QStringLiteral("ls_transactionid");
        } else if (m_context.is(QLatin1String("CJ"))) {
            empty << QStringLiteral("j_dhdid");
        }
        for (const QString &column : zeroes)
            row.push_back({column, 0});
        for (const QString &column : empty)
            row.push_back({column, u""});
    }

    /// Lets the pickers offer first what is chosen most; a draft that is saved again counts only
    /// what it changed.
    void countChoices() {
        const auto isChosen = [&](const QString &column, const QString &value) {
            return !value.isEmpty() &&
                   (!m_context.stored || m_context.stored->header.text(column) != value);
        };
        if (isChosen(QStringLiteral("u_sn"), m_draft.clerk)) {
            if (m_context.isSale)
                countSaleChoice(m_session, m_draft.clerk);
            else
                countPurchaseChoice(m_session, m_draft.clerk);
        }
        if (!m_context.isFollower && isChosen(m_context.partnerColumn(), m_draft.partner))
            m_db.execute(
                m_context.isSale
                    ? QStringLiteral("update jxc_khxx set kh_pl=coalesce(kh_pl,0)+1 where kh_sn=?")
                    : QStringLiteral("update jxc_ghsxx set ghs_pl=coalesce(ghs_pl,0)+1 where "
                                     "ghs_sn=?"),
                {m_draft.partner});
        if (isChosen(m_kind.noteColumn, m_draft.note))
            m_db.execute(
                QStringLiteral("update jxc_djbz set dj_pl=coalesce(dj_pl,0)+1 where dj_name=?"),
                {m_draft.note});
    }

    DraftContext m_context;
    Answers &m_answers;
    Session &m_session;
    Database &m_db;
    Draft &m_draft;
    const DocumentKind &m_kind;
    std::vector<CompleteLine> m_lines;
};

} // namespace

void saveDraftInTransaction(Session &session, Answers &answers, Draft &draft) {
    DraftWriter(session, answers, draft).write();
}

Outcome saveDraft(Session &session, Prompter &prompter, Draft &draft) {
    // The action may run several times, and only the last one counts.
    Draft saved;
    Outcome outcome = runAction(session.db(), prompter, [&](Answers &answers) {
        saved = draft;
        saveDraftInTransaction(session, answers, saved);
    });
    if (outcome.isDone())
        draft = std::move(saved);
    return outcome;
}

Outcome saveDraft(Session &session, Prompter &prompter, const Draft &draft, QString *number) {
    Draft saved = draft;
    Outcome outcome = saveDraft(session, prompter, saved);
    if (outcome.isDone())
        *number = saved.number;
    return outcome;
}

} // namespace jxc
