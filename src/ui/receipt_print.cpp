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

/// A line per figure.
PrintData shiftData(const Session &session, const PrintSettings &settings, const EndedShift &ended,
                    bool again) {
    PrintData data = PrintData::of(session);
    const auto amount = [](Decimal value) { return PrintValue(ValueKind::amount, value); };
    const Handover &handover = ended.handover;
    data.head = {{QStringLiteral("a_name"), ended.shift.figures.cashier},
                 {QStringLiteral("jb_begintime"), ended.shift.begin},
                 {QStringLiteral("jb_endtime"), ended.shift.end},
                 {QStringLiteral("jb_nextuser"), handover.next},
                 {QStringLiteral("jb_note"), handover.note},
                 {QStringLiteral("jb_yjje"), amount(ended.shift.cashDue())},
                 {QStringLiteral("jb_sjje"), amount(handover.handedIn)},
                 {QStringLiteral("jb_xfje"), amount(handover.left)},
                 {QStringLiteral("difference"), amount(handover.difference(ended.shift))}};
    for (const auto &lines : {shiftLines(ended.shift), handoverLines(ended)})
        for (const ShiftLine &line : lines)
            if (line.isAlways || !line.amount.isZero())
                data.lines.push_back({{QStringLiteral("caption"), line.caption},
                                      {QStringLiteral("amount"), amount(line.amount)}});
    data.vars = {{QStringLiteral("again"), again ? QStringLiteral("（重打）") : QString()},
                 {QStringLiteral("bt1"), settings.title1}};
    return data;
}

/// Something small that the counter prints with a template of its own.
struct Slip {
    QString templateFile;
    PrintData data;
    QString name;   ///< what it is called when it could not be printed: "小票XS26033110001"
    QString number; ///< of the print job
    int copies = 1;
};

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

QString printSlip(const FormContext &context, const PrintSettings &settings, const Slip &slip,
                  const QString &printerName, QWidget *parent) {
    installTemplates(context.home);
    const Pages pages = layOut(loadTemplate(context.home, slip.templateFile), slip.data);
    QPrinter printer(QPrinter::HighResolution);
    if (!printerName.isEmpty())
        printer.setPrinterName(printerName);
    if (settings.previews && !previewAgrees(pages, printer, parent))
        return {};
    if (printerName.isEmpty())
        return QStringLiteral("没有找到打印机，%1没有打印，可以重打！").arg(slip.name);
    printer.setDocName(slip.number);
    printer.setCopyCount(slip.copies);
    if (sendToPrinter(pages, {}, printer))
        return {};
    return QStringLiteral("打印机“%1”不能打印，%2没有打印，可以重打！").arg(printerName, slip.name);
}

} // namespace

QString printReceiptByTemplate(const FormContext &context, const PrintSettings &settings,
                               const ReceiptPaper &paper, const QString &printerName, bool again,
                               QWidget *parent) {
    return printSlip(context, settings,
                     {QStringLiteral("posxsd.fr3"),
                      receiptData(context.session, settings, paper, again),
                      QStringLiteral("小票") + paper.number, paper.number, settings.copies},
                     printerName, parent);
}

QString printRechargeByTemplate(const FormContext &context, const PrintSettings &settings,
                                const RechargePaper &paper, const QString &printerName, bool again,
                                QWidget *parent) {
    return printSlip(context, settings,
                     {QStringLiteral("hyxf.fr3"),
                      rechargeData(context.session, settings, paper, again),
                      QStringLiteral("小票") + paper.number, paper.number, settings.copies},
                     printerName, parent);
}

QString printShiftByTemplate(const FormContext &context, const PrintSettings &settings,
                             const EndedShift &ended, const QString &printerName, bool again,
                             QWidget *parent) {
    return printSlip(context, settings,
                     {QStringLiteral("poshb.fr3"),
                      shiftData(context.session, settings, ended, again), QStringLiteral("交班单"),
                      QStringLiteral("交班单") + ended.shift.end},
                     printerName, parent);
}

} // namespace jxc
