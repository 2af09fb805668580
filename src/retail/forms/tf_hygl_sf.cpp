#include "retail/forms/tf_hygl_sf.h"

#include "core/session.h"
#include "ui/formats.h"
#include "ui/number_field.h"
#include "ui/theme.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>

namespace jxc {

namespace {

QString titleOf(const Recharge &recharge) {
    return recharge.amount.isNegative() ? QStringLiteral("退款") : QStringLiteral("收款");
}

QLabel *bigLabel(const char *name, int size, const QColor &colour) {
    auto *label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setStyleSheet(QStringLiteral("font-size: %1px; font-weight: 600; color: %2;")
                             .arg(size)
                             .arg(colour.name()));
    return label;
}

} // namespace

TF_Hygl_Sf::TF_Hygl_Sf(const FormContext &context, Recharge &recharge, QWidget *parent)
    : FieldEditor(context, QStringLiteral("TF_Hygl_Sf"), titleOf(recharge), parent)
    , m_recharge(recharge) {
    const bool isPayout = recharge.amount.isNegative();
    QLabel *due = bigLabel("due", 32, Theme::current().accent);
    due->setText(Formats(session().parameters).money(recharge.amount.abs()));
    fields()->addRow(isPayout ? QStringLiteral("应退") : QStringLiteral("应收"), due);
    m_cash = addTender("xf_xj", QStringLiteral("现金"));
    m_card = addTender("xf_xyk", QStringLiteral("银行卡"));
    m_weChat = addTender("xf_wxje", QStringLiteral("微信"));
    m_aliPay = addTender("xf_zfbje", QStringLiteral("支付宝"));
    m_voucher = addTender("xf_djq", QStringLiteral("代金券"));
    m_change = bigLabel("change", 20, Theme::current().good);
    fields()->addRow(isPayout ? QString() : QStringLiteral("找零"), m_change);
    auto *hint = new QLabel(QStringLiteral("在现金处按 Enter 确定，Tab 到其他付款方式"));
    hint->setProperty("quiet", true);
    fields()->addRow(QString(), hint);
    refresh();
    m_cash->selectAll();
}

NumberField *TF_Hygl_Sf::addTender(const char *name, const QString &caption) {
    NumberField *field = addAmount(name, caption);
    connect(field, &NumberField::valueChanged, this, [this, field] {
        m_cashTyped = m_cashTyped || field == m_cash;
        refresh();
    });
    return field;
}

/// What is paid out is typed without a sign too.
Recharge TF_Hygl_Sf::tendered() const {
    const auto typed = [isPayout = m_recharge.amount.isNegative()](const NumberField *field) {
        return isPayout ? -field->value() : field->value();
    };
    Recharge recharge = m_recharge;
    recharge.cash = typed(m_cash);
    recharge.other = {.bankCard = typed(m_card),
                      .voucher = typed(m_voucher),
                      .weChat = typed(m_weChat),
                      .aliPay = typed(m_aliPay)};
    return recharge;
}

/// Until somebody types what he was given, cash is what the other tenders leave.
void TF_Hygl_Sf::refresh() {
    const Decimal due = m_recharge.amount.abs();
    const Decimal others = tendered().other.sum().abs();
    if (!m_cashTyped) {
        const QSignalBlocker quiet(m_cash);
        m_cash->setValue(std::max(due - others, Decimal()));
    }
    const Decimal left = m_cash->value() + others - due;
    const QString figure = Formats(session().parameters).money(left.abs());
    if (m_recharge.amount.isNegative())
        m_change->setText(left.isZero() ? QString() : QStringLiteral("相差 ") + figure);
    else
        m_change->setText(left.isNegative() ? QStringLiteral("还差 ") + figure : figure);
}

bool TF_Hygl_Sf::save() {
    const Recharge now = tendered();
    try {
        (void)rechargeChange(now);
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
        beginAt(m_cash);
        return false;
    }
    m_recharge = now;
    return true;
}

void TF_Hygl_Sf::keyPressEvent(QKeyEvent *event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_cash->hasFocus())
        accept();
    else
        FieldEditor::keyPressEvent(event);
}

} // namespace jxc
