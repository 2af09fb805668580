#include "app/tf_loading.h"

#include "core/account_set.h"
#include "ui/icons.h"
#include "ui/theme.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace jxc {

TF_Loading::TF_Loading(int tickMilliseconds)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("TF_Loading"));
    setWindowTitle(productWord + QStringLiteral("农资进销存管理系统"));
    setFixedSize(480, 248);
    auto *name = new QLabel(productWord);
    name->setStyleSheet(QStringLiteral("font-size: 32px; font-weight: 600;"));
    auto *what = new QLabel(QStringLiteral("农资进销存管理系统  ") + productVersion);
    what->setProperty("quiet", true);
    m_status = new QLabel;
    m_status->setObjectName(QStringLiteral("lblStatus"));
    m_status->setProperty("quiet", true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(128, 56, 32, 32);
    column->setSpacing(8);
    column->addWidget(name);
    column->addWidget(what);
    column->addStretch();
    column->addWidget(m_status);
    m_timer.setInterval(tickMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &TF_Loading::Timer1Timer);
}

QString TF_Loading::statusText() const {
    return m_status->text();
}

void TF_Loading::FormActivate() {
    m_status->setText(QStringLiteral("正在装载系统......"));
    m_stage = 1;
    show();
    m_timer.start();
}

void TF_Loading::Timer1Timer() {
    if (m_stage == 3) {
        m_timer.stop();
        close();
        Q_EMIT finished();
    } else if (m_stage == 2) {
        m_status->setText(QStringLiteral("系统即将启动......"));
        m_stage = 3;
    } else {
        m_status->setText(QStringLiteral("正在设置环境参数......"));
        m_stage = 2;
    }
}

void TF_Loading::paintEvent(QPaintEvent *) {
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.surface);
    painter.setPen(theme.line);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.fillRect(QRect(0, 0, 96, height()), theme.accent);
    const QPixmap mark =
        iconPixmap(QStringLiteral("product"), theme.accentText, 56, devicePixelRatioF());
    painter.drawPixmap(QPoint(20, 56), mark);
    painter.fillRect(QRect(96, height() - 4, (width() - 96) * m_stage / 3, 4), theme.accentQuiet);
}

} // namespace jxc
