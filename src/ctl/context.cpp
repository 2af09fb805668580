#include "ctl/context.h"

#include "core/login.h"
#include "services/opening.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace jxc::ctl {

bool Context::takeSwitch(const QString &name) {
    return m_arguments.removeAll(name) > 0;
}

std::optional<int> Context::takeNumber(const QString &name) {
    const qsizetype place = m_arguments.indexOf(name);
    if (place < 0)
        return std::nullopt;
    bool isNumber = false;
    const int number = m_arguments.value(place + 1).toInt(&isNumber);
    if (!isNumber || number < 0)
        throw UsageError(QStringLiteral("%1 需要一个数字").arg(name));
    m_arguments.remove(place, 2);
    return number;
}

QString Context::home() const {
    if (!m_options.home.isEmpty())
        return m_options.home;
    QString beside = QCoreApplication::applicationDirPath();
    if (QDir(beside + QStringLiteral("/data")).exists())
        return beside;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

Location Context::location() const {
    if (!m_options.database.isEmpty())
        return Location::parse(m_options.database);
    return Location::ofFile(QDir(home()).filePath(QStringLiteral("data/jxc.mdb")));
}

Database &Context::database() {
    if (!m_database) {
        m_database = std::make_unique<Database>(location());
        for (const QString &warning : m_database->warnings())
            complain(warning);
    }
    return *m_database;
}

QString Context::password(Session &session) const {
    if (m_options.password)
        return *m_options.password;
    if (qEnvironmentVariableIsSet("JXC_PASSWORD"))
        return qEnvironmentVariable("JXC_PASSWORD");
    if (hasEmptyPassword(session, m_options.operatorName))
        return {};
    return askPassword(QStringLiteral("操作员%1的密码：").arg(m_options.operatorName));
}

Session &Context::session() {
    if (m_session)
        return *m_session;
    auto session = std::make_unique<Session>(database(), m_clock);
    const Opening opening = openSession(*session, m_options.operatorName, password(*session));
    if (!opening.outcome.isDone())
        throw Refusal(opening.outcome.text);
    if (!opening.upgradeSteps.isEmpty())
        complain(QStringLiteral("数据库已升级：%1")
                     .arg(opening.upgradeSteps.join(QStringLiteral("、"))));
    m_session = std::move(session);
    return *m_session;
}

} // namespace jxc::ctl
