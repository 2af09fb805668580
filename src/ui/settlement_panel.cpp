#include "ui/settlement_panel.h"

#include "base/capitals.h"
#include "core/session.h"
#include "ui/formats.h"
#include "ui/member_tenders.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

namespace jxc {

SettlementPanel::SettlementPanel(const FormContext &context, const DocumentFormSpec &spec,
                                 QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_spec(spec)
    , m_due(new QLabel(this))
    , m_capitals(new QLabel(this))
    , m_restLabel(new QLabel(this))
    , m_paid(new NumberField(ValueKind::amount, Formats(context.session.parameters), this))
    , m_rest(new QComboBox(this))
    , m_account(new PickField(accountSource(context), Formats(context.session.parameters), this)) {
    m_due->setProperty("total", true);
    m_due->setObjectName(QStringLiteral("due"));
    m_capitals->setProperty("quiet", true);
    m_capitals->setSizePolicy(QSizePolicy::Ignored,
                              QSizePolicy::Preferred); // the first to give way
    m_restLabel->setProperty("quiet", true);
    m_paid->setObjectName(QStringLiteral("paid"));
    m_paid->setFixedWidth(120);
    m_rest->setObjectName(QStringLiteral("rest"));
    // Returns owe what is not paid back; there is no other choice.
    if (!spec.isReturn)
        m_rest->addItem(QStringLiteral("按实付款结算"), true);
    m_rest->addItem(spec.owedWord, false);
    m_rest->setCurrentIndex(m_rest->count() - 1);
    m_account->setObjectName(QStringLiteral("account"));
    m_account->setFixedWidth(140);
    QHBoxLayout *layout = addMoneyLine();
    const auto label = [this](const QString &caption) {
        auto *l = new QLabel(caption, this);
        l->setProperty("quiet", true);
        return l;
    };
    layout->addWidget(label(spec.dueWord + QStringLiteral("金额")));
    layout->addWidget(m_due);
    layout->addWidget(m_capitals, 1);
    layout->addWidget(label(spec.paidWord + QStringLiteral("金额")));
    layout->addWidget(m_paid);
    layout->addWidget(m_restLabel);
    layout->addWidget(m_rest);
    layout->addWidget(label(QStringLiteral("账户")));
    layout->addWidget(m_account);
    for (QWidget *field : {static_cast<QWidget *>(m_paid), static_cast<QWidget *>(m_rest),
                           static_cast<QWidget *>(m_account)})
        field->installEventFilter(this);
    connect(m_paid, &QLineEdit::textEdited, this, [this](const QString &typed) {
        m_paidTyped = !typed.isEmpty();
        showRest();
        Q_EMIT edited();
    });
    connect(m_rest, &QComboBox::activated, this, &SettlementPanel::edited);
    connect(m_account, &PickField::chosen, this, &SettlementPanel::edited);
    setDue({}, {});
}

/// The line of every document with money; below it the member's.
QHBoxLayout *SettlementPanel::addMoneyLine() {
    auto *lines = new QVBoxLayout(this);
    lines->setContentsMargins(12, 8, 12, 8);
    lines->setSpacing(8);
    auto *money = new QHBoxLayout;
    money->setSpacing(8);
    lines->addLayout(money);
    if (m_spec.isSale()) {
        m_tenders = new MemberTenders(m_context, m_spec, this);
        lines->addWidget(m_tenders);
        connect(m_tenders, &MemberTenders::edited, this, &SettlementPanel::edited);
        connect(m_tenders, &MemberTenders::finished, this, &SettlementPanel::finished);
    }
    return money;
}

void SettlementPanel::setMember(const QString &key) {
    if (m_tenders != nullptr)
        m_tenders->setMember(key);
}

void SettlementPanel::focusTenders() {
    if (m_tenders != nullptr)
        m_tenders->focusFirst();
}

void SettlementPanel::setDue(Decimal due, Decimal ofLines) {
    const Formats formats(m_context.session.parameters);
    m_dueNow = due;
    m_due->setText(formats.money(due));
    QString words = amountInCapitals(due.toText(2));
    if (due != ofLines)
        words +=
            QStringLiteral("　（整单优惠 %1）").arg(formats.text(ValueKind::amount, ofLines - due));
    m_capitals->setText(words);
    if (!m_paidTyped)
        m_paid->setValue(due);
    showRest();
}

void SettlementPanel::showRest() {
    const Decimal rest = m_dueNow - m_paid->value();
    const bool short_ = rest.isPositive();
    m_restLabel->setText(
        short_ ? m_spec.restWord + u' ' +
                     Formats(m_context.session.parameters).text(ValueKind::amount, rest)
               : QString());
    if (m_tenders != nullptr)
        m_tenders->setPaid(m_paid->value());
    m_rest->setVisible(short_);
    m_restLabel->setVisible(short_);
}

void SettlementPanel::fill(const Draft &draft) {
    m_paidTyped = draft.paid.has_value();
    if (draft.paid)
        m_paid->setValue(*draft.paid);
    m_rest->setCurrentIndex(qMax(0, m_rest->findData(draft.restForgiven)));
    m_account->setCode(draft.account);
    if (m_tenders != nullptr)
        m_tenders->fill(draft);
    showRest();
}

void SettlementPanel::collect(Draft &draft) const {
    draft.paid.reset();
    if (m_paidTyped)
        draft.paid = m_paid->value();
    draft.restForgiven = m_rest->currentData().toBool();
    draft.account = m_account->code();
    if (m_tenders != nullptr)
        draft.tenders = m_tenders->tenders();
}

void SettlementPanel::setReadOnly(bool on) {
    m_paid->setReadOnly(on);
    m_rest->setEnabled(!on);
    m_account->setEnabled(!on);
    if (m_tenders != nullptr)
        m_tenders->setReadOnly(on);
}

void SettlementPanel::focusPaid() {
    m_paid->setFocus(Qt::OtherFocusReason);
    m_paid->selectAll();
}

bool SettlementPanel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    if (watched == m_account) {
        if (m_account->isTyped() && !m_account->commitTyped())
            return true;
        if (m_tenders != nullptr && !m_tenders->isHidden())
            m_tenders->focusFirst();
        else
            Q_EMIT finished();
    } else if (watched == m_paid && !m_rest->isVisible()) {
        m_account->setFocus(Qt::OtherFocusReason);
    } else {
        focusNextChild();
    }
    return true;
}

} // namespace jxc
