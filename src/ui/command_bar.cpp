#include "ui/command_bar.h"

#include "ui/icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QToolButton>

namespace jxc {

CommandBar::CommandBar(QWidget *parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this)) {
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(4);
}

QToolButton *CommandBar::add(const QString &caption, const QKeySequence &key, const QString &icon,
                             const std::function<void()> &action) {
    auto *button = new QToolButton;
    button->setText(key.isEmpty() ? caption
                                  : QStringLiteral("%1 (%2)").arg(
                                        caption, key.toString(QKeySequence::NativeText)));
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolButtonStyle(icon.isEmpty() ? Qt::ToolButtonTextOnly
                                              : Qt::ToolButtonTextBesideIcon);
    if (!key.isEmpty()) // a button's own shortcut would click a tenth of a second later
        connect(new QShortcut(key, this), &QShortcut::activated, button, &QToolButton::click);
    connect(button, &QToolButton::clicked, this, [action] { action(); });
    m_row->addWidget(button);
    if (!icon.isEmpty()) {
        m_drawn.append({button, icon});
        button->setIconSize(QSize(18, 18));
        dress();
    }
    return button;
}

void CommandBar::addStretch() {
    m_row->addStretch();
}

void CommandBar::addWidget(QWidget *widget) {
    m_row->addWidget(widget);
}

void CommandBar::dress() {
    for (const auto &[button, icon] : m_drawn)
        button->setIcon(themedIcon(icon));
}

void CommandBar::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        dress();
}

} // namespace jxc
