#pragma once

#include "base/decimal.h"

#include <QList>
#include <QString>
#include <optional>

namespace jxc {

// The patterns below take 0 to 6 decimals. For any other number they are empty, and the field or
// column keeps the format it had.

/// Currency fields: "￥,0.00;-￥,0.00"; without the currency sign "#,0.00;-#,0.00".
[[nodiscard]] std::optional<QString> moneyPattern(int decimals, bool hideSymbol);
/// The most characters that a currency field of that many decimals takes.
[[nodiscard]] constexpr int moneyFieldLength(int decimals) {
    return decimals + 13;
}
/// "#,0.00;-#,0.00"
[[nodiscard]] std::optional<QString> groupedPattern(int decimals);
/// "#0.00;-#.00", and "#;-#" without decimals.
[[nodiscard]] std::optional<QString> plainPattern(int decimals);

/// A display pattern, read once: sections for positive, negative and zero values divided by ";",
/// "0" a digit that always shows, "#" one that shows when it counts, "," anywhere groups thousands,
/// texts in quotes and all other characters stand as they are.
class NumberFormat {
public:
    explicit NumberFormat(QStringView pattern);

    /// Rounded half away from zero to the decimals of the section. What rounds to zero shows as
    /// zero does, without a sign.
    [[nodiscard]] QString text(Decimal value) const;

private:
    struct Section {
        QString prefix;
        QString suffix;
        int wholeDigits = 0; // shown at least
        int leastPlaces = 0;
        int mostPlaces = 0;
        bool grouped = false;
        bool given = false;
    };

    static Section readSection(QStringView pattern);
    static QString digits(Decimal magnitude, const Section &section);

    QList<Section> m_sections;
};

/// For a single value; whoever formats a column keeps the NumberFormat.
[[nodiscard]] QString formatNumber(Decimal value, QStringView pattern);

} // namespace jxc
