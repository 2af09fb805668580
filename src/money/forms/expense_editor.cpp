#include "money/forms/expense_editor.h"

#include "core/session.h"
#include "db/database.h"
#include "ui/date_field.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/row_list.h"

namespace jxc {

namespace {

/// A short list that is read once and filtered as one types.
PickSource shortList(ColumnSpecs columns, Rows rows, const QString &code, const QString &name) {
    PickSource source;
    source.columns = std::move(columns);
    source.codeField = code;
    source.nameField = name;
    source.search = [rows, name](const QString &typed) {
        Rows found;
        for (const Row &row : rows)
            if (row.text(name).contains(typed, Qt::CaseInsensitive))
                found.push_back(row);
        return found;
    };
    source.find = [rows, code](const QString &wanted) -> std::optional<Row> {
        for (const Row &row : rows)
            if (row.text(code) == wanted)
                return row;
        return std::nullopt;
    };
    return source;
}

PickSource typeSource(Database &db) {
    return shortList(
        {text(u"fy_lx", u"费用类型", 140), text(u"direction", u"方向", 64)},
        db.rows(QStringLiteral("select fy_lx,case when fy_fx=1 then '收入' else '费用' "
                               "end as direction from jxc_fylx order by id")),
        QStringLiteral("fy_lx"), QStringLiteral("fy_lx"));
}

PickSource departmentSource(Database &db) {
    return shortList({text(u"de_sn", u"编号", 80), text(u"de_name", u"部门", 140)},
                     db.rows(QStringLiteral("select de_sn,de_name from jxc_dept order by id")),
                     QStringLiteral("de_sn"), QStringLiteral("de_name"));
}

} // namespace

ExpenseEditor::ExpenseEditor(const FormContext &context, QWidget *parent)
    : EntryEditor(context, QStringLiteral("TF_Fyjsr_Add"), QStringLiteral("费用及收入"), parent) {
    addNumber();
    m_date = addDate("fy_rq", QStringLiteral("日期"), session().rights.changeDate);
    m_type = addPick("fy_lx", QStringLiteral("费用类型"), typeSource(db()));
    m_amount = addAmount("fy_je", QStringLiteral("金额"));
    m_account = addPick("fy_kmmc", QStringLiteral("科目名称"), accountSource(context));
    m_clerk =
        addPick("u_sn", QStringLiteral("经手人"), employeeSource(context, EmployeeDuty::any, {}));
    m_department = addPick("de_sn", QStringLiteral("部门"), departmentSource(db()), true);
    m_note = addNote("fy_note");
    startNew();
}

void ExpenseEditor::FormActivate() {
    EntryEditor::FormActivate();
    if (!isReadOnly())
        beginAt(m_type);
}

void ExpenseEditor::startNew() {
    m_draft = ExpenseDraft();
    m_draft.date = session().today();
    fill();
    chooseClerk(m_clerk);
}

bool ExpenseEditor::open(const QString &number) {
    const auto stored = loadExpense(session(), number);
    if (!stored)
        return false;
    m_draft = *stored;
    fill();
    if (m_draft.approved)
        setReadOnly();
    return true;
}

void ExpenseEditor::fill() {
    showNumber(m_draft.number);
    m_date->setDate(m_draft.date);
    m_type->setChoice(m_draft.type, m_draft.type);
    m_amount->setValue(m_draft.amount);
    m_account->setCode(m_draft.account);
    m_clerk->setCode(m_draft.clerk);
    m_department->setCode(m_draft.department);
    m_note->setText(m_draft.note);
}

Outcome ExpenseEditor::store(QString *number) {
    ExpenseDraft draft = m_draft;
    draft.date = m_date->date();
    draft.type = m_type->code();
    draft.amount = m_amount->value();
    draft.account = m_account->code();
    draft.clerk = m_clerk->code();
    draft.department = m_department->code();
    draft.note = m_note->text();
    return saveExpense(session(), prompter(), draft, number);
}

Outcome ExpenseEditor::approve(const QString &number) {
    return approveExpense(session(), prompter(), number);
}

} // namespace jxc
