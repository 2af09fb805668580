#include "ui/pages_preview.h"

#include "core/action.h"
#include "reports/pdf.h"
#include "reports/template.h"
#include "ui/form.h"
#include "ui/print_dialog.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

namespace jxc {

void previewPages(const FormContext &context, const QString &title,
                  const std::function<Pages()> &make, QWidget *parent) {
    Pages pages;
    try {
        pages = make();
    } catch (const Refusal &refusal) {
        context.prompter.inform(refusal.text(), informCaption);
        return;
    } catch (const TemplateError &error) {
        context.prompter.inform(error.text(), informCaption);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    setPaper(printer, pages.front());
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(title);
    preview.resize(parent->window()->size());
    QObject::connect(
        &preview, &QPrintPreviewDialog::paintRequested, &preview, [&](QPrinter *target) {
            if (!sendToPrinter(pages, {}, *target))
                context.prompter.inform(QStringLiteral("打印机没有接受该单据！"), informCaption);
        });
    preview.exec();
}

} // namespace jxc
