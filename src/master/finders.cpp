#include "master/finders.h"

#include "base/pinyin.h"
#include "base/sanitize.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"

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

/// A row with what it was matched by.
struct Candidate {
    Found found;
    QString contact;
    qint64 usual = 0;
    bool exact = false;
};

std::vector<Candidate> candidates(const Session &session, const Source &source) {
    QString sql = QStringLiteral("select id,%1 as code,%2 as name,").arg(source.code, source.name) +
                  QStringList{selected(source.mnemonic, u"''", u"mnemonic"),
                              selected(source.contact, u"''", u"contact"),
                              selected(source.phone, u"''", u"phone"),
                              selected(source.address, u"''", u"address"),
                              selected(source.balance, u"0", u"balance"),
                              selected(source.usual, u"0", u"usual"),
                              selected(source.isDefault, u"0", u"proposed")}
                      .join(u',') +
                  QStringLiteral(" from %1").arg(source.table);
    QStringList conditions;
    Values values;
    if (!source.disabled.isEmpty())
        conditions << QStringLiteral("coalesce(%1,0)=0").arg(source.disabled);
    if (!source.warehouses.isEmpty() && isWarehouseRestricted(session)) {
        conditions << source.warehouses;
        values.emplace_back(QString(u'%' + session.currentOperatorNo + u'%'));
    }
    if (!conditions.isEmpty())
        sql += QStringLiteral(" where ") + conditions.join(QStringLiteral(" and "));
    std::vector<Candidate> rows;
    for (const Row &row : session.db().rows(sql + QStringLiteral(" order by id"), values))
        rows.push_back({{row.integer(u"id"), row.text(u"code"), row.text(u"name"),
                         row.text(u"mnemonic"), row.text(u"phone"), row.text(u"address"),
                         row.decimal(u"balance"), row.flag(u"proposed")},
                        row.text(u"contact"),
                        row.integer(u"usual")});
    return rows;
}

bool matches(Candidate &candidate, const QString &light, const QString &words) {
    const Found &found = candidate.found;
    const auto is = [&](const QString &text) {
        return text.compare(light, Qt::CaseInsensitive) == 0;
    };
    candidate.exact = is(found.code) || is(found.name) || found.name == words ||
                      (!found.mnemonic.isEmpty() && is(found.mnemonic));
    if (candidate.exact || found.code.startsWith(light, Qt::CaseInsensitive) ||
        found.mnemonic.startsWith(light, Qt::CaseInsensitive))
        return true;
    for (const QString &text : {found.name, found.phone, found.address, candidate.contact})
        if (text.contains(light, Qt::CaseInsensitive) || text.contains(words, Qt::CaseInsensitive))
            return true;
    return initialsMatch(found.name, light);
}

} // namespace

std::vector<Found> findNamed(const Session &session, Sought what, const QString &typed,
                             EmployeeDuty duty) {
    std::vector<Candidate> rows = candidates(session, sourceOf(what, duty));
    if (what == Sought::employee) { // who may be chosen as what, and in which warehouses
        std::vector<Candidate> chosen;
        for (const Employee &employee : listEmployees(session, duty))
            for (const Candidate &row : rows)
                if (row.found.id == employee.id)
                    chosen.push_back(row);
        rows = chosen;
    }
    const QString text = typed.trimmed();
    if (!text.isEmpty()) {
        const QString light = sanitizeSqlTextLight(text);
        const QString words = sanitizeSqlText(text);
        std::erase_if(rows, [&](Candidate &row) { return !matches(row, light, words); });
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Candidate &a, const Candidate &b) {
        return std::make_tuple(!a.exact, !a.found.isDefault, -a.usual) <
               std::make_tuple(!b.exact, !b.found.isDefault, -b.usual);
    });
    std::vector<Found> found;
    for (const Candidate &row : rows) {
        if (found.size() == mostFound)
            break;
        found.push_back(row.found);
    }
    return found;
}

} // namespace jxc
