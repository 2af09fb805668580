#include "services/forms/tf_sjtx.h"

#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "services/forms/tf_sjtx_add.h"
#include "services/today.h"
#include "ui/command_bar.h"
#include "ui/plain_table.h"

#include <QCheckBox>
#include <QLabel>
#include <QTabWidget>

namespace jxc {

TF_Sjtx::TF_Sjtx(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Sjtx"), QStringLiteral("提醒"), parent)
    , m_tabs(new QTabWidget)
    , m_atStart(new QCheckBox(QStringLiteral("启动时显示"))) {
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->addTab(makeToday(), QStringLiteral("今日"));
    m_tabs->addTab(makeSettings(), QStringLiteral("设置"));
    auto *foot = new QHBoxLayout;
    auto *hint = new QLabel(QStringLiteral("双击或回车打开  Esc 退出"));
    hint->setProperty("quiet", true);
    foot->addWidget(m_atStart);
    foot->addStretch();
    foot->addWidget(hint);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->addWidget(m_tabs);
    column->addLayout(foot);
    resize(760, 460);
    connect(m_atStart, &QCheckBox::clicked, this,
            [this](bool shown) { show(setRemindersAtStart(session(), prompter(), shown)); });
}

QWidget *TF_Sjtx::makeToday() {
    m_today = new PlainTable({{QStringLiteral("事项"), 136}, {QStringLiteral("内容"), 400}});
    m_today->setObjectName(QStringLiteral("gridToday"));
    connect(m_today, &QTableWidget::cellActivated, this, &TF_Sjtx::openToday);
    auto *page = new QWidget;
    (new QVBoxLayout(page))->addWidget(m_today);
    return page;
}

QWidget *TF_Sjtx::makeSettings() {
    m_settings = new PlainTable({{QStringLiteral("提醒对象"), 104},
                                 {QStringLiteral("提醒方式"), 112},
                                 {QStringLiteral("提醒时间"), 120},
                                 {QStringLiteral("备注"), 240},
                                 {QStringLiteral("操作员"), 96}});
    m_settings->setObjectName(QStringLiteral("gridSettings"));
    connect(m_settings, &QTableWidget::cellActivated, this, &TF_Sjtx::btnModiClick);
    auto *bar = new CommandBar;
    bar->add(QStringLiteral("增加"), Qt::Key_Insert, {}, [this] { btnAddClick(); });
    bar->add(QStringLiteral("修改"), Qt::Key_F4, {}, [this] { btnModiClick(); });
    bar->add(QStringLiteral("删除"), Qt::Key_Delete, {}, [this] { btnDeleClick(); });
    bar->addStretch();
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    column->addWidget(bar);
    column->addWidget(m_settings);
    return page;
}

void TF_Sjtx::FormActivate() {
    m_atStart->setChecked(showsRemindersAtStart(session()));
    fillToday();
    fillSettings();
    m_tabs->setCurrentIndex(0);
    m_today->setFocus();
}

void TF_Sjtx::fillToday() {
    QList<PlainTable::Line> lines;
    for (const Reminder &reminder : dueReminders(session()))
        lines.append({reminder.id, {QStringLiteral("提醒"), reminder.note}});
    m_ways.clear();
    // The counts stand below the reminders, under numbers that no reminder has.
    const auto add = [&](const QString &what, const QString &text, const Way &way) {
        const qint64 id = -1 - lines.size();
        m_ways.insert(id, way);
        lines.append({id, {what, text}});
    };
    const TodayCounts counts = countToday(session());
    if (counts.belowMinimum > 0)
        add(QStringLiteral("库存报警"),
            QStringLiteral("%1种商品低于最低库存").arg(counts.belowMinimum),
            {QStringLiteral("TF_Kcbj"),
             {},
             QStringLiteral("kcgl"),
             4,
             QStringLiteral("库存报警查询！")});
    if (counts.nearExpiry > 0)
        add(QStringLiteral("近效期"),
            QStringLiteral("%1个批号已过期或在%2天内到期")
                .arg(counts.nearExpiry)
                .arg(session().parameters.nearExpiryDays),
            {QStringLiteral("TF_Bzqcx"),
             {},
             QStringLiteral("kcgl"),
             16,
             QStringLiteral("过期查询！")});
    if (counts.drafts > 0)
        add(QStringLiteral("待审核"), QStringLiteral("%1张单据等待审核").arg(counts.drafts),
            {QStringLiteral("TF_Djcx"),
             {},
             QStringLiteral("tjgl"),
             11,
             QStringLiteral("单据查询！")});
    if (counts.receivables > 0)
        add(QStringLiteral("应收到期"),
            QStringLiteral("%1张销售单到了提醒日期，未收%2元")
                .arg(counts.receivables)
                .arg(counts.receivableAmount.toText(2)),
            {QStringLiteral("TF_WlzwKh"), QStringLiteral("往来账务(客户)"), QStringLiteral("xsgl"),
             3, QStringLiteral("往来账务！")});
    if (lines.isEmpty())
        lines.append({0, {QStringLiteral("提醒"), QStringLiteral("今天没有需要提醒的事项。")}});
    m_today->setLines(lines);
}

void TF_Sjtx::openToday() {
    const auto way = m_ways.constFind(m_today->currentId());
    if (way == m_ways.constEnd())
        return;
    if (!hasRight(session(), way->rightGroup, way->right))
        showNoRightMessage(prompter(), way->refusal);
    else if (context().stage.openForm(way->formClass, way->caption) == nullptr)
        prompter().inform(QStringLiteral("尚未提供"), informCaption);
}

void TF_Sjtx::fillSettings() {
    m_reminders = listReminders(session());
    QList<PlainTable::Line> lines;
    for (const Reminder &one : m_reminders)
        lines.append({one.id, {one.audience, wordOf(one.way), one.when, one.note, one.author}});
    m_settings->setLines(lines);
}

const Reminder *TF_Sjtx::current() const {
    for (const Reminder &one : m_reminders)
        if (one.id == m_settings->currentId())
            return &one;
    prompter().inform(QStringLiteral("请先选择一条记录！"), informCaption);
    return nullptr;
}

void TF_Sjtx::edit(const Reminder &reminder) {
    m_tabs->setCurrentIndex(1);
    auto *editor = new TF_Sjtx_Add(context(), reminder, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Sjtx::fillSettings);
    editor->showModal();
}

void TF_Sjtx::btnAddClick() {
    Reminder fresh;
    fresh.audience = session().currentOperatorName;
    fresh.way = ReminderWay::onDate;
    fresh.when = session().today();
    edit(fresh);
}

void TF_Sjtx::btnModiClick() {
    if (const Reminder *one = current())
        edit(*one);
}

void TF_Sjtx::btnDeleClick() {
    const Reminder *one = current();
    if (one != nullptr && show(deleteReminder(session(), prompter(), one->id)))
        fillSettings();
}

} // namespace jxc
