#pragma once

#include "app/backup_watch.h"
#include "app/dispatch.h"
#include "app/gateway_watch.h"

#include <QMainWindow>

class QLabel;
class QLineEdit;
class QToolButton;

namespace jxc {

class CardBoard;
class FormRegistry;
class MenuRail;
class Prompter;
class Session;
class StatusPanes;

/// The main window: eight groups of buttons, each of which checks a right and opens one form.
class TF_MainForm : public QMainWindow {
    Q_OBJECT
public:
    /// The reminders come so many milliseconds after the window.
    explicit TF_MainForm(FormRegistry &registry, int reminderDelay = 200);

    /// Shows the window and, over it, the login.
    void FormShow();
    /// What follows a login: the first group, the globals, the month's stock values, the backups.
    void FormActivate();

    /// Shows a group, 1 to 8.
    void menuClick(int group);
    /// Lays out the current group's buttons.
    void setBtnPosition();
    /// What a button does when it is clicked: checks the rights, opens the form.
    void click(const FunctionButton &button);
    /// Changes the operator.
    void btn_HbglClick();
    /// The start-up reminders; once after activation.
    void Timer1Timer();

    [[nodiscard]] CardBoard &board() { return *m_board; }
    [[nodiscard]] StatusPanes &panes() { return *m_panes; }
    [[nodiscard]] BackupWatch &backups() { return m_backups; }
    [[nodiscard]] GatewayWatch &gateways() { return m_gateways; }
    [[nodiscard]] int currentGroup() const { return m_group; }

Q_SIGNALS:
    /// The program is to end.
    void ended();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeHead();
    QToolButton *makeTool(const FunctionButton &button);
    void makeShortcuts();
    void dressTools();

    void showLogin(const QString &callerWord);
    void rewriteStatusTexts();
    void refreshBackupPane();
    void refreshMonth();

    void findFunctions(const QString &typed);
    void openAtStart();
    void openGuarded(const QString &formClass, const QString &rightGroup, int right,
                     const QString &refusal);
    void leave();

    FormRegistry &m_registry;
    Session &m_session;
    Prompter &m_prompter;
    int m_reminderDelay;
    BackupWatch m_backups;
    GatewayWatch m_gateways;
    MenuRail *m_rail;
    QLabel *m_title;
    QLineEdit *m_find;
    CardBoard *m_board;
    StatusPanes *m_panes;
    std::vector<QToolButton *> m_tools;
    QStringList m_formsAtStart; ///< still to be shown, one after the other
    int m_group = 0;
    bool m_isIn = false;
};

} // namespace jxc
