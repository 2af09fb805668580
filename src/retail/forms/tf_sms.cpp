#include "retail/forms/tf_sms.h"

#include "core/session.h"
#include "retail/forms/member_filter_bar.h"
#include "retail/forms/tf_sms_cs.h"
#include "retail/sms_book.h"
#include "retail/sms_send.h"
#include "retail/sms_settings.h"
#include "retail/sms_text.h"
#include "ui/grid.h"
#include "ui/kept_ticks.h"
#include "ui/list_page.h"
#include "ui/search_box.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

namespace jxc {

namespace {

ColumnSpecs memberColumns() {
    return {text(u"hy_bh", u"会员卡号", 110),
            text(u"hy_name", u"会员姓名", 100),
            text(u"hl_name", u"会员级别", 90),
            text(u"hy_mobile", u"移动电话", 120),
            text(u"hy_sr", u"出生日期", 100),
            column(u"hy_jf", u"会员积分", ValueKind::integer, 80),
            column(u"hy_zhje", u"卡内金额", ValueKind::amount, 90)};
}

ColumnSpecs sentColumns() {
    ColumnSpec sentAt = text(u"sms_rq", u"发信时间", 160);
    sentAt.words = {{QString(), QStringLiteral("待发送")}};
    return {sentAt,
            text(u"gl_djh", u"单号", 120),
            text(u"hy_bh", u"会员卡号", 100),
            text(u"hy_name", u"会员姓名", 90),
            text(u"hy_mobile", u"手机", 110),
            text(u"sms_note", u"短信内容", 460),
            text(u"a_name", u"操作员", 90)};
}

} // namespace

TF_Sms::TF_Sms(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Sms"), QStringLiteral("短信"), parent)
    , m_sender(new TF_Sms_Send(context.session, context.prompter, context.home, this))
    , m_pages(new QTabWidget(this)) {
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pages->addTab(makeSendPage(), QStringLiteral("发送"));
    m_pages->addTab(makeSentPage(), QStringLiteral("已发短信"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->addWidget(m_pages);
    connect(m_sender, &TF_Sms_Send::progressed, this, [this](int done, int total) {
        m_progress->setRange(0, total);
        m_progress->setValue(done);
        m_state->setText(QStringLiteral("正在发送 %1/%2").arg(done).arg(total));
    });
    connect(m_sender, &TF_Sms_Send::finished, this, &TF_Sms::tell);
    connect(m_pages, &QTabWidget::currentChanged, this, [this](int page) {
        ListPage *list = page == 0 ? m_members : m_sent;
        list->refresh();
        list->grid().setFocus();
    });
    const auto turn = [this](const QKeySequence &keys, int page) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, page] { m_pages->setCurrentIndex(page); });
    };
    turn(QKeySequence(Qt::CTRL | Qt::Key_PageUp), 0);
    turn(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    resize(1280, 680);
    setFillsParent(true);
    setBusy(false);
}

QWidget *TF_Sms::makeSendPage() {
    m_conditions = new MemberFilterBar(*this);
    m_onlyTicked = new QCheckBox(QStringLiteral("只看选中(&X)"));
    m_onlyTicked->setObjectName(QStringLiteral("onlyTicked"));
    m_onlyTicked->setFocusPolicy(Qt::NoFocus);
    m_members =
        new ListPage(*this, QStringLiteral("TF_Sms"), QStringLiteral("会员"), memberColumns(),
                     [this](const QString &search) { return readMembers(search); });
    m_members->searchBox().setPlaceholderText(QStringLiteral("查找 F3：卡号、姓名、电话"));
    m_ticks = new KeptTicks(m_members->grid(), QStringLiteral("hy_sn"));
    m_members->addAction(QStringLiteral("btnAll"), QStringLiteral("全选"), Qt::Key_F7,
                         [this] { m_members->grid().model().tickAll(true); });
    m_members->addAction(QStringLiteral("btnNone"), QStringLiteral("全不选"), Qt::Key_F8,
                         [this] { m_ticks->clear(); });
    m_members->addAction(QStringLiteral("btnGjcx"), QStringLiteral("高级查询"), Qt::Key_F10,
                         [this] { m_conditions->choose(); });
    m_members->addAction(QStringLiteral("btnClear"), QStringLiteral("清除条件"), Qt::Key_F11,
                         [this] { m_conditions->clear(); });
    m_members->addFilter(m_onlyTicked);
    m_members->addFilter(m_conditions);
    connect(m_onlyTicked, &QCheckBox::toggled, m_members, &ListPage::refresh);
    connect(m_conditions, &MemberFilterBar::changed, m_members, &ListPage::refresh);
    connect(&m_members->grid(), &Grid::currentChanged, this, &TF_Sms::showText);
    connect(m_ticks, &KeptTicks::changed, this, &TF_Sms::showText);

    auto *page = new QWidget;
    auto *row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_members, 1);
    row->addWidget(makeTextPanel());
    return page;
}

QWidget *TF_Sms::makeTextPanel() {
    m_text = new QPlainTextEdit(smsGreeting);
    m_text->setObjectName(QStringLiteral("sms_note"));
    m_text->setTabChangesFocus(true);
    m_count = new QLabel;
    m_preview = new QLabel;
    m_preview->setWordWrap(true);
    m_preview->setProperty("quiet", true);
    m_preview->setAlignment(Qt::AlignTop);
    m_preview->setTextFormat(Qt::PlainText);
    auto *hint = new QLabel(QStringLiteral("{hyname} 姓名　{hybh} 卡号　{hysr} 生日\n"
                                           "{czkje} 卡内金额　{zjf} 积分"));
    hint->setProperty("quiet", true);
    m_state = new QLabel;
    m_progress = new QProgressBar;
    m_progress->setTextVisible(false);
    m_ok = new QPushButton(QStringLiteral("发送 F5"));
    m_ok->setObjectName(QStringLiteral("btnOK"));
    m_stop = new QPushButton(QStringLiteral("停止 F9"));
    m_stop->setObjectName(QStringLiteral("btnStop"));
    for (QPushButton *button : {m_ok, m_stop})
        button->setAutoDefault(false);
    connect(m_text, &QPlainTextEdit::textChanged, this, &TF_Sms::showText);
    connect(m_ok, &QPushButton::clicked, this, &TF_Sms::btnOKClick);
    connect(m_stop, &QPushButton::clicked, m_sender, &TF_Sms_Send::stop);

    auto *panel = new QWidget;
    panel->setFixedWidth(344);
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 12, 12, 12);
    column->setSpacing(8);
    column->addWidget(new QLabel(QStringLiteral("短信内容")));
    column->addWidget(m_text, 2);
    column->addWidget(hint);
    column->addWidget(m_count);
    column->addWidget(m_preview, 1);
    column->addWidget(m_state);
    column->addWidget(m_progress);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_ok, 1);
    buttons->addWidget(m_stop, 1);
    column->addLayout(buttons);
    return panel;
}

