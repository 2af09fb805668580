#include "core/login.h"

#include "base/sanitize.h"
#include "core/session.h"
#include "db/database.h"

#include <QFileInfo>
#include <QHostAddress>
#include <QNetworkInterface>

namespace jxc {

namespace {

QString localIpAddress() {
    for (const QHostAddress &address : QNetworkInterface::allAddresses())
        if (!address.isLoopback() && address.protocol() == QAbstractSocket::IPv4Protocol)
            return address.toString();
    return QStringLiteral("127.0.0.1");
}

} // namespace

QStringList operatorNames(const Session &session) {
    QStringList names;
    for (const Row &row :
         session.db().rows(QStringLiteral("select a_name from jxc_admin order by id")))
        names << row.text(u"a_name");
    return names;
}

bool hasEmptyPassword(const Session &session, const QString &operatorName) {
    const auto row = session.db().row(QStringLiteral("select a_pwd from jxc_admin where a_name=?"),
                                      {operatorName});
    return row && row->text(u"a_pwd").isEmpty();
}

bool authenticate(Session &session, const QString &operatorName, const QString &password) {
    const auto row =
        session.db().row(QStringLiteral("select a_name,a_sn,r_sn from jxc_admin where a_name=? and "
                                        "coalesce(a_pwd,'')=? order by id"),
                         {operatorName, sanitizeSqlText(password.trimmed())});
    if (!row)
        return false;
    session.currentOperatorName = row->text(u"a_name");
    session.currentOperatorNo = row->text(u"a_sn");
    session.currentRoleNo = row->text(u"r_sn");
    session.currentLocalIp = localIpAddress();
    session.currentDatabaseFile = QStringLiteral("jxc.mdb");
    session.loginOk = true;
    return true;
}

} // namespace jxc
