#include "ui/list_page.h"

#include "core/session.h"
#include "ui/grid.h"
#include "ui/list_form.h"
#include "ui/search_box.h"

#include <QAction>

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
    , m_search(new SearchBox(this))
    , m_filters(new QHBoxLayout)
    , m_grid(new Grid(form.context(), name, std::move(columns), this)) {
    m_grid->setTitle(title);
    m_actions->addRight(m_search);
    m_filters->setSpacing(8);
    m_filters->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->setSpacing(8);
    column->addWidget(m_actions);
    column->addLayout(m_filters);
    column->addWidget(m_grid, 1);
    connect(m_search, &SearchBox::searched, this, &ListPage::refresh);
    connect(m_search, &SearchBox::confirmed, m_grid, qOverload<>(&QWidget::setFocus));
}

void ListPage::refresh() {
    const QString key = m_grid->currentText(keyField);
    m_grid->setRows(m_read(m_search->text().trimmed()));
    m_grid->goTo(keyField, key);
    Q_EMIT refreshed();
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
