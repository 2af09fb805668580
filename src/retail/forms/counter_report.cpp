#include "retail/forms/counter_report.h"

#include "core/login.h"
#include "core/session.h"
#include "retail/forms/tf_posxs_tjmx.h"
#include "retail/till_cash.h"
#include "ui/member_source.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace jxc {

namespace {

// Narrow enough for the period and three filters on a small screen.
constexpr int filterLeast = 92, filterMost = 136;

} // namespace

CounterReport::CounterReport(const FormContext &context, const QString &className,
                             const QString &title, QWidget *parent)
    : ListForm(context, className, title, parent) {}

void CounterReport::addFilters(PeriodChoice first, Filters filters) {
    m_cashier = new QComboBox(this);
    m_cashier->setObjectName(QStringLiteral("cashier"));
    m_cashier->addItem(everyCashier);
    m_cashier->addItems(operatorNames(session()));
    m_cashier->setMinimumWidth(filterLeast);
    m_cashier->setMaximumWidth(filterMost);
    m_period = addPeriodBar(static_cast<int>(first));
    filterLine()->insertWidget(filterLine()->count() - 1, m_cashier);
    connect(m_cashier, &QComboBox::currentIndexChanged, this, &ListForm::refresh);
    if (filters == Filters::cashier)
        return;
    m_warehouse = addPick(warehouseSource(context()), QStringLiteral("edtWarehouse"),
                          QStringLiteral("全部仓库"));
    m_member =
        addPick(memberSource(context()), QStringLiteral("edtMember"), QStringLiteral("全部会员"));
}

PickField *CounterReport::addPick(const PickSource &source, const QString &name,
                                  const QString &all) {
    auto *field = new PickField(source, Formats(session().parameters), this);
    field->setObjectName(name);
    field->setPlaceholderText(all);
    field->setClearable(true);
    field->setMinimumWidth(filterLeast);
    field->setMaximumWidth(filterMost);
    connect(field, &PickField::chosen, this, &ListForm::refresh);
    connect(field, &PickField::cleared, this, &ListForm::refresh);
    filterLine()->insertWidget(filterLine()->count() - 1, field);
    return field;
}

void CounterReport::addChoice(const QString &caption, QWidget *choice) {
    if (m_choices == nullptr) {
        auto *choices = new QWidget(this);
        m_choices = new QHBoxLayout(choices);
        m_choices->setContentsMargins(12, 0, 0, 0);
        m_choices->setSpacing(8);
        actions().addRight(choices);
    }
    m_choices->addWidget(new QLabel(caption, this));
    m_choices->addWidget(choice);
}

void CounterReport::addDetail() {
    addAction(
        QStringLiteral("btnDetail"), QStringLiteral("明细"), Qt::Key_F4,
        [this] { btnDetailClick(); }, true);
    connect(&grid(), &Grid::activated, this, &CounterReport::btnDetailClick);
}

void CounterReport::setFilter(const CounterFilter &filter) {
    m_kept = filter;
    const QSignalBlocker period(m_period), cashier(m_cashier);
    m_period->setPeriod({filter.from, filter.to});
    m_cashier->setCurrentText(filter.cashier.isEmpty() ? everyCashier : filter.cashier);
    // A cashier who is gone from the list of operators stays the filter all the same.
    if (m_cashier->currentText() != filter.cashier && !filter.cashier.isEmpty()) {
        m_cashier->addItem(filter.cashier);
        m_cashier->setCurrentText(filter.cashier);
    }
    if (m_warehouse != nullptr)
        m_warehouse->setCode(filter.warehouse);
    if (m_member != nullptr && filter.member != noneAtAll)
        m_member->setCode(filter.member);
}

CounterFilter CounterReport::filter() const {
    CounterFilter filter = m_kept;
    const Period days = m_period->period();
    filter.from = days.from;
    filter.to = days.to;
    filter.cashier = m_cashier->currentIndex() > 0 ? m_cashier->currentText() : QString();
    if (m_warehouse != nullptr)
        filter.warehouse = m_warehouse->code();
    if (m_member != nullptr && (filter.member != noneAtAll || !m_member->code().isEmpty()))
        filter.member = m_member->code();
    return filter;
}

QStringList CounterReport::notes() const {
    const Period days = m_period->period();
    QString line = QStringLiteral("期间：%1 至 %2　收银员：%3")
                       .arg(days.from, days.to, m_cashier->currentText());
    if (m_warehouse != nullptr && !m_warehouse->code().isEmpty())
        line += QStringLiteral("　仓库：") + m_warehouse->name();
    if (m_member != nullptr && !m_member->code().isEmpty())
        line += QStringLiteral("　会员：") + m_member->name();
    return {line};
}

Rows CounterReport::read(const QString &search) {
    grid().setNotes(notes());
    CounterFilter asked = filter();
    asked.search = search;
    return readFor(asked);
}

void CounterReport::btnDetailClick() {
    const Row *row = grid().current();
    if (row == nullptr)
        return;
    CounterFilter narrowed = filter();
    narrow(narrowed, *row);
    auto *lines = new TF_Posxs_Tjmx(context(), this);
    lines->setAttribute(Qt::WA_DeleteOnClose);
    lines->setFilter(narrowed);
    lines->setWindowTitle(lines->windowTitle() + QStringLiteral(" － ") + nameOf(*row));
    lines->showModal();
}

} // namespace jxc
