#include "app/help_key.h"

#include "app/form_registry.h"
#include "app/tf_rjbz.h"

#include <QApplication>
#include <QKeyEvent>

namespace jxc {

namespace {

bool isHelpKey(const QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<const QKeyEvent *>(event);
    return key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier;
}

} // namespace

HelpKey::HelpKey(FormRegistry &registry, QObject *parent)
    : QObject(parent)
    , m_registry(registry) {
    qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject *watched, QEvent *event) {
    if (!isHelpKey(event) || !watched->isWidgetType())
        return QObject::eventFilter(watched, event);
    const QString formClass = formClassOf(static_cast<QWidget *>(watched));
    if (auto *help = qobject_cast<TF_Rjbz *>(m_registry.openForm(QStringLiteral("TF_Rjbz"), {})))
        help->showPageOf(formClass);
    return true;
}

QString formClassOf(const QWidget *widget) {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (widget->isWindow() && widget->objectName().startsWith(QLatin1String("TF_")))
            return widget->objectName();
    return {};
}

} // namespace jxc
