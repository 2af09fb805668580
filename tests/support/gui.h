#pragma once

#include "support/shop.h"
#include "ui/box_prompter.h"
#include "ui/theme.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace jxc::test {

/// Types as an input method does; key clicks cannot carry Chinese.
inline void typeText(QWidget *field, const QString &text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(field, &event);
}

/// Brings a window to the front and waits until keys go to it.
inline void bringUp(QWidget *window) {
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

template<class Widget>
Widget *child(QWidget &window, const QString &name) {
    auto *found = window.findChild<Widget *>(name);
    if (found == nullptr)
        qFatal("no child %s", qPrintable(name));
    return found;
}

/// Presses a key in the next modal box, and tells what the box said.
class BoxPresser : public QObject {
public:
    explicit BoxPresser(Qt::Key key) {
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
    QString title, text;

private:
    QTimer m_timer;
};

} // namespace jxc::test

/// A test program with windows, on a screen that is not there.
#define JXC_GUI_MAIN(TestClass, ApplicationClass)                                                  \
    int main(int argc, char **argv) {                                                              \
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))                                         \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                               \
        ApplicationClass application(argc, argv);                                                  \
        QApplication::setQuitOnLastWindowClosed(false);                                            \
        jxc::useFixedLocale();                                                                     \
        jxc::applyTheme(application, jxc::Theme::light());                                         \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
