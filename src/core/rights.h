#pragma once

#include <QString>

namespace jxc {

class Prompter;
class Session;

/// Whether the current operator's role holds the right at this position (1-based) of a group of
/// jxc_role: cggl, xsgl, kcgl, wlzk, tjgl, rcgl, gspgl or qtcz. Read at every call, so that a
/// change of the role is felt at once. While the warehouse restriction is on, an operator of
/// another role than the administrator's who is in no warehouse's list has no right at all.
[[nodiscard]] bool hasRight(const Session &session, QStringView group, int position);

/// Whether the warehouse restriction is on and binds the current operator.
[[nodiscard]] bool isWarehouseRestricted(const Session &session);

/// The same as hasRight for another operator by name, who authorises an action; the warehouse lists
/// do not count here.
[[nodiscard]] bool userHasRight(const Session &session, const QString &operatorName,
                                QStringView group, int position);

/// What a user without the right is told.
[[nodiscard]] QString noRightMessage(const QString &actionCaption);
/// Tells it.
void showNoRightMessage(Prompter &prompter, const QString &actionCaption);

} // namespace jxc
