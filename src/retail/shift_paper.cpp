#include "retail/shift_paper.h"

#include "retail/escpos_bytes.h"

namespace jxc {

namespace {

void addLines(EscPosBytes &out, const std::vector<ShiftLine> &lines) {
    for (const ShiftLine &line : lines)
        if (line.isAlways || !line.amount.isZero())
            out.pair(line.caption + u'：', line.amount.toText(2));
}

} // namespace

std::vector<ShiftLine> shiftLines(const Shift &shift) {
    const TillFigures &f = shift.figures;
    const auto t = [](const char16_t *words) { return QString::fromUtf16(words); };
    return {{t(u"销售金额"), f.sold()},
            {t(u"退货金额"), f.returned},
            {t(u"抹零金额"), f.rounding, false},
            {t(u"挂账"), f.owed(), false},
            {t(u"储值卡"), f.storedValue, false},
            {t(u"银行卡"), f.bankCard, false},
            {t(u"代金券"), f.voucher, false},
            {t(u"微信"), f.weChat, false},
            {t(u"支付宝"), f.aliPay, false},
            {t(u"充值银行卡"), f.recharged.bankCard, false},
            {t(u"充值微信"), f.recharged.weChat, false},
            {t(u"充值支付宝"), f.recharged.aliPay, false},
            {t(u"上班留存"), shift.received},
            {t(u"现金（减找零）"), f.cash - f.change},
            {t(u"充值现金"), f.recharged.cash - f.recharged.change, false},
            {t(u"入款"), f.in, false},
            {t(u"出款"), -f.out, false},
            {t(u"应交金额"), shift.cashDue()}};
}

std::vector<ShiftLine> handoverLines(const EndedShift &ended) {
    const Decimal difference = ended.handover.difference(ended.shift);
    return {{QStringLiteral("实交金额"), ended.handover.handedIn},
            {QStringLiteral("留存金额"), ended.handover.left},
            {difference.isNegative() ? QStringLiteral("短款") : QStringLiteral("长款"),
             difference.abs(), false}};
}

QByteArray escPosShift(const PrintSettings &settings, const EndedShift &ended, bool again) {
    EscPosBytes out(settings.columns());
    out.large(settings.title1);
    out.centred(QStringLiteral("交班单") + (again ? QStringLiteral("（重打）") : QString()));
    out.line(QStringLiteral("收银员：") + ended.shift.figures.cashier);
    out.line(QStringLiteral("上班：") + ended.shift.begin);
    out.line(QStringLiteral("交班：") + ended.shift.end);
    if (!ended.handover.next.isEmpty())
        out.line(QStringLiteral("接班：") + ended.handover.next);
    out.rule();
    addLines(out, shiftLines(ended.shift));
    out.rule();
    addLines(out, handoverLines(ended));
    if (!ended.handover.note.isEmpty())
        out.line(QStringLiteral("备注：") + ended.handover.note);
    out.rule();
    out.line(QStringLiteral("交班人签字："));
    out.line();
    out.line(QStringLiteral("接班人签字："));
    out.feed(settings.emptyLines);
    if (settings.cuts)
        out.cut();
    return out.bytes();
}

} // namespace jxc
