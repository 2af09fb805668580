#include "ui/approval_list.h"

#include "core/rights.h"
#include "core/session.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"
#include "ui/plain_editor.h"
#include "ui/tab_order.h"

#include <QAction>
#include <QLineEdit>
#include <QSplitter>
#include <QTabBar>
#include <QTimer>

namespace jxc {

namespace {

constexpr int searchDelay = 120;
constexpr int approvedTab = 1;

} // namespace

bool confirmApproving(Prompter &prompter, const QString &number) {
    return prompter.confirm(
        QStringLiteral("您的操作将审核当前选中的单据：%1，确认吗？").arg(number), confirmCaption);
}

ApprovalList::ApprovalList(const FormContext &context, ApprovalSpec spec, QWidget *parent)
    : Form(context, spec.formClass, spec.title, parent)
    , m_spec(std::move(spec))
    , m_actions(new ActionBar(this))
    , m_tabs(new QTabBar(this))
    , m_period(new PeriodBar(context.session.today(), PeriodChoice::allTime, this))
    , m_search(new QLineEdit(this))
    , m_grid(new Grid(context, m_spec.formClass, m_spec.columns, this))
    , m_delay(new QTimer(this)) {
    m_grid->setTitle(m_spec.title);
    if (m_spec.lower) {
        m_lower = new Grid(context, m_spec.formClass + QStringLiteral("_Detail"),
                           m_spec.lowerColumns, this);
        m_lower->setTitle(m_spec.title);
    }
    build();
    addActions();
    resize(1280, 680);
    setFillsParent(true);
}

void ApprovalList::build() {
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->addTab(QStringLiteral("待审核"));
    m_tabs->addTab(QStringLiteral("已审核"));
    m_tabs->setFocusPolicy(Qt::NoFocus);
    m_search->setObjectName(QStringLiteral("edtSearch"));
    m_search->setPlaceholderText(m_spec.searchHint);
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    m_actions->addSearch(m_search);
    auto *line = new QHBoxLayout;
    line->setSpacing(12);
    line->addWidget(m_tabs);
    line->addWidget(m_period);
    line->addStretch(1);
    auto *split = new QSplitter(Qt::Vertical, this);
    split->setChildrenCollapsible(false);
    split->setHandleWidth(8);
    split->addWidget(m_grid);
    if (m_lower != nullptr) {
        m_lower->setMinimumHeight(140); // three rows
        split->addWidget(m_lower);
        split->setStretchFactor(0, 3);
        split->setStretchFactor(1, 1);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addLayout(line);
    layout->addWidget(split, 1);

    m_delay->setSingleShot(true);
    m_delay->setInterval(searchDelay);
    connect(m_delay, &QTimer::timeout, this, &ApprovalList::refresh);
    connect(m_search, &QLineEdit::textChanged, m_delay, qOverload<>(&QTimer::start));
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        m_delay->stop();
        refresh();
        m_grid->setFocus();
    });
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int tab) {
        // What waits is looked at whole; what is done, by the month.
        m_period->choose(tab == approvedTab ? PeriodChoice::thisMonth : PeriodChoice::allTime);
        refresh();
    });
    connect(m_period, &PeriodBar::periodChanged, this, &ApprovalList::refresh);
    connect(m_grid, &Grid::activated, this, &ApprovalList::btnModifyClick);
    connect(m_grid, &Grid::currentChanged, this, &ApprovalList::refreshLower);
    setTabsThrough(
        {m_period, m_search, &m_grid->view(), m_lower == nullptr ? nullptr : &m_lower->view()});
}

