#pragma once

#include "app/dispatch.h"

#include <QAbstractButton>
#include <QWidget>

namespace jxc {

/// One of the eight groups on the rail.
class GroupButton : public QAbstractButton {
    Q_OBJECT
public:
    GroupButton(const MenuGroup &group, const QString &key, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    QString m_icon, m_key;
};

/// The eight groups down the left side.
class MenuRail : public QWidget {
    Q_OBJECT
public:
    explicit MenuRail(QWidget *parent = nullptr);

    void setCurrent(int group); ///< 1 to 8; 0 for none

Q_SIGNALS:
    void chosen(int group);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::vector<GroupButton *> m_buttons;
};

} // namespace jxc
