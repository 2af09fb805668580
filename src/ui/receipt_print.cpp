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

PrintValue amount(Decimal value) {
    return {ValueKind::amount, value};
}

/// What every paper of the counter has above and below: the shop's own words, and what it is.
PrintFields framing(const PrintSettings &settings, const QString &title, bool again) {
    return {{QStringLiteral("sTitle"), title},
            {QStringLiteral("again"), again ? QStringLiteral("（重打）") : QString()},
            {QStringLiteral("bt1"), settings.title1},
            {QStringLiteral("bt2"), settings.title2},
            {QStringLiteral("jz1"), settings.foot1},
            {QStringLiteral("jz2"), settings.foot2}};
}

PrintData rechargeData(const Session &session, const PrintSettings &settings,
                       const RechargePaper &p, bool again) {
    PrintData data = PrintData::of(session);
    data.head = {{QStringLiteral("gl_djh"), p.number},
                 {QStringLiteral("xf_rq"), p.time},
                 {QStringLiteral("a_name"), p.cashier},
                 {QStringLiteral("xf_note"), p.note},
                 {QStringLiteral("hy_bh"), p.memberNumber},
                 {QStringLiteral("hy_name"), p.memberName},
                 {QStringLiteral("hy_mobile"), p.memberMobile},
                 {QStringLiteral("xf_je"), amount(p.amount.abs())},
                 {QStringLiteral("xf_yhje"), amount(p.bonus.abs())},
                 {QStringLiteral("xf_xj"), amount(p.cash.abs())},
                 {QStringLiteral("xf_zlje"), amount(p.change)},
                 {QStringLiteral("hy_zhje"), amount(p.value)},
                 {QStringLiteral("hy_jf"), {ValueKind::integer, p.points}}};
    const bool out = p.isPayout();
    data.vars = framing(settings, p.title(), again);
    data.vars.insert(QStringLiteral("what"),
                     out ? QStringLiteral("退款金额") : QStringLiteral("充值金额"));
    data.vars.insert(QStringLiteral("bonus"),
                     out ? QStringLiteral("扣回赠送") : QStringLiteral("赠送金额"));
    data.vars.insert(QStringLiteral("left"),
                     again ? QStringLiteral("当前余额") : QStringLiteral("卡内余额"));
    return data;
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
    data.vars = framing(settings, p.title(), again);
    data.vars.insert({{QStringLiteral("yf"), amount(p.due)},
                      {QStringLiteral("sf"), amount(p.tendered)},
                      {QStringLiteral("hybh"), m.number},
                      {QStringLiteral("hyname"), m.name},
                      {QStringLiteral("hymobile"), m.mobile}});
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

/// Lays a paper out and prints it, after a preview where the shop wants one.
QString printPaper(const FormContext &context, const PrintSettings &settings,
                   const QString &templateFile, const PrintData &data, const QString &number,
                   const QString &printerName, QWidget *parent) {
    installTemplates(context.home);
    const Pages pages = layOut(loadTemplate(context.home, templateFile), data);
    QPrinter printer(QPrinter::HighResolution);
    if (!printerName.isEmpty())
        printer.setPrinterName(printerName);
    if (settings.previews && !previewAgrees(pages, printer, parent))
        return {};
    if (printerName.isEmpty())
        return QStringLiteral("没有找到打印机，小票%1没有打印，可以重打！").arg(number);
    printer.setDocName(number);
    printer.setCopyCount(settings.copies);
    if (sendToPrinter(pages, {}, printer))
        return {};
    return QStringLiteral("打印机“%1”不能打印，小票%2没有打印，可以重打！")
        .arg(printerName, number);
}

} // namespace

QString printReceiptByTemplate(const FormContext &context, const PrintSettings &settings,
                               const ReceiptPaper &paper, const QString &printer, bool again,
                               QWidget *parent) {
    return printPaper(context, settings, QStringLiteral("posxsd.fr3"),
                      receiptData(context.session, settings, paper, again), paper.number, printer,
                      parent);
}

QString printRechargeByTemplate(const FormContext &context, const PrintSettings &settings,
                                const RechargePaper &paper, const QString &printer, bool again,
                                QWidget *parent) {
    return printPaper(context, settings, QStringLiteral("hyxf.fr3"),
                      rechargeData(context.session, settings, paper, again), paper.number, printer,
                      parent);
}

} // namespace jxc