void ApprovalList::addActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            std::function<void()> run) {
        m_actions->add(QString::fromLatin1(name), caption, key, std::move(run));
    };
    add("btnAdd", QStringLiteral("增加"), Qt::Key_Insert, [this] { btnAddClick(); });
    add("btnModi", QStringLiteral("修改"), Qt::Key_F4, [this] { btnModifyClick(); });
    add("btnDele", QStringLiteral("删除"), Qt::Key_Delete, [this] { btnDeleteClick(); });
    m_actions->addSeparator();
    add("btnCheck", QStringLiteral("审核"), Qt::Key_F8, [this] { btnCheckClick(); });
    add("btnCancel", QStringLiteral("取消审核"), Qt::Key_F9, [this] { btnCancelClick(); });
    m_actions->addSeparator();
    add("btnRefresh", QStringLiteral("刷新"), Qt::Key_F5, [this] { refresh(); });
    add("btnPrint", QStringLiteral("打印"), Qt::Key_F12, [this] { m_grid->print(); });
    add("btnExport", QStringLiteral("导出"), QKeySequence(QStringLiteral("Ctrl+E")),
        [this] { m_grid->chooseExport(); });
    add("btnExit", QStringLiteral("退出"), {}, [this] { reject(); });
    m_grid->setOwnActions(actions());
    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    addAction(find);
    auto *otherTab = new QAction(this);
    otherTab->setShortcut(QKeySequence(QStringLiteral("Ctrl+Tab")));
    connect(otherTab, &QAction::triggered, this, [this] { showApproved(!showsApproved()); });
    addAction(otherTab);
}

void ApprovalList::FormActivate() {
    refresh();
    m_grid->setFocus();
}

void ApprovalList::refresh() {
    const QString stay = m_goTo.isEmpty() ? m_grid->currentText(u"number") : m_goTo;
    m_goTo.clear();
    const Period period = m_period->period();
    m_grid->setNotes({QStringLiteral("%1　日期：%2 至 %3")
                          .arg(m_tabs->tabText(m_tabs->currentIndex()), period.from, period.to)});
    m_grid->setRows(m_spec.read(
        session(), {showsApproved(), period.from, period.to, m_search->text().trimmed()}));
    m_grid->goTo(u"number", stay);
    refreshLower();
}

void ApprovalList::refreshLower() {
    if (m_lower != nullptr)
        m_lower->setRows(m_spec.lower(session(), m_grid->model().rows(), m_grid->current()));
}

bool ApprovalList::showsApproved() const {
    return m_tabs->currentIndex() == approvedTab;
}

void ApprovalList::showApproved(bool approved) {
    m_tabs->setCurrentIndex(approved ? approvedTab : 0);
}

void ApprovalList::edit(const QString &number) {
    PlainEditor *editor = m_spec.makeEditor(context(), number, this);
    if (editor == nullptr)
        return;
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &PlainEditor::stored, this, [this](const QString &stored, bool approved) {
        m_goTo = stored;
        if (approved == showsApproved())
            refresh();
        else if (!approved)
            showApproved(false);
        else
            refresh();
    });
    connect(editor, &QDialog::finished, this, [this] {
        activateWindow();
        m_grid->setFocus();
    });
    editor->showModal();
}

void ApprovalList::btnAddClick() {
    if (!hasRight(session(), m_spec.rightGroup, m_spec.entryRight)) {
        showNoRightMessage(prompter(), m_spec.title + QStringLiteral("！"));
        return;
    }
    edit({});
}

void ApprovalList::btnModifyClick() {
    const Row *row = m_grid->current();
    if (row == nullptr)
        tellNoRow(prompter());
    else if (!m_spec.openOther || !m_spec.openOther(context(), *row))
        edit(row->text(u"number"));
}

void ApprovalList::act(const ApprovalSpec::Doer &doer) {
    const Row *row = m_grid->current();
    if (row == nullptr) {
        tellNoRow(prompter());
        return;
    }
    show(doer(session(), prompter(), row->text(u"number")));
    refresh();
}

void ApprovalList::btnDeleteClick() {
    act(m_spec.remove);
}

void ApprovalList::btnCheckClick() {
    const Row *row = m_grid->current();
    if (row == nullptr)
        tellNoRow(prompter());
    else if (showsApproved() || confirmApproving(prompter(), row->text(u"number")))
        act(m_spec.approve);
}

void ApprovalList::btnCancelClick() {
    act(m_spec.cancel);
}

} // namespace jxc
