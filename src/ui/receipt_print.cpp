#include "ui/receipt_print.h"

#include "core/session.h"
#include "reports/pages.h"
#include "reports/template_files.h"
#include "ui/print_dialog.h"

#include <QDialogButtonBox>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace jxc {

namespace {

const QString templateFile = QStringLiteral("posxsd.fr3");

PrintValue amount(Decimal value) {
    return {ValueKind::amount, value};
}

PrintData receiptData(const Session &session, const PrintSettings &settings, const ReceiptPaper &p,
                      bool again) {
    PrintData data = PrintData::of(session);
    data.head = {{QStringLiteral("gl_djh"), p.number},
                 {QStringLiteral("pos_xsrq"), p.time},
                 {QStringLiteral("a_name"), p.cashier},
                 {QStringLiteral("pos_note"), p.note},
                 {QStringLiteral("pos_zlje"), amount(p.change)},
                 {QStringLiteral("pos_yhje"), amount(p.discount + p.rounding)},
                 {QStringLiteral("due"), amount(p.due)}};
    for (const ReceiptPaper::Line &l : p.lines)
        data.lines.push_back(
            {{QStringLiteral("g_name"), l.name},
             {QStringLiteral("dw_name"), l.unit},
             {QStringLiteral("pos_dj"), {ValueKind::price, l.price}},
             {QStringLiteral("pos_dzl"), {ValueKind::factor, l.discount}},
             {QStringLiteral("zhdj"), {ValueKind::price, (l.price * l.discount).rounded(6)}},
             {QStringLiteral("pos_sl"), {ValueKind::quantity, l.quantity}},
             {QStringLiteral("pos_zje"), amount(l.total)}});
    const ReceiptPaper::Member none;
    const ReceiptPaper::Member &m = p.member ? *p.member : none;
    data.vars = {{QStringLiteral("sTitle"), p.title()},
                 {QStringLiteral("again"), again ? QStringLiteral("（重打）") : QString()},
                 {QStringLiteral("yf"), amount(p.due)},
                 {QStringLiteral("sf"), amount(p.tendered)},
                 {QStringLiteral("hybh"), m.number},
                 {QStringLiteral("hyname"), m.name},
                 {QStringLiteral("hymobile"), m.mobile},
                 {QStringLiteral("bt1"), settings.title1},
                 {QStringLiteral("bt2"), settings.title2},
                 {QStringLiteral("jz1"), settings.foot1},
                 {QStringLiteral("jz2"), settings.foot2}};
    if (p.member) {
        data.vars.insert(QStringLiteral("hyye"), amount(m.balance));
        data.vars.insert(QStringLiteral("hyjf"), {ValueKind::integer, m.points});
    }
    return data;
}

/// Shows the receipt as it will be printed: Enter prints, Esc leaves it.
bool previewAgrees(const Pages &pages, QPrinter &printer, QWidget *parent) {
    QDialog dialog(parent);
    dialog.setWindowTitle(QStringLiteral("小票预览"));
    dialog.resize(480, 640);
    auto *column = new QVBoxLayout(&dialog);
    auto *preview = new QPrintPreviewWidget(&printer, &dialog);
    preview->setZoomMode(QPrintPreviewWidget::FitInView);
    QObject::connect(preview, &QPrintPreviewWidget::paintRequested, &dialog,
                     [&](QPrinter *target) { (void)sendToPrinter(pages, {}, *target); });
    column->addWidget(preview, 1);
    auto *buttons = new QDialogButtonBox(&dialog);
    auto *print = buttons->addButton(QStringLiteral("打印 Enter"), QDialogButtonBox::AcceptRole);
    print->setDefault(true);
    buttons->addButton(QStringLiteral("不打印 Esc"), QDialogButtonBox::RejectRole)
        ->setAutoDefault(false);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(buttons);
    print->setFocus();
    return dialog.exec() == QDialog::Accepted;
}

} // namespace

QString printReceiptByTemplate(const FormContext &context, const PrintSettings &settings,
                               const ReceiptPaper &paper, const QString &printerName, bool again,
                               QWidget *parent) {
    installTemplates(context.home);
    const Pages pages = layOut(loadTemplate(context.home, templateFile),
                               receiptData(context.session, settings, paper, again));
    QPrinter printer(QPrinter::HighResolution);
    if (!printerName.isEmpty())
        printer.setPrinterName(printerName);
    if (settings.previews && !previewAgrees(pages, printer, parent))
        return {};
    if (printerName.isEmpty())
        return QStringLiteral("没有找到打印机，小票%1没有打印，可以重打！").arg(paper.number);
    printer.setDocName(paper.number);
    printer.setCopyCount(settings.copies);
    if (sendToPrinter(pages, {}, printer))
        return {};
    return QStringLiteral("打印机“%1”不能打印，小票%2没有打印，可以重打！")
        .arg(printerName, paper.number);
}

} // namespace jxc
