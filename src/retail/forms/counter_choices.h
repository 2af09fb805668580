#pragma once

#include "retail/counter_goods.h"
#include "retail/receipt_hold.h"
#include "ui/form.h"

namespace jxc {

// Lists that the counter lets the cashier choose from. Without a choice: false, or an empty text.

/// One of the goods that were found, which is all that is left in `found` then.
[[nodiscard]] bool chooseGoods(const FormContext &context, CounterFind &found, QWidget *parent);
/// A receipt that was put aside, by its number.
[[nodiscard]] QString chooseHeld(const FormContext &context, const std::vector<HeldReceipt> &held,
                                 QWidget *parent);
/// A member (hy_sn) by card, mobile, name or initials; one that is found alone is taken. Tells when
/// there is none.
[[nodiscard]] QString chooseMember(const FormContext &context, const QString &typed,
                                   QWidget *parent);
/// Shows the picture of a goods until a key is pressed.
void showPicture(const QString &title, const QString &file, QWidget *parent);

} // namespace jxc
