#include "support/windows.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTimer>

namespace jxc::test {

namespace {

/// Without a window manager nobody activates the window below a dialog that closes.
QWidget *focused() {
    QCoreApplication::processEvents();
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() != nullptr)
        QApplication::activeModalWidget()->activateWindow();
    if (!QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }, 2000))
        qFatal("no widget has the focus");
    return QApplication::focusWidget();
}

} // namespace

void type(const QString &text) {
    for (const QChar sign : text) {
        if (sign.unicode() < 128) {
            QTest::keyClick(focused(), sign.toLatin1(), Qt::NoModifier, 1);
        } else {
            QInputMethodEvent event;
            event.setCommitString(QString(sign));
            QApplication::sendEvent(focused(), &event);
        }
    }
    QCoreApplication::processEvents();
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(focused(), key, modifiers);
    QCoreApplication::processEvents();
}

void enter(const QString &text) {
    if (!text.isEmpty()) type(text);
    press(Qt::Key_Return);
}

void atNextDialog(std::function<void(QWidget *)> act) {
    auto *timer = new QTimer;
    auto tries = std::make_shared<int>(0);
    QWidget *before = QApplication::activeModalWidget();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, tries, before, act = std::move(act)] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == before) {
            if (++*tries > 200) qFatal("no dialog came");
            return;
        }
        timer->deleteLater();
        timer->stop();
        act(dialog);
    });
    timer->start(10);
}

} // namespace jxc::test
