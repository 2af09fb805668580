#include "services/forms/tf_sjtx.h"

#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "services/forms/tf_sjtx_add.h"
#include "services/today.h"
#include "ui/list_form.h"
#include "ui/row_list.h"

#include <QCheckBox>
#include <QLabel>
#include <QTabWidget>
#include <algorithm>

namespace jxc {

namespace {

/// Where a count of the first tab leads, and who may go there.
struct Way {
    QString formClass, caption, rightGroup;
    int right;
    QString refusal;
};

const Way *wayOf(const QString &formClass) {
    static const std::vector<Way> ways = {
        {QStringLiteral("TF_Kcbj"),
         {},
         QStringLiteral("kcgl"),
         4,
         QStringLiteral("库存报警查询！")},
        {QStringLiteral("TF_Bzqcx"), {}, QStringLiteral("kcgl"), 16, QStringLiteral("过期查询！")},
        {QStringLiteral("TF_Djcx"), {}, QStringLiteral("tjgl"), 11, QStringLiteral("单据查询！")},
        {QStringLiteral("TF_WlzwKh"), QStringLiteral("往来账务(客户)"), QStringLiteral("xsgl"), 3,
         QStringLiteral("往来账务！")}};
    const auto found = std::ranges::find(ways, formClass, &Way::formClass);
    return found == ways.end() ? nullptr : &*found;
}

} // namespace

TF_Sjtx::TF_Sjtx(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Sjtx"), QStringLiteral("提醒"), parent)
    , m_tabs(new QTabWidget)
    , m_atStart(new QCheckBox(QStringLiteral("启动时显示"))) {
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->addTab(makeToday(), QStringLiteral("今日"));
    m_tabs->addTab(makeSettings(), QStringLiteral("设置"));
    auto *foot = new QHBoxLayout;
    auto *hint = new QLabel(QStringLiteral("回车打开  Ctrl+Tab 换页  Esc 退出"));
    hint->setProperty("quiet", true);
    foot->addWidget(m_atStart);
    foot->addStretch();
    foot->addWidget(hint);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->addWidget(m_tabs);
    column->addLayout(foot);
    resize(840, 520);
    connect(m_atStart, &QCheckBox::clicked, this,
            [this](bool shown) { show(setRemindersAtStart(session(), prompter(), shown)); });
}

QWidget *TF_Sjtx::makeToday() {
    m_today = new Grid(context(), QStringLiteral("TF_Sjtx_Today"),
                       {text(u"what", u"事项", 136), text(u"note", u"内容", 400)});
    m_today->setTitle(QStringLiteral("今日提醒"));
    connect(m_today, &Grid::activated, this, &TF_Sjtx::openToday);
    auto *page = new QWidget;
    (new QVBoxLayout(page))->addWidget(m_today);
    return page;
}

QWidget *TF_Sjtx::makeSettings() {
    m_settings = new Grid(context(), QStringLiteral("TF_Sjtx"),
                          {text(u"audience", u"提醒对象", 104), text(u"way", u"提醒方式", 112),
                           text(u"when", u"提醒时间", 120), text(u"note", u"备注", 240),
                           text(u"author", u"操作员", 96)});
    m_settings->setTitle(windowTitle());
    connect(m_settings, &Grid::activated, this, &TF_Sjtx::btnModiClick);
    auto *page = new QWidget;
    auto *bar = new ActionBar(page); // its keys are this tab's alone
    bar->add(QStringLiteral("btnAdd"), QStringLiteral("增加"), Qt::Key_Insert,
             [this] { btnAddClick(); });
    bar->add(QStringLiteral("btnModi"), QStringLiteral("修改"), Qt::Key_F4,
             [this] { btnModiClick(); });
    bar->add(QStringLiteral("btnDele"), QStringLiteral("删除"), Qt::Key_Delete,
             [this] { btnDeleClick(); });
    m_settings->setOwnActions(page->actions());
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
    RowList list({u"what", u"note", u"form"});
    const auto add = [&list](const QString &what, const QString &note, const char16_t *form = u"") {
        list.add({what, note, QString::fromUtf16(form)});
    };
    for (const Reminder &reminder : dueReminders(session()))
        add(QStringLiteral("提醒"), reminder.note);
    const TodayCounts counts = countToday(session());
    if (counts.belowMinimum > 0)
        add(QStringLiteral("库存报警"),
            QStringLiteral("%1种商品低于最低库存").arg(counts.belowMinimum), u"TF_Kcbj");
    if (counts.nearExpiry > 0)
        add(QStringLiteral("近效期"),
            QStringLiteral("%1个批号已过期或在%2天内到期")
                .arg(counts.nearExpiry)
                .arg(session().parameters.nearExpiryDays),
            u"TF_Bzqcx");
    if (counts.drafts > 0)
        add(QStringLiteral("待审核"), QStringLiteral("%1张单据等待审核").arg(counts.drafts),
            u"TF_Djcx");
    if (counts.receivables > 0)
        add(QStringLiteral("应收到期"),
            QStringLiteral("%1张销售单到了提醒日期，未收%2元")
                .arg(counts.receivables)
                .arg(counts.receivableAmount.toText(2)),
            u"TF_WlzwKh");
    Rows rows = list.take();
    if (rows.empty()) {
        add(QStringLiteral("提醒"), QStringLiteral("今天没有需要提醒的事项。"));
        rows = list.take();
    }
    m_today->setRows(std::move(rows));
}

void TF_Sjtx::openToday() {
    const Way *way = wayOf(m_today->currentText(u"form"));
    if (way == nullptr)
        return;
    if (!hasRight(session(), way->rightGroup, way->right))
        showNoRightMessage(prompter(), way->refusal);
    else if (context().stage.openForm(way->formClass, way->caption) == nullptr)
        prompter().inform(QStringLiteral("尚未提供"), informCaption);
}

void TF_Sjtx::fillSettings() {
    m_reminders = listReminders(session());
    RowList list({u"id", u"audience", u"way", u"when", u"note", u"author"});
    for (const Reminder &one : m_reminders)
        list.add({one.id, one.audience, wordOf(one.way), one.when, one.note, one.author});
    const QString before = m_settings->currentText(u"id");
    m_settings->setRows(list.take());
    m_settings->goTo(u"id", before);
}

const Reminder *TF_Sjtx::current() const {
    const auto one =
        std::ranges::find(m_reminders, m_settings->currentText(u"id").toLongLong(), &Reminder::id);
    if (one == m_reminders.end()) {
        tellNoRow(prompter());
        return nullptr;
    }
    return &*one;
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
