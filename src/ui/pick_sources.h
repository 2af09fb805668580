#pragma once

#include "core/employees.h"
#include "money/partner_ledger.h"
#include "ui/form.h"
#include "ui/pick_list.h"

class QLineEdit;

namespace jxc {

/// Suppliers or customers, also found by phone and address.
[[nodiscard]] PickSource partnerSource(const FormContext &context, Partner::Kind kind);
/// The warehouses that the operator may use.
[[nodiscard]] PickSource warehouseSource(const FormContext &context);
/// Employees with a duty, those most often chosen first; for sales those of the customer first.
[[nodiscard]] PickSource employeeSource(const FormContext &context, EmployeeDuty duty,
                                        const QString &customer);
/// Cash and bank accounts, by name.
[[nodiscard]] PickSource accountSource(const FormContext &context);
/// Goods by code, barcode of any unit, initials, part of the name; `warehouse` is asked at each
/// search, for the stock shown.
[[nodiscard]] PickSource goodsSource(const FormContext &context, bool forSale,
                                     std::function<QString()> warehouse);

/// Lets the user choose one of the usual notes and writes it into the field.
void choosePhrase(const FormContext &context, QLineEdit *note);

} // namespace jxc
