#include "money/forms/settlement_editor.h"

#include "core/rights.h"
#include "core/session.h"
#include "money/forms/settlement_parts.h"
#include "money/settlement.h"
#include "ui/date_field.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QFormLayout>
#include <QLabel>
#include <QStyle>

namespace jxc {

namespace {

constexpr int mayChooseDate = 11; ///< of group wlzk

bool ofCustomer(const SettlementKind &kind) {
    return kind.partner == Partner::Kind::customer;
}

QString classOf(const SettlementKind &kind) {
    if (kind.settles())
        return ofCustomer(kind) ? QStringLiteral("TF_Ysksk_Add") : QStringLiteral("TF_Yfkfk_Add");
    return ofCustomer(kind) ? QStringLiteral("TF_Yskdj_Add") : QStringLiteral("TF_Yfkdj_Add");
}

} // namespace

SettlementEditor::SettlementEditor(const FormContext &context, const SettlementKind &kind,
                                   QWidget *parent)
    : EntryEditor(context, classOf(kind), kind.title.toString(), parent)
    , m_kind(kind) {
    addFields();
    if (kind.settles())
        addParts();
    startNew();
}

void SettlementEditor::addFields() {
    const bool customer = ofCustomer(m_kind);
    addNumber();
    m_date =
        addDate("k_rq", QStringLiteral("开单日期"), hasRight(session(), u"wlzk", mayChooseDate));
    m_partner = addPick("k_ghskh", customer ? QStringLiteral("客户") : QStringLiteral("供货商"),
                        partnerSource(context(), m_kind.partner));
    connect(m_partner, &PickField::chosen, this, &SettlementEditor::partnerChanged);
    m_balance = new QLabel;
    m_balance->setObjectName(QStringLiteral("balance"));
    fields()->addRow(customer ? QStringLiteral("应收余额") : QStringLiteral("应付余额"), m_balance);
    if (m_kind.settles()) {
        m_amount = addAmount(
            "k_sfje", customer ? QStringLiteral("收款金额") : QStringLiteral("付款金额"), true);
        m_discount = addAmount("k_yhje", QStringLiteral("优惠金额"), true);
        m_account =
            addPick("k_fkfs", customer ? QStringLiteral("收款方式") : QStringLiteral("付款方式"),
                    accountSource(context()));
        connect(m_discount, &NumberField::valueChanged, this, &SettlementEditor::showRest);
    } else {
        m_amount = addAmount(
            "k_yfje", customer ? QStringLiteral("应收金额") : QStringLiteral("应付金额"), true);
        m_amount->setPlaceholderText(QStringLiteral("负数冲减"));
    }
    connect(m_amount, &NumberField::valueChanged, this, &SettlementEditor::showRest);
    m_clerk =
        addPick("u_sn", QStringLiteral("经手人"), employeeSource(context(), EmployeeDuty::any, {}));
    m_note = addNote("k_note");
}

void SettlementEditor::addParts() {
    m_rest = new QLabel;
    m_rest->setObjectName(QStringLiteral("rest"));
    m_rest->setWordWrap(true);
    fields()->addRow(QString(), m_rest);
    m_parts = new SettlementParts(Formats(session().parameters), this);
    addBesideFields(m_parts);
    connect(m_parts, &SettlementParts::partsChanged, this, &SettlementEditor::showRest);
    addButton(QStringLiteral("btnAuto"), QStringLiteral("自动分配"), Qt::Key_F7,
              [this] { btnAutoClick(); });
    // On a small screen at a large scale the window stays within the one behind it.
    const int room = parentWidget() == nullptr ? 1040 : parentWidget()->window()->width() - 24;
    resize(qMin(1040, room), 480);
}

void SettlementEditor::FormActivate() {
    EntryEditor::FormActivate();
    if (isReadOnly())
        return;
    beginAt(m_partner->code().isEmpty() ? static_cast<QLineEdit *>(m_partner) : m_amount);
}

void SettlementEditor::startNew() {
    m_draft = SettlementDraft();
    m_draft.code = m_kind.code.toString();
    m_draft.date = session().today();
    fill();
    chooseClerk(m_clerk);
}

bool SettlementEditor::open(const QString &number) {
    const auto stored = loadSettlement(session(), number);
    if (!stored)
        return false;
    m_draft = *stored;
    fill();
    if (m_draft.approved) {
        setReadOnly();
        setWindowTitle(windowTitle() + QStringLiteral("（已审核）"));
    }
    return true;
}

void SettlementEditor::setReadOnly() {
    EntryEditor::setReadOnly();
    if (m_parts != nullptr)
        m_parts->setReadOnly();
}

void SettlementEditor::fill() {
    showNumber(m_draft.number);
    m_date->setDate(m_draft.date);
    m_partner->setCode(m_draft.partner);
    m_amount->setValue(m_draft.amount);
    if (m_discount != nullptr) {
        m_discount->setValue(m_draft.discount);
        m_account->setCode(m_draft.account);
    }
    m_clerk->setCode(m_draft.clerk);
    m_note->setText(m_draft.note);
    partnerChanged();
}

void SettlementEditor::choosePartner(const QString &partner) {
    m_partner->setCode(partner);
    partnerChanged();
}

void SettlementEditor::partnerChanged() {
    const QString partner = m_partner->code();
    const Decimal balance =
        partner.isEmpty() ? Decimal() : CurrentBalance(db(), {m_kind.partner, partner});
    m_balance->setText(partner.isEmpty() ? QString()
                                         : Formats(session().parameters).money(balance));
    m_balance->setProperty("danger", balance.isPositive());
    m_balance->style()->unpolish(m_balance);
    m_balance->style()->polish(m_balance);
    if (m_parts == nullptr)
        return;
    // Another partner's documents are none of the stored ones.
    const bool isStored = partner == m_draft.partner;
    const auto items =
        partner.isEmpty() ? std::vector<OpenItem>() : openItems(session(), m_kind.partner, partner);
    m_parts->setItems(items, isStored ? m_draft.parts : std::vector<Allocation>());
}

void SettlementEditor::showRest() {
    if (m_parts == nullptr)
        return;
    const Formats formats(session().parameters);
    const auto amount = [&](Decimal value) { return formats.text(ValueKind::amount, value); };
    const Decimal rest = m_amount->value() + m_discount->value() - m_parts->sum();
    m_rest->setText(QStringLiteral("本次结算 %1\n%2 %3")
                        .arg(amount(m_parts->sum()),
                             rest.isNegative()    ? QStringLiteral("超出")
                             : ofCustomer(m_kind) ? QStringLiteral("余款记为预收")
                                                  : QStringLiteral("余款记为预付"),
                             amount(rest.abs())));
}

void SettlementEditor::btnAutoClick() {
    if (isReadOnly() || m_parts == nullptr)
        return;
    m_parts->setParts(spreadOldestFirst(m_parts->items(), m_amount->value() + m_discount->value()));
    m_parts->setFocus();
}

QStringList SettlementEditor::content() const {
    QStringList all = EntryEditor::content();
    if (m_parts != nullptr)
        for (const Allocation &part : m_parts->parts())
            all << part.number + u' ' + part.amount.toText();
    return all;
}

Outcome SettlementEditor::store(QString *number) {
    SettlementDraft draft = m_draft;
    draft.date = m_date->date();
    draft.partner = m_partner->code();
    draft.amount = m_amount->value();
    draft.clerk = m_clerk->code();
    draft.note = m_note->text();
    if (m_parts != nullptr) {
        draft.discount = m_discount->value();
        draft.account = m_account->code();
        draft.parts = m_parts->parts();
    }
    return saveSettlement(session(), prompter(), draft, number);
}

Outcome SettlementEditor::approve(const QString &number) {
    return approveSettlement(session(), prompter(), number);
}

SettlementEditor *makeSettlementEditor(const FormContext &context, const SettlementKind &kind,
                                       const QString &number, QWidget *parent) {
    auto *editor = new SettlementEditor(context, kind, parent);
    if (number.isEmpty() || editor->open(number))
        return editor;
    delete editor;
    context.prompter.inform(QStringLiteral("单据“%1”不存在！").arg(number), informCaption);
    return nullptr;
}

} // namespace jxc
