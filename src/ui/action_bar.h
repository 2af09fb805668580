#pragma once

#include <QKeySequence>
#include <QWidget>
#include <functional>

class QAction;
class QHBoxLayout;
class QLineEdit;

namespace jxc {

/// A row of buttons, each with its key beside it. The actions belong to the bar's parent, so that
/// the keys work anywhere in it and the grid's right click can offer the same ones.
class ActionBar : public QWidget {
    Q_OBJECT
public:
    explicit ActionBar(QWidget *parent);

    /// The button follows its action: text, enabled, visible. Without a key it is for the mouse.
    QAction *add(const QString &name, const QString &caption, const QKeySequence &key,
                 std::function<void()> run);
    void addSeparator();
    /// Marks a place among the actions; after goToPlace() further ones come there. So a form that
    /// is built on another can put its own actions where they belong.
    void markPlace();
    void goToPlace();
    /// Something at the right end.
    void addRight(QWidget *widget, int stretch = 0);
    /// A search box at the right end; on a small screen it gives way to the buttons.
    void addSearch(QLineEdit *search);

private:
    void insert(QWidget *widget);

    QHBoxLayout *m_layout;
    int m_right = 0;  ///< widgets after the stretch
    int m_place = -1; ///< where later forms insert
    bool m_atPlace = false;
};

} // namespace jxc
