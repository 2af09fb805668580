#include "base/numberformat.h"

#include <algorithm>

namespace jxc {

namespace {

constexpr int decimalPlaces = 6; // of a Decimal

bool hasPattern(int decimals) {
    return decimals >= 0 && decimals <= decimalPlaces;
}

/// ".00" for two places, nothing for none.
QString places(int decimals) {
    return decimals == 0 ? QString() : u'.' + QString(decimals, u'0');
}

QString bothSigns(const QString &positive) {
    return positive + QStringLiteral(";-") + positive;
}

/// The sections of a pattern; a ";" in quotes divides nothing.
QList<QStringView> split(QStringView pattern) {
    QList<QStringView> sections;
    QChar quote;
    qsizetype start = 0;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u';') {
            sections += pattern.sliced(start, i - start);
            start = i + 1;
        }
    }
    sections += pattern.sliced(start);
    return sections;
}

} // namespace

std::optional<QString> moneyPattern(int decimals, bool hideSymbol) {
    if (!hasPattern(decimals))
        return std::nullopt;
    return bothSigns((hideSymbol ? u'#' : u'￥') + QStringLiteral(",0") + places(decimals));
}

std::optional<QString> groupedPattern(int decimals) {
    return moneyPattern(decimals, true);
}

std::optional<QString> plainPattern(int decimals) {
    if (!hasPattern(decimals))
        return std::nullopt;
    // Deliberate: zero without decimals shows empty, and minus half shows "-.50" beside "0.50".
    if (decimals == 0)
        return QStringLiteral("#;-#");
    return QStringLiteral("#0%1;-#%1").arg(places(decimals));
}

NumberFormat::NumberFormat(QStringView pattern) {
    const QList<QStringView> sections = split(pattern);
    for (const QStringView section : sections)
        m_sections += readSection(section);
}

NumberFormat::Section NumberFormat::readSection(QStringView pattern) {
    Section section;
    section.given = !pattern.isEmpty();
    QChar quote;
    bool seenDigit = false;
    bool seenPoint = false;
    for (const QChar c : pattern) {
        if (!quote.isNull() ? c == quote : c == u'"' || c == u'\'') {
            quote = quote.isNull() ? c : QChar();
        } else if (!quote.isNull() || !QStringView(u"0#.,").contains(c)) {
            (seenDigit || seenPoint ? section.suffix : section.prefix) += c;
        } else if (c == u',') {
            section.grouped = true;
        } else if (c == u'.') {
            seenPoint = true;
        } else if (seenPoint) {
            ++section.mostPlaces;
            if (c == u'0')
                section.leastPlaces = section.mostPlaces;
        } else {
            // Every place from the first 0 to the point shows.
            seenDigit = true;
            if (c == u'0' || section.wholeDigits > 0)
                ++section.wholeDigits;
        }
    }
    return section;
}

QString NumberFormat::digits(Decimal magnitude, const Section &section) {
    const QString plain = magnitude.toText(std::min(section.mostPlaces, decimalPlaces));
    const qsizetype point = plain.indexOf(u'.');
    QString whole = point < 0 ? plain : plain.first(point);
    QString fraction = point < 0 ? QString() : plain.sliced(point + 1);

    if (whole == u"0")
        whole.clear();
    whole = whole.rightJustified(section.wholeDigits, u'0');
    if (section.grouped) {
        for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
            whole.insert(at, u',');
    }
    while (fraction.size() > section.leastPlaces && fraction.endsWith(u'0'))
        fraction.chop(1);
    fraction = fraction.leftJustified(section.leastPlaces, u'0');
    return fraction.isEmpty() ? whole : whole + u'.' + fraction;
}

QString NumberFormat::text(Decimal value) const {
    const auto given = [this](qsizetype i) { return i < m_sections.size() && m_sections[i].given; };
    const bool ownNegative = value.isNegative() && given(1);
    const Section *section = &m_sections[ownNegative ? 1 : 0];
    const bool zero = value.rounded(std::min(section->mostPlaces, decimalPlaces)).isZero();
    if (zero)
        section = &m_sections[given(2) ? 2 : 0];

    const QString body = section->prefix + digits(value.abs(), *section) + section->suffix;
    return value.isNegative() && !zero && !ownNegative ? u'-' + body : body;
}

QString formatNumber(Decimal value, QStringView pattern) {
    return NumberFormat(pattern).text(value);
}

} // namespace jxc
