#include "retail/forms/tf_sms_cs.h"

#include "core/action.h"
#include "core/session.h"
#include "retail/gateway_settings.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace jxc {

namespace {

QLineEdit *line(const QString &name, const QString &text) {
    auto *field = new QLineEdit(text);
    field->setObjectName(name);
    field->setMaxLength(32); // the width of the columns
    return field;
}

QPlainTextEdit *area(const QString &name, const QString &text) {
    auto *field = new QPlainTextEdit(text);
    field->setObjectName(name);
    field->setTabChangesFocus(true);
    field->setFixedHeight(72);
    return field;
}

} // namespace

TF_Sms_Cs::TF_Sms_Cs(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Sms_Cs"), QStringLiteral("短信参数"), parent) {
    const SmsSettings stored = loadSmsSettings(db());
    m_host = line(QStringLiteral("sms_host"), loadGatewaySettings(context.home).smsHost);
    m_host->setMaxLength(200);
    m_host->setPlaceholderText(QStringLiteral("短信服务商提供的域名或IP"));
    m_user = line(QStringLiteral("sms_user"), stored.user);
    m_password = line(QStringLiteral("sms_pwd"), stored.password);
    m_password->setEchoMode(QLineEdit::Password);
    m_sign = line(QStringLiteral("sms_sign"), stored.sign);
    m_recharge = area(QStringLiteral("sms_cznote"), stored.rechargeNote);
    m_purchase = area(QStringLiteral("sms_xfnote"), stored.purchaseNote);
    auto *hint = new QLabel(QStringLiteral("可用：{hyname} 姓名  {hybh} 卡号  {hysr} 生日  "
                                           "{czkje} 卡内金额  {zjf} 积分\n"
                                           "充值模板还有：{czje} 充值金额  {bcjf} 本次积分"));
    hint->setProperty("quiet", true);
    fields()->addRow(QStringLiteral("平台地址"), m_host);
    fields()->addRow(QStringLiteral("账号"), m_user);
    fields()->addRow(QStringLiteral("密码"), m_password);
    fields()->addRow(QStringLiteral("签名"), m_sign);
    fields()->addRow(QStringLiteral("充值模板"), m_recharge);
    fields()->addRow(QStringLiteral("消费模板"), m_purchase);
    fields()->addRow(QString(), hint);
    setMinimumWidth(600);
}

SmsSettings TF_Sms_Cs::settings() const {
    return {m_sign->text().trimmed(), m_user->text().trimmed(), m_password->text(),
            m_recharge->toPlainText(), m_purchase->toPlainText()};
}

QStringList TF_Sms_Cs::content() const {
    const SmsSettings typed = settings();
    return {m_host->text(), typed.user,         typed.password,
            typed.sign,     typed.rechargeNote, typed.purchaseNote};
}

bool TF_Sms_Cs::save() {
    GatewaySettings gateways = loadGatewaySettings(context().home);
    gateways.smsHost = m_host->text().trimmed();
    try {
        saveGatewaySettings(context().home, gateways);
    } catch (const Refusal &refusal) {
        prompter().inform(refusal.text(), informCaption);
        m_host->setFocus();
        return false;
    }
    return show(saveSmsSettings(session(), prompter(), settings()));
}

} // namespace jxc
