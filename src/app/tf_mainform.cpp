#include "app/tf_mainform.h"

#include "app/card_board.h"
#include "app/form_registry.h"
#include "app/help_key.h"
#include "app/menu_rail.h"
#include "app/status_panes.h"
#include "app/tf_login.h"
#include "base/dates.h"
#include "core/account_set.h"
#include "core/backup.h"
#include "core/operation_log.h"
#include "core/prompter.h"
#include "core/rights.h"
#include "core/skin.h"
#include "services/reminders.h"
#include "stock/snapshot.h"
#include "ui/icons.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

namespace jxc {

namespace {

const QString slogan = QStringLiteral("每一笔都清楚，每一分都对得上");

/// Any one of the positions suffices; a button without positions is everybody's.
bool isGranted(const Session &session, const FunctionButton &button) {
    return button.rights.isEmpty() || std::ranges::any_of(button.rights, [&](int position) {
               return hasRight(session, button.rightGroup, position);
           });
}

/// What must not keep anybody from leaving.
template<class Action>
void quietly(const Action &action) {
    try {
        action();
    } catch (const std::exception &fault) {
        qWarning("%s", fault.what());
    }
}

} // namespace

TF_MainForm::TF_MainForm(FormRegistry &registry, int reminderDelay)
    : m_registry(registry)
    , m_session(registry.context().session)
    , m_prompter(registry.context().prompter)
    , m_reminderDelay(reminderDelay)
    , m_backups(m_session)
    , m_gateways(registry.context())
    , m_rail(new MenuRail)
    , m_title(new QLabel)
    , m_find(new QLineEdit)
    , m_board(new CardBoard)
    , m_panes(new StatusPanes) {
    setObjectName(QStringLiteral("TF_MainForm"));
    auto *right = new QVBoxLayout;
    right->setContentsMargins(0, 0, 0, 0);
    right->setSpacing(0);
    right->addWidget(makeHead());
    right->addWidget(m_board, 1);
    auto *upper = new QHBoxLayout;
    upper->setSpacing(0);
    upper->addWidget(m_rail);
    upper->addLayout(right, 1);
    auto *panel = new QWidget;
    auto *all = new QVBoxLayout(panel);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(upper, 1);
    all->addWidget(m_panes);
    setCentralWidget(panel);
    resize(1200, 680);

    connect(m_rail, &MenuRail::chosen, this, &TF_MainForm::menuClick);
    connect(m_board, &CardBoard::pressed, this, &TF_MainForm::click);
    connect(&m_backups, &BackupWatch::changed, this, &TF_MainForm::refreshBackupPane);
    connect(m_panes, &StatusPanes::operatorClicked, this,
            [this] { openGuarded(QStringLiteral("TF_PwdModi"), {}, 0, {}); });
    connect(m_panes, &StatusPanes::backupClicked, this, [this] {
        openGuarded(QStringLiteral("TF_Backup"), QStringLiteral("qtcz"), 13,
                    QStringLiteral("备份/恢复数据库！"));
    });
    makeShortcuts();
    new HelpKey(m_registry, this);
}

QWidget *TF_MainForm::makeHead() {
    m_title->setProperty("title", true);
    m_find->setObjectName(QStringLiteral("edtFind"));
    m_find->setPlaceholderText(QStringLiteral("查找功能：名称或拼音首字母 (F2)"));
    m_find->setFixedWidth(272);
    m_find->setClearButtonEnabled(true);
    m_find->installEventFilter(this);
    connect(m_find, &QLineEdit::textChanged, this, &TF_MainForm::findFunctions);

    auto *head = new QWidget;
    auto *row = new QHBoxLayout(head);
    row->setContentsMargins(24, 20, 20, 16);
    row->setSpacing(4);
    row->addWidget(m_title);
    row->addStretch();
    row->addWidget(m_find);
    row->addSpacing(12);
    for (const FunctionButton *button : buttonsOf(0)) {
        m_tools.push_back(makeTool(*button));
        row->addWidget(m_tools.back());
    }
    dressTools();
    return head;
}

QToolButton *TF_MainForm::makeTool(const FunctionButton &button) {
    auto *tool = new QToolButton;
    tool->setObjectName(button.handler);
    tool->setIconSize(QSize(20, 20));
    tool->setFocusPolicy(Qt::NoFocus);
    tool->setAccessibleName(button.caption);
    const bool isKnown =
        button.action != ButtonAction::openForm || m_registry.isKnown(button.formClass);
    tool->setEnabled(isKnown);
    tool->setToolTip(isKnown ? button.caption : button.caption + QStringLiteral("（尚未提供）"));
    connect(tool, &QToolButton::clicked, this, [this, &button] { click(button); });
    return tool;
}

/// The drawings of the tools, in the colours of the shade in use.
void TF_MainForm::dressTools() {
    for (QToolButton *tool : m_tools)
        tool->setIcon(themedIcon(findButton(tool->objectName())->icon));
}

void TF_MainForm::makeShortcuts() {
    const auto add = [this](const QKeySequence &keys, auto &&slot) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, slot);
    };
    for (int group = 1; group <= static_cast<int>(menuGroups().size()); ++group) {
        const auto show = [this, group] { menuClick(group); };
        const auto digit = static_cast<Qt::Key>(Qt::Key_0 + group);
        add(QKeySequence(Qt::ALT | digit), show);
        add(QKeySequence(Qt::CTRL | digit), show);
    }
    const auto find = [this] {
        m_find->setFocus(Qt::ShortcutFocusReason);
        m_find->selectAll();
    };
    add(QKeySequence(Qt::Key_F2), find);
    add(QKeySequence(Qt::CTRL | Qt::Key_K), find);
    const auto count = static_cast<int>(menuGroups().size());
    add(QKeySequence(Qt::Key_PageDown), [this, count] { menuClick(m_group % count + 1); });
    add(QKeySequence(Qt::Key_PageUp),
        [this, count] { menuClick((m_group + count - 2) % count + 1); });
}

