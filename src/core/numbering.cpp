#include "core/numbering.h"

#include "base/dates.h"
#include "core/session.h"
#include "db/database.h"

namespace jxc {

namespace {

struct Source {
    QString table;
    QString column;
};

/// Tables that number with the same prefix, so that a number stays unique across them.
std::vector<Source> extraSources(const QString &prefix) {
    const QString djh = QStringLiteral("gl_djh");
    if (prefix == QLatin1String("XS"))
        return {{QStringLiteral("jxc_posxssp"), djh}, {QStringLiteral("jxc_lsxssptemp"), djh}};
    if (prefix == QLatin1String("XT"))
        return {{QStringLiteral("jxc_posthsp"), djh}};
    if (prefix == QLatin1String("YF") || prefix == QLatin1String("FK") ||
        prefix == QLatin1String("YS") || prefix == QLatin1String("SK"))
        return {{QStringLiteral("jxc_ysyfk_dj"), djh}};
    return {};
}

/// The largest number that begins with the base: one probe at the end of a range of the index.
QString largest(Database &db, const Source &source, const QString &base) {
    QString end = base;
    end.back() = QChar(static_cast<char16_t>(base.back().unicode() + 1));
    return db.scalar(QStringLiteral("select max(%1) as sn from %2 where %1>=? and %1<?")
                         .arg(source.column, source.table),
                     {base, end});
}

/// Only five digits of the serial are read, whatever its length; past 89,999 documents of one day
/// numbers would repeat. That is deliberate and out of any shop's reach.
int serialAfter(const QString &number) {
    if (number.size() < 13)
        return 10'001;
    return std::max(number.mid(8, 5).toInt(), 10'000) + 1;
}

} // namespace

QString newDocNumberForDate(const Session &session, const QString &table, const QString &column,
                            const QString &prefix, const QString &date) {
    const QString base = prefix + dateDigits(date);
    QString max = largest(session.db(), {table, column}, base);
    for (const Source &source : extraSources(prefix)) {
        const QString other = largest(session.db(), source, base);
        if (!other.isEmpty() && other > max)
            max = other;
    }
    return base + QString::number(serialAfter(max));
}

QString newDocNumber(const Session &session, const QString &table, const QString &column,
                     const QString &prefix) {
    return newDocNumberForDate(session, table, column, prefix, session.today());
}

bool docNumberExists(const Session &session, const QString &table, const QString &column,
                     const QString &number) {
    Database &db = session.db();
    const QString probe = QStringLiteral("select %1 as sn from %2 where %1=?").arg(column, table);
    if (db.exists(probe, {number})) {
        // The operator's own row is the document being saved again.
        if (!db.exists(probe + QStringLiteral(" and a_name=?"),
                       {number, session.currentOperatorName}))
            return true;
    }
    QStringList others;
    if (number.startsWith(QLatin1String("XS")))
        others = {QStringLiteral("jxc_lsxssptemp"), QStringLiteral("jxc_posxssp")};
    else if (number.startsWith(QLatin1String("XT")))
        others = {QStringLiteral("jxc_posthsp")};
    for (const QString &other : others)
        if (db.exists(QStringLiteral("select gl_djh as sn from %1 where gl_djh=?").arg(other),
                      {number}))
            return true;
    return false;
}

QString nextSerialNumber(Database &db, const QString &table, const QString &column) {
    const QString max =
        db.scalar(QStringLiteral("select max(%1) as sn from %2").arg(column, table));
    if (max.isEmpty())
        return QStringLiteral("100001");
    return QString::number(max.toLongLong() + 1);
}

} // namespace jxc
