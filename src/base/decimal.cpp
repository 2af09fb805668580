#include "base/decimal.h"

#include <array>
#include <charconv>
#include <cmath>

namespace jxc {

namespace {

using Wide = Decimal::Wide;

constexpr std::array<Wide, 13> powersOfTen = {1,
                                              10,
                                              100,
                                              1'000,
                                              10'000,
                                              100'000,
                                              1'000'000,
                                              10'000'000,
                                              100'000'000,
                                              1'000'000'000,
                                              10'000'000'000,
                                              100'000'000'000,
                                              1'000'000'000'000};

constexpr Wide power(int n) {
    return powersOfTen[static_cast<size_t>(n)];
}

// Below 2^33 every six-place decimal survives the way through a double.
constexpr Wide alwaysRepresentable = (Wide{1} << 33) * 1'000'000;
// numeric(28,6): 22 digits before the point.
constexpr Wide typeLimit = power(12) * power(12) * 10'000; // 10^28 millionths

Wide checkedMultiply(Wide a, Wide b) {
    Wide r = 0;
    if (__builtin_mul_overflow(a, b, &r))
        throw RangeError();
    return r;
}

Wide checkedAdd(Wide a, Wide b) {
    Wide r = 0;
    if (__builtin_add_overflow(a, b, &r))
        throw RangeError();
    return r;
}

Wide magnitude(Wide v) {
    return v < 0 ? -v : v;
}

/// Half away from zero; the divisor is positive.
Wide divideRounding(Wide value, Wide divisor) {
    const Wide quotient = value / divisor;
    const Wide rest = magnitude(value % divisor);
    if (rest >= divisor - rest)
        return quotient + (value < 0 ? -1 : 1);
    return quotient;
}

Wide roundMicros(Wide micros, int places) {
    const Wide unit = power(6 - places);
    return divideRounding(micros, unit) * unit;
}

// The digits of a number of millionths, without superfluous zeros.
std::string plainDigits(Wide micros) {
    const bool negative = micros < 0;
    Wide rest = magnitude(micros);
    std::string digits;
    do {
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
        rest /= 10;
    } while (rest != 0);
    if (digits.size() < 7)
        digits.insert(0, 7 - digits.size(), '0');
    digits.insert(digits.size() - 6, 1, '.');
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.')
        digits.pop_back();
    return negative ? "-" + digits : digits;
}

double nearestDouble(Wide micros) {
    const std::string digits = plainDigits(micros);
    double value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

bool parseMicros(std::string_view text, Wide &micros) {
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    int exponent = 0;
    if (const auto e = text.find_first_of("eE"); e != std::string_view::npos) {
        std::string_view tail = text.substr(e + 1);
        if (!tail.empty() && tail.front() == '+')
            tail.remove_prefix(1);
        const auto [end, error] = std::from_chars(tail.data(), tail.data() + tail.size(), exponent);
        if (error != std::errc() || end != tail.data() + tail.size() || tail.empty())
            return false;
        text = text.substr(0, e);
        if (exponent < -60 || exponent > 60) {
            if (exponent < 0) {
                exponent = -60;
            } else {
                throw RangeError();
            }
        }
    }
    // Every digit counts from the millionths' place; what lies below it decides the rounding.
    Wide value = 0;
    bool seenDigit = false;
    bool seenPoint = false;
    int places = 0;
    int kept = 0; // digits dropped below the millionth are not in value
    std::string digits;
    for (const char c : text) {
        if (c == '.') {
            if (seenPoint)
                return false;
            seenPoint = true;
            continue;
        }
        if (c < '0' || c > '9')
            return false;
        seenDigit = true;
        digits.push_back(c);
        if (seenPoint)
            ++places;
    }
    if (!seenDigit)
        return false;
    kept = static_cast<int>(digits.size()) - places + exponent + 6; // digits that form millionths
    for (int i = 0; i < kept; ++i) {
        const int digit =
            i < static_cast<int>(digits.size()) ? digits[static_cast<size_t>(i)] - '0' : 0;
        value = value * 10 + digit;
        if (value > typeLimit)
            throw RangeError();
    }
    if (kept >= 0 && kept < static_cast<int>(digits.size()) &&
        digits[static_cast<size_t>(kept)] >= '5')
        ++value;
    micros = negative ? -value : value;
    return true;
}

} // namespace

NumberError::NumberError(const QString &text)
    : std::runtime_error(QStringLiteral("“%1”不是有效的数字！").arg(text.left(40)).toStdString()) {}

Decimal Decimal::fromMicros(Wide micros) {
    if (magnitude(micros) >= alwaysRepresentable) {
        if (magnitude(micros) >= typeLimit)
            throw RangeError();
        if (fromDouble(nearestDouble(micros)).m_micros != micros)
            throw RangeError();
    }
    return raw(micros);
}

Decimal Decimal::fromDouble(double value) {
    if (!std::isfinite(value))
        throw RangeError();
    if (std::fabs(value) < 8'589'934'592.0)
        return raw(static_cast<Wide>(std::llrintl(static_cast<long double>(value) * 1e6L)));
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    Wide micros = 0;
    parseMicros({buffer.data(), static_cast<size_t>(result.ptr - buffer.data())}, micros);
    if (magnitude(micros) >= typeLimit)
        throw RangeError();
    return raw(micros);
}

Decimal Decimal::fromText(QStringView text) {
    const QStringView trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    Wide micros = 0;
    if (!parseMicros(trimmed.toUtf8().toStdString(), micros))
        throw NumberError(trimmed.toString());
    return fromMicros(micros);
}

double Decimal::toDouble() const {
    // The long double quotient is exact enough to round correctly below 2^53 millionths.
    if (magnitude(m_micros) < (Wide{1} << 53))
        return static_cast<double>(static_cast<qint64>(m_micros)) / 1e6;
    return nearestDouble(m_micros);
}

QString Decimal::toText() const {
    return QString::fromStdString(plainDigits(m_micros));
}

QString Decimal::toText(int places) const {
    QString text = rounded(places).toText();
    if (places == 0)
        return text;
    qsizetype point = text.indexOf(u'.');
    if (point < 0) {
        point = text.size();
        text += u'.';
    }
    return text + QString(places - (text.size() - point - 1), u'0');
}

Decimal Decimal::rounded(int places) const {
    return fromMicros(roundMicros(m_micros, places));
}

Decimal Decimal::roundedUp9(int places) const {
    return Product(*this).roundedUp9(places);
}

Decimal &Decimal::operator+=(Decimal other) {
    *this = fromMicros(checkedAdd(m_micros, other.m_micros));
    return *this;
}

Decimal &Decimal::operator-=(Decimal other) {
    return *this += -other;
}

Product::Product(Decimal value)
    : m_pico(checkedMultiply(value.micros(), power(6))) {}

Decimal Product::rounded(int places) const {
    return Decimal::fromMicros(divideRounding(m_pico, power(12 - places)) * power(6 - places));
}

Decimal Product::roundedUp9(int places) const {
    return Decimal::fromMicros(divideRounding(checkedAdd(m_pico, 1'000), power(12 - places)) *
                               power(6 - places));
}

Product Product::abs() const {
    Product p;
    p.m_pico = magnitude(m_pico);
    return p;
}

Product Product::operator-() const {
    Product p;
    p.m_pico = -m_pico;
    return p;
}

Product &Product::operator+=(const Product &other) {
    m_pico = checkedAdd(m_pico, other.m_pico);
    return *this;
}

Product operator*(Decimal a, Decimal b) {
    Product p;
    p.m_pico = checkedMultiply(a.micros(), b.micros());
    return p;
}

Decimal roundedProduct(Decimal a, Decimal b, Decimal c, int places) {
    const Wide exact =
        checkedMultiply(checkedMultiply(a.micros(), b.micros()), c.micros()); // 10^-18
    return Decimal::fromMicros(divideRounding(exact, power(12) * power(6 - places)) *
                               power(6 - places));
}

Ratio::Ratio(Product numerator, Decimal denominator)
    : m_numerator(denominator.isNegative() ? -numerator.m_pico : numerator.m_pico)
    , m_denominator(denominator.abs().micros()) {}

Ratio Ratio::abs() const {
    Ratio r = *this;
    r.m_numerator = magnitude(r.m_numerator);
    return r;
}

Decimal Ratio::rounded(int places) const {
    if (m_denominator == 0)
        return {};
    const Wide units =
        divideRounding(m_numerator, checkedMultiply(m_denominator, power(6 - places)));
    return Decimal::fromMicros(checkedMultiply(units, power(6 - places)));
}

Decimal Ratio::roundedUp9(int places) const {
    if (m_denominator == 0)
        return {};
    // n/d + 10^-9 over the common denominator, all in whole numbers.
    const Wide numerator = checkedAdd(checkedMultiply(m_numerator, 1'000), m_denominator);
    const Wide units = divideRounding(numerator, checkedMultiply(m_denominator, power(9 - places)));
    return Decimal::fromMicros(checkedMultiply(units, power(6 - places)));
}

} // namespace jxc
