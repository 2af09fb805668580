#include "ui/document_dialogs.h"

#include "core/session.h"
#include "stock/documents.h"
#include "stock/sources.h"
#include "ui/grid_msg.h"
#include "ui/header_panel.h"
#include "ui/number_field.h"
#include "ui/row_list.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

namespace jxc {

void chooseBatch(const FormContext &context, DocumentLines &lines, int row, QWidget *parent) {
    const EditLine line = lines.at(row);
    if (line.batches.empty()) {
        context.prompter.inform(QStringLiteral("该商品在此仓库没有批号库存！"), informCaption);
        return;
    }
    RowList list({u"place", u"t_ph", u"t_scrq", u"t_yxq", u"t_sl", u"days"});
    for (size_t i = 0; i < line.batches.size(); ++i) {
        const BatchChoice &b = line.batches[i];
        list.add({qint64(i),
                  b.batch.number.isEmpty() ? QStringLiteral("（无批号）") : b.batch.number,
                  b.batch.produced, b.batch.expiry, b.quantity,
                  b.daysLeft ? Cell(qint64(*b.daysLeft)) : Cell()});
    }
    ColumnSpec daysLeft = column(u"days", u"剩余天数", ValueKind::integer, 96);
    daysLeft.words = {{QString(), QString()}}; // it never expires
    TF_GridMsg dialog(context, QStringLiteral("TF_BatchSele"),
                      QStringLiteral("选择批号 － %1").arg(line.info.name),
                      {text(u"t_ph", u"批号", 160), column(u"t_scrq", u"生产日期", ValueKind::date),
                       column(u"t_yxq", u"有效期至", ValueKind::date),
                       column(u"t_sl", u"库存数量", ValueKind::quantity), daysLeft},
                      list.take(), parent);
    const int nearDays = context.session.parameters.nearExpiryDays;
    dialog.grid().model().setTone([nearDays](const Row &r, const ColumnSpec &) {
        const QString days = r.text(u"days");
        if (days.isEmpty())
            return Tone::plain;
        return days.toLongLong() < 0           ? Tone::danger
               : days.toLongLong() <= nearDays ? Tone::warning
                                               : Tone::plain;
    });
    for (size_t i = 0; i < line.batches.size(); ++i)
        if (line.batches[i].batch == line.typed.batch)
            dialog.grid().goToLine(static_cast<int>(i));
    if (dialog.choose())
        lines.setBatch(
            row,
            line.batches[static_cast<size_t>(dialog.grid().current()->integer(u"place"))].batch);
}

std::optional<Decimal> askNewTotal(const FormContext &context, Decimal ofLines,
                                   std::optional<Decimal> now, QWidget *parent) {
    const Formats formats(context.session.parameters);
    QDialog dialog(parent);
    dialog.setWindowTitle(QStringLiteral("整单优惠"));
    auto *field = new NumberField(ValueKind::amount, formats, &dialog);
    auto *saved = new QLabel(&dialog);
    auto *form = new QFormLayout(&dialog);
    form->setContentsMargins(16, 16, 16, 16);
    form->setSpacing(8);
    form->addRow(QStringLiteral("明细合计"), new QLabel(formats.money(ofLines), &dialog));
    form->addRow(QStringLiteral("优惠后金额"), field);
    form->addRow(QStringLiteral("优惠"), saved);
    auto *buttons = new QDialogButtonBox(&dialog);
    buttons->addButton(QStringLiteral("确定 Enter"), QDialogButtonBox::AcceptRole)
        ->setDefault(true);
    buttons->addButton(QStringLiteral("取消 Esc"), QDialogButtonBox::RejectRole);
    form->addRow(buttons);
    const auto showSaved = [&] { saved->setText(formats.money(ofLines - field->value())); };
    QObject::connect(field, &QLineEdit::textChanged, &dialog, showSaved);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, [&] {
        if (field->value() > ofLines)
            context.prompter.inform(QStringLiteral("优惠后金额不能大于明细合计！"), informCaption);
        else
            dialog.accept();
    });
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    field->setValue(now.value_or(ofLines));
    field->selectAll();
    field->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return field->value();
}

