#pragma once

#include <QWidget>

namespace jxc {

/// Tab goes through the widgets in this order, as the eye does; those that are missing are passed.
inline void setTabsThrough(std::initializer_list<QWidget *> widgets) {
    QWidget *before = nullptr;
    for (QWidget *next : widgets) {
        if (next == nullptr)
            continue;
        if (before != nullptr)
            QWidget::setTabOrder(before, next);
        before = next;
    }
}

} // namespace jxc
