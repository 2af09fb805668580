#include "core/approval.h"
#include "core/operation_log.h"
#include "core/remembering_prompter.h"
#include "core/rights.h"
#include "stock/draft_context.h"
#include "stock/order_progress.h"
#include "stock/posting.h"

namespace jxc {

namespace {

/// Deleting stored receipts and sales has a right of its own.
int deletingRight(const DocumentKind &kind) {
    if (kind.code == QLatin1String("CJ"))
        return 17;
    return kind.code == QLatin1String("XS") ? 19 : kind.entryRight;
}

void deleteInTransaction(Session &session, Answers &answers, const QString &number) {
    Database &db = session.db();
    const DocumentKind *kind = findDocumentKind(number);
    if (kind == nullptr)
        throw unknownDocument(number);
    if (!hasRight(session, kind->rightGroup, deletingRight(*kind)))
        throw Refusal(noRightMessage(kind->title + QStringLiteral("删除！")));
    const auto state = readStoredState(db, *kind, number);
    if (!state)
        throw unknownDocument(number);
    if (state->header.integer(kind->statusColumn()) == 1)
        throw Refusal(QStringLiteral("已审核的单据不能删除！"));
    answers.require(QStringLiteral("您的操作将删除单据：%1，确认吗？").arg(number));
    for (const QString &table : {kind->lineTable, kind->headerTable})
        db.execute(QStringLiteral("delete from %1 where %2=?").arg(table, kind->numberColumn),
                   {number});
    if (kind->code == QLatin1String("CJ") || kind->code == QLatin1String("XS")) {
        std::vector<qint64> orderLines;
        for (const Row &row : state->lines)
            orderLines.push_back(row.integer(u"id3"));
        refreshOrderProgress(db, kind->code, std::move(orderLines));
    }
    writeLog(session, QStringLiteral("删除%1：%2").arg(kind->title, number));
}

} // namespace

SavedAndApproved saveAndApproveDraft(Session &session, Prompter &prompter, Draft &draft) {
    RememberingPrompter remembering(prompter);
    Draft saved;
    bool approving = false;
    const Outcome both = runAction(session.db(), remembering, [&](Answers &answers) {
        approving = false;
        saved = draft;
        saveDraftInTransaction(session, answers, saved);
        approving = true;
        approveInTransaction(session, answers, saved.number);
    });
    if (both.isDone()) {
        saved.approved = true;
        draft = std::move(saved);
        return {both, both};
    }
    if (!approving)
        return {both, both};
    return {saveDraft(session, remembering, draft), both};
}

Outcome deleteDraft(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter,
                     [&](Answers &answers) { deleteInTransaction(session, answers, number); });
}

Outcome refreshDraftCosts(Session &session, Prompter &prompter, const QString &number) {
    auto draft = loadDraft(session, number);
    if (!draft || draft->code != QLatin1String("XS"))
        return {Outcome::Kind::refused, unknownDocument(number).text()};
    for (DraftLine &line : draft->lines)
        line.cost.reset();
    return saveDraft(session, prompter, *draft);
}

std::vector<ApprovedNumber> approveAll(Session &session, Prompter &prompter,
                                       const QStringList &numbers,
                                       const std::function<bool(qsizetype)> &progress) {
    if (!prompter.confirm(
            QStringLiteral("您的操作将审核当前列表中所有未审核的单据，确认吗？\r\n\r\n"
                           "（如需审核某个单据，请按右键！）"),
            confirmCaption))
        return {};
    std::vector<ApprovedNumber> approved;
    for (const QString &number : numbers) {
        approved.push_back({number, approveDocument(session, prompter, number)});
        if (progress && !progress(static_cast<qsizetype>(approved.size())))
            break;
    }
    return approved;
}

} // namespace jxc
