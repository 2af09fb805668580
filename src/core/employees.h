#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace jxc {

class Session;

/// Someone who appears on documents and need not log in.
struct Employee {
    qint64 id = 0;
    QString number;
    QString name;
    QString code;             ///< u_jm, initials
    qint64 purchaseCount = 0; ///< how often chosen on purchase documents
    qint64 saleCount = 0;     ///< and on sales documents
};

/// What an employee may be chosen as.
enum class EmployeeDuty { any, purchase, sale, stock };

/// Who can be chosen, in the order of entry. While the warehouse restriction binds the current
/// operator, only employees of his warehouses and of all ("-1").
[[nodiscard]] std::vector<Employee> listEmployees(const Session &session,
                                                  EmployeeDuty duty = EmployeeDuty::any);
/// Salespeople by number, those assigned to the customer first.
[[nodiscard]] std::vector<Employee> listSalespeople(const Session &session,
                                                    const QString &customerNo);
/// The one that a new document proposes: the first without a name, else the first.
[[nodiscard]] std::optional<Employee> defaultEmployee(const Session &session);

/// Notes that an employee was chosen on a document, so that pickers can offer the usual one first.
void countPurchaseChoice(const Session &session, const QString &number);
void countSaleChoice(const Session &session, const QString &number);

} // namespace jxc
