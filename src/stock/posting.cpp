#include "stock/posting.h"

#include "base/dates.h"
#include "core/approval.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/barrier.h"
#include "stock/document.h"
#include "stock/document_kind.h"
#include "stock/document_members.h"
#include "stock/journal_kinds.h"
#include "stock/snapshot.h"
#include "stock/stock_book.h"
#include "stock/walk.h"

#include <map>
#include <stdexcept>

namespace jxc {

namespace {

const DocumentKind &kindOf(const QString &number) {
    const DocumentKind *kind = findDocumentKind(number);
    if (kind == nullptr)
        throw unknownDocument(number);
    return *kind;
}

/// Re-costs every goods and warehouse that the rows touch, once each: the outcome of walking after
/// every single row is the same. The stock rows take the costs where the kind of row and the
/// parameters let them.
void walkJournals(Database &db, const Parameters &parameters, StockBook &stock,
                  const std::vector<JournalRow> &rows, const QString &date) {
    std::map<JournalKey, WalkStart> starts;
    for (const JournalRow &row : rows) {
        const JournalKey key{row.goods, row.warehouse};
        // Ids ascend: the last one stays.
        starts[key] = {key, date, row.id, row.flag, stock.averageCost(row.goods)};
    }
    std::vector<WalkStart> walks;
    for (const auto &[key, start] : starts)
        walks.push_back(start);
    const std::vector<Decimal> costs = reCalcGoodsLists(db, parameters, walks);
    for (size_t i = 0; i < walks.size(); ++i)
        if (!parameters.costStaysOffStock && journalKind(walks[i].flag).writesStockCost())
            stock.setCost(walks[i].key.goods, walks[i].key.warehouse, costs[i]);
}

/// Moves stock, batches, costs and the goods' figures by journal rows that were just written
/// (`direction` 1) or just deleted (-1).
void applyMovements(Session &session, const Parameters &parameters, const Document &d,
                    const std::vector<JournalRow> &rows, int direction) {
    if (rows.empty())
        return;
    Database &db = session.db();
    StockBook stock(db, d);
    BatchChanges batches;
    for (const JournalRow &row : rows) {
        const bool outgoing = journalKind(row.flag).stockRule == StockRule::subtract;
        stock.move(row, direction, outgoing ? row.costPrice : row.price);
        if (row.physical) {
            const Decimal change = journalKind(row.flag).stockChange(row.quantity);
            batches.add(row.goods, row.warehouse, row.batch, direction < 0 ? -change : change);
        }
    }
    walkJournals(db, parameters, stock, rows, d.date);
    stock.writeStock();
    const GoodsEffect &effect = direction > 0 ? d.kind.onApproval : d.kind.onCancelling;
    for (const JournalRow &row : rows) {
        stock.count(row, effect, d.partner.number);
        if (effect.refreshesCost)
            stock.refreshGoodsCost(row, parameters);
    }
    stock.writeGoods();
    batches.write(db);
}

std::vector<JournalRow> withoutDiscountLine(std::vector<JournalRow> rows) {
    std::erase_if(rows, [](const JournalRow &row) { return row.goods == discountGoods; });
    return rows;
}

void setApproved(Session &session, const Document &d) {
    const DocumentKind &kind = d.kind;
    session.db().updateRows(kind.headerTable,
                            {{kind.statusColumn(), 1},
                             {kind.checkerColumn(), session.currentOperatorName},
                             {kind.checkDateColumn(), session.today()}},
                            QStringLiteral("id=?"), {d.header.integer(u"id")});
}

void setDraft(Session &session, const Document &d) {
    const DocumentKind &kind = d.kind;
    Assignments settings = {
        {kind.statusColumn(), 0}, {kind.checkDateColumn(), u""}, {kind.checkerColumn(), u""}};
    for (const QString &column : kind.headerZeroes)
        settings.push_back({column, 0});
    session.db().updateRows(kind.headerTable, settings,
                            QStringLiteral("%1=?").arg(kind.numberColumn), {d.number});
}

void checkApprovalRight(const Session &session, const DocumentKind &kind) {
    if (!hasRight(session, kind.rightGroup, kind.approveRight))
        throw Refusal(noRightMessage(kind.title + QStringLiteral("审核！")));
}

void checkCancelRight(const Session &session, const Document &d) {
    checkMayCancel(session, d.number, d.header.text(d.kind.checkerColumn()),
                   hasRight(session, d.kind.rightGroup, d.kind.cancelRight));
}

void checkFollowers(Database &db, const Document &d) {
    for (const Follower &follower : d.kind.followers) {
        const Values values(static_cast<size_t>(follower.sql.count(u'?')), Value(d.number));
        const QString other = db.scalar(follower.sql, values);
        if (!other.isEmpty())
            throw Refusal(QString(follower.text)
                              .replace(QLatin1String("%1"), d.number)
                              .replace(QLatin1String("%2"), other));
    }
}

/// Who posts the document's member; null for a document without one.
const DocumentMembers *membersOf(const Session &session, const Document &d) {
    if (d.kind.memberColumn.isEmpty() || d.header.text(d.kind.memberColumn).isEmpty())
        return nullptr;
    if (session.members == nullptr)
        throw std::logic_error("the session was not told who keeps the members");
    return session.members;
}

} // namespace

void postMovements(Session &session, const Parameters &parameters, const Document &d,
                   std::vector<JournalRow> rows) {
    writeJournal(session, d, rows);
    applyMovements(session, parameters, d, withoutDiscountLine(std::move(rows)), 1);
}

void takeBackMovements(Session &session, const Parameters &parameters, const Document &d) {
    const std::vector<JournalRow> rows = readJournal(session.db(), d);
    // The rows go first; the walk then finds the journal as it stays.
    session.db().execute(QStringLiteral("delete from jxc_goodslist where gl_djh=?"), {d.number});
    applyMovements(session, parameters, d, rows, -1);
}

void postDocument(Session &session, const Parameters &parameters, const Document &d) {
    Database &db = session.db();
    const DocumentKind &kind = d.kind;
    if (kind.payments != nullptr)
        postDocumentMoney(session, parameters, kind.payments(d));
    if (kind.markApproved != nullptr)
        kind.markApproved(db, d.number);
    if (kind.movements != nullptr)
        postMovements(session, parameters, d, kind.movements(d));
    if (kind.moveAgainstSource != nullptr)
        kind.moveAgainstSource(session, d, 1);
    setApproved(session, d);
    if (kind.afterApproval != nullptr)
        kind.afterApproval(db, d);
    if (const DocumentMembers *members = membersOf(session, d))
        members->approved(session, d);
    writeLog(session, QStringLiteral("%1，共%2种商品").arg(kind.approveLog).arg(d.goodsLines()));
    updateKcjs(db, monthOf(d.date));
}

void approveInTransaction(Session &session, Answers &answers, const QString &number) {
    checkApprovalRight(session, kindOf(number));
    approveAtCounter(session, answers, number);
}

void approveAtCounter(Session &session, Answers &answers, const QString &number) {
    Database &db = session.db();
    const DocumentKind &kind = kindOf(number);
    const Parameters parameters = Parameters::load(db);
    const Document d = loadDocument(db, kind, number);
    if (d.isApproved())
        throw changedMeanwhile();
    checkReferences(d);
    checkPdBeforeChk(db, d);
    if (kind.check != nullptr)
        kind.check(session, d);
    if (const DocumentMembers *members = membersOf(session, d))
        members->check(session, d);
    checkTkcEnough(db, parameters, answers, kind, number, d.warehouse);

    postDocument(session, parameters, d);
}

void cancelInTransaction(Session &session, Answers &answers, const QString &number) {
    Database &db = session.db();
    const DocumentKind &kind = kindOf(number);
    const Document d = loadDocument(db, kind, number);
    if (!d.isApproved())
        throw notApproved(number);
    checkCancelRight(session, d);
    checkFollowers(db, d);
    checkPdBeforeCancel(db, number);
    confirmCancelling(answers, number,
                      kind.cancelWarning != nullptr ? kind.cancelWarning(db, number) : QString());

    const Parameters parameters = Parameters::load(db);
    takeBackMovements(session, parameters, d);
    if (kind.moveAgainstSource != nullptr)
        kind.moveAgainstSource(session, d, -1);
    if (const DocumentMembers *members = membersOf(session, d))
        members->cancelling(session, d);
    if (kind.markCancelled != nullptr)
        kind.markCancelled(db, number);
    setDraft(session, d);
    if (kind.payments != nullptr)
        removeDocumentMoney(session, number, kind.feeDocument);
    writeLog(session, kind.cancelLogNamesNumber ? kind.cancelLog + number : kind.cancelLog);
    updateKcjs(db, monthOf(d.date));
}

Outcome approveDocument(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter,
                     [&](Answers &answers) { approveInTransaction(session, answers, number); });
}

Outcome cancelDocument(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter,
                     [&](Answers &answers) { cancelInTransaction(session, answers, number); });
}

} // namespace jxc
