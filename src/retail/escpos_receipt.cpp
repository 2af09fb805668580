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

/// Of a receipt or a recharge.
void addTenders(EscPosBytes &out, Decimal cash, const OtherTenders &other) {
    struct Part {
        const char16_t *caption;
        Decimal amount;
    };
    const std::array<Part, 6> parts = {{{u"现金", cash},
                                        {u"银行卡", other.bankCard},
                                        {u"储值卡", other.storedValue},
                                        {u"代金券", other.voucher},
                                        {u"微信", other.weChat},
                                        {u"支付宝", other.aliPay}}};
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
        addTenders(out, paper.cash,
                   {paper.bankCard, paper.storedValue, paper.voucher, paper.weChat, paper.aliPay});
}

/// Whose paper it is, and what it is.
void addHead(EscPosBytes &out, const PrintSettings &settings, const QString &title, bool again) {
    out.large(settings.title1);
    out.centred(settings.title2);
    out.centred(title + (again ? QStringLiteral("（重打）") : QString()));
}

void addNumber(EscPosBytes &out, const QString &number, const QString &time, const QString &cashier,
               const QString &note) {
    out.line(QStringLiteral("单号：") + number);
    out.line(QStringLiteral("时间：") + time);
    out.line(QStringLiteral("收银员：") + cashier);
    if (!note.isEmpty())
        out.line(QStringLiteral("备注：") + note);
    out.rule();
}

QByteArray finished(EscPosBytes &out, const PrintSettings &settings) {
    out.rule();
    out.centred(settings.foot1);
    out.centred(settings.foot2);
    out.feed(settings.emptyLines);
    if (settings.cuts)
        out.cut();
    return out.bytes();
}

} // namespace

QByteArray escPosReceipt(const PrintSettings &settings, const ReceiptPaper &paper, bool again) {
    EscPosBytes out(settings.columns());
    addHead(out, settings, paper.title(), again);
    addNumber(out, paper.number, paper.time, paper.cashier, paper.note);
    addLines(out, paper);
    out.rule();
    addSums(out, settings, paper);
    if (settings.printsMember)
        addMember(out, paper);
    return finished(out, settings);
}

QByteArray escPosRecharge(const PrintSettings &settings, const RechargePaper &paper, bool again) {
    EscPosBytes out(settings.columns());
    addHead(out, settings, paper.title(), again);
    addNumber(out, paper.number, paper.time, paper.cashier, paper.note);
    out.line(QStringLiteral("会员：%1 %2").arg(paper.memberNumber, paper.memberName));
    out.pair(paper.isPayout() ? QStringLiteral("退款金额：") : QStringLiteral("充值金额："),
             money(paper.amount.abs()));
    if (settings.printsCapitals)
        out.line(amountInCapitals(paper.amount.abs().toText()));
    if (!paper.bonus.isZero())
        out.pair(paper.isPayout() ? QStringLiteral("扣回赠送：") : QStringLiteral("赠送金额："),
                 money(paper.bonus.abs()));
    if (settings.printsTenders)
        addTenders(out, paper.cash, paper.other);
    if (!paper.change.isZero())
        out.pair(QStringLiteral("找零："), money(paper.change));
    out.pair(again ? QStringLiteral("当前余额：") : QStringLiteral("卡内余额："),
             money(paper.value));
    out.line(QStringLiteral("积分：") + paper.points.toText());
    return finished(out, settings);
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
