#include "ui/field_tabs.h"

#include "core/session.h"
#include "db/schema.h"

#include <QGridLayout>
#include <QLabel>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>

namespace jxc {

namespace {

constexpr int pairsPerLine = 2;
/// A column that takes this much text gets the whole line.
constexpr int longText = 100;

bool isLong(const QString &table, const MasterField &field) {
    if (field.pick.several)
        return true;
    const Column *description = column(table, field.column);
    return field.pick.table.isEmpty() && !field.unique && field.choices.empty() &&
           description != nullptr && description->isText() &&
           !field.column.endsWith(QLatin1String("_jm")) &&
           (description->length >= longText || description->type == ColumnType::Text);
}

} // namespace

bool maySee(const MasterField &field, const Session &session) {
    return (field.secrecy != Secrecy::cost || session.rights.showCostPrice) &&
           (field.secrecy != Secrecy::selling || session.rights.showSellingPrice);
}

FieldTabs::FieldTabs(const FormContext &context, QWidget *parent)
    : QTabWidget(parent)
    , m_context(context) {
    tabBar()->setFocusPolicy(Qt::NoFocus);
    for (const auto &[key, by] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        auto *turn = new QShortcut(QKeySequence(Qt::CTRL | key), parent);
        connect(turn, &QShortcut::activated, this, [this, step = by] {
            setCurrentIndex((currentIndex() + step + count()) % count());
        });
    }
}

void FieldTabs::finish() {
    tabBar()->setVisible(count() > 1);
    setDocumentMode(count() < 2);
    setCurrentIndex(0);
}

QWidget *FieldTabs::page(const QString &caption) {
    const QString shown = caption.isEmpty() ? QStringLiteral("基本") : caption;
    for (int i = 0; i < count(); ++i)
        if (tabText(i) == shown)
            return widget(i);
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(8);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    for (int pair = 0; pair < pairsPerLine; ++pair)
        grid->setColumnStretch(pair * 2 + 1, 1);
    column->addLayout(grid);
    column->addStretch(0);
    addTab(page, shown);
    return page;
}

void FieldTabs::addBelow(const QString &caption, QWidget *widget, int stretch) {
    auto *column = static_cast<QVBoxLayout *>(page(caption)->layout());
    column->insertWidget(column->count() - 1, widget, stretch);
}

void FieldTabs::add(const QString &table, const MasterField &field) {
    if (!maySee(field, m_context.session))
        return;
    QWidget *place = page(field.page);
    auto *grid = static_cast<QGridLayout *>(place->layout()->itemAt(0)->layout());
    auto *input = new FieldInput(m_context, table, field, FieldInput::Place::dialog, place);
    const int span = isLong(table, field) ? pairsPerLine : 1;
    int &cell = m_cells[place];
    if (cell % pairsPerLine + span > pairsPerLine)
        ++cell;
    const int line = cell / pairsPerLine, pair = cell % pairsPerLine * 2;
    cell += span;
    if (field.kind != ValueKind::flag) {
        auto *label =
            new QLabel(field.caption + (field.required ? QStringLiteral(" *") : QString()), place);
        label->setProperty("quiet", true);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(label, line, pair);
        m_captions.insert(input, label);
    }
    grid->addWidget(input->widget(), line, pair + 1, 1, span * 2 - 1);
    m_inputs.push_back(input);
}

FieldInput *FieldTabs::input(QStringView column) const {
    for (FieldInput *input : m_inputs)
        if (input->field().column == column)
            return input;
    return nullptr;
}

void FieldTabs::fill(const Record &record) {
    for (FieldInput *input : m_inputs)
        input->fill(record);
}

void FieldTabs::collect(Record &record) const {
    for (const FieldInput *input : m_inputs)
        input->collect(record);
}

FieldInput *FieldTabs::commit() {
    for (FieldInput *input : m_inputs)
        if (!input->commit())
            return input;
    return nullptr;
}

void FieldTabs::setShown(const FieldInput &input, bool shown) {
    input.widget()->setVisible(shown);
    if (QWidget *caption = m_captions.value(&input))
        caption->setVisible(shown);
}

void FieldTabs::showPageOf(const QWidget *widget) {
    for (int i = 0; i < count(); ++i)
        if (this->widget(i)->isAncestorOf(widget))
            setCurrentIndex(i);
}

void FieldTabs::focus(const FieldInput &input) {
    showPageOf(input.widget());
    input.focusTarget()->setFocus();
    if (QLineEdit *line = input.line())
        line->selectAll();
}

bool FieldTabs::focusNext() {
    const QWidget *focused = window()->focusWidget();
    const auto now = std::find_if(m_inputs.begin(), m_inputs.end(), [&](FieldInput *input) {
        return input->focusTarget() == focused;
    });
    if (now == m_inputs.end())
        return false;
    const auto next = std::find_if(now + 1, m_inputs.end(), [](FieldInput *input) {
        return !input->isReadOnly() && !input->widget()->isHidden();
    });
    if (next == m_inputs.end())
        return false;
    focus(**next);
    return true;
}

} // namespace jxc