void TF_MainForm::FormShow() {
    setWindowTitle(productWord + QStringLiteral("农资进销存管理系统 ") + productVersion);
    if (auto *application = qobject_cast<QApplication *>(QApplication::instance()))
        applyTheme(*application, Theme::byName(firstSkin(m_session.db())));
    menuClick(1);
    showMaximized();
    showLogin({});
}

void TF_MainForm::showLogin(const QString &callerWord) {
    auto *login = new TF_Login(m_registry.context(), callerWord, {}, this);
    login->setAttribute(Qt::WA_DeleteOnClose);
    connect(login, &QDialog::finished, this, [this](int result) {
        if (!m_session.loginOk) {
            Q_EMIT ended();
            return;
        }
        if (!m_isIn || result == QDialog::Accepted)
            FormActivate();
    });
    login->showModal();
}

void TF_MainForm::FormActivate() {
    const bool isFirst = !std::exchange(m_isIn, true);
    m_registry.forgetHiddenForms();
    m_find->clear();
    menuClick(1);
    loadGlobals(m_session);
    rewriteStatusTexts();
    refreshMonth();
    setWindowTitle(QStringLiteral("农资进销存管理系统 [%1] ").arg(m_session.company.shortName));
    m_backups.start();
    m_gateways.start();
    if (isFirst)
        QTimer::singleShot(m_reminderDelay, this, &TF_MainForm::Timer1Timer);
}

void TF_MainForm::rewriteStatusTexts() {
    m_panes->setOperator(m_session.currentOperatorName);
    m_panes->setAccountSet(accountSetName(m_session));
    m_panes->setSlogan(m_session.company.name + QStringLiteral("  ") + slogan);
}

void TF_MainForm::refreshMonth() {
    const Outcome outcome = runAction(m_session.db(), m_prompter, [this](Answers &) {
        updateKcjs(m_session.db(), monthOf(m_session.today()));
    });
    if (!outcome.isDone())
        m_prompter.inform(outcome.text, informCaption);
}

void TF_MainForm::refreshBackupPane() {
    m_panes->setBackup(m_backups.text(), m_backups.isOverdue());
}

void TF_MainForm::menuClick(int group) {
    m_group = group;
    if (!m_find->text().isEmpty()) {
        const QSignalBlocker quiet(m_find);
        m_find->clear();
    }
    m_rail->setCurrent(group);
    m_title->setText(menuGroups()[static_cast<size_t>(group - 1)].caption);
    setBtnPosition();
    m_board->focusFirst();
}

void TF_MainForm::setBtnPosition() {
    std::vector<CardBoard::Item> items;
    for (const FunctionButton *button : buttonsOf(m_group))
        items.push_back({button, {}, keyOf(*button), m_registry.isKnown(button->formClass)});
    m_board->setItems(items);
}

