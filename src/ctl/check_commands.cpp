#include "core/backup.h"
#include "core/restore.h"
#include "core/rights.h"
#include "ctl/commands.h"
#include "ctl/verification.h"
#include "services/opening.h"

namespace jxc::ctl {

ExitCode verify(Context &context) {
    const bool all = context.takeSwitch(QStringLiteral("--all"));
    if (!context.arguments().isEmpty())
        throw UsageError(QStringLiteral("verify [--all]"));
    if (needsUpgrade(context.database()))
        throw Refusal(QStringLiteral("帐套的版本较旧，请先升级：jxcctl upgrade"));
    return sayVerification(context.database(), {.all = all});
}

namespace {

void requireBackupRight(const Session &session) {
    if (!hasRight(session, u"qtcz", 13))
        throw Refusal(noRightMessage(QStringLiteral("备份/恢复数据库！")));
}

} // namespace

ExitCode backup(Context &context) {
    if (context.arguments().size() > 1)
        throw UsageError(QStringLiteral("backup [DIR]"));
    Session &session = context.session();
    requireBackupRight(session);
    QString folder = context.arguments().value(0);
    if (folder.isEmpty())
        folder = session.backup.folder;
    if (folder.isEmpty())
        throw Refusal(QStringLiteral("备份路径必须填写！"));
    say(QStringLiteral("备份完成！%1").arg(backupTo(session, folder)));
    return done;
}

ExitCode restore(Context &context) {
    if (context.arguments().size() != 1)
        throw UsageError(QStringLiteral("restore FILE"));
    Session &session = context.session();
    requireBackupRight(session);
    RestoreRequest request;
    request.file = context.arguments().first();
    request.hooks = upgradeHooks();
    const RestoreOutcome restored = restoreDatabase(session, context.prompter(), request);
    say(oneLine(restored.outcome.text));
    if (!restored.keptFile.isEmpty())
        say(QStringLiteral("被替换的数据保存在：%1").arg(restored.keptFile));
    return exitCodeOf(restored.outcome);
}

} // namespace jxc::ctl
