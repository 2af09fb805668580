#include "retail/forms/tf_wxfk.h"

#include "core/session.h"
#include "db/database.h"
#include "retail/wallet_gateway.h"
#include "ui/formats.h"
#include "ui/grid.h"
#include "ui/list_page.h"
#include "ui/search_box.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>

namespace jxc {

namespace {

ColumnSpecs recordColumns() {
    ColumnSpec kind = text(u"wx_flag", u"业务类型", 76);
    kind.words = {{QStringLiteral("fk"), QStringLiteral("付款")},
                  {QStringLiteral("fkcx"), QStringLiteral("查询")}};
    ColumnSpec code = text(u"err_code", u"错误代码", 90);
    code.words = {{walletOpenCode, QStringLiteral("待查询")},
                  {walletNotSentCode, QStringLiteral("未发出")},
                  {walletFailedCode, QStringLiteral("失败")}};
    return {text(u"wx_time", u"时间", 150),
            text(u"gl_djh", u"单据号", 130),
            kind,
            text(u"trade_type", u"交易类型", 100),
            column(u"total_fee", u"金额", ValueKind::amount, 90),
            text(u"transaction_id", u"机器订单号", 150),
            text(u"out_transaction_id", u"第三方订单号", 150),
            code,
            text(u"err_msg", u"提示信息", 160),
            text(u"a_name", u"操作员", 80)};
}

QLineEdit *readOnlyField(const QString &name) {
    auto *field = new QLineEdit;
    field->setObjectName(name);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::NoFocus);
    return field;
}

} // namespace

TF_Wxfk::TF_Wxfk(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Wxfk"), QStringLiteral("移动支付"), parent)
    , m_gateway(new WalletGateway(context.session, context.prompter, context.home, this))
    , m_pages(new QTabWidget(this)) {
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pages->addTab(makePayPage(), QStringLiteral("付款"));
    m_pages->addTab(makeRecordPage(), QStringLiteral("记录"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->addWidget(m_pages);
    connect(m_gateway, &WalletGateway::finished, this, &TF_Wxfk::getFkParsed);
    connect(m_pages, &QTabWidget::currentChanged, this, [this](int page) {
        if (page == 1) {
            m_records->refresh();
            m_records->grid().setFocus();
        } else {
            m_code->setFocus();
        }
    });
    const auto turn = [this](const QKeySequence &keys, int page) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, page] { m_pages->setCurrentIndex(page); });
    };
    turn(QKeySequence(Qt::CTRL | Qt::Key_PageUp), 0);
    turn(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    resize(1240, 560);
    setOrder({}, {});
}

QWidget *TF_Wxfk::makePayPage() {
    m_number = readOnlyField(QStringLiteral("out_trade_no"));
    m_amount = readOnlyField(QStringLiteral("total_fee"));
    m_code = new QLineEdit;
    m_code->setObjectName(QStringLiteral("auth_code"));
    m_code->setMaxLength(32);
    m_code->setPlaceholderText(QStringLiteral("扫描顾客的付款码"));
    m_state = new QLabel;
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setAlignment(Qt::AlignTop);
    m_state->setMinimumHeight(96);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_amount, m_code, m_state})
        widget->setStyleSheet(QStringLiteral("font-size: 18px;")); // read across the counter
    m_pay = new QPushButton(QStringLiteral("付款 F5"));
    m_pay->setObjectName(QStringLiteral("btnFk"));
    m_ask = new QPushButton(QStringLiteral("查询 F6"));
    m_ask->setObjectName(QStringLiteral("btnFkcx"));
    for (QPushButton *button : {m_pay, m_ask}) // Enter belongs to the scanner
        button->setAutoDefault(false);
    m_pay->setShortcut(Qt::Key_F5);
    m_ask->setShortcut(Qt::Key_F6);
    connect(m_code, &QLineEdit::returnPressed, this, &TF_Wxfk::btnFkClick);
    connect(m_pay, &QPushButton::clicked, this, &TF_Wxfk::btnFkClick);
    connect(m_ask, &QPushButton::clicked, this, &TF_Wxfk::btnFkcxClick);

    auto *page = new QWidget;
    auto *fields = new QFormLayout;
    fields->setVerticalSpacing(12);
    fields->setHorizontalSpacing(12);
    fields->addRow(QStringLiteral("单据号"), m_number);
    fields->addRow(QStringLiteral("付款金额"), m_amount);
    fields->addRow(QStringLiteral("付款码"), m_code);
    fields->addRow(QString(), m_state);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_pay);
    buttons->addWidget(m_ask);
    auto *panel = new QWidget; // a scanner's field need not span the window
    panel->setFixedWidth(560);
    auto *column = new QVBoxLayout(panel);
    column->addLayout(fields);
    column->addLayout(buttons);
    auto *centre = new QGridLayout(page);
    centre->addWidget(panel, 0, 0, Qt::AlignCenter);
    return page;
}

