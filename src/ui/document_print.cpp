#include "ui/document_print.h"

#include "core/prompter.h"
#include "core/session.h"
#include "reports/print_log.h"
#include "ui/print_dialog.h"

#include <QPrinter>

namespace jxc {

namespace {

/// A slow spooler shows in the window that asked.
class WaitCursor {
public:
    explicit WaitCursor(QWidget *window)
        : m_window(window) {
        if (m_window)
            m_window->setCursor(Qt::WaitCursor);
    }
    ~WaitCursor() {
        if (m_window)
            m_window->unsetCursor();
    }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;

private:
    QWidget *m_window;
};

/// Reads the document and does something with it; what stands in the way is said.
bool withDocument(const FormContext &context, const QString &number,
                  const std::function<bool(const DocumentForm &)> &use) {
    try {
        return use(DocumentForm(context.session, context.home, number));
    } catch (const std::runtime_error &error) {
        // Refusals, broken templates and the database all speak in words for the user.
        context.prompter.inform(QString::fromUtf8(error.what()), informCaption);
    }
    return false;
}

bool sendNow(const FormContext &context, const DocumentForm &document) {
    const PrinterMemory memory(context.home);
    const QString name = memory.printerFor(document.kind());
    const QString say = QStringLiteral("单据：%1没有打印！").arg(document.number());
    if (name.isEmpty()) {
        context.prompter.inform(QStringLiteral("没有找到打印机，") + say, informCaption);
        return false;
    }
    const QString file = document.proposed(memory.templateFor(document.kind()));
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(name);
    printer.setDocName(document.number());
    printer.setCopyCount(document.copies(file));
    if (!sendToPrinter(document.pages(file), memory.offset(name), printer)) {
        context.prompter.inform(QStringLiteral("打印机“%1”不能打印，").arg(name) + say,
                                informCaption);
        return false;
    }
    PrintLog(context.home).add(document.number(), context.session.timeStamp());
    return true;
}

} // namespace

void printDocument(const FormContext &context, const QString &number, QWidget *parent) {
    withDocument(context, number, [&](const DocumentForm &document) {
        PrintDialog dialog(context, document, parent);
        return dialog.exec() == QDialog::Accepted;
    });
}

bool printDocumentNow(const FormContext &context, const QString &number, QWidget *parent) {
    const WaitCursor waiting(parent);
    return withDocument(context, number,
                        [&](const DocumentForm &document) { return sendNow(context, document); });
}

} // namespace jxc
