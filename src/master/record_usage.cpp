#include "master/record_usage.h"

#include "db/database.h"
#include "db/schema.h"
#include "master/master_kind.h"
#include "master/record.h"
#include "master/record_values.h"

#include <algorithm>

namespace jxc {

namespace {

/// Rows of a work table are left over from some screen, not from business.
bool isWorkTable(const QString &table) {
    return table.endsWith(QLatin1String("tmp")) || table.startsWith(QLatin1String("jxc_temp")) ||
           table == QLatin1String("jxc_jxchz");
}

/// Tables whose column of the code's name tells of use, empty rows apart.
std::vector<Mention> derivedMentions(const MasterKind &kind) {
    std::vector<Mention> mentions;
    for (const Table &table : schema().tables()) {
        const bool counts = table.column(kind.codeColumn) != nullptr && table.name != kind.table &&
                            !isWorkTable(table.name) && !kind.satellites.contains(table.name) &&
                            !kind.notUsedBy.contains(table.name);
        if (!counts)
            continue;
        Mention mention{table.name, kind.codeColumn};
        for (const Mention &empty : kind.emptyRows)
            if (empty.table == table.name)
                mention.condition = QStringLiteral("not (%1)").arg(empty.condition);
        mentions.push_back(mention);
    }
    return mentions;
}

bool isMentioned(Database &db, const Mention &mention, const QString &text) {
    QString sql = QStringLiteral("select id from %1 where ").arg(mention.table);
    sql += mention.inList ? QStringLiteral("','||%1 like ?").arg(mention.column)
                          : mention.column + QStringLiteral("=?");
    if (!mention.condition.isEmpty())
        sql += QStringLiteral(" and ") + mention.condition;
    return db.exists(sql + QStringLiteral(" limit 1"), {mention.inList ? listPattern(text) : text});
}

} // namespace

bool isUsed(Database &db, const MasterKind &kind, const Record &record) {
    if (!kind.codeColumn.isEmpty()) {
        const QString code = record.text(kind.codeColumn);
        std::vector<Mention> mentions = derivedMentions(kind);
        mentions.insert(mentions.end(), kind.usedAlso.begin(), kind.usedAlso.end());
        if (std::any_of(mentions.begin(), mentions.end(),
                        [&](const Mention &mention) { return isMentioned(db, mention, code); }))
            return true;
    }
    const QString name = record.text(kind.nameColumn);
    return std::any_of(kind.nameCopies.begin(), kind.nameCopies.end(), [&](const NameCopy &copy) {
        return copy.codeColumn.isEmpty() && isMentioned(db, {copy.table, copy.nameColumn}, name);
    });
}

void deleteSatellites(Database &db, const MasterKind &kind, const Record &record) {
    if (kind.codeColumn.isEmpty())
        return;
    const QString code = record.text(kind.codeColumn);
    for (const QString &table : kind.satellites)
        db.execute(QStringLiteral("delete from %1 where %2=?").arg(table, kind.codeColumn), {code});
    for (const Mention &empty : kind.emptyRows)
        db.execute(QStringLiteral("delete from %1 where %2=? and %3")
                       .arg(empty.table, empty.column, empty.condition),
                   {code});
}

} // namespace jxc
