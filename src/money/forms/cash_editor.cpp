#include "money/forms/cash_editor.h"

#include "core/session.h"
#include "ui/date_field.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

namespace jxc {

namespace {

QString classOf(const QString &code) {
    if (code == QLatin1String("XC"))
        return QStringLiteral("TF_Xjyh_Ck");
    return code == QLatin1String("XJ") ? QStringLiteral("TF_Xjyh_Jk")
                                       : QStringLiteral("TF_Xjyh_Zz");
}

/// The journal keeps the clerk's name, not his number.
PickSource clerkByName(const FormContext &context) {
    PickSource source = employeeSource(context, EmployeeDuty::any, {});
    source.codeField = source.nameField;
    return source;
}

} // namespace

CashEditor::CashEditor(const FormContext &context, const QString &code, QWidget *parent)
    : EntryEditor(context, classOf(code), cashEntryTitle(code), parent) {
    m_draft.code = code;
    const bool isTransfer = code == QLatin1String("XZ");
    addNumber();
    m_date = addDate("xj_rq", QStringLiteral("日期"), session().rights.changeDate);
    m_account = addPick("xj_kmmc", isTransfer ? QStringLiteral("转出账户") : QStringLiteral("账户"),
                        accountSource(context));
    if (isTransfer)
        m_target = addPick("xj_kmmc2", QStringLiteral("转入账户"), accountSource(context));
    m_amount = addAmount("xj_je", QStringLiteral("金额"));
    m_clerk = addPick("u_name", QStringLiteral("经手人"), clerkByName(context), true);
    m_note = addNote("xj_note");
    startNew();
}

void CashEditor::FormActivate() {
    EntryEditor::FormActivate();
    if (!isReadOnly())
        beginAt(m_account->code().isEmpty() ? static_cast<QLineEdit *>(m_account) : m_amount);
}

void CashEditor::startNew() {
    CashDraft draft;
    draft.code = m_draft.code;
    draft.date = session().today();
    m_draft = draft;
    fill();
    if (const auto usual = defaultEmployee(session()))
        m_clerk->setChoice(usual->name, usual->name);
}

bool CashEditor::open(const QString &number) {
    const auto stored = loadCashEntry(session(), number);
    if (!stored)
        return false;
    m_draft = *stored;
    fill();
    if (m_draft.approved)
        setReadOnly();
    return true;
}

void CashEditor::chooseAccount(const QString &account) {
    m_account->setChoice(account, account);
}

void CashEditor::fill() {
    showNumber(m_draft.number);
    m_date->setDate(m_draft.date);
    m_account->setChoice(m_draft.account, m_draft.account);
    if (m_target != nullptr)
        m_target->setChoice(m_draft.target, m_draft.target);
    m_amount->setValue(m_draft.amount);
    m_clerk->setChoice(m_draft.clerk, m_draft.clerk);
    m_note->setText(m_draft.note);
}

Outcome CashEditor::store(QString *number) {
    CashDraft draft = m_draft;
    draft.date = m_date->date();
    draft.account = m_account->code();
    draft.target = m_target == nullptr ? QString() : m_target->code();
    draft.amount = m_amount->value();
    draft.clerk = m_clerk->code();
    draft.note = m_note->text();
    return saveCashEntry(session(), prompter(), draft, number);
}

Outcome CashEditor::approve(const QString &number) {
    return approveCashEntry(session(), prompter(), number);
}

} // namespace jxc
