#include "support/windows.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
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

void scan(const QString &barcode) {
    static quint64 now = 1'000'000;
    now += 10'000;
    const auto send = [](int key, const QString &text) {
        for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(kind, key, Qt::NoModifier, text);
            event.setTimestamp(now);
            QApplication::sendEvent(focused(), &event);
        }
        now += 5;
    };
    for (const QChar sign : barcode)
        send(sign.unicode(), QString(sign));
    send(Qt::Key_Return, QStringLiteral("\r"));
}

void atNextDialog(std::function<void(QWidget *)> act) {
    auto *timer = new QTimer;
    auto tries = std::make_shared<int>(0);
    QWidget *before = QApplication::activeModalWidget();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, tries, before, act = std::move(act)] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == before) {
            if (++*tries > 500) qFatal("no dialog came");
            return;
        }
        // Shown, but not yet where the keys go.
        if (QApplication::focusWidget() == nullptr || QApplication::focusWidget()->window() != dialog) {
            if (++*tries > 500) qFatal("the dialog has no focus");
            dialog->activateWindow();
            return;
        }
        timer->deleteLater();
        timer->stop();
        act(dialog);
    });
    timer->start(10);
}

} // namespace jxc::test
