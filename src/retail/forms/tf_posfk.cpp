#include "retail/forms/tf_posfk.h"

#include "core/action.h"
#include "core/session.h"
#include "retail/receipt_wallet.h"
#include "ui/formats.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/theme.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace jxc {

namespace {

QLabel *bigLabel(int size, const QColor &colour, QWidget *parent) {
    auto *label = new QLabel(parent);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setStyleSheet(QStringLiteral("font-size: %1px; font-weight: 600; color: %2;")
                             .arg(size)
                             .arg(colour.name()));
    return label;
}

} // namespace

TF_Posfk::TF_Posfk(const FormContext &context, const CounterSettings &settings, Receipt &receipt,
                   const std::optional<CounterMember> &member, QWidget *parent)
    : Form(context, QStringLiteral("TF_Posfk"), QStringLiteral("付款结账"), parent)
    , m_settings(settings)
    , m_receipt(receipt)
    , m_member(member)
    , m_total(receipt.total(settings.amountDecimals)) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    build();
    refresh();
    m_cash->setFocus();
    m_cash->selectAll();
}

NumberField *TF_Posfk::addField(QFormLayout *form, const QString &caption, const QString &name) {
    auto *field = new NumberField(ValueKind::amount, Formats(session().parameters), this);
    field->setObjectName(name);
    form->addRow(caption, field);
    connect(field, &NumberField::valueChanged, this, [this, field] {
        m_cashTyped = m_cashTyped || field == m_cash;
        refresh();
    });
    connect(field, &QLineEdit::returnPressed, this, [this, field] {
        if (field == m_cash)
            btnOKClick();
        else
            focusNextChild();
    });
    return field;
}

void TF_Posfk::build() {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(12);
    m_due = bigLabel(40, Theme::current().accent, this);
    m_due->setObjectName(QStringLiteral("due"));
    column->addWidget(m_due);
    auto *form = new QFormLayout;
    form->setSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_cash = addField(form, QStringLiteral("现金"), QStringLiteral("pos_xj"));
    m_cash->setStyleSheet(QStringLiteral("font-size: 24px;"));
    m_card = addField(form, QStringLiteral("银行卡"), QStringLiteral("pos_yhk"));
    m_weChat = addField(form, QStringLiteral("微信"), QStringLiteral("pos_wxje"));
    m_aliPay = addField(form, QStringLiteral("支付宝"), QStringLiteral("pos_zfbje"));
    m_voucher = addField(form, QStringLiteral("代金券"), QStringLiteral("pos_djq"));
    addCardFields(form);
    m_discount = addField(form, QStringLiteral("优惠"), QStringLiteral("pos_yhje"));
    m_rounding = addField(form, QStringLiteral("抹零"), QStringLiteral("pos_mlje"));
    addCustomerField(form);
    column->addLayout(form);
    m_change = bigLabel(24, Theme::current().good, this);
    m_change->setObjectName(QStringLiteral("change"));
    column->addWidget(m_change);
    addButtons(column);
    setMinimumWidth(460);
}

/// What is taken from the member's card asks for the card's password, if it has one.
void TF_Posfk::addCardFields(QFormLayout *form) {
    m_value = addField(form, QStringLiteral("储值卡"), QStringLiteral("pos_czk"));
    m_value->setEnabled(m_member.has_value());
    if (!m_member)
        m_value->setPlaceholderText(QStringLiteral("没有会员"));
    m_password = new QLineEdit(this);
    m_password->setObjectName(QStringLiteral("hy_mm"));
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setPlaceholderText(QStringLiteral("请会员输入密码"));
    connect(m_password, &QLineEdit::returnPressed, this, [this] { focusNextChild(); });
    if (m_member && m_member->hasPassword)
        form->addRow(QStringLiteral("卡密码"), m_password);
    else
        m_password->hide();
}

