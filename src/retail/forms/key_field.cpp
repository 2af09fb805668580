#include "retail/forms/key_field.h"

#include "retail/forms/counter_keys.h"

#include <QKeyEvent>

namespace jxc {

namespace {

bool isFixed(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_F3:
    case Qt::Key_F5:
        return true;
    default:
        return false;
    }
}

} // namespace

KeyField::KeyField(QWidget *parent)
    : QLineEdit(parent) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setPlaceholderText(QStringLiteral("按下要用的键"));
}

void KeyField::setVirtualKey(int code) {
    m_virtualKey = code;
    setText(code == 0 ? QString() : nameOfVirtualKey(code));
    selectAll();
}

void KeyField::keyPressEvent(QKeyEvent *event) {
    const bool isPlain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
    const int code = isPlain && !isFixed(event->key()) ? virtualKeyOf(event->key()) : 0;
    if (code == 0) {
        event->ignore(); // the window's own
        return;
    }
    setVirtualKey(code);
    event->accept();
}

} // namespace jxc