QWidget *TF_Wxfk::makeRecordPage() {
    m_records = new ListPage(*this, QStringLiteral("TF_Wxfk"), QStringLiteral("移动支付记录"),
                             recordColumns(), [this](const QString &search) {
                                 const Period days = m_period->period();
                                 return walletRecords(session(), days.from, days.to, search);
                             });
    m_records->searchBox().setPlaceholderText(QStringLiteral("查找 F3：单据号、订单号"));
    m_records->addAction(
        QStringLiteral("btnQuery"), QStringLiteral("查询"), Qt::Key_F6,
        [this] { query(m_records->grid().currentText(QStringLiteral("out_trade_no"))); }, true);
    m_records->addAction(
        QStringLiteral("btnUnpaid"), QStringLiteral("记为未付"), Qt::Key_F8,
        [this] { closeByHand(); }, true);
    m_records->addCommonActions();
    m_records->grid().model().setTone([](const Row &row, const ColumnSpec &) {
        if (row.text(u"wx_flag") == u"fkcx")
            return Tone::quiet;
        return row.text(u"err_code") == walletOpenCode ? Tone::warning : Tone::plain;
    });
    m_period = m_records->addPeriodBar(PeriodChoice::today);
    return m_records;
}

void TF_Wxfk::setOrder(const QString &number, Decimal amount) {
    m_order = number;
    m_due = amount;
    m_result = {};
    m_number->setText(number);
    m_amount->setText(number.isEmpty() ? QString() : Formats(session().parameters).money(amount));
    m_code->clear();
    setBusy({});
    m_state->setText(number.isEmpty()
                         ? QStringLiteral("收款时在结算界面打开；这里可以查看记录和查询结果。")
                         : QString());
}

void TF_Wxfk::setCaption(const QString &caption) {
    setOrder({}, {});
    if (const auto sale = db().row(
            QStringLiteral("select ls_sfje,ls_yfje from jxc_lsxsd where gl_djh=?"), {caption})) {
        const Decimal paid = sale->decimal(u"ls_sfje");
        setOrder(caption, paid.isPositive() ? paid : sale->decimal(u"ls_yfje"));
    }
}

void TF_Wxfk::FormActivate() {
    m_records->refresh();
    m_pages->setCurrentIndex(m_order.isEmpty() ? 1 : 0);
    if (m_order.isEmpty())
        m_records->grid().setFocus();
    else
        m_code->setFocus();
}

/// Nothing more can be sent while an answer is due; the text tells what is waited for.
void TF_Wxfk::setBusy(const QString &words) {
    const bool mayPay = words.isEmpty() && !m_order.isEmpty();
    m_pay->setEnabled(mayPay);
    m_ask->setEnabled(mayPay);
    m_code->setEnabled(mayPay);
    m_state->setText(words);
}

void TF_Wxfk::btnFkClick() {
    if (m_order.isEmpty() || m_gateway->isBusy())
        return;
    setBusy(QStringLiteral("正在付款，请顾客等待......"));
    m_gateway->pay({m_order, m_due, m_code->text().trimmed()});
}

void TF_Wxfk::btnFkcxClick() {
    if (!m_order.isEmpty())
        query(m_order);
}

void TF_Wxfk::query(const QString &number) {
    if (m_gateway->isBusy())
        return;
    setBusy(QStringLiteral("正在查询......"));
    m_gateway->query(number);
}

void TF_Wxfk::getFkParsed(const WalletResult &result) {
    setBusy({});
    m_records->refresh();
    const bool isOurs = !m_order.isEmpty() && result.number == m_order;
    const bool isPaid = isOurs && result.state == WalletState::paid;
    QString words = result.words;
    if (isPaid && result.amount != m_due)
        words += QStringLiteral("\r\n\r\n已支付%1，与本次付款金额不同！")
                     .arg(Formats(session().parameters).money(result.amount));
    m_state->setText(QString(words).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    if (!isVisible()) { // left before the answer came
        prompter().inform(words, informCaption);
        return;
    }
    if (isPaid && result.amount == m_due) {
        m_result = result;
        if (result.isTakenTwice)
            prompter().inform(words, informCaption);
        accept();
        return;
    }
    if (m_pages->currentIndex() == 1) {
        prompter().inform(words, informCaption);
        return;
    }
    m_code->setFocus();
    m_code->selectAll();
}

void TF_Wxfk::closeByHand() {
    const Row *row = m_records->grid().current();
    if (show(closePaymentByHand(session(), prompter(), row->integer(u"id"))))
        m_records->refresh();
}

bool TF_Wxfk::mayLeave() {
    return !m_gateway->isBusy() ||
           prompter().confirm(QStringLiteral("付款结果还没有返回！\r\n\r\n离开后请在“记录”中查询"
                                             "结果，确认离开吗？"),
                              confirmCaption);
}

} // namespace jxc
