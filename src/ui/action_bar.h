#pragma once

#include <QKeySequence>
#include <QWidget>
#include <functional>

class QAction;
class QHBoxLayout;
class QLineEdit;
class QToolButton;

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
    /// Parts what follows from what stands before it, if there is anything.
    void addSeparator();
    /// Marks a place among the actions; after goToPlace() further ones come there. So a form that
    /// is built on another can put its own actions where they belong.
    void markPlace();
    void goToPlace();
    /// Something at the right end; with a stretch it takes room from the gap.
    void addRight(QWidget *widget, int stretch = 0);
    /// A search box at the right end, that gives way to the buttons on a small screen.
    void addSearch(QLineEdit *search);

    /// The bar gives way: what does not fit moves behind "更多".
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void insert(QWidget *widget);
    void arrange();
    [[nodiscard]] int roomForButtons(bool withMore) const;

    QHBoxLayout *m_layout;
    QToolButton *m_more;
    int m_right = 0;  ///< widgets after the stretch
    int m_place = -1; ///< where later forms insert
    bool m_atPlace = false;
};

} // namespace jxc
