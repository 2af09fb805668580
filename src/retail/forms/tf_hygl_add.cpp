#include "retail/forms/tf_hygl_add.h"

#include "core/session.h"
#include "master/master_kind.h"
#include "master/record_checks.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_hygl_sf.h"
#include "retail/member.h"
#include "retail/member_opening.h"
#include "retail/sms_send.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace jxc {

TF_Hygl_Add::TF_Hygl_Add(const FormContext &context, QWidget *parent)
    : RecordEditor(context, masterKind(u"jxc_hyxx"), parent) {
    addFirstMoney();
    connect(input(u"hh_sn"), &FieldInput::edited, this, &TF_Hygl_Add::showCredit);
    resize(820, sizeHint().height());
}

void TF_Hygl_Add::addFirstMoney() {
    m_firstMoney = new QWidget(this);
    m_amount = new NumberField(ValueKind::amount, Formats(session().parameters));
    m_amount->setObjectName(QStringLiteral("xf_je"));
    m_amount->setMinimumWidth(160);
    m_credit = new QLabel;
    m_credit->setObjectName(QStringLiteral("credit"));
    m_print = new QCheckBox(QStringLiteral("打印(&P)"));
    m_print->setObjectName(QStringLiteral("print"));
    m_print->setFocusPolicy(Qt::NoFocus);
    auto *caption = new QLabel(QStringLiteral("充值金额"));
    caption->setProperty("quiet", true);
    caption->setMinimumWidth(66); // as far as the fields above
    caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *row = new QHBoxLayout(m_firstMoney);
    row->setContentsMargins(0, 4, 0, 0);
    row->setSpacing(12);
    row->addWidget(caption);
    row->addWidget(m_amount);
    row->addWidget(m_print);
    row->addWidget(m_credit, 1);
    tabs().addBelow({}, m_firstMoney, 0);
    connect(m_amount, &NumberField::valueChanged, this, &TF_Hygl_Add::showCredit);
}

void TF_Hygl_Add::fill() {
    RecordEditor::fill();
    m_amount->clear();
    m_firstMoney->setVisible(record().isNew());
    showCredit();
}

/// What the card will hold, where the offer gives something on top.
void TF_Hygl_Add::showCredit() {
    Member member;
    member.offer = input(u"hh_sn")->text();
    const Decimal amount = m_amount->value();
    const Decimal bonus = rechargeBonus(session(), member, amount);
    const Formats formats(session().parameters);
    m_credit->setText(bonus.isZero()
                          ? QString()
                          : QStringLiteral("到账 %1（赠送 %2）")
                                .arg(formats.money(amount + bonus), formats.money(bonus)));
}

bool TF_Hygl_Add::isChanged() {
    return RecordEditor::isChanged() || !m_amount->value().isZero();
}

/// Nobody is asked for money before the rest is right.
Outcome TF_Hygl_Add::checked(QString *field) {
    return runFieldAction(db(), prompter(), field, [&](Answers &) {
        Record tried = record();
        prepareRecord(session(), kind(), tried);
        checkRecord(session(), kind(), tried);
    });
}

Outcome TF_Hygl_Add::store(QString *field) {
    if (!record().isNew() || m_amount->value().isZero())
        return RecordEditor::store(field);
    if (Outcome outcome = checked(field); !outcome.isDone())
        return outcome;
    Recharge first{.amount = m_amount->value()};
    TF_Hygl_Sf tenders(context(), first, this);
    if (!tenders.runModal())
        return {Outcome::Kind::declined, {}};
    RechargeReceipt receipt;
    Outcome outcome = openMember(session(), prompter(), record(), first, field, &receipt);
    if (outcome.isDone())
        finish(receipt);
    return outcome;
}

/// This window may close while the printer and the provider are still at it.
void TF_Hygl_Add::finish(const RechargeReceipt &receipt) {
    QWidget *owner = parentWidget() == nullptr ? this : parentWidget();
    sendSoon(session(), prompter(), context().home, receipt.notice, owner);
    if (!m_print->isChecked())
        return;
    auto *printing = new CounterPrinting(context(), owner);
    connect(printing, &CounterPrinting::failed, owner,
            [&asked = prompter()](const QString &words) { asked.inform(words, informCaption); });
    printing->printRecharge(receipt.number, false);
}

void TF_Hygl_Add::nextField() {
    const QWidget *last = tabs().inputs().back()->focusTarget();
    for (FieldInput *field : tabs().inputs())
        if (!field->isReadOnly())
            last = field->focusTarget();
    if (m_amount->hasFocus()) {
        okButton().setFocus();
    } else if (focusWidget() == last && record().isNew()) {
        m_amount->setFocus();
        m_amount->selectAll();
    } else {
        RecordEditor::nextField();
    }
}

} // namespace jxc
