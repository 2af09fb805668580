#include "services/forms/tf_sjtx_add.h"

#include "core/login.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace jxc {

namespace {

QString hintOf(ReminderWay way) {
    switch (way) {
    case ReminderWay::atStart:
        return QStringLiteral("每次启动程序时提醒");
    case ReminderWay::onDate:
        return QStringLiteral("日期，例如 2026-09-30");
    case ReminderWay::weekly:
        return QStringLiteral("1 是星期日，7 是星期六；几天用逗号隔开，例如 2,5");
    case ReminderWay::monthly:
        return QStringLiteral("两位数的日，几天用逗号隔开，例如 05,20");
    }
    return {};
}

} // namespace

TF_Sjtx_Add::TF_Sjtx_Add(const FormContext &context, Reminder reminder, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Sjtx_Add"),
                  reminder.id == 0 ? QStringLiteral("增加提醒") : QStringLiteral("修改提醒"),
                  parent)
    , m_reminder(std::move(reminder))
    , m_audience(new QComboBox)
    , m_way(new QComboBox)
    , m_when(new QLineEdit(m_reminder.when))
    , m_note(new QLineEdit(m_reminder.note))
    , m_hint(new QLabel) {
    m_audience->setObjectName(QStringLiteral("tx_dx"));
    m_way->setObjectName(QStringLiteral("tx_fs"));
    m_when->setObjectName(QStringLiteral("tx_sj"));
    m_note->setObjectName(QStringLiteral("tx_note"));
    m_note->setMaxLength(200);
    m_hint->setProperty("quiet", true);
    m_audience->addItem(everybody);
    m_audience->addItems(operatorNames(session()));
    if (m_audience->findText(m_reminder.audience) < 0) // an operator who has gone
        m_audience->addItem(m_reminder.audience);
    m_audience->setCurrentText(m_reminder.audience);
    for (const auto way :
         {ReminderWay::atStart, ReminderWay::onDate, ReminderWay::weekly, ReminderWay::monthly})
        m_way->addItem(wordOf(way), static_cast<int>(way));
    m_way->setCurrentIndex(m_way->findData(static_cast<int>(m_reminder.way)));
    fields()->addRow(QStringLiteral("提醒对象"), m_audience);
    fields()->addRow(QStringLiteral("提醒方式"), m_way);
    fields()->addRow(QStringLiteral("提醒时间"), m_when);
    fields()->addRow(QString(), m_hint);
    fields()->addRow(QStringLiteral("备注"), m_note);
    setMinimumWidth(520);
    connect(m_way, &QComboBox::currentIndexChanged, this, [this] {
        m_when->clear();
        wayChanged();
    });
    wayChanged();
}

void TF_Sjtx_Add::wayChanged() {
    const auto way = static_cast<ReminderWay>(m_way->currentData().toInt());
    m_hint->setText(hintOf(way));
    m_when->setEnabled(way != ReminderWay::atStart);
    if (way == ReminderWay::atStart)
        m_when->setText(wordOf(way));
}

QStringList TF_Sjtx_Add::content() const {
    return {m_audience->currentText(), m_way->currentText(), m_when->text(), m_note->text()};
}

bool TF_Sjtx_Add::save() {
    m_reminder.audience = m_audience->currentText();
    m_reminder.way = static_cast<ReminderWay>(m_way->currentData().toInt());
    m_reminder.when = m_when->text();
    m_reminder.note = m_note->text();
    return show(saveReminder(session(), prompter(), m_reminder));
}

} // namespace jxc
