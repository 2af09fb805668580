#include "sheets/cell_text.h"

#include "base/dates.h"
#include "base/decimal.h"

#include <QRegularExpression>

namespace jxc {

namespace {

constexpr int shownDigits = 15;
constexpr int largestExponent = 40;

/// The letters of a pattern that stand for parts of a date or time: without quoted texts, colours
/// and conditions in brackets, and characters that are escaped, skipped or repeated.
QString letters(QStringView pattern) {
    static const QRegularExpression literal(
        QStringLiteral("\"[^\"]*\"|\\[[^\\]]*\\]|[\\\\_*].|[^A-Za-z]"));
    return pattern.toString().toLower().remove(literal);
}

/// "yyyy" to "d": the sections after the first are for other values.
CellFormat formatOfPattern(QStringView pattern) {
    const QStringView first = pattern.left(pattern.indexOf(u';'));
    static const QRegularExpression zeros(QStringLiteral("^0{2,}$"));
    if (zeros.match(first).hasMatch())
        return {CellFormat::Kind::number, static_cast<int>(first.size())};
    const QString parts = letters(first);
    const bool time = parts.contains(u'h') || parts.contains(u's');
    const bool day =
        parts.contains(u'y') || parts.contains(u'd') || (parts.contains(u'm') && !time);
    if (time)
        return {CellFormat::Kind::moment, 0};
    return {day && parts != QLatin1String("standard") ? CellFormat::Kind::day
                                                      : CellFormat::Kind::number,
            0};
}

struct PlainNumber {
    bool negative = false;
    QString digits;          ///< without leading zeros
    qsizetype point = 0;     ///< digits before the decimal point; may be negative or beyond the end
    bool isFraction = false; ///< written with a point or an exponent
};

std::optional<PlainNumber> parseNumber(QStringView raw) {
    static const QRegularExpression form(
        QStringLiteral("^([+-]?)(\\d*)(?:(\\.)(\\d*))?(?:[eE]([+-]?\\d{1,3}))?$"));
    const QRegularExpressionMatch match = form.match(raw);
    const QString whole = match.captured(2);
    const QString fraction = match.captured(4);
    if (!match.hasMatch() || (whole.isEmpty() && fraction.isEmpty()))
        return {};
    const int exponent = match.captured(5).toInt();
    if (std::abs(exponent) > largestExponent)
        return {};
    PlainNumber number;
    number.negative = match.captured(1) == QLatin1String("-");
    number.digits = whole + fraction;
    number.point = whole.size() + exponent;
    number.isFraction = match.hasCaptured(3) || match.hasCaptured(5);
    while (number.digits.startsWith(u'0')) {
        number.digits.remove(0, 1);
        --number.point;
    }
    return number;
}

/// Half up to the digits that are shown, which heals what binary fractions add or lack.
void roundDigits(PlainNumber &number) {
    if (number.digits.size() <= shownDigits)
        return;
    const bool up = number.digits[shownDigits] >= u'5';
    number.digits.truncate(shownDigits);
    if (!up)
        return;
    qsizetype i = shownDigits - 1;
    while (i >= 0 && number.digits[i] == u'9')
        number.digits[i--] = u'0';
    if (i >= 0)
        number.digits[i] = QChar(number.digits[i].unicode() + 1);
    else {
        number.digits.prepend(u'1');
        ++number.point;
    }
}

QString written(const PlainNumber &number) {
    QString digits = number.digits;
    qsizetype point = number.point;
    if (point < 0) {
        digits.prepend(QString(-point, u'0'));
        point = 0;
    }
    if (point > digits.size())
        digits.append(QString(point - digits.size(), u'0'));
    QString fraction = digits.mid(point);
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    QString text = point == 0 ? QStringLiteral("0") : digits.left(point);
    if (!fraction.isEmpty())
        text += u'.' + fraction;
    return number.negative && !number.digits.isEmpty() ? u'-' + text : text;
}

/// Empty when the serial number is no day of a calendar that spreadsheets know.
QString momentText(const QString &serial, bool withTime, bool from1904) {
    constexpr int lastDay = 2'958'465; // 9999-12-31
    const qsizetype wholeDigits = serial.indexOf(u'.') < 0 ? serial.size() : serial.indexOf(u'.');
    if (serial.startsWith(u'-') || wholeDigits > 7)
        return {};
    const Decimal value = Decimal::fromText(serial);
    const auto days = static_cast<qint64>(value.micros() / 1'000'000);
    const auto fraction = static_cast<qint64>(value.micros() % 1'000'000);
    if (days > lastDay)
        return {};
    // Six places are a tenth of a second short of exact; that much must not cost a whole second.
    const auto seconds = static_cast<int>((fraction * 86'400 + 50'000) / 1'000'000);
    const QString time = QTime(0, 0).addSecs(seconds % 86'400).toString(u"hh:mm:ss");
    if (days == 0 && withTime)
        return time;
    // The older calendar has a 29 February 1900 that never was.
    const QDate origin = from1904    ? QDate(1904, 1, 1)
                         : days < 60 ? QDate(1899, 12, 31)
                                     : QDate(1899, 12, 30);
    const QString date = toDateText(origin.addDays(days + (seconds >= 86'400 ? 1 : 0)));
    return withTime && seconds % 86'400 != 0 ? date + u' ' + time : date;
}

} // namespace

CellFormat cellFormat(int builtIn, QStringView pattern) {
    if (!pattern.isEmpty())
        return formatOfPattern(pattern);
    const auto within = [builtIn](int from, int to) { return builtIn >= from && builtIn <= to; };
    if (within(18, 22) || within(32, 35) || within(45, 47) || within(55, 56))
        return {CellFormat::Kind::moment, 0};
    if (within(14, 17) || within(27, 31) || builtIn == 36 || within(50, 54) || within(57, 58))
        return {CellFormat::Kind::day, 0};
    return {};
}

QString numberText(QStringView raw) {
    std::optional<PlainNumber> number = parseNumber(raw.trimmed());
    if (!number)
        return raw.toString();
    if (number->isFraction)
        roundDigits(*number);
    return written(*number);
}

QString numericCellText(QStringView raw, const CellFormat &format, bool from1904) {
    QString text = numberText(raw);
    if (format.kind != CellFormat::Kind::number && parseNumber(text)) {
        const QString moment = momentText(text, format.kind == CellFormat::Kind::moment, from1904);
        return moment.isEmpty() ? text : moment;
    }
    if (format.leastDigits > 0 && !text.contains(u'.') && !text.startsWith(u'-'))
        return text.rightJustified(format.leastDigits, u'0');
    return text;
}

} // namespace jxc
