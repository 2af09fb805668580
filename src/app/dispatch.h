#pragma once

#include <QList>
#include <QString>
#include <vector>

namespace jxc {

/// One of the eight groups of the main window.
struct MenuGroup {
    QString caption;
    QString icon;
};

/// What a button does beside opening a form.
enum class ButtonAction {
    openForm,
    changeOperator, ///< the login dialog, to go on as somebody else
    leave           ///< closes the program, after asking
};

/// One button of the main window.
struct FunctionButton {
    QString handler; ///< the name that the button's click has always borne
    int group;       ///< 1 to 8; 0 stands beside all groups
    QString caption;
    QString icon;
    QString rightGroup; ///< column of jxc_role; empty: everybody may
    QList<int> rights;  ///< any one of these positions suffices
    QString formClass;
    QString formCaption; ///< set on the form when not empty
    QString refusal;     ///< "您没有权限进行" goes before it
    ButtonAction action = ButtonAction::openForm;
};

/// In the order of the keys Alt+1 to Alt+8.
[[nodiscard]] const std::vector<MenuGroup> &menuGroups();
/// Every button, in the order in which its group shows it.
[[nodiscard]] const std::vector<FunctionButton> &dispatchTable();
/// Null when there is no such button.
[[nodiscard]] const FunctionButton *findButton(QStringView handler);
/// The buttons of a group.
[[nodiscard]] std::vector<const FunctionButton *> buttonsOf(int group);

/// The letter that presses a button while its group is shown: the first of its caption's initials
/// that no button before it has, else the first free letter.
[[nodiscard]] QChar keyOf(const FunctionButton &button);

/// Whether a button may be meant by what was typed: a part of its caption or of its initials.
[[nodiscard]] bool isMeant(const FunctionButton &button, const QString &typed);

} // namespace jxc