QWidget *TF_Sms::makeSentPage() {
    m_sent = new ListPage(*this, QStringLiteral("TF_Sms_Sent"), QStringLiteral("已发短信"),
                          sentColumns(), [this](const QString &search) {
                              const Period days = m_period->period();
                              return sentMessages(session(), days.from, days.to, search);
                          });
    m_sent->searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、会员、手机"));
    m_sent->addAction(
        QStringLiteral("btn_Send"), QStringLiteral("重发"), Qt::Key_F6, [this] { btn_SendClick(); },
        true);
    m_sent->addAction(QStringLiteral("btnWaiting"), QStringLiteral("发送待发"), Qt::Key_F8,
                      [this] { btnWaitingClick(); });
    m_sent->addAction(QStringLiteral("btnSettings"), QStringLiteral("短信参数"), Qt::Key_F4,
                      [this] { btnSettingsClick(); });
    m_sent->addCommonActions();
    m_sent->grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.text(u"sms_rq").isEmpty() ? Tone::warning : Tone::plain;
    });
    m_period = m_sent->addPeriodBar(PeriodChoice::thisMonth);
    return m_sent;
}

void TF_Sms::FormActivate() {
    m_members->refresh();
    m_sent->refresh();
    m_pages->setCurrentIndex(0);
    m_members->grid().setFocus();
    showText();
}

void TF_Sms::setMembers(const QStringList &members) {
    m_conditions->clear();
    m_ticks->set(members);
    m_onlyTicked->setChecked(true);
    m_members->refresh();
}

