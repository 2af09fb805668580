#include "money/forms/invoice_editor.h"

#include "core/rights.h"
#include "core/session.h"
#include "ui/date_field.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

namespace jxc {

namespace {

constexpr int mayChooseDate = 11; ///< of group wlzk

bool isTyped(const QString &number) {
    return number.startsWith(QLatin1String("CP")) || number.startsWith(QLatin1String("XP"));
}

PlainEditor *makeEditor(const FormContext &context, Partner::Kind kind, const QString &number,
                        QWidget *parent) {
    auto *editor = new InvoiceEditor(context, kind, parent);
    if (number.isEmpty() || editor->open(number))
        return editor;
    delete editor;
    context.prompter.inform(QStringLiteral("单据“%1”不存在！").arg(number), informCaption);
    return nullptr;
}

} // namespace

InvoiceEditor::InvoiceEditor(const FormContext &context, Partner::Kind kind, QWidget *parent)
    : EntryEditor(context,
                  kind == Partner::Kind::supplier ? QStringLiteral("TF_Fpcg_Add")
                                                  : QStringLiteral("TF_Fpxs_Add"),
                  invoiceTitle(kind), parent)
    , m_kind(kind) {
    addNumber();
    m_date =
        addDate("fp_rq", QStringLiteral("开单日期"), hasRight(session(), u"wlzk", mayChooseDate));
    m_partner =
        addPick("fp_ghskh",
                kind == Partner::Kind::customer ? QStringLiteral("客户") : QStringLiteral("供货商"),
                partnerSource(context, kind));
    m_amount = addAmount("fp_kpje", QStringLiteral("已开票金额"), true);
    m_opening = addAmount("fp_qcje", QStringLiteral("期初应开"), true);
    m_invoiceNo = addText("fp_no", QStringLiteral("发票号码"), 32);
    m_invoiceDate = addDate("fp_kprq", QStringLiteral("开票日期"), true);
    m_clerk =
        addPick("u_sn", QStringLiteral("经手人"), employeeSource(context, EmployeeDuty::any, {}));
    m_note = addNote("fp_note");
    startNew();
}

void InvoiceEditor::FormActivate() {
    EntryEditor::FormActivate();
    if (!isReadOnly())
        beginAt(m_partner);
}

void InvoiceEditor::startNew() {
    m_draft = InvoiceDraft();
    m_draft.partner.kind = m_kind;
    m_draft.date = m_draft.invoiceDate = session().today();
    fill();
    chooseClerk(m_clerk);
}

bool InvoiceEditor::open(const QString &number) {
    const auto stored = loadInvoice(session(), number);
    if (!stored)
        return false;
    m_draft = *stored;
    fill();
    if (m_draft.approved)
        setReadOnly();
    return true;
}

void InvoiceEditor::fill() {
    showNumber(m_draft.number);
    m_date->setDate(m_draft.date);
    m_partner->setCode(m_draft.partner.number);
    m_amount->setValue(m_draft.invoiced);
    m_opening->setValue(m_draft.opening);
    m_invoiceNo->setText(m_draft.invoiceNo);
    m_invoiceDate->setDate(m_draft.invoiceDate);
    m_clerk->setCode(m_draft.clerk);
    m_note->setText(m_draft.note);
}

Outcome InvoiceEditor::store(QString *number) {
    InvoiceDraft draft = m_draft;
    draft.date = m_date->date();
    draft.partner.number = m_partner->code();
    draft.invoiced = m_amount->value();
    draft.opening = m_opening->value();
    draft.invoiceNo = m_invoiceNo->text();
    draft.invoiceDate = m_invoiceDate->date();
    draft.clerk = m_clerk->code();
    draft.note = m_note->text();
    return saveInvoice(session(), prompter(), draft, number);
}

Outcome InvoiceEditor::approve(const QString &number) {
    return approveInvoice(session(), prompter(), number);
}

ApprovalSpec invoiceSpec(Partner::Kind kind) {
    const bool customer = kind == Partner::Kind::customer;
    ApprovalSpec spec;
    spec.formClass = customer ? QStringLiteral("TF_Fpxs") : QStringLiteral("TF_Fpcg");
    spec.title = invoiceTitle(kind);
    spec.rightGroup = QStringLiteral("wlzk");
    spec.entryRight = customer ? 13 : 12;
    spec.searchHint = QStringLiteral("查找 F3：单号、往来单位、发票号");
    spec.columns = {column(u"rq", u"开单日期", ValueKind::date),
                    text(u"number", u"单据号", 132),
                    text(u"fp_djtxt", u"单据类型", 96),
                    text(u"partner_name", customer ? u"客户" : u"供货商", 160),
                    hidden(summed(column(u"fp_qcje", u"期初应开", ValueKind::amount))),
                    summed(column(u"fp_yfje", u"应开票金额", ValueKind::amount)),
                    summed(column(u"fp_kpje", u"已开票金额", ValueKind::amount)),
                    column(u"fp_ljje", u"期末应开金额", ValueKind::amount, 108),
                    text(u"fp_no", u"发票号码", 112),
                    column(u"fp_kprq", u"开票日期", ValueKind::date),
                    text(u"u_name", u"经手人", 80),
                    text(u"fp_note", u"备注", 140),
                    hidden(text(u"a_name", u"操作员", 80)),
                    text(u"fp_checker", u"审核人", 80),
                    hidden(column(u"fp_chkrq", u"审核日期", ValueKind::date))};
    spec.read = [kind](const Session &session, const ApprovalQuery &query) {
        return listInvoices(session, kind, query);
    };
    spec.approve = approveInvoice;
    spec.cancel = cancelInvoice;
    spec.remove = deleteInvoice;
    spec.makeEditor = [kind](const FormContext &context, const QString &number, QWidget *parent) {
        return makeEditor(context, kind, number, parent);
    };
    // Rows that came with a document lead to it.
    spec.openOther = [](const FormContext &context, const Row &row) {
        const QString number = row.text(u"number");
        if (isTyped(number))
            return false;
        context.stage.openDocument(number);
        return true;
    };
    return spec;
}

} // namespace jxc
