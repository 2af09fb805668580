#include "ui/statement_preview.h"

#include "reports/partner_statement.h"
#include "ui/form.h"
#include "ui/pages_preview.h"

namespace jxc {

void previewStatement(const FormContext &context, const Partner &partner, const QString &from,
                      const QString &to, QWidget *parent) {
    previewPages(
        context, QStringLiteral("往来对账单"),
        [&] { return statementPages(context.session, context.home, partner, from, to); }, parent);
}

} // namespace jxc
