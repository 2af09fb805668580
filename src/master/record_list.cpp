#include "master/record_list.h"

#include "base/sanitize.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "db/schema.h"
#include "master/master_kind.h"
#include "master/record_values.h"

#include <stdexcept>

namespace jxc {

namespace {

/// A condition and what it binds.
struct Clause {
    QString sql;
    Values values;

    void andAlso(const QString &condition, const Values &bound = {}) {
        sql += (sql.isEmpty() ? QStringLiteral(" where ") : QStringLiteral(" and ")) + condition;
        values.insert(values.end(), bound.begin(), bound.end());
    }
};

/// What is sought in a column went through the same sanitiser when it was stored.
QString sought(const MasterKind &kind, const QString &column, const QString &search) {
    const MasterField *field = kind.field(column);
    const bool words = field != nullptr && field->sanitizer == Sanitizer::words;
    return containsPattern(words ? sanitizeSqlText(search) : sanitizeSqlTextLight(search));
}

void addSearch(const MasterKind &kind, const QString &typed, Clause &clause) {
    const QString search = typed.trimmed();
    if (search.isEmpty())
        return;
    QStringList alternatives;
    Values values;
    for (const QString &column :
         QStringList{kind.codeColumn, kind.nameColumn, kind.mnemonicColumn} + kind.findColumns) {
        if (column.isEmpty())
            continue;
        alternatives << contains(QStringLiteral("m.") + column);
        values.emplace_back(sought(kind, column, search));
    }
    for (const Mention &also : kind.findAlso) {
        alternatives << QStringLiteral("m.%1 in (select %1 from %2 where %3)")
                            .arg(kind.codeColumn, also.table, contains(also.column));
        values.emplace_back(containsPattern(sanitizeSqlTextLight(search)));
    }
    clause.andAlso(u'(' + alternatives.join(QStringLiteral(" or ")) + u')', values);
}

void addFilter(const MasterKind &kind, const ListFilter &filter, Clause &clause) {
    if (column(kind.table, filter.column) == nullptr)
        throw std::logic_error("no such column to filter: " + filter.column.toStdString());
    const QString name = QStringLiteral("m.") + filter.column;
    switch (filter.how) {
    case ListFilter::How::equal:
        clause.andAlso(name + QStringLiteral("=?"),
                       {fieldValue(kind.table, filter.column, filter.value)});
        break;
    case ListFilter::How::beginsWith:
        clause.andAlso(QStringLiteral("substr(%1,1,%2)=?").arg(name).arg(filter.value.size()),
                       {filter.value});
        break;
    case ListFilter::How::notZero:
        clause.andAlso(name + QStringLiteral("<>0"));
        break;
    }
}

/// Numbers in the lists are searched as parts of the text, as everywhere.
void addWarehouses(const Session &session, const QString &column, bool isWarehouse,
                   Clause &clause) {
    if (column.isEmpty() || !isWarehouseRestricted(session))
        return;
    const QString own = QString(u'%' + session.currentOperatorNo + u'%');
    if (isWarehouse)
        clause.andAlso(QStringLiteral("m.ck_asn like ?"), {own});
    else
        clause.andAlso(QStringLiteral("(m.%1='-1' or m.%1 in (select ck_sn from jxc_ckxx where "
                                      "ck_asn like ?))")
                           .arg(column),
                       {own});
}

/// A column of the table itself, or the name behind a code.
QString selected(const MasterKind &kind, const MasterColumn &listed) {
    if (column(kind.table, listed.column) != nullptr)
        return QStringLiteral("m.") + listed.column;
    for (const MasterField &field : kind.fields)
        if (field.pick.shownAs == listed.column)
            return QStringLiteral("(select max(p.%1) from %2 p where p.%3=m.%4) as %5")
                .arg(field.pick.nameColumn, field.pick.table, field.pick.valueColumn, field.column,
                     listed.column);
    throw std::logic_error("no such list column: " + listed.column.toStdString());
}

QString selectList(const MasterKind &kind) {
    QStringList parts{QStringLiteral("m.id")};
    for (const MasterColumn &listed : kind.columns)
        parts << selected(kind, listed);
    parts << (kind.disabledColumn.isEmpty()
                  ? QStringLiteral("0 as disabled")
                  : QStringLiteral("m.%1 as disabled").arg(kind.disabledColumn));
    return parts.join(u',');
}

void leaveOutDisabled(const MasterKind &kind, Clause &clause) {
    if (!kind.disabledColumn.isEmpty())
        clause.andAlso(QStringLiteral("coalesce(m.%1,0)=0").arg(kind.disabledColumn));
}

} // namespace

Rows listRecords(const Session &session, const MasterKind &kind, const ListRequest &request) {
    Clause clause;
    if (!kind.hiddenCode.isEmpty())
        clause.andAlso(QStringLiteral("m.%1<>?").arg(kind.codeColumn), {kind.hiddenCode});
    if (!request.showDisabled)
        leaveOutDisabled(kind, clause);
    addSearch(kind, request.search, clause);
    for (const ListFilter &filter : request.filters)
        addFilter(kind, filter, clause);
    addWarehouses(session, kind.warehouseColumn, kind.table == QLatin1String("jxc_ckxx"), clause);
    return session.db().rows(QStringLiteral("select %1 from %2 m%3 order by m.id")
                                 .arg(selectList(kind), kind.table, clause.sql),
                             clause.values);
}

std::vector<PickRow> listPicks(const Session &session, const Pick &pick) {
    const MasterKind *kind = findMasterKind(pick.table);
    Clause clause;
    if (kind != nullptr) {
        leaveOutDisabled(*kind, clause);
        addWarehouses(session, kind->warehouseColumn, pick.table == QLatin1String("jxc_ckxx"),
                      clause);
    }
    if (!pick.condition.isEmpty())
        clause.andAlso(pick.condition);
    std::vector<PickRow> picks;
    if (!pick.forAll.isEmpty())
        picks.push_back({pick.forAll, pick.forAllName, {}});
    const QString copied = pick.copiedColumn.isEmpty() ? pick.nameColumn : pick.copiedColumn;
    const QString mnemonic = kind == nullptr ? QString() : kind->mnemonicColumn;
    for (const Row &row : session.db().rows(
             QStringLiteral("select m.%1 as picked,m.%2 as name,m.%3 as copied,%4 as mnemonic from "
                            "%5 m%6 order by m.id")
                 .arg(pick.valueColumn, pick.nameColumn, copied,
                      mnemonic.isEmpty() ? QStringLiteral("''") : mnemonic, pick.table, clause.sql),
             clause.values))
        picks.push_back(
            {row.text(u"picked"), row.text(u"name"), row.text(u"copied"), row.text(u"mnemonic")});
    return picks;
}

} // namespace jxc
