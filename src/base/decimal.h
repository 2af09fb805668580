#pragma once

#include <QString>
#include <compare>
#include <stdexcept>

namespace jxc {

/// A figure left the range that every supported engine gives back equal. The text is shown to the
/// user as it stands.
class RangeError : public std::runtime_error {
public:
    RangeError()
        : std::runtime_error("数值超出范围！") {}
};

/// A text was expected to be a number and is none.
class NumberError : public std::runtime_error {
public:
    explicit NumberError(const QString &text);
};

class Product;
class Ratio;

/// A signed fixed-point number with six places: money, price, quantity, rate.
///
/// It stands for numeric(28,6) as both engines store it. The embedded engine keeps numbers as
/// doubles, so only values that survive the way there and back exist here: all below
/// 8,589,934,592, and larger ones with fewer places. Arithmetic that would leave this set throws
/// RangeError; nothing wraps and nothing is lost silently. Sums are exact.
class Decimal {
public:
    using Wide = __int128;

    constexpr Decimal() = default;
    constexpr Decimal(
        int whole) // NOLINT(google-explicit-constructor): whole numbers read naturally
        : m_micros(static_cast<Wide>(whole) * one) {}

    /// A number of millionths.
    static Decimal fromMicros(Wide micros);
    /// What the embedded engine gave back; heals what others wrote as 0.1 + 0.2.
    static Decimal fromDouble(double value);
    static Decimal fromInteger(qint64 value) { return fromMicros(static_cast<Wide>(value) * one); }
    /// Plain or exponent notation; empty text is 0. A seventh place is rounded half away from zero.
    /// Throws NumberError when the text is no number.
    static Decimal fromText(QStringView text);

    [[nodiscard]] constexpr Wide micros() const { return m_micros; }
    [[nodiscard]] constexpr bool isZero() const { return m_micros == 0; }
    [[nodiscard]] constexpr bool isNegative() const { return m_micros < 0; }
    [[nodiscard]] constexpr bool isPositive() const { return m_micros > 0; }
    [[nodiscard]] constexpr bool isWhole() const { return m_micros % one == 0; }
    [[nodiscard]] constexpr Decimal abs() const { return raw(m_micros < 0 ? -m_micros : m_micros); }

    /// The nearest double, which the embedded engine stores.
    [[nodiscard]] double toDouble() const;
    /// Shortest plain text: "12.5", "-0.000001", "0".
    [[nodiscard]] QString toText() const;
    /// Exactly this many places, rounded half away from zero.
    [[nodiscard]] QString toText(int places) const;

    /// Half away from zero, to 0..6 places.
    [[nodiscard]] Decimal rounded(int places) const;
    /// 0.000000001 is added to the value as it is, then rounded half away from zero.
    [[nodiscard]] Decimal roundedUp9(int places) const;

    constexpr Decimal operator-() const { return raw(-m_micros); }
    Decimal &operator+=(Decimal other);
    Decimal &operator-=(Decimal other);
    friend Decimal operator+(Decimal a, Decimal b) { return a += b; }
    friend Decimal operator-(Decimal a, Decimal b) { return a -= b; }
    friend constexpr bool operator==(Decimal, Decimal) = default;
    friend constexpr std::strong_ordering operator<=>(Decimal a, Decimal b) {
        return a.m_micros <=> b.m_micros;
    }

private:
    static constexpr Wide one = 1'000'000;
    static constexpr Decimal raw(Wide micros) {
        Decimal d;
        d.m_micros = micros;
        return d;
    }

    Wide m_micros = 0;
};

/// The exact product of two decimals, or a sum of such; only rounding turns it back into a Decimal.
class Product {
public:
    constexpr Product() = default;
    explicit Product(Decimal value);

    [[nodiscard]] Decimal rounded(int places) const;
    [[nodiscard]] Decimal roundedUp9(int places) const;
    [[nodiscard]] Product abs() const;
    [[nodiscard]] bool isZero() const { return m_pico == 0; }
    [[nodiscard]] bool isNegative() const { return m_pico < 0; }

    Product operator-() const;
    Product &operator+=(const Product &other);
    friend Product operator+(Product a, const Product &b) { return a += b; }
    friend Product operator-(Product a, const Product &b) { return a += -b; }
    friend bool operator==(const Product &, const Product &) = default;

private:
    friend Product operator*(Decimal a, Decimal b);
    friend class Ratio;
    Decimal::Wide m_pico = 0; // 10^-12
};

Product operator*(Decimal a, Decimal b);

/// The exact product of three, rounded half away from zero: quantity times price times discount.
[[nodiscard]] Decimal roundedProduct(Decimal a, Decimal b, Decimal c, int places);

/// The exact quotient of a product (or decimal) and a decimal. A quotient by zero is zero: that is
/// the books' rule for a line without quantity.
class Ratio {
public:
    Ratio(Product numerator, Decimal denominator);
    Ratio(Decimal numerator, Decimal denominator)
        : Ratio(Product(numerator), denominator) {}

    [[nodiscard]] Ratio abs() const;
    [[nodiscard]] Decimal rounded(int places) const;
    [[nodiscard]] Decimal roundedUp9(int places) const;

private:
    Decimal::Wide m_numerator;   // 10^-12
    Decimal::Wide m_denominator; // 10^-6, positive, or 0
};

inline Ratio operator/(const Product &a, Decimal b) {
    return {a, b};
}
inline Ratio operator/(Decimal a, Decimal b) {
    return {a, b};
}

} // namespace jxc
