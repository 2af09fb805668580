#pragma once

#include "master/goods_search.h"
#include "support/shop.h"
#include "ui/form.h"

#include <QTemporaryDir>
#include <QTest>

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

/// Types into whatever has the focus; Chinese comes as an input method sends it.
void type(const QString &text);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Types, then Enter.
void enter(const QString &text = {});
/// Does something to the next modal window, once it is there, and goes on. Stops the test when none
/// comes.
void atNextDialog(std::function<void(QWidget *)> act);

} // namespace jxc::test
