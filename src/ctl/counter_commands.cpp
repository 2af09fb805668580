#include "ctl/commands.h"
#include "retail/day_end.h"
#include "retail/member_receipt.h"

namespace jxc::ctl {

ExitCode postReceipts(Context &context) {
    if (context.arguments().isEmpty())
        throw UsageError(QStringLiteral("post-receipt NUMBER…"));
    ExitCode worst = done;
    for (const QString &number : context.arguments()) {
        const Outcome outcome = postReceipt(context.session(), context.prompter(), number);
        sayOutcome(number, outcome);
        worst = worse(worst, exitCodeOf(outcome));
    }
    return worst;
}

ExitCode settle(Context &context) {
    if (!context.arguments().isEmpty())
        throw UsageError(QStringLiteral("settle"));
    QString number;
    const Outcome outcome = settleCounter(context.session(), context.prompter(), &number);
    if (outcome.isDone())
        say(number + QStringLiteral(" ok"));
    else
        complain(oneLine(outcome.text));
    return exitCodeOf(outcome);
}

} // namespace jxc::ctl
