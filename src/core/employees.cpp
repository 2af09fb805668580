#include "core/employees.h"

#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

QString condition(EmployeeDuty duty) {
    switch (duty) {
    case EmployeeDuty::any:
        return {};
    case EmployeeDuty::purchase:
        return QStringLiteral(" and u_cg<>0");
    case EmployeeDuty::sale:
        return QStringLiteral(" and u_xs<>0");
    case EmployeeDuty::stock:
        return QStringLiteral(" and u_kc<>0");
    }
    return {};
}

Employee fromRow(const Row &row) {
    return {row.integer(u"id"), row.text(u"u_sn"),      row.text(u"u_name"),
            row.text(u"u_jm"),  row.integer(u"u_cgpl"), row.integer(u"u_xspl")};
}

std::vector<Employee> list(const Session &session, EmployeeDuty duty, const QString &order) {
    QString sql = QStringLiteral("select id,u_sn,u_name,u_jm,u_cgpl,u_xspl from jxc_user "
                                 "where u_jy=0") +
                  condition(duty);
    Values values;
    if (isWarehouseRestricted(session)) {
        // A number inside a longer one matches too, as everywhere in these lists.
        sql += QStringLiteral(" and (ck_sn='-1' or ck_sn in "
                              "(select ck_sn from jxc_ckxx where ck_asn like ?))");
        values.emplace_back(QString(u'%' + session.currentOperatorNo + u'%'));
    }
    std::vector<Employee> employees;
    for (const Row &row : session.db().rows(sql + order, values))
        employees.push_back(fromRow(row));
    return employees;
}

} // namespace

std::vector<Employee> listEmployees(const Session &session, EmployeeDuty duty) {
    return list(session, duty, QStringLiteral(" order by id"));
}

std::vector<Employee> listSalespeople(const Session &session, const QString &customerNo) {
    const QString assigned = session.db().scalar(
        QStringLiteral("select kh_usn from jxc_khxx where kh_sn=? order by id"), {customerNo});
    auto people = list(session, EmployeeDuty::sale, QStringLiteral(" order by u_sn,id"));
    std::stable_partition(people.begin(), people.end(), [&](const Employee &employee) {
        return assigned.contains(employee.number);
    });
    return people;
}

std::optional<Employee> defaultEmployee(const Session &session) {
    const QString sql = QStringLiteral(
        "select id,u_sn,u_name,u_jm,u_cgpl,u_xspl from jxc_user %1 order by id limit 1");
    auto row = session.db().row(sql.arg(QStringLiteral("where u_name='' or u_name is null")));
    if (!row)
        row = session.db().row(sql.arg(QString()));
    if (!row)
        return std::nullopt;
    return fromRow(*row);
}

void countPurchaseChoice(const Session &session, const QString &number) {
    session.db().execute(
        QStringLiteral("update jxc_user set u_cgpl=coalesce(u_cgpl,0)+1 where u_sn=?"), {number});
}

void countSaleChoice(const Session &session, const QString &number) {
    session.db().execute(
        QStringLiteral("update jxc_user set u_xspl=coalesce(u_xspl,0)+1 where u_sn=?"), {number});
}

} // namespace jxc
