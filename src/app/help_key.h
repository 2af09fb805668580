#pragma once

#include <QObject>

class QWidget;

namespace jxc {

class FormRegistry;

/// F1, wherever it is pressed: opens the page of the window in front.
class HelpKey : public QObject {
    Q_OBJECT
public:
    HelpKey(FormRegistry &registry, QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FormRegistry &m_registry;
};

/// The class name of the window that a widget belongs to ("TF_Kccx"); a box or a list without a
/// name of its own belongs to the window below it. Empty for none.
[[nodiscard]] QString formClassOf(const QWidget *widget);

} // namespace jxc
