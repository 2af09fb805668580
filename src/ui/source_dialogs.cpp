#include "core/session.h"
#include "stock/sources.h"
#include "ui/document_dialogs.h"
#include "ui/grid_msg.h"
#include "ui/header_panel.h"
#include "ui/row_list.h"

// The dialogs behind F9: what a document can follow.

namespace jxc {

namespace {

DraftLine lineOf(const OpenLineOfSource &open) {
    DraftLine line;
    line.goods = open.goods;
    line.unit = open.unit;
    line.factor = open.factor;
    line.quantity = open.open;
    line.batch = open.batch;
    line.barcode = open.barcode;
    line.sourceNumber = open.number;
    line.sourceLine = open.sourceLine;
    return line;
}

DraftLine lineOf(const ReturnableLine &source) {
    DraftLine line;
    line.goods = source.goods;
    line.unit = source.unit;
    line.factor = source.factor;
    line.quantity = source.returnable;
    line.price = source.price;
    line.discount = source.discount;
    line.taxRate = source.taxRate;
    line.batch = source.batch;
    line.sourceNumber = source.number;
    line.cost = source.cost;
    return line;
}

bool hasSourceLine(const DocumentLines &lines, qint64 sourceLine) {
    for (int row = 0; row < lines.rowCount(); ++row)
        if (lines.at(row).typed.sourceLine == sourceLine)
            return true;
    return false;
}

/// Goods-in and goods-out: choose the receipt or sale, and all that is open of it comes.
void followDocument(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                    HeaderPanel &header, Draft &base, QWidget *parent) {
    RowList list(
        {u"number", u"date", u"partner", u"partnerNo", u"ordered", u"done", u"cancelled", u"open"});
    for (const OpenDocument &open : openDocuments(context.session, spec.code(), header.warehouse()))
        list.add({open.number, open.date, open.partnerName, open.partner, open.ordered, open.done,
                  open.cancelled, open.open});
    const bool in = spec.code() == u"RK";
    TF_GridMsg dialog(
        context, spec.formClass + QStringLiteral("_Sele"),
        in ? QStringLiteral("选择待入库的进货单") : QStringLiteral("选择待出库的销售单"),
        {text(u"number", u"单据号", 140), column(u"date", u"日期", ValueKind::date),
         text(u"partner", in ? u"供货商" : u"客户", 180),
         column(u"ordered", in ? u"采购数量" : u"销售数量", ValueKind::quantity),
         column(u"done", in ? u"已入数量" : u"已出数量", ValueKind::quantity),
         column(u"cancelled", u"取消数量", ValueKind::quantity),
         summed(column(u"open", in ? u"未入数量" : u"未出数量", ValueKind::quantity))},
        list.take(), parent);
    dialog.grid().model().setTickable(true);
    dialog.setMessage(QStringLiteral("空格勾选多张，回车确定；没有勾选时取当前行。"));
    if (!dialog.choose())
        return;
    for (const Row *row : dialog.chosen())
        followSource(context, spec, lines, header, base, row->text(u"number"));
}

/// What comes back of a sale comes back from its member, so one return has the sales of one.
void takeReturnable(const FormContext &context, DocumentLines &lines, HeaderPanel &header,
                    const std::vector<ReturnableLine> &chosen) {
    const std::vector<DraftLine> typed = lines.lines();
    bool isKnown = std::any_of(typed.begin(), typed.end(),
                               [](const DraftLine &line) { return !line.sourceNumber.isEmpty(); });
    bool hasOthers = false;
    for (const ReturnableLine &line : chosen) {
        if (!isKnown)
            header.fillMember(line.member);
        isKnown = true;
        if (line.member == header.member())
            lines.append(lineOf(line));
        else
            hasOthers = true;
    }
    if (hasOthers)
        context.prompter.inform(QStringLiteral("所选商品属于不同会员的销售单，请分开退货！"),
                                informCaption);
}

/// Returns: choose lines of what the partner sold us or bought from us.
void chooseReturnable(const FormContext &context, const DocumentFormSpec &spec,
                      DocumentLines &lines, HeaderPanel &header, const Draft &base,
                      QWidget *parent) {
    if (header.partner().isEmpty()) {
        context.prompter.inform(spec.partnerWord + QStringLiteral("必须填写！"), informCaption);
        header.focusField(HeaderField::partner);
        return;
    }
    const auto found = returnableLines(context.session, spec.code(), header.partner(),
                                       header.warehouse(), base.number);
    RowList list({u"place", u"number", u"date", u"g_sn", u"g_name", u"gg_name", u"g_sccs",
                  u"dw_name", u"t_ph", u"traded", u"returned", u"returnable", u"price"});
    for (size_t i = 0; i < found.size(); ++i) {
        const ReturnableLine &r = found[i];
        list.add({qint64(i), r.number, r.date, r.goods, r.name, r.specification, r.maker, r.unit,
                  r.batch.number, r.traded, r.returned, r.returnable, r.price});
    }
    TF_GridMsg dialog(
        context, spec.formClass + QStringLiteral("_Sele"),
        spec.isSale() ? QStringLiteral("选择要退的销售单商品")
                      : QStringLiteral("选择要退的进货单商品"),
        {text(u"number", u"单据号", 132), column(u"date", u"日期", ValueKind::date),
         text(u"g_sn", u"商品编号", 96), text(u"g_name", u"商品名称", 160),
         text(u"gg_name", u"规格", 80), hidden(text(u"g_sccs", u"生产厂商", 120)),
         text(u"dw_name", u"单位", 56), text(u"t_ph", u"批号", 96),
         column(u"traded", spec.isSale() ? u"销售数量" : u"进货数量", ValueKind::quantity),
         column(u"returned", u"已退数量", ValueKind::quantity),
         column(u"returnable", u"可退数量", ValueKind::quantity),
         column(u"price", u"单价", ValueKind::price)},
        list.take(), parent);
    dialog.setTickable();
    dialog.resize(1120, 520);
    if (!dialog.choose())
        return;
    std::vector<ReturnableLine> chosen;
    for (const Row *row : dialog.chosen())
        chosen.push_back(found[static_cast<size_t>(row->integer(u"place"))]);
    takeReturnable(context, lines, header, chosen);
}

} // namespace

void followSource(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                  HeaderPanel &header, Draft &base, const QString &number) {
    for (const OpenDocument &open : openDocuments(context.session, spec.code())) {
        if (open.number != number)
            continue;
        base.partner = open.partner;
        if (lines.count() == 0)
            header.fillWarehouse(open.warehouse);
    }
    for (const OpenLineOfSource &open : openLinesOf(context.session, spec.code(), number))
        if (!hasSourceLine(lines, open.sourceLine))
            lines.append(lineOf(open));
}

void chooseSource(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                  HeaderPanel &header, Draft &base, QWidget *parent) {
    if (spec.followsSource)
        followDocument(context, spec, lines, header, base, parent);
    else if (spec.isReturn)
        chooseReturnable(context, spec, lines, header, base, parent);
}

bool addScanOfSource(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                     const QString &warehouse, const QString &barcode) {
    for (const OpenLineOfSource &open : openLinesOf(context.session, spec.code(), {}, warehouse)) {
        if (open.barcode != barcode)
            continue;
        for (int row = 0; row < lines.rowCount(); ++row) {
            if (lines.at(row).typed.sourceLine != open.sourceLine)
                continue;
            if (lines.at(row).typed.quantity >= open.open)
                break;
            lines.change(row, [](DraftLine &line) { line.quantity += Decimal(1); });
            return true;
        }
        if (hasSourceLine(lines, open.sourceLine))
            continue;
        DraftLine line = lineOf(open);
        line.quantity = Decimal(1);
        lines.append(line);
        return true;
    }
    return false;
}

} // namespace jxc
