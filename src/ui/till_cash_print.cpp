#include "ui/till_cash_print.h"

#include "core/session.h"
#include "reports/print_data.h"
#include "reports/template_files.h"
#include "ui/form.h"
#include "ui/pages_preview.h"

namespace jxc {

namespace {

/// Of the two amounts a row has one; the other prints empty.
PrintValue amountOf(Decimal amount) {
    return amount.isZero() ? PrintValue() : PrintValue(ValueKind::amount, amount);
}

PrintData tillCashData(const Session &session, const std::vector<TillRow> &rows,
                       const TillCashAsked &asked) {
    PrintData data = PrintData::of(session);
    Decimal rest;
    for (const TillRow &row : rows) {
        rest += row.in - row.out;
        data.lines.push_back({{QStringLiteral("no"), QString::number(data.lines.size() + 1)},
                              {QStringLiteral("gl_djh"), row.number},
                              {QStringLiteral("crk_rq"), row.date},
                              {QStringLiteral("kind"), row.kind},
                              {QStringLiteral("rkje"), amountOf(row.in)},
                              {QStringLiteral("ckje"), amountOf(row.out)},
                              {QStringLiteral("a_name"), row.cashier},
                              {QStringLiteral("crk_note"), row.note}});
    }
    data.vars = {{QStringLiteral("date1"), asked.from},
                 {QStringLiteral("date2"), asked.to},
                 {QStringLiteral("cashier"), asked.cashier},
                 {QStringLiteral("rest"), {ValueKind::amount, rest}},
                 {QStringLiteral("a_name"), session.currentOperatorName},
                 {QStringLiteral("today"), session.today()}};
    return data;
}

} // namespace

void previewTillCash(const FormContext &context, const std::vector<TillRow> &rows,
                     const TillCashAsked &asked, QWidget *parent) {
    previewPages(
        context, QStringLiteral("收银员出入款"),
        [&] {
            installTemplates(context.home);
            return layOut(loadTemplate(context.home, QStringLiteral("poscrk.fr3")),
                          tillCashData(context.session, rows, asked));
        },
        parent);
}

} // namespace jxc
