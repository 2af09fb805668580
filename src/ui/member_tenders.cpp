#include "ui/member_tenders.h"

#include "core/session.h"
#include "retail/tender.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>

namespace jxc {

MemberTenders::MemberTenders(const FormContext &context, const DocumentFormSpec &spec,
                             QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_cash(new QLabel(this)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    auto *title = new QLabel(
        spec.isReturn ? QStringLiteral("退给会员：") : QStringLiteral("会员付款："), this);
    title->setProperty("quiet", true);
    row->addWidget(title);
    m_value = add(row, QStringLiteral("储值卡"), QStringLiteral("pos_czk"));
    m_card = add(row, QStringLiteral("银行卡"), QStringLiteral("pos_yhk"));
    if (!spec.isReturn)
        m_voucher = add(row, QStringLiteral("代金券"), QStringLiteral("pos_djq"));
    m_cash->setObjectName(QStringLiteral("pos_xj"));
    row->addWidget(m_cash);
    row->addStretch(1);
    hide();
}

NumberField *MemberTenders::add(QHBoxLayout *row, const QString &caption, const QString &name) {
    auto *label = new QLabel(caption, this);
    label->setProperty("quiet", true);
    auto *field = new NumberField(ValueKind::amount, Formats(m_context.session.parameters), this);
    field->setObjectName(name);
    field->setFixedWidth(120);
    field->installEventFilter(this);
    row->addWidget(label);
    row->addWidget(field);
    connect(field, &QLineEdit::textEdited, this, [this] {
        showCash();
        Q_EMIT edited();
    });
    return field;
}

void MemberTenders::setMember(const QString &key) {
    if (key.isEmpty())
        for (NumberField *field : {m_value, m_card, m_voucher})
            if (field != nullptr)
                field->clear();
    setVisible(!key.isEmpty());
    showCash();
}

void MemberTenders::setPaid(Decimal paid) {
    m_paid = paid;
    showCash();
}

void MemberTenders::fill(const Draft &draft) {
    const auto put = [](NumberField *field, Decimal amount) {
        if (field == nullptr)
            return;
        field->clear();
        if (!amount.isZero())
            field->setValue(amount);
    };
    put(m_value, draft.tenders.storedValue);
    put(m_card, draft.tenders.bankCard);
    put(m_voucher, draft.tenders.voucher);
    const Tenders typed = tenders();
    setVisible(!draft.member.isEmpty() ||
               !(typed.storedValue + typed.bankCard + typed.voucher).isZero());
    showCash();
}

Decimal MemberTenders::cash() const {
    return m_paid - m_value->value() - m_card->value() -
           (m_voucher == nullptr ? Decimal() : m_voucher->value());
}

Tenders MemberTenders::tenders() const {
    if (isHidden())
        return {};
    Tenders t;
    t.cash = cash();
    t.storedValue = m_value->value();
    t.bankCard = m_card->value();
    if (m_voucher != nullptr)
        t.voucher = m_voucher->value();
    Tender how;
    how.cash = t.cash;
    how.other.storedValue = t.storedValue;
    how.other.bankCard = t.bankCard;
    how.other.voucher = t.voucher;
    t.method = tenderMethod(how);
    return t;
}

void MemberTenders::showCash() {
    const Decimal rest = cash();
    m_cash->setText(QStringLiteral("其余 ") + Formats(m_context.session.parameters).money(rest));
    m_cash->setProperty("danger", rest.isNegative());
    m_cash->style()->unpolish(m_cash);
    m_cash->style()->polish(m_cash);
}

void MemberTenders::setReadOnly(bool on) {
    for (NumberField *field : {m_value, m_card, m_voucher})
        if (field != nullptr)
            field->setReadOnly(on);
}

void MemberTenders::focusFirst() {
    m_value->setFocus(Qt::OtherFocusReason);
    m_value->selectAll();
}

bool MemberTenders::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    if (watched == (m_voucher != nullptr ? m_voucher : m_card))
        Q_EMIT finished();
    else
        focusNextChild();
    return true;
}

} // namespace jxc
