// jxcctl: scheduled jobs, imports and checks. Everything goes through the same functions as the
// forms.
#include "ctl/commands.h"

#include <QCoreApplication>

using namespace jxc;
using namespace jxc::ctl;

namespace {

const std::vector<Command> &commands() {
    static const std::vector<Command> all = {
        {QStringLiteral("create"),
         QStringLiteral("[--force]  新建帐套；已有帐套时拒绝，除非 --force"), create},
        {QStringLiteral("reset"), QStringLiteral("all|business  清空全部数据，或只清空业务数据"),
         reset},
        {QStringLiteral("upgrade"), QStringLiteral("把旧版本的帐套升级到当前版本"), upgrade},
        {QStringLiteral("approve"), QStringLiteral("NUMBER…  审核单据"), approve},
        {QStringLiteral("cancel"), QStringLiteral("NUMBER…  取消审核"), cancel},
        {QStringLiteral("batch"), QStringLiteral("FILE|-  逐行执行 approve NUMBER / cancel NUMBER"),
         batch},
        {QStringLiteral("post-receipt"), QStringLiteral("NUMBER…  把收银单据记到会员账上"),
         postReceipts},
        {QStringLiteral("settle"), QStringLiteral(" POS日结"), settle},
        {QStringLiteral("verify"), QStringLiteral("[--all]  用已审核单据核对全部帐目"), verify},
        {QStringLiteral("import"),
         QStringLiteral("goods|suppliers|customers|members FILE [--update]  从 xlsx、xls 或 csv "
                        "导入；已存在的跳过或更新"),
         importFile},
        {QStringLiteral("backup"), QStringLiteral("[DIR]  备份，其他人可以继续工作"), backup},
        {QStringLiteral("restore"), QStringLiteral("FILE  先检查再恢复，并保留被替换的数据"),
         restore},
        {QStringLiteral("copy"),
         QStringLiteral("FROM TO [--force]  在文件和PostgreSQL之间复制帐套"), copy},
        {QStringLiteral("demo"), QStringLiteral("[--days N] [--goods N] [--seed S]  生成演示店"),
         demo},
        {QStringLiteral("play"), QStringLiteral("[--days N]  逐步演示进货、销售、退货、结算并核对"),
         play},
    };
    return all;
}

QString help() {
    QString text = QStringLiteral("用法：jxcctl [--home DIR] [--database URL] [--operator NAME] "
                                  "[--password TEXT] [--yes] COMMAND …\n");
    for (const Command &command : commands())
        text += QStringLiteral("\n  %1 %2").arg(command.name, command.usage);
    return text;
}

/// The options before the command; what follows it is the command's.
Options takeOptions(QStringList &line) {
    Options options;
    const auto value = [&line](const QString &name) {
        if (line.isEmpty())
            throw UsageError(QStringLiteral("%1 缺少参数").arg(name));
        return line.takeFirst();
    };
    while (!line.isEmpty() && line.first().startsWith(QLatin1String("--"))) {
        const QString name = line.takeFirst();
        if (name == QLatin1String("--home"))
            options.home = value(name);
        else if (name == QLatin1String("--database"))
            options.database = value(name);
        else if (name == QLatin1String("--operator"))
            options.operatorName = value(name);
        else if (name == QLatin1String("--password"))
            options.password = value(name);
        else if (name == QLatin1String("--yes"))
            options.yes = true;
        else
            throw UsageError(QStringLiteral("无法识别的选项：%1").arg(name));
    }
    return options;
}

ExitCode run(QStringList line) {
    Options options = takeOptions(line);
    if (line.isEmpty())
        throw UsageError(help());
    const QString name = line.takeFirst();
    if (name == QLatin1String("help")) {
        say(help());
        return done;
    }
    // --yes may also stand behind the command.
    if (line.removeAll(QStringLiteral("--yes")) > 0)
        options.yes = true;
    for (const Command &command : commands()) {
        if (command.name != name)
            continue;
        Context context(options, line);
        return command.run(context);
    }
    throw UsageError(QStringLiteral("没有这个命令：%1\n").arg(name) + help());
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("jxc"));
    try {
        return run(QCoreApplication::arguments().mid(1));
    } catch (const UsageError &error) {
        complain(QString::fromUtf8(error.what()));
        return usage;
    } catch (const Refusal &refusal) {
        complain(oneLine(refusal.text()));
        return refused;
    } catch (const NotOurDatabase &error) {
        complain(oneLine(error.userText()));
        return refused;
    } catch (const DatabaseError &error) {
        complain(oneLine(error.userText()));
        return failed;
    } catch (const std::exception &error) {
        complain(oneLine(QString::fromUtf8(error.what())));
        return failed;
    }
}
