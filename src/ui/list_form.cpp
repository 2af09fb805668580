#include "ui/list_form.h"

#include "core/prompter.h"
#include "core/session.h"
#include "ui/period_bar.h"

#include <QAction>

namespace jxc {

void tellNoRow(Prompter &prompter) {
    prompter.inform(QStringLiteral("请先选择一条记录！"), informCaption);
}

ListForm::ListForm(const FormContext &context, const QString &className, const QString &title,
                   QWidget *parent)
    : Form(context, className, title, parent)
    , m_actions(new ActionBar(this))
    , m_search(new SearchBox(this))
    , m_filters(new QHBoxLayout)
    , m_body(new QHBoxLayout)
    , m_grid(new Grid(context, className, {}, this)) {
    m_search->setPlaceholderText(QStringLiteral("查找 F3：编号、名称、简码"));
    m_actions->addRight(m_search);
    m_grid->setTitle(title);
    m_filters->setSpacing(8);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addLayout(m_filters);
    layout->addLayout(m_body, 1);
    m_body->addWidget(m_grid, 1);

    connect(m_search, &SearchBox::searched, this, &ListForm::refresh);
    connect(m_search, &SearchBox::confirmed, m_grid, qOverload<>(&QWidget::setFocus));
    resize(1280, 680);
    setFillsParent(true);
}

void ListForm::FormActivate() {
    refresh();
    m_grid->setFocus();
}

void ListForm::refresh() {
    const QString key = m_goTo.isEmpty() ? m_grid->currentText(m_keyField) : m_goTo;
    m_goTo.clear();
    m_grid->setRows(read(m_search->text().trimmed()));
    m_grid->goTo(m_keyField, key);
}

void ListForm::setColumns(ColumnSpecs columns, const QString &keyField) {
    m_keyField = keyField;
    m_grid->setColumns(std::move(columns));
}

QAction *ListForm::addAction(const QString &name, const QString &caption, const QKeySequence &key,
                             std::function<void()> run, bool needsRow) {
    QAction *action = m_actions->add(name, caption, key, [this, needsRow, run = std::move(run)] {
        if (needsRow && m_grid->current() == nullptr)
            tellNoRow(prompter());
        else
            run();
    });
    m_grid->setOwnActions(actions().parentWidget()->actions());
    return action;
}

void ListForm::addCommonActions() {
    m_actions->addSeparator();
    addAction(QStringLiteral("btnPrint"), QStringLiteral("打印"), Qt::Key_F12,
              [this] { printList(); });
    addAction(QStringLiteral("btnExport"), QStringLiteral("导出"),
              QKeySequence(QStringLiteral("Ctrl+E")), [this] { m_grid->chooseExport(); });
    // Esc also ends a filter or a search first, so it is no shortcut: the form hears it last.
    addAction(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { reject(); });
}

void ListForm::setSide(QWidget *side, int width) {
    side->setFixedWidth(width);
    m_body->insertWidget(0, side);
}

PeriodBar *ListForm::addPeriodBar(int firstChoice) {
    auto *bar = new PeriodBar(session().today(), static_cast<PeriodChoice>(firstChoice), this);
    m_filters->addWidget(bar);
    m_filters->addStretch(1);
    connect(bar, &PeriodBar::periodChanged, this, &ListForm::refresh);
    return bar;
}

} // namespace jxc
