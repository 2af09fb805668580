#include "ui/action_bar.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace jxc {

ActionBar::ActionBar(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
    , m_more(new QToolButton(this)) {
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->setSizeConstraint(QLayout::SetNoConstraint);
    m_layout->addStretch(1);
    m_more->setText(QStringLiteral("更多 ▾"));
    m_more->setFocusPolicy(Qt::NoFocus);
    m_more->setPopupMode(QToolButton::InstantPopup);
    m_more->setMenu(new QMenu(m_more));
    addRight(m_more);
    m_more->hide();
}

QSize ActionBar::minimumSizeHint() const {
    return {120, m_layout->minimumSize().height()};
}

void ActionBar::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    arrange();
}

int ActionBar::roomForButtons(bool withMore) const {
    int room = width() - (withMore ? m_more->sizeHint().width() : 0);
    for (int i = m_layout->count() - m_right; i < m_layout->count(); ++i) {
        const QWidget *widget = m_layout->itemAt(i)->widget();
        if (widget != m_more)
            room -= qMax(widget->minimumWidth(), widget->minimumSizeHint().width());
    }
    return room;
}

/// Shows the buttons that fit, from the left; the menu has the others. Their keys work all the
/// same.
void ActionBar::arrange() {
    const int count = m_layout->count() - 1 - m_right;
    const auto wanted = [&](int i) -> QWidget * {
        QWidget *widget = m_layout->itemAt(i)->widget();
        const auto *button = qobject_cast<QToolButton *>(widget);
        const bool isOff = button != nullptr && button->defaultAction() != nullptr &&
                           !button->defaultAction()->isVisible();
        return isOff ? nullptr : widget;
    };
    int needed = 0;
    for (int i = 0; i < count; ++i)
        if (const QWidget *widget = wanted(i))
            needed += widget->sizeHint().width();
    const bool tooMany = needed > roomForButtons(false);
    int room = roomForButtons(tooMany);
    m_more->menu()->clear();
    for (int i = 0; i < count; ++i) {
        QWidget *widget = wanted(i);
        if (widget == nullptr)
            continue;
        room -= widget->sizeHint().width();
        const bool fits = !tooMany || room >= 0;
        widget->setVisible(fits);
        if (const auto *button = qobject_cast<QToolButton *>(widget); button != nullptr && !fits)
            m_more->menu()->addAction(button->defaultAction());
    }
    m_more->setVisible(tooMany);
}

QAction *ActionBar::add(const QString &name, const QString &caption, const QKeySequence &key,
                        std::function<void()> run) {
    auto *action = new QAction(caption, parentWidget());
    action->setObjectName(name);
    action->setShortcut(key);
    connect(action, &QAction::triggered, parentWidget(), std::move(run));
    parentWidget()->addAction(action);
    auto *button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::NoFocus);
    const QString hint = key.toString(QKeySequence::PortableText);
    button->setText(hint.isEmpty() ? caption : QStringLiteral("%1 %2").arg(caption, hint));
    // The action's own text would come back at every change of it.
    connect(action, &QAction::changed, button, [this, button, action, hint] {
        button->setText(hint.isEmpty() ? action->text()
                                       : QStringLiteral("%1 %2").arg(action->text(), hint));
        button->setVisible(action->isVisible());
        if (isVisible())
            arrange(); // the others get its room, or give theirs
    });
    insert(button);
    return action;
}

void ActionBar::addSeparator() {
    if (m_layout->count() - 1 - m_right == 0)
        return; // there is nothing to part
    auto *line = new QFrame(this);
    line->setFrameShape(QFrame::VLine);
    line->setFixedHeight(20);
    line->setEnabled(false);
    insert(line);
}

void ActionBar::insert(QWidget *widget) {
    m_layout->insertWidget(m_atPlace ? m_place++ : m_layout->count() - 1 - m_right, widget);
}

void ActionBar::markPlace() {
    m_place = m_layout->count() - 1 - m_right;
}

void ActionBar::goToPlace() {
    m_atPlace = m_place >= 0;
}

void ActionBar::addRight(QWidget *widget, int stretch) {
    m_layout->addWidget(widget, stretch);
    ++m_right;
}

void ActionBar::addSearch(QLineEdit *search) {
    constexpr int leastWidth = 88, usualWidth = 240, aheadOfTheGap = 100;
    search->setMinimumWidth(leastWidth);
    search->setMaximumWidth(usualWidth);
    addRight(search, aheadOfTheGap);
}

} // namespace jxc
