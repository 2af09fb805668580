#include "ui/date_field.h"

#include "base/dates.h"

#include <QCalendarWidget>
#include <QDate>
#include <QKeyEvent>
#include <QMenu>
#include <QWidgetAction>

namespace jxc {

namespace {

const auto dateFormat = QStringLiteral("yyyy-MM-dd");

} // namespace

QString completedDate(const QString &typed, const QString &today) {
    QString text = typed.trimmed();
    if (text.isEmpty() || isDate(text))
        return text;
    // Parts divided by any sign, or digits alone read from the right.
    QStringList parts;
    for (const QChar c : {u'.', u'/', u'年', u'月', u' ', u'。'})
        text.replace(c, u'-');
    text.remove(u'日');
    if (text.contains(u'-')) {
        parts = text.split(u'-', Qt::SkipEmptyParts);
    } else {
        while (text.size() > 2) {
            parts.prepend(text.right(2));
            text.chop(2);
            if (parts.size() == 2)
                break;
        }
        parts.prepend(text);
    }
    const QStringList now = today.split(u'-');
    while (parts.size() < 3)
        parts.prepend(now.value(2 - static_cast<int>(parts.size())));
    bool ok[3];
    int year = parts[0].toInt(&ok[0]);
    const int month = parts[1].toInt(&ok[1]), day = parts[2].toInt(&ok[2]);
    if (year < 100)
        year += 2000;
    const QDate date(year, month, day);
    return ok[0] && ok[1] && ok[2] && parts.size() == 3 && date.isValid()
               ? date.toString(dateFormat)
               : typed;
}

DateField::DateField(const QString &today, QWidget *parent)
    : QLineEdit(parent)
    , m_today(today) {
    setMaxLength(16);
    setPlaceholderText(QStringLiteral("年-月-日"));
    connect(this, &QLineEdit::editingFinished, this, &DateField::complete);
}

QString DateField::date() const {
    return completedDate(text(), m_today);
}

void DateField::setDate(const QString &date) {
    setText(date);
    Q_EMIT dateChanged();
}

bool DateField::isValid() const {
    return isDate(date());
}

void DateField::complete() {
    if (const QString full = date(); full != text())
        setText(full);
    Q_EMIT dateChanged();
}

void DateField::focusOutEvent(QFocusEvent *event) {
    complete();
    QLineEdit::focusOutEvent(event);
}

void DateField::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    if (!isReadOnly() && (key == Qt::Key_Up || key == Qt::Key_Down) && isValid()) {
        setDate(QDate::fromString(date(), dateFormat)
                    .addDays(key == Qt::Key_Up ? 1 : -1)
                    .toString(dateFormat));
        return;
    }
    if (!isReadOnly() && key == Qt::Key_F2) {
        openCalendar();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void DateField::openCalendar() {
    QMenu menu(this);
    auto *calendar = new QCalendarWidget(&menu);
    calendar->setLocale(QLocale(QLocale::Chinese, QLocale::China));
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    if (isValid())
        calendar->setSelectedDate(QDate::fromString(date(), dateFormat));
    auto *action = new QWidgetAction(&menu);
    action->setDefaultWidget(calendar);
    menu.addAction(action);
    connect(calendar, &QCalendarWidget::activated, &menu, [&](QDate chosen) {
        setDate(chosen.toString(dateFormat));
        menu.close();
    });
    calendar->setFocus();
    menu.exec(mapToGlobal(QPoint(0, height())));
}

} // namespace jxc
