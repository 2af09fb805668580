#include "money/forms/tf_fyjsr.h"

#include "core/prompter.h"
#include "money/forms/expense_editor.h"
#include "ui/list_form.h"

namespace jxc {

namespace {

PlainEditor *makeEditor(const FormContext &context, const QString &number, QWidget *parent) {
    auto *editor = new ExpenseEditor(context, parent);
    if (number.isEmpty() || editor->open(number))
        return editor;
    delete editor;
    context.prompter.inform(QStringLiteral("单据“%1”不存在！").arg(number), informCaption);
    return nullptr;
}

ApprovalSpec spec() {
    ApprovalSpec spec;
    spec.formClass = QStringLiteral("TF_Fyjsr");
    spec.title = QStringLiteral("费用及收入");
    spec.rightGroup = QStringLiteral("rcgl");
    spec.entryRight = 6;
    spec.searchHint = QStringLiteral("查找 F3：单号、类型、备注");
    spec.columns = {column(u"rq", u"日期", ValueKind::date),
                    text(u"number", u"单据号", 132),
                    text(u"direction", u"收支", 56),
                    text(u"fy_lx", u"费用类型", 120),
                    summed(column(u"amount", u"金额", ValueKind::amount)),
                    text(u"fy_kmmc", u"科目名称", 112),
                    text(u"u_name", u"经手人", 80),
                    text(u"de_name", u"部门", 96),
                    text(u"fy_note", u"备注", 260),
                    text(u"a_name", u"操作员", 80)};
    spec.read = listExpenses;
    spec.approve = approveExpense;
    spec.cancel = cancelExpense;
    spec.remove = deleteExpense;
    spec.makeEditor = makeEditor;
    // A fee that came with a document has no number of its own, and nothing to change.
    spec.openOther = [](const FormContext &context, const Row &row) {
        if (!row.text(u"number").isEmpty())
            return false;
        context.prompter.inform(QStringLiteral("该费用由单据产生，请取消审核该单据！"),
                                informCaption);
        return true;
    };
    spec.lowerColumns = {text(u"direction", u"收支", 56), text(u"fy_lx", u"费用类型", 160),
                         column(u"count", u"笔数", ValueKind::integer, 64),
                         column(u"amount", u"金额合计", ValueKind::amount, 120)};
    spec.lower = [](const Session &, const Rows &shown, const Row *) {
        return expenseTotals(shown);
    };
    return spec;
}

} // namespace

TF_Fyjsr::TF_Fyjsr(const FormContext &context, QWidget *parent)
    : ApprovalList(context, spec(), parent) {
    actionBar().add(QStringLiteral("btnTypes"), QStringLiteral("费用类型"),
                    QKeySequence(QStringLiteral("Ctrl+T")),
                    [this] { this->context().stage.openForm(QStringLiteral("TF_Fylx"), {}); });
}

} // namespace jxc
