#pragma once

#include <QKeySequence>
#include <QWidget>
#include <functional>

class QBoxLayout;
class QToolButton;

namespace jxc {

/// The commands of a form along its upper edge, each with its key.
class CommandBar : public QWidget {
    Q_OBJECT
public:
    explicit CommandBar(QWidget *parent = nullptr);

    /// Adds "增加 (Ins)". The key works anywhere in the form; without one there is none.
    QToolButton *add(const QString &caption, const QKeySequence &key, const QString &icon,
                     const std::function<void()> &action);
    void addStretch();
    /// A field, to search in for example.
    void addWidget(QWidget *widget);

protected:
    void changeEvent(QEvent *event) override;

private:
    void dress();

    QBoxLayout *m_row;
    QList<std::pair<QToolButton *, QString>> m_drawn;
};

} // namespace jxc
