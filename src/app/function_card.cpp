#include "app/function_card.h"

#include "ui/icons.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace jxc {

namespace {
constexpr int drawingSize = 28;
constexpr int padding = 16;
} // namespace

FunctionCard::FunctionCard(const FunctionButton &button, const QString &note, const QString &key,
                           QWidget *parent)
    : QAbstractButton(parent)
    , m_button(button)
    , m_note(note)
    , m_key(key) {
    setObjectName(button.handler);
    setText(button.caption);
    setAccessibleName(button.caption);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(leastWidth, cardHeight);
    setMaximumHeight(cardHeight);
    setCursor(Qt::PointingHandCursor);
}

void FunctionCard::paintEvent(QPaintEvent *) {
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lit = isEnabled() && (hasFocus() || underMouse());
    painter.setPen(QPen(lit ? theme.accent : theme.line, hasFocus() ? 2 : 1));
    painter.setBrush(isDown() ? theme.accentQuiet : isEnabled() ? theme.surface : theme.window);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);

    const QColor ink = isEnabled() ? theme.accent : theme.textQuiet;
    painter.setOpacity(isEnabled() ? 1.0 : 0.55);
    painter.drawPixmap(QPoint(padding, (height() - drawingSize) / 2),
                       iconPixmap(m_button.icon, ink, drawingSize, devicePixelRatioF()));
    const QRect room = rect().adjusted(padding + drawingSize + 12, 6, -padding + 4, -6);
    paintWords(painter, paintKey(painter, room));
}

/// Answers the room that is left for the words.
QRect FunctionCard::paintKey(QPainter &painter, const QRect &room) const {
    if (m_key.isEmpty())
        return room;
    const Theme &theme = Theme::current();
    QFont small = font();
    small.setPixelSize(11);
    painter.setFont(small);
    const QRect chip(room.right() - 19, room.center().y() - 9, 20, 20);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.window);
    painter.drawRoundedRect(chip, 4, 4);
    painter.setPen(theme.textQuiet);
    painter.drawText(chip, Qt::AlignCenter, m_key);
    return room.adjusted(0, 0, -28, 0);
}

void FunctionCard::paintWords(QPainter &painter, const QRect &room) const {
    const Theme &theme = Theme::current();
    painter.setFont(font());
    painter.setPen(isEnabled() ? theme.text : theme.textQuiet);
    const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWrapAnywhere;
    if (m_note.isEmpty()) {
        painter.drawText(room, flags, text());
        return;
    }
    painter.drawText(room.adjusted(0, 4, 0, -22), Qt::AlignLeft | Qt::AlignVCenter, text());
    QFont small = font();
    small.setPixelSize(12);
    painter.setFont(small);
    painter.setPen(theme.textQuiet);
    painter.drawText(room.adjusted(0, 26, 0, -2), Qt::AlignLeft | Qt::AlignVCenter, m_note);
}

/// Enter presses like the space bar; the arrows belong to the board.
void FunctionCard::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else if (event->key() == Qt::Key_Space)
        QAbstractButton::keyPressEvent(event);
    else
        event->ignore();
}

void FunctionCard::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    update();
}

void FunctionCard::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace jxc
