#include "services/forms/tf_mryt.h"

#include "services/reminders.h"
#include "ui/icons.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace jxc {

TF_Mryt::TF_Mryt(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Mryt"), QStringLiteral("每日一帖"), parent)
    , m_text(new QLabel)
    , m_place(new QLabel)
    , m_atStart(new QCheckBox(QStringLiteral("启动时显示"))) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    m_text->setObjectName(QStringLiteral("mr_ts"));
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_text->setStyleSheet(QStringLiteral("font-size: 16px;"));
    m_place->setProperty("quiet", true);
    auto *title = new QLabel(QStringLiteral("您知道吗"));
    title->setProperty("title", true);
    auto *earlier = new QPushButton(QStringLiteral("上一条 (&P)"));
    auto *later = new QPushButton(QStringLiteral("下一条 (&N)"));
    auto *close = new QPushButton(QStringLiteral("关闭 Esc"));
    close->setDefault(true);
    connect(earlier, &QPushButton::clicked, this, [this] { leaf(-1); });
    connect(later, &QPushButton::clicked, this, [this] { leaf(1); });
    connect(close, &QPushButton::clicked, this, &TF_Mryt::reject);
    connect(m_atStart, &QCheckBox::clicked, this,
            [this](bool shown) { show(setTipsAtStart(session(), prompter(), shown)); });
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_atStart);
    buttons->addStretch();
    for (QPushButton *button : {earlier, later, close})
        buttons->addWidget(button);
    auto *head = new QHBoxLayout;
    head->addWidget(title);
    head->addStretch();
    head->addWidget(m_place);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(28, 24, 28, 20);
    column->setSpacing(16);
    column->addLayout(head);
    column->addWidget(m_text, 1);
    column->addLayout(buttons);
    resize(560, 288);
    close->setFocus();
}

void TF_Mryt::FormActivate() {
    m_atStart->setChecked(showsTipsAtStart(session()));
    const qint64 next = takeNextTip(session(), prompter());
    m_tips = listTips(session());
    m_index = 0;
    for (size_t i = 0; i < m_tips.size(); ++i)
        if (m_tips[i].id == next)
            m_index = i;
    showTip();
}

void TF_Mryt::leaf(int by) {
    if (m_tips.empty())
        return;
    const auto count = static_cast<int>(m_tips.size());
    m_index = static_cast<size_t>((static_cast<int>(m_index) + by + count) % count);
    showTip();
}

void TF_Mryt::showTip() {
    m_text->setText(m_tips.empty() ? QStringLiteral("没有内容。") : m_tips[m_index].text);
    m_place->setText(
        m_tips.empty() ? QString() : QStringLiteral("%1 / %2").arg(m_index + 1).arg(m_tips.size()));
}

} // namespace jxc
