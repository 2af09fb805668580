#include "support/windows.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

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

void bringUp(QWidget *window) {
    if (window == nullptr)
        qFatal("no window");
    // What was activated before may still be on its way.
    const bool isUp = QTest::qWaitFor([window] {
        if (QApplication::activeWindow() == window)
            return true;
        window->activateWindow();
        return false;
    });
    if (!isUp)
        qFatal("%s does not come to the front", qPrintable(window->objectName()));
}

void typeText(QWidget *field, const QString &text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(field, &event);
}

void type(const QString &text) {
    for (const QChar sign : text) {
        if (sign.unicode() < 128) {
            QTest::keyClick(focused(), sign.toLatin1(), Qt::NoModifier, 1);
        } else {
            typeText(focused(), QString(sign));
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

BoxPresser::BoxPresser(Qt::Key key) {
    m_timer.setInterval(20);
    connect(&m_timer, &QTimer::timeout, this, [this, key] {
        QWidget *box = QApplication::activeModalWidget();
        if (box == nullptr || !box->inherits("QMessageBox"))
            return;
        m_timer.stop();
        title = box->windowTitle();
        text = box->property("text").toString();
        QTest::keyClick(box, key);
    });
    m_timer.start();
}

} // namespace jxc::test
