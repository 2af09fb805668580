#include "app/menu_rail.h"

#include "core/account_set.h"
#include "ui/icons.h"
#include "ui/theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace jxc {

namespace {
constexpr int railWidth = 184;
constexpr int headHeight = 72;
constexpr int rowHeight = 44;
} // namespace

GroupButton::GroupButton(const MenuGroup &group, const QString &key, QWidget *parent)
    : QAbstractButton(parent)
    , m_icon(group.icon)
    , m_key(key) {
    setText(group.caption);
    setAccessibleName(group.caption);
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setFixedHeight(rowHeight);
}

void GroupButton::paintEvent(QPaintEvent *) {
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isChecked() ? theme.accentQuiet : theme.surfaceAlt);
        painter.drawRoundedRect(rect().adjusted(8, 2, -8, -2), 6, 6);
    }
    const QColor ink = isChecked() ? theme.accent : theme.text;
    painter.drawPixmap(QPoint(20, (height() - 20) / 2),
                       iconPixmap(m_icon, ink, 20, devicePixelRatioF()));
    QFont face = font();
    face.setWeight(isChecked() ? QFont::DemiBold : QFont::Normal);
    painter.setFont(face);
    painter.setPen(ink);
    painter.drawText(rect().adjusted(52, 0, -52, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
    QFont small = font();
    small.setPixelSize(11);
    painter.setFont(small);
    painter.setPen(theme.textQuiet);
    painter.drawText(rect().adjusted(0, 0, -20, 0), Qt::AlignRight | Qt::AlignVCenter, m_key);
}

void GroupButton::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    update();
}

void GroupButton::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    update();
}

MenuRail::MenuRail(QWidget *parent)
    : QWidget(parent) {
    setFixedWidth(railWidth);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, headHeight, 0, 8);
    column->setSpacing(0);
    int number = 0;
    for (const MenuGroup &group : menuGroups()) {
        ++number;
        auto *button = new GroupButton(group, QStringLiteral("Alt+%1").arg(number), this);
        button->setObjectName(QStringLiteral("menu%1_btn").arg(number));
        connect(button, &QAbstractButton::clicked, this, [this, number] { Q_EMIT chosen(number); });
        column->addWidget(button);
        m_buttons.push_back(button);
    }
    column->addStretch();
}

void MenuRail::setCurrent(int group) {
    int number = 0;
    for (GroupButton *button : m_buttons)
        button->setChecked(++number == group);
}

void MenuRail::paintEvent(QPaintEvent *) {
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.surface);
    painter.fillRect(QRect(width() - 1, 0, 1, height()), theme.line);
    painter.drawPixmap(QPoint(18, 20), iconPixmap(QStringLiteral("product"), theme.accent, 32,
                                                  devicePixelRatioF()));
    QFont large = font();
    large.setPixelSize(18);
    large.setWeight(QFont::DemiBold);
    painter.setFont(large);
    painter.setPen(theme.text);
    painter.drawText(QRect(60, 14, width() - 60, 26), Qt::AlignLeft | Qt::AlignVCenter,
                     productWord);
    QFont small = font();
    small.setPixelSize(12);
    painter.setFont(small);
    painter.setPen(theme.textQuiet);
    painter.drawText(QRect(60, 40, width() - 60, 18), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("农资进销存"));
}

} // namespace jxc
