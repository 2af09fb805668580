#include "master/finders.h"

#include "base/pinyin.h"
#include "base/sanitize.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "db/like.h"

#include <QSet>
#include <algorithm>

namespace jxc {

namespace {

constexpr size_t mostFound = 50;

/// Where the rows stand. Empty: there is no such column.
struct Source {
    QString table, code, name, mnemonic, contact, phone, address, balance, usual, isDefault;
    QString disabled;
    QString warehouses; ///< condition that binds while warehouses are restricted
};

QString ofOwnWarehouses() {
    return QStringLiteral("(ck_sn='-1' or ck_sn in (select ck_sn from jxc_ckxx where ck_asn like "
                          "?))");
}

Source partnerSource(const QString &table, const QString &prefix) {
    const auto named = [&](const char16_t *end) { return prefix + QString::fromUtf16(end); };
    return {table,          named(u"_sn"),      named(u"_name"),    named(u"_jm"),
            named(u"_lxr"), named(u"_tele"),    named(u"_address"), named(u"_lwje"),
            named(u"_pl"),  named(u"_default"), named(u"_forbid"),  ofOwnWarehouses()};
}

Source employeeSource(EmployeeDuty duty) {
    Source source;
    source.table = QStringLiteral("jxc_user");
    source.code = QStringLiteral("u_sn");
    source.name = QStringLiteral("u_name");
    source.mnemonic = QStringLiteral("u_jm");
    source.usual = duty == EmployeeDuty::purchase ? QStringLiteral("u_cgpl")
                   : duty == EmployeeDuty::sale   ? QStringLiteral("u_xspl")
                                                  : QString();
    return source;
}

Source sourceOf(Sought what, EmployeeDuty duty) {
    switch (what) {
    case Sought::supplier:
        return partnerSource(QStringLiteral("jxc_ghsxx"), QStringLiteral("ghs"));
    case Sought::customer:
        return partnerSource(QStringLiteral("jxc_khxx"), QStringLiteral("kh"));
    case Sought::employee:
        return employeeSource(duty);
    case Sought::warehouse: {
        Source source;
        source.table = QStringLiteral("jxc_ckxx");
        source.code = QStringLiteral("ck_sn");
        source.name = QStringLiteral("ck_name");
        source.mnemonic = QStringLiteral("ck_jm");
        source.isDefault = QStringLiteral("ck_default");
        source.warehouses = QStringLiteral("ck_asn like ?");
        return source;
    }
    case Sought::account:
        break;
    }
    Source source;
    source.table = QStringLiteral("jxc_yhzh");
    source.code = QStringLiteral("yh_sn");
    source.name = QStringLiteral("yh_name");
    source.balance = QStringLiteral("yh_zje");
    return source;
}

QString selected(const QString &column, const char16_t *empty, const char16_t *as) {
    return QStringLiteral("%1 as %2")
        .arg(column.isEmpty() ? QString::fromUtf16(empty) : column, QString::fromUtf16(as));
}

/// Which rows are read, and in what order.
struct Narrowing {
    QStringList conditions;
    QStringList order;
    Values values;
};

void narrowToAllowed(const Session &session, const Source &source, Narrowing &narrowing) {
    if (!source.disabled.isEmpty())
        narrowing.conditions << QStringLiteral("coalesce(%1,0)=0").arg(source.disabled);
    if (!source.warehouses.isEmpty() && isWarehouseRestricted(session)) {
        narrowing.conditions << source.warehouses;
        narrowing.values.emplace_back(QString(u'%' + session.currentOperatorNo + u'%'));
    }
}

/// A shop may have many thousands of customers: the engine leaves out what does not match.
void narrowToTyped(const Source &source, const QSet<QString> &texts, Narrowing &narrowing) {
    QStringList alternatives;
    const auto add = [&](const QString &column, bool fromBeginning) {
        if (column.isEmpty())
            return;
        for (const QString &text : texts) {
            alternatives << contains(column);
            narrowing.values.emplace_back(containsPattern(text).mid(fromBeginning ? 1 : 0));
        }
    };
    add(source.code, true);
    add(source.mnemonic, true);
    for (const QString &column : {source.name, source.contact, source.phone, source.address})
        add(column, false);
    narrowing.conditions << u'(' + alternatives.join(QStringLiteral(" or ")) + u')';
}

/// Exactly what was typed first, then the default, then the usual ones.
void rank(const Source &source, const QSet<QString> &exactly, Narrowing &narrowing) {
    for (const QString &text : exactly)
        for (const QString &column : {source.code, source.name, source.mnemonic})
            if (!column.isEmpty()) {
                narrowing.order
                    << QStringLiteral("case when lower(%1)=lower(?) then 0 else 1 end").arg(column);
                narrowing.values.emplace_back(text);
            }
    for (const QString &column : {source.isDefault, source.usual})
        if (!column.isEmpty())
            narrowing.order << QStringLiteral("coalesce(%1,0) desc").arg(column);
    narrowing.order << QStringLiteral("id");
}

/// The rows, at most so many; 0: all.
std::vector<Found> read(const Session &session, const Source &source, const Narrowing &narrowing,
                        size_t most) {
    QString sql = QStringLiteral("select id,%1 as code,%2 as name,").arg(source.code, source.name) +
                  QStringList{selected(source.mnemonic, u"''", u"mnemonic"),
                              selected(source.phone, u"''", u"phone"),
                              selected(source.address, u"''", u"address"),
                              selected(source.balance, u"0", u"balance"),
                              selected(source.isDefault, u"0", u"proposed")}
                      .join(u',') +
                  QStringLiteral(" from %1").arg(source.table);
    if (!narrowing.conditions.isEmpty())
        sql += QStringLiteral(" where ") + narrowing.conditions.join(QStringLiteral(" and "));
    sql += QStringLiteral(" order by ") + narrowing.order.join(u',');
    if (most > 0)
        sql += QStringLiteral(" limit %1").arg(most);
    std::vector<Found> rows;
    for (const Row &row : session.db().rows(sql, narrowing.values))
        rows.push_back({row.integer(u"id"), row.text(u"code"), row.text(u"name"),
                        row.text(u"mnemonic"), row.text(u"phone"), row.text(u"address"),
                        row.decimal(u"balance"), row.flag(u"proposed")});
    return rows;
}

/// Who may be chosen as what, and in which warehouses.
void leaveChoosable(const Session &session, EmployeeDuty duty, std::vector<Found> &rows) {
    QSet<qint64> choosable;
    for (const Employee &employee : listEmployees(session, duty))
        choosable.insert(employee.id);
    std::erase_if(rows, [&](const Found &row) { return !choosable.contains(row.id); });
}

std::vector<Found> matching(const Session &session, const Source &source, const QString &typed,
                            size_t most) {
    Narrowing narrowing;
    narrowToAllowed(session, source, narrowing);
    const QSet<QString> texts{sanitizeSqlTextLight(typed), sanitizeSqlText(typed)};
    narrowToTyped(source, texts, narrowing);
    rank(source, texts, narrowing);
    return read(session, source, narrowing, most);
}

/// All that may be chosen, or the usual ones of them.
std::vector<Found> allowed(const Session &session, const Source &source, size_t most) {
    Narrowing narrowing;
    narrowToAllowed(session, source, narrowing);
    rank(source, {}, narrowing);
    return read(session, source, narrowing, most);
}

} // namespace

std::vector<Found> findNamed(const Session &session, Sought what, const QString &typed,
                             EmployeeDuty duty) {
    const Source source = sourceOf(what, duty);
    // Employees are few, and some of them may not be chosen here.
    const size_t most = what == Sought::employee ? 0 : mostFound;
    const QString text = typed.trimmed();
    std::vector<Found> found =
        text.isEmpty() ? allowed(session, source, most) : matching(session, source, text, most);
    if (found.empty() && !text.isEmpty()) {
        // Nothing has that name or code: perhaps another reading of its characters was meant.
        found = allowed(session, source, 0);
        std::erase_if(found, [&](const Found &row) { return !initialsMatch(row.name, text); });
    }
    if (what == Sought::employee)
        leaveChoosable(session, duty, found);
    if (found.size() > mostFound)
        found.resize(mostFound);
    return found;
}

} // namespace jxc