namespace {

/// Purchase prices that are only looked at are costs; who types a purchase sees them anyway.
ColumnSpecs pastPriceColumns(const DocumentFormSpec &spec, bool toRead) {
    const auto money = [&](ColumnSpec price) {
        return toRead && !spec.isSale() ? costOnly(std::move(price)) : price;
    };
    return {text(u"whose", u"范围", 72),
            column(u"date", u"日期", ValueKind::date),
            text(u"number", u"单据号", 132),
            text(u"partner", spec.isSale() ? u"客户" : u"供货商", 140),
            text(u"unit", u"单位", 56),
            column(u"quantity", u"数量", ValueKind::quantity),
            money(column(u"price", u"单价", ValueKind::price)),
            money(column(u"taxPrice", u"含税单价", ValueKind::price)),
            column(u"discount", u"折扣", ValueKind::factor)};
}

Rows pastPriceRows(const FormContext &context, const DocumentFormSpec &spec, const QString &goods,
                   const QString &partner) {
    RowList list({u"whose", u"date", u"number", u"partner", u"unit", u"quantity", u"price",
                  u"taxPrice", u"discount"});
    const auto add = [&](const QString &whose, const std::vector<PastPrice> &prices) {
        for (const PastPrice &p : prices)
            list.add({whose, p.date, p.number, p.partnerName, p.unit, p.quantity, p.price,
                      p.taxPrice, p.discount});
    };
    if (!partner.isEmpty())
        add(spec.isSale() ? QStringLiteral("该客户") : QStringLiteral("该供货商"),
            lastPrices(context.session, spec.code(), goods, partner));
    add(QStringLiteral("全部"), lastPrices(context.session, spec.code(), goods, {}));
    return list.take();
}

} // namespace

std::optional<Decimal> choosePastPrice(const FormContext &context, const DocumentFormSpec &spec,
                                       const EditLine &line, const QString &partner,
                                       QWidget *parent) {
    TF_GridMsg dialog(context, QStringLiteral("TF_PriceHistory"),
                      QStringLiteral("历史价格 － %1").arg(line.info.name),
                      pastPriceColumns(spec, false),
                      pastPriceRows(context, spec, line.typed.goods, partner), parent);
    dialog.setMessage(QStringLiteral("回车取当前行的单价。"));
    if (!dialog.choose())
        return {};
    return dialog.grid().current()->decimal(
        context.session.parameters.pricesIncludeTax ? u"taxPrice" : u"price");
}

void showPastPrices(const FormContext &context, const DocumentFormSpec &spec,
                    const GoodsName &goods, const QString &partner, QWidget *parent) {
    TF_GridMsg dialog(context, QStringLiteral("TF_PriceHistory"),
                      QStringLiteral("历史价格 － %1").arg(goods.name),
                      pastPriceColumns(spec, true),
                      pastPriceRows(context, spec, goods.code, partner), parent);
    dialog.setMessage(QStringLiteral("回车打开当前行的单据。"));
    if (dialog.choose())
        context.stage.openDocument(dialog.grid().currentText(u"number"));
}

QString chooseDraft(const FormContext &context, const DocumentFormSpec &spec, QWidget *parent) {
    DocumentFilter filter;
    filter.code = spec.code();
    RowList list({u"number", u"date", u"partner", u"due", u"operator", u"note"});
    for (const DocumentRow &row : listDocuments(context.session, filter))
        list.add({row.number, row.date, row.partnerName, spec.hasMoney ? row.due : row.quantity,
                  row.operatorName, row.note});
    TF_GridMsg dialog(context, spec.formClass + QStringLiteral("_Open"),
                      QStringLiteral("调用待审核 － %1").arg(spec.title()),
                      {text(u"number", u"单据号", 140), column(u"date", u"日期", ValueKind::date),
                       text(u"partner", spec.isSale() ? u"客户" : u"供货商", 160),
                       spec.hasMoney ? column(u"due", u"金额", ValueKind::amount)
                                     : column(u"due", u"数量", ValueKind::quantity),
                       text(u"operator", u"操作员", 80), text(u"note", u"备注", 160)},
                      list.take(), parent);
    return dialog.choose() ? dialog.grid().currentText(u"number") : QString();
}

} // namespace jxc
