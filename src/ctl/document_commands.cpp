#include "ctl/commands.h"
#include "money/settlement.h"
#include "stock/posting.h"

#include <QFile>
#include <QTextStream>

namespace jxc::ctl {

namespace {

enum class Step { approve, cancel };

/// Approves or cancels a document of any kind and says how it went.
ExitCode handle(Context &context, Step step, const QString &number) {
    Session &session = context.session();
    Prompter &prompter = context.prompter();
    Outcome outcome;
    if (isSettlementNumber(number))
        outcome = step == Step::approve ? approveSettlement(session, prompter, number)
                                        : cancelSettlement(session, prompter, number);
    else
        outcome = step == Step::approve ? approveDocument(session, prompter, number)
                                        : cancelDocument(session, prompter, number);
    sayOutcome(number, outcome);
    return exitCodeOf(outcome);
}

ExitCode handleAll(Context &context, Step step) {
    if (context.arguments().isEmpty())
        throw UsageError(QStringLiteral("approve|cancel NUMBER…"));
    ExitCode worst = done;
    for (const QString &number : context.arguments())
        worst = worse(worst, handle(context, step, number));
    return worst;
}

ExitCode handleLine(Context &context, const QString &line) {
    const QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || words.first().startsWith(u'#'))
        return done;
    if (words.size() == 2 && words[0] == QLatin1String("approve"))
        return handle(context, Step::approve, words[1]);
    if (words.size() == 2 && words[0] == QLatin1String("cancel"))
        return handle(context, Step::cancel, words[1]);
    say(QStringLiteral("%1 refused: 无法识别的命令").arg(words.last()));
    return refused;
}

} // namespace

ExitCode approve(Context &context) {
    return handleAll(context, Step::approve);
}

ExitCode cancel(Context &context) {
    return handleAll(context, Step::cancel);
}

ExitCode batch(Context &context) {
    if (context.arguments().size() != 1)
        throw UsageError(QStringLiteral("batch FILE|-"));
    const QString name = context.arguments().first();
    QFile file(name);
    const bool open = name == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                 : file.open(QIODevice::ReadOnly);
    if (!open)
        throw Refusal(QStringLiteral("文件不能打开：%1").arg(name));
    context.session(); // a wrong password is told before the first line
    ExitCode worst = done;
    // Each answer is written out before the next line is taken.
    while (true) {
        const QByteArray line = file.readLine();
        if (line.isEmpty())
            break;
        worst = worse(worst, handleLine(context, QString::fromUtf8(line)));
    }
    return worst;
}

} // namespace jxc::ctl