/// While something is typed, the board shows what it may mean, from all groups.
void TF_MainForm::findFunctions(const QString &typed) {
    if (typed.trimmed().isEmpty()) {
        menuClick(m_group);
        m_find->setFocus();
        return;
    }
    std::vector<CardBoard::Item> items;
    for (const FunctionButton &button : dispatchTable()) {
        if (!isMeant(button, typed))
            continue;
        const bool isKnown =
            button.action != ButtonAction::openForm || m_registry.isKnown(button.formClass);
        items.push_back({&button,
                         button.group > 0
                             ? menuGroups()[static_cast<size_t>(button.group - 1)].caption
                             : QStringLiteral("工具"),
                         {},
                         isKnown});
    }
    m_rail->setCurrent(0);
    m_title->setText(items.empty() ? QStringLiteral("没有找到这个功能")
                                   : QStringLiteral("查找结果"));
    m_board->setItems(items);
}

void TF_MainForm::click(const FunctionButton &button) {
    switch (button.action) {
    case ButtonAction::changeOperator:
        btn_HbglClick();
        return;
    case ButtonAction::leave:
        close();
        return;
    case ButtonAction::openForm:
        break;
    }
    if (isGranted(m_session, button))
        m_registry.openForm(button.formClass, button.formCaption);
    else
        showNoRightMessage(m_prompter, button.refusal);
}

void TF_MainForm::openGuarded(const QString &formClass, const QString &rightGroup, int right,
                              const QString &refusal) {
    if (right > 0 && !hasRight(m_session, rightGroup, right))
        showNoRightMessage(m_prompter, refusal);
    else
        m_registry.openForm(formClass, {});
}

void TF_MainForm::btn_HbglClick() {
    showLogin(QStringLiteral("hb"));
}

void TF_MainForm::Timer1Timer() {
    m_formsAtStart.clear();
    if (showsTipsAtStart(m_session))
        m_formsAtStart << QStringLiteral("TF_Mryt");
    if (showsRemindersAtStart(m_session) || !dueReminders(m_session).empty())
        m_formsAtStart << QStringLiteral("TF_Sjtx");
    openAtStart();
}

void TF_MainForm::openAtStart() {
    while (!m_formsAtStart.isEmpty()) {
        const QString name = m_formsAtStart.takeFirst();
        Form *form = m_registry.openForm(name, {});
        // What was due has been shown, and now counts as done.
        if (form != nullptr && name == QLatin1String("TF_Sjtx") && !dueReminders(m_session).empty())
            markDueReminders(m_session, m_prompter);
        if (form == nullptr)
            continue;
        connect(form, &QDialog::finished, this, &TF_MainForm::openAtStart,
                Qt::SingleShotConnection);
        return;
    }
}

void TF_MainForm::closeEvent(QCloseEvent *event) {
    if (!m_isIn) {
        event->accept();
        Q_EMIT ended();
        return;
    }
    if (!m_prompter.confirm(QStringLiteral("是否要退出系统？"), confirmCaption)) {
        event->ignore();
        return;
    }
    leave();
    event->accept();
    Q_EMIT ended();
}

void TF_MainForm::leave() {
    quietly([this] { writeLog(m_session, QStringLiteral("退出系统")); });
    QApplication::setOverrideCursor(Qt::WaitCursor);
    quietly([this] { m_backups.backupOnExit(); });
    QApplication::restoreOverrideCursor();
}

void TF_MainForm::keyPressEvent(QKeyEvent *event) {
    const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    const int key = event->key();
    if (isPlain && key >= Qt::Key_A && key <= Qt::Key_Z)
        if (FunctionCard *card = m_board->cardOfKey(QString(QChar(key)))) {
            card->setFocus();
            card->click();
            return;
        }
    QMainWindow::keyPressEvent(event);
}

/// In the search field Enter opens the first that was found, ↓ goes to it, Esc leaves the search.
bool TF_MainForm::eventFilter(QObject *watched, QEvent *event) {
    if (watched != m_find || event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (FunctionCard *card = m_board->firstCard(); card != nullptr && !m_find->text().isEmpty())
            card->click();
        return true;
    case Qt::Key_Down:
        m_board->focusFirst();
        return true;
    case Qt::Key_Escape:
        menuClick(m_group);
        return true;
    default:
        return QMainWindow::eventFilter(watched, event);
    }
}

void TF_MainForm::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        dressTools();
        refreshBackupPane();
    }
}

} // namespace jxc
