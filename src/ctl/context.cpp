#include "ctl/context.h"

#include "core/account_set.h"
#include "core/login.h"
#include "retail/document_posting.h"
#include "services/opening.h"

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
    return homeFolder(m_options.home);
}

Location Context::location() const {
    return accountSetLocation(home(), m_options.database);
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
    session->members = &documentPosting();
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