void TF_Posfk::addCustomerField(QFormLayout *form) {
    m_customer = new PickField(partnerSource(context(), Partner::Kind::customer),
                               Formats(session().parameters), this);
    m_customer->setObjectName(QStringLiteral("kh_sn"));
    m_customer->setPlaceholderText(QStringLiteral("不足的部分记在谁的帐上"));
    m_customer->setClearable(true);
    if (m_receipt.customer != walkInCustomer)
        m_customer->setCode(m_receipt.customer);
    connect(m_customer, &PickField::chosen, this, [this] { takeCustomer(); });
    connect(m_customer, &PickField::cleared, this, [this] { takeCustomer(); });
    form->addRow(QStringLiteral("挂账客户"), m_customer);
}

void TF_Posfk::addButtons(QVBoxLayout *column) {
    auto *buttons = new QHBoxLayout;
    auto *hint = new QLabel(QStringLiteral("在现金处按 Enter 结账"), this);
    hint->setProperty("quiet", true);
    buttons->addWidget(hint);
    buttons->addStretch(1);
    auto *ok = new QPushButton(QStringLiteral("结账 F5"), this);
    auto *leave = new QPushButton(QStringLiteral("返回 Esc"), this);
    for (QPushButton *button : {ok, leave}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    column->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &TF_Posfk::btnOKClick);
    connect(leave, &QPushButton::clicked, this, &TF_Posfk::reject);
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, &TF_Posfk::btnOKClick);
}

void TF_Posfk::setWalletPayment(const WalletPayment &payment) {
    Tender paid = tender();
    takeWalletPayment(paid, payment);
    m_weChat->setValue(paid.other.weChat);
    m_aliPay->setValue(paid.other.aliPay);
    for (NumberField *field : {m_weChat, m_aliPay}) {
        field->setReadOnly(true);
        field->setFocusPolicy(Qt::NoFocus);
        field->setToolTip(payment.isOpen ? QStringLiteral("付款结果还不知道，结账时查询")
                                         : QStringLiteral("已用移动支付收款"));
    }
    refresh();
}

Tender TF_Posfk::tender() const {
    Tender t;
    t.cash = m_cash->value();
    t.other.bankCard = m_card->value();
    t.other.weChat = m_weChat->value();
    t.other.aliPay = m_aliPay->value();
    t.other.voucher = m_voucher->value();
    t.other.storedValue = m_value->value();
    t.discount = m_discount->value();
    t.rounding = m_rounding->value();
    if (m_member)
        t.memberBalance = m_member->balance;
    t.cardPassword = m_password->text();
    return t;
}

/// Until the cashier types what he was given, cash is what the other tenders leave.
void TF_Posfk::refresh() {
    Tender t = tender();
    const Decimal due = dueOf(m_settings, m_total, t);
    if (!m_cashTyped) {
        const Decimal rest = due - t.other.sum();
        const bool pays = rest.isPositive() && m_receipt.customer == walkInCustomer;
        const QSignalBlocker quiet(m_cash);
        m_cash->setValue(pays ? rest : Decimal());
        t = tender();
    }
    const Formats formats(session().parameters);
    m_due->setText(QStringLiteral("应付 ") + formats.money(due));
    const Decimal change = t.sum() - due;
    const bool lacks = change.isNegative();
    m_change->setText((lacks ? m_receipt.customer == walkInCustomer ? QStringLiteral("还差 ")
                                                                    : QStringLiteral("挂账 ")
                             : QStringLiteral("找零 ")) +
                      formats.money(change.abs()));
}

void TF_Posfk::takeCustomer() {
    m_receipt.customer = m_customer->code().isEmpty() ? walkInCustomer : m_customer->code();
    refresh();
}

void TF_Posfk::btnOKClick() {
    if (m_customer->isTyped() && !m_customer->commitTyped() && !m_customer->text().isEmpty())
        return;
    takeCustomer();
    try {
        (void)checkTender(m_settings, m_receipt, tender());
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
        return;
    }
    if (m_poster(tender()))
        accept();
}

} // namespace jxc
