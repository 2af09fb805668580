#pragma once

#include "app/form_registry.h"
#include "support/shop.h"
#include "ui/master_form.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace jxc::test {

/// A small shop with all windows of the program, used through real keys.
class Stage {
public:
    Stage() {
        registerForms(registry);
        for (const auto &[code, name] : {std::pair(u"100098", u"瓶"), std::pair(u"100099", u"件")})
            shop.db.insertRow(QStringLiteral("jxc_dw"), {{QStringLiteral("dw_sn"), QString::fromUtf16(code)},
                                                         {QStringLiteral("dw_name"), QString::fromUtf16(name)}});
    }

    /// Opens a registered form; it stays open until the test ends or closes it.
    template<class FormClass = Form>
    FormClass *open(const QString &className) {
        auto *form = qobject_cast<FormClass *>(registry.openForm(className, {}));
        if (form == nullptr) qFatal("no such form: %s", qPrintable(className));
        QCoreApplication::processEvents();
        return form;
    }
    ~Stage() {
        QList<QPointer<QWidget>> windows;
        for (QWidget *window : QApplication::topLevelWidgets())
            windows << window;
        for (const QPointer<QWidget> &window : windows) // some go with the one below them
            if (window != nullptr && window->parent() == nullptr) delete qobject_cast<Form *>(window.data());
    }

    /// The refusals and news told since the last call.
    QString takeTold() { return std::exchange(shop.user.told, {}).join(u'|'); }

    Shop shop;
    FormRegistry registry{shop.session, shop.user, shop.place.folder()};
};

/// The widget that keys go to. Without a window manager nobody brings the window below to the front
/// when the one above it closes.
inline QWidget *focused() {
    if (QApplication::focusWidget() == nullptr) {
        QWidget *window = QApplication::activeModalWidget();
        if (window == nullptr) qFatal("no window is open");
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window)) qFatal("the window does not become active");
        return QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : window;
    }
    return QApplication::focusWidget();
}

/// What an input method commits, Chinese above all, where the cursor is.
inline void type(const QString &text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(focused(), &event);
    QCoreApplication::processEvents();
}

/// A key where the cursor is.
inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(focused(), key, modifiers);
    QCoreApplication::processEvents();
}

/// Does something in a dialog as soon as it is open above the window that is in front now.
template<class Dialog>
void whenOpen(const std::function<void(Dialog *)> &act) {
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act, below = QApplication::activeModalWidget()] {
        auto *dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == below) return;
        if (!dialog->isActiveWindow()) {
            dialog->activateWindow();
            return;
        }
        timer->stop();
        timer->deleteLater();
        act(dialog);
    });
    timer->start(10);
}

/// Replaces what stands in the field.
inline void retype(QLineEdit *field, const QString &text) {
    field->window()->activateWindow();
    field->setFocus();
    field->selectAll();
    if (text.isEmpty())
        press(Qt::Key_Delete);
    else
        type(text);
}

} // namespace jxc::test
