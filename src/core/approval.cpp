#include "core/approval.h"

#include "core/session.h"

namespace jxc {

Refusal unknownDocument(const QString &number) {
    return Refusal(QStringLiteral("单据“%1”不存在！").arg(number));
}

Refusal changedMeanwhile() {
    return Refusal(QStringLiteral("单据已被其他操作员修改或审核，请刷新后重试！"));
}

Refusal notApproved(const QString &number) {
    return Refusal(QStringLiteral("单据“%1”还没有审核！").arg(number));
}

void checkMayCancel(const Session &session, const QString &number, const QString &approver,
                    bool holdsRight) {
    if (holdsRight || session.currentOperatorNo == administratorNo ||
        session.currentOperatorName == approver)
        return;
    throw Refusal(QStringLiteral("单据：%1，的审核人：%2\r\n\r\n不允许其他人取消审核！")
                      .arg(number, approver));
}

void confirmCancelling(Answers &answers, const QString &number, const QString &warning) {
    QString question =
        QStringLiteral("您的操作将取消当前选中的已审核单据：%1，确认吗？").arg(number);
    if (!warning.isEmpty())
        question += QStringLiteral("\r\n\r\n") + warning;
    answers.require(question);
}

} // namespace jxc
