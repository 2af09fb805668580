#include "ui/period_bar.h"

#include "ui/date_field.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QDate>
#include <QLabel>
#include <QShortcut>
#include <QToolButton>

namespace jxc {

namespace {

QString text(QDate date) {
    return date.toString(QStringLiteral("yyyy-MM-dd"));
}

} // namespace

Period periodOf(PeriodChoice choice, const QString &today) {
    const QDate day = QDate::fromString(today, QStringLiteral("yyyy-MM-dd"));
    const QDate month(day.year(), day.month(), 1);
    switch (choice) {
    case PeriodChoice::today:
        return {today, today};
    case PeriodChoice::thisWeek: {
        const QDate monday = day.addDays(1 - day.dayOfWeek());
        return {text(monday), text(monday.addDays(6))};
    }
    case PeriodChoice::thisMonth:
        return {text(month), text(month.addMonths(1).addDays(-1))};
    case PeriodChoice::lastMonth:
        return {text(month.addMonths(-1)), text(month.addDays(-1))};
    case PeriodChoice::thisYear:
        return {text(QDate(day.year(), 1, 1)), text(QDate(day.year(), 12, 31))};
    case PeriodChoice::allTime:
        break;
    }
    return {QStringLiteral("2000-01-01"), QStringLiteral("9999-12-31")};
}

PeriodBar::PeriodBar(const QString &today, PeriodChoice first, QWidget *parent)
    : QWidget(parent)
    , m_today(today)
    , m_buttons(new QButtonGroup(this))
    , m_from(new DateField(today, this))
    , m_to(new DateField(today, this)) {
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    const QString captions[] = {QStringLiteral("今天"), QStringLiteral("本周"),
                                QStringLiteral("本月"), QStringLiteral("上月"),
                                QStringLiteral("本年"), QStringLiteral("全部")};
    int id = 0;
    for (const QString &caption : captions) {
        auto *button = new QToolButton(this);
        button->setText(caption);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::NoFocus);
        const auto choice = static_cast<PeriodChoice>(id);
        const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + id));
        button->setToolTip(key.toString(QKeySequence::NativeText));
        connect(new QShortcut(key, this), &QShortcut::activated, this,
                [this, choice] { choose(choice); });
        m_buttons->addButton(button, id++);
        layout->addWidget(button);
    }
    m_from->setFixedWidth(100);
    m_to->setFixedWidth(100);
    layout->addSpacing(4);
    layout->addWidget(m_from);
    layout->addSpacing(4);
    layout->addWidget(new QLabel(QStringLiteral("至"), this));
    layout->addSpacing(4);
    layout->addWidget(m_to);
    connect(m_buttons, &QButtonGroup::idClicked, this,
            [this](int choice) { choose(static_cast<PeriodChoice>(choice)); });
    connect(m_from, &DateField::dateChanged, this, &PeriodBar::typed);
    connect(m_to, &DateField::dateChanged, this, &PeriodBar::typed);
    choose(first);
}

Period PeriodBar::period() const {
    return m_last;
}

void PeriodBar::choose(PeriodChoice choice) {
    m_buttons->button(static_cast<int>(choice))->setChecked(true);
    const Period chosen = periodOf(choice, m_today);
    const QSignalBlocker from(m_from), to(m_to);
    m_from->setDate(chosen.from);
    m_to->setDate(chosen.to);
    m_last = chosen;
    Q_EMIT periodChanged();
}

void PeriodBar::setToday(const QString &today) {
    if (today == m_today)
        return;
    m_today = today;
    m_from->setToday(today);
    m_to->setToday(today);
    if (const int choice = m_buttons->checkedId(); choice >= 0) {
        const QSignalBlocker quiet(this); // whoever shows the window reads anew
        choose(static_cast<PeriodChoice>(choice));
    }
}

void PeriodBar::setPeriod(const Period &period) {
    { // one change, not two
        const QSignalBlocker from(m_from), to(m_to);
        m_from->setDate(period.from);
        m_to->setDate(period.to);
    }
    typed();
}

void PeriodBar::typed() {
    const Period now{m_from->date(), m_to->date()};
    if (now == m_last || !m_from->isValid() || !m_to->isValid())
        return;
    m_last = now;
    // None of the named spans any more.
    m_buttons->setExclusive(false);
    if (QAbstractButton *checked = m_buttons->checkedButton())
        checked->setChecked(false);
    m_buttons->setExclusive(true);
    Q_EMIT periodChanged();
}

} // namespace jxc
