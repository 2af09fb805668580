#include "ui/list_page.h"

#include "core/session.h"
#include "ui/grid.h"
#include "ui/list_form.h"

#include <QAction>
#include <QTimer>

namespace jxc {

namespace {

const QString keyField = QStringLiteral("id");

} // namespace

ListPage::ListPage(Form &form, const QString &name, const QString &title, ColumnSpecs columns,
                   Reader read)
    : QWidget(&form)
    , m_form(form)
    , m_read(std::move(read))
    , m_actions(new ActionBar(this))
    , m_search(new QLineEdit(this))
    , m_filters(new QHBoxLayout)
    , m_grid(new Grid(form.context(), name, std::move(columns), this)) {
    m_grid->setTitle(title);
    m_search->setFixedWidth(240);
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    m_actions->addRight(m_search);
    m_filters->setSpacing(8);
    m_filters->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->setSpacing(8);
    column->addWidget(m_actions);
    column->addLayout(m_filters);
    column->addWidget(m_grid, 1);

    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    QWidget::addAction(find);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    // A list of thousands is not read at every key.
    auto *pause = new QTimer(this);
    pause->setSingleShot(true);
    pause->setInterval(120);
    connect(m_search, &QLineEdit::textChanged, pause, qOverload<>(&QTimer::start));
    connect(pause, &QTimer::timeout, this, &ListPage::refresh);
    connect(m_search, &QLineEdit::returnPressed, this, [this, pause] {
        pause->stop();
        refresh();
        m_grid->setFocus();
    });
}

void ListPage::refresh() {
    const QString key = m_grid->currentText(keyField);
    m_grid->setRows(m_read(m_search->text().trimmed()));
    m_grid->goTo(keyField, key);
}

QAction *ListPage::addAction(const QString &name, const QString &caption, const QKeySequence &key,
                             std::function<void()> run, bool needsRow) {
    QAction *action = m_actions->add(name, caption, key, [this, needsRow, run = std::move(run)] {
        if (needsRow && m_grid->current() == nullptr)
            tellNoRow(m_form.prompter());
        else
            run();
    });
    m_grid->setOwnActions(actions());
    return action;
}

void ListPage::addCommonActions() {
    m_actions->addSeparator();
    addAction(QStringLiteral("btnPrint"), QStringLiteral("打印"), Qt::Key_F12,
              [this] { m_grid->print(); });
    addAction(QStringLiteral("btnExport"), QStringLiteral("导出"),
              QKeySequence(QStringLiteral("Ctrl+E")), [this] { m_grid->chooseExport(); });
    addAction(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { m_form.reject(); });
}

PeriodBar *ListPage::addPeriodBar(PeriodChoice first) {
    auto *bar = new PeriodBar(m_form.session().today(), first, this);
    addFilter(bar);
    connect(bar, &PeriodBar::periodChanged, this, &ListPage::refresh);
    return bar;
}

void ListPage::addFilter(QWidget *filter) {
    m_filters->insertWidget(m_filters->count() - 1, filter);
}

} // namespace jxc
