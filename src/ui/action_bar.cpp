#include "ui/action_bar.h"

#include <QAction>
#include <QFrame>
#include <QLineEdit>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace jxc {

ActionBar::ActionBar(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this)) {
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addStretch(1);
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
    connect(action, &QAction::changed, button, [button, action, hint] {
        button->setText(hint.isEmpty() ? action->text()
                                       : QStringLiteral("%1 %2").arg(action->text(), hint));
        button->setVisible(action->isVisible());
    });
    insert(button);
    return action;
}

void ActionBar::addSeparator() {
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
