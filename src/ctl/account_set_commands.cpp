#include "core/account_set.h"
#include "core/operation_log.h"
#include "core/rights.h"
#include "ctl/commands.h"
#include "db/copy.h"
#include "db/creation.h"
#include "services/opening.h"

namespace jxc::ctl {

namespace {

void requireRight(const Session &session, int position, const QString &caption) {
    if (!hasRight(session, u"qtcz", position))
        throw Refusal(noRightMessage(caption));
}

} // namespace

ExitCode create(Context &context) {
    const bool force = context.takeSwitch(QStringLiteral("--force"));
    if (!context.arguments().isEmpty())
        throw UsageError(QStringLiteral("create [--force]"));
    const auto db = openNewAccountSet(context.location(), force);
    resetAllTables(*db, context.clock().now().date());
    say(QStringLiteral("已建立帐套：%1").arg(db->location().display()));
    return done;
}

ExitCode reset(Context &context) {
    const QString what = context.arguments().value(0);
    const bool all = what == QLatin1String("all");
    if (context.arguments().size() != 1 || (!all && what != QLatin1String("business")))
        throw UsageError(QStringLiteral("reset all|business"));
    Session &session = context.session();
    requireRight(session, 12, QStringLiteral("数据清理！"));
    const QString question =
        all ? QStringLiteral("您的操作将清除所有数据，并不能恢复，确认吗？")
            : QStringLiteral("您的操作将清除所有业务数据，并不能恢复，确认吗？");
    const Outcome outcome = runAction(session.db(), context.prompter(), [&](Answers &answers) {
        answers.require(question);
        if (all)
            resetAllTables(session.db(), session.now().date());
        else
            resetBusinessTables(session.db(), session.now().date());
        writeLog(session, all ? QStringLiteral("清除所有数据") : QStringLiteral("清除业务数据"));
    });
    say(outcome.isDone() ? QStringLiteral("已清除。") : oneLine(outcome.text));
    return exitCodeOf(outcome);
}

ExitCode upgrade(Context &context) {
    if (!context.arguments().isEmpty())
        throw UsageError(QStringLiteral("upgrade"));
    Session session(context.database(), context.clock());
    const QStringList steps = upgradeAccountSet(session);
    for (const QString &step : steps)
        say(step);
    say(QStringLiteral("共升级%1步。").arg(steps.size()));
    return done;
}

ExitCode copy(Context &context) {
    const bool force = context.takeSwitch(QStringLiteral("--force"));
    if (context.arguments().size() != 2)
        throw UsageError(QStringLiteral("copy FROM TO [--force]"));
    Database from(Location::parse(context.arguments().at(0)));
    const auto to = openNewAccountSet(Location::parse(context.arguments().at(1)), force);
    copyAccountSet(from, *to, [](int tablesDone, int tables, const QString &caption) {
        if (tablesDone % 20 == 0)
            complain(QStringLiteral("%1/%2 %3").arg(tablesDone).arg(tables).arg(caption));
    });
    const auto differences = compareAccountSets(from, *to);
    for (const auto &difference : differences)
        say(difference);
    say(QStringLiteral("%1 differences").arg(differences.size()));
    return differences.empty() ? done : failed;
}

} // namespace jxc::ctl
