#include "base/capitals.h"

#include <algorithm>
#include <array>

namespace jxc {

namespace {

// Positions count from the right; the amount's digits go down to the fen.
constexpr qsizetype yuanPosition = 3;
constexpr qsizetype lastPosition = 30; // its unit is the highest 仟

bool isPlainNumber(QStringView text) {
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    return digits > 0 && digits + text.count(u'.') == text.size() && text.count(u'.') <= 1;
}

QStringView withoutLeadingZeros(QStringView text) {
    while (text.startsWith(u'0'))
        text = text.sliced(1);
    return text;
}

/// The digits from the highest down to the fen; a short text below one yuan as its number of fen.
QString digitsToFen(QStringView amount) {
    const qsizetype point = amount.indexOf(u'.');
    const QStringView yuan = withoutLeadingZeros(point < 0 ? amount : amount.first(point));
    QString cents = point < 0 ? QString() : amount.sliced(point + 1).left(2).toString();
    cents = cents.leftJustified(2, u'0');
    if (!yuan.isEmpty())
        return yuan.toString() + cents;
    // Deliberate: only a text of up to three characters ("0.5", ".05") counts as a number of fen; a
    // longer one keeps its zero of jiao, so that "0.05" reads 零伍分 and ".05" 伍分.
    if (amount.size() >= 4)
        return cents;
    const QStringView fen = withoutLeadingZeros(cents);
    return fen.isEmpty() ? QStringLiteral("0") : fen.toString();
}

bool isGroupPosition(qsizetype position) {
    return position > 4 && (position + 1) % 4 == 0;
}

QStringView unitAt(qsizetype position) {
    static constexpr std::array<QStringView, 4> low = {u"", u"分", u"角", u""};
    static constexpr std::array<QStringView, 3> within = {u"拾", u"佰", u"仟"};
    static constexpr std::array<QStringView, 6> groups = {u"万",   u"亿",     u"万亿",
                                                          u"亿亿", u"万亿亿", u"亿亿亿"};
    const auto p = static_cast<size_t>(position);
    if (p < low.size())
        return low[p];
    return isGroupPosition(position) ? groups[(p - 7) / 4] : within[p % 4];
}

QString writtenOut(QStringView digits) {
    static constexpr QStringView names = u"零壹贰叁肆伍陆柒捌玖";
    QString text;
    bool pendingZero = false;
    bool groupHasDigit = false;
    qsizetype position = digits.size();
    for (const QChar digit : digits) {
        if (digit != u'0') {
            if (pendingZero)
                text += names[0];
            text += names[digit.unicode() - u'0'];
            text += unitAt(position);
            pendingZero = false;
            groupHasDigit = true;
        } else {
            // A group that has only zeros writes no unit, and its zero stays pending.
            const bool endsGroup = isGroupPosition(position) && groupHasDigit;
            if (endsGroup)
                text += unitAt(position);
            pendingZero = !endsGroup;
        }
        if (isGroupPosition(position))
            groupHasDigit = false;
        if (position == yuanPosition) {
            text += u'元';
            pendingZero = false;
        }
        --position;
    }
    return text;
}

} // namespace

QString amountInCapitals(QStringView amount) {
    const bool negative = amount.startsWith(u'-');
    if (negative)
        amount = amount.sliced(1);
    if (!isPlainNumber(amount))
        return {};
    const QString digits = digitsToFen(amount);
    if (digits.size() > lastPosition)
        return {};

    QString text = writtenOut(digits);
    if (text.isEmpty())
        text = QStringLiteral("零元");
    if (digits.endsWith(u"00") || digits == u"0")
        text += u'整';
    return negative ? u'负' + text : text;
}

} // namespace jxc
