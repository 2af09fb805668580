#pragma once

#include "master/goods_search.h"
#include "support/shop.h"
#include "ui/box_prompter.h"
#include "ui/form.h"
#include "ui/theme.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace jxc::test {

/// A stage without other forms: it notes what it was asked to open.
class NotingStage : public FormStage {
public:
    Form *openForm(const QString &className, const QString &) override {
        opened << className;
        return nullptr;
    }
    void openDocument(const QString &number) override { opened << number; }
    QStringList opened;
};

/// A shop with windows: forms are opened on its context and driven by keys.
class Desk : public Shop {
public:
    QTemporaryDir home;
    NotingStage stage;
    GoodsFinder finder{db};
    FormContext context{session, user, stage, finder, home.path()};
};

/// Brings a window to the front and waits until keys go to it.
void bringUp(QWidget *window);

template<class Child>
Child *child(const QObject &window, const QString &name) {
    auto *found = window.findChild<Child *>(name);
    if (found == nullptr)
        qFatal("no child %s", qPrintable(name));
    return found;
}

/// Types into a field as an input method does; key clicks cannot carry Chinese.
void typeText(QWidget *field, const QString &text);
/// Types into whatever has the focus; Chinese comes as an input method sends it.
void type(const QString &text);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Types, then Enter.
void enter(const QString &text = {});
/// What a scanner sends: the signs five milliseconds apart, and Enter.
void scan(const QString &barcode);
/// Does something to the next modal window, once it is there, and goes on. Stops the test when none
/// comes.
void atNextDialog(std::function<void(QWidget *)> act);

/// Presses a key in the next modal box, and tells what the box said.
class BoxPresser : public QObject {
public:
    explicit BoxPresser(Qt::Key key);
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
