#include "db/location.h"

#include "db/errors.h"

#include <QDir>
#include <QUrl>

namespace jxc {

Location Location::ofFile(const QString &path) {
    Location location;
    location.file = path;
    return location;
}

Location Location::parse(const QString &pathOrUrl) {
    if (!pathOrUrl.contains(QLatin1String("://")))
        return ofFile(pathOrUrl);
    const QUrl url(pathOrUrl);
    const bool ours =
        url.scheme() == QLatin1String("postgresql") || url.scheme() == QLatin1String("postgres");
    if (!ours || !url.isValid() || url.path().size() < 2)
        throw DatabaseError(QStringLiteral("数据库地址无效：%1").arg(pathOrUrl), {}, {});
    Location location;
    location.engine = Engine::Postgres;
    location.host = url.host();
    location.port = url.port(5432);
    location.userName = url.userName();
    location.password = url.password();
    location.databaseName = url.path().mid(1);
    return location;
}

QString Location::display() const {
    if (engine == Engine::Sqlite)
        return QDir::toNativeSeparators(file);
    QString text = QStringLiteral("postgresql://");
    if (!userName.isEmpty())
        text += userName + u'@';
    return text + QStringLiteral("%1:%2/%3").arg(host).arg(port).arg(databaseName);
}

} // namespace jxc