Rows TF_Sms::readMembers(const QString &search) const {
    Rows rows = listMembers(session(), m_conditions->filter(search), true);
    if (m_onlyTicked->isChecked())
        std::erase_if(rows, [&](const Row &row) { return !m_ticks->contains(row.text(u"hy_sn")); });
    return rows;
}

/// How long the message gets, and how the current member will read it.
void TF_Sms::showText() {
    QString shown = m_text->toPlainText();
    if (const Row *member = m_members->grid().current())
        shown = withSmsSign(fillSmsTemplate(shown, smsPlaceholders(*member)),
                            loadSmsSettings(db()).sign);
    m_count->setText(
        QStringLiteral("%1 字，选中 %2 个会员").arg(shown.size()).arg(m_ticks->count()));
    m_preview->setText(shown);
}

QStringList TF_Sms::chosenMembers() const {
    QStringList members = m_ticks->keys();
    if (members.isEmpty() && m_members->grid().current() != nullptr)
        members << m_members->grid().current()->text(u"hy_sn");
    return members;
}

void TF_Sms::setBusy(bool isBusy) {
    m_ok->setEnabled(!isBusy);
    m_stop->setEnabled(isBusy);
    m_progress->setVisible(isBusy);
    m_state->setVisible(isBusy);
}

void TF_Sms::btnOKClick() {
    if (m_sender->isBusy())
        return;
    SmsBatch batch;
    if (!show(
            recordSmsBatch(session(), prompter(), m_text->toPlainText(), chosenMembers(), &batch)))
        return;
    m_withoutMobile = batch.withoutMobile;
    m_ticks->clear(); // so that a second F5 does not send to all of them again
    m_onlyTicked->setChecked(false);
    setBusy(true);
    m_sender->sendWaiting(batch.ids);
}

void TF_Sms::btn_SendClick() {
    if (m_sender->isBusy())
        return;
    qint64 copy = 0;
    if (!show(recordResend(session(), prompter(), m_sent->grid().current()->integer(u"id"), &copy)))
        return;
    m_withoutMobile = 0;
    setBusy(true);
    m_sender->sendWaiting({copy});
}

void TF_Sms::btnWaitingClick() {
    const QList<qint64> waiting = waitingMessages(session());
    if (m_sender->isBusy())
        return;
    if (waiting.isEmpty()) {
        prompter().inform(QStringLiteral("没有今天和昨天待发送的短信！"), informCaption);
        return;
    }
    m_withoutMobile = 0;
    setBusy(true);
    m_sender->sendWaiting(waiting);
}

void TF_Sms::btnSettingsClick() {
    TF_Sms_Cs(context(), this).runModal();
}

void TF_Sms::tell(const SmsReport &report) {
    setBusy(false);
    m_sent->refresh();
    QString words = QStringLiteral("短信发送成功，共%1条").arg(report.sent);
    if (report.sent == 0 && !report.error.isEmpty())
        words = QStringLiteral("短信没有发送成功！");
    if (report.unsure > 0)
        words +=
            QStringLiteral("\r\n\r\n%1条没有得到应答，可能没有送达，可以重发。").arg(report.unsure);
    if (report.waiting > 0)
        words +=
            QStringLiteral("\r\n\r\n%1条没有发出，在“已发短信”中等待发送。").arg(report.waiting);
    if (m_withoutMobile > 0)
        words += QStringLiteral("\r\n\r\n%1个会员没有手机号码，没有发送。").arg(m_withoutMobile);
    if (!report.error.isEmpty())
        words += QStringLiteral("\r\n\r\n错误提示: ") + report.error;
    prompter().inform(words, informCaption);
}

bool TF_Sms::mayLeave() {
    if (m_sender->isBusy()) {
        if (!prompter().confirm(QStringLiteral("短信正在发送，停止发送并退出吗？"), confirmCaption))
            return false;
        m_sender->stop();
    }
    return true;
}

void TF_Sms::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_F5 && m_pages->currentIndex() == 0)
        btnOKClick();
    else if (event->key() == Qt::Key_F9)
        m_sender->stop();
    else
        Form::keyPressEvent(event);
}

} // namespace jxc
