#include "retail/escpos_receipt.h"

#include "base/capitals.h"
#include "retail/escpos_bytes.h"

#include <array>

namespace jxc {

namespace {

QString money(Decimal amount) {
    return amount.toText(2);
}

void addLines(EscPosBytes &out, const ReceiptPaper &paper) {
    for (const ReceiptPaper::Line &line : paper.lines) {
        out.line(line.name);
        QString left =
            QStringLiteral("  %1%2 × %3").arg(line.quantity.toText(), line.unit, money(line.price));
        if (line.discount != Decimal(1))
            left += QStringLiteral(" × ") + line.discount.toText();
        out.pair(left, money(line.total));
    }
}

void addTenders(EscPosBytes &out, const ReceiptPaper &p) {
    struct Part {
        const char16_t *caption;
        Decimal amount;
    };
    const std::array<Part, 6> parts = {{{u"现金", p.cash},
                                        {u"银行卡", p.bankCard},
                                        {u"储值卡", p.storedValue},
                                        {u"代金券", p.voucher},
                                        {u"微信", p.weChat},
                                        {u"支付宝", p.aliPay}}};
    for (const Part &part : parts)
        if (!part.amount.isZero())
            out.pair(QString::fromUtf16(part.caption), money(part.amount));
}

void addMember(EscPosBytes &out, const ReceiptPaper &paper) {
    if (!paper.member)
        return;
    out.rule();
    out.line(QStringLiteral("会员：%1 %2").arg(paper.member->number, paper.member->name));
    out.pair(QStringLiteral("本次积分：") + paper.pointsEarned.toText(),
             QStringLiteral("累计积分：") + paper.member->points.toText());
    out.line(QStringLiteral("储值余额：") + money(paper.member->balance));
}

void addSums(EscPosBytes &out, const PrintSettings &settings, const ReceiptPaper &paper) {
    Decimal pieces;
    for (const ReceiptPaper::Line &line : paper.lines)
        pieces += line.quantity;
    if (!paper.discount.isZero())
        out.pair(QStringLiteral("优惠："), money(paper.discount));
    if (!paper.rounding.isZero())
        out.pair(QStringLiteral("抹零："), money(paper.rounding));
    out.pair(QStringLiteral("数量：") + pieces.toText(),
             (paper.isReturn ? QStringLiteral("应退：") : QStringLiteral("应付：")) +
                 money(paper.due));
    if (settings.printsCapitals)
        out.line(amountInCapitals(paper.due.toText()));
    if (paper.isReturn)
        out.pair(QString(), QStringLiteral("实退：") + money(paper.tendered));
    else
        out.pair(QStringLiteral("实收：") + money(paper.tendered),
                 QStringLiteral("找零：") + money(paper.change));
    if (!paper.isReturn && paper.tendered < paper.due)
        out.pair(QStringLiteral("挂账："), money(paper.due - paper.tendered));
    if (settings.printsTenders)
        addTenders(out, paper);
}

} // namespace

QByteArray escPosReceipt(const PrintSettings &settings, const ReceiptPaper &paper, bool again) {
    EscPosBytes out(settings.columns());
    out.large(settings.title1);
    out.centred(settings.title2);
    out.centred(paper.title() + (again ? QStringLiteral("（重打）") : QString()));
    out.line(QStringLiteral("单号：") + paper.number);
    out.line(QStringLiteral("时间：") + paper.time);
    out.line(QStringLiteral("收银员：") + paper.cashier);
    if (!paper.note.isEmpty())
        out.line(QStringLiteral("备注：") + paper.note);
    out.rule();
    addLines(out, paper);
    out.rule();
    addSums(out, settings, paper);
    if (settings.printsMember)
        addMember(out, paper);
    out.rule();
    out.centred(settings.foot1);
    out.centred(settings.foot2);
    out.feed(settings.emptyLines);
    if (settings.cuts)
        out.cut();
    return out.bytes();
}

QByteArray displayBytes(Decimal amount, DisplayLight light) {
    QByteArray bytes("\x1bs");
    bytes += static_cast<char>('0' + static_cast<int>(light));
    bytes += "\x1bQA";
    bytes += amount.toText(2).toLatin1();
    bytes += '\r';
    return bytes;
}

} // namespace jxc
