#include "ui/formats.h"

#include "core/parameters.h"
#include "db/row.h"

namespace jxc {

namespace {

/// Factors and percents are no money: two decimals at least, six where they are needed.
const auto factorPattern = QStringLiteral("0.00####");

} // namespace

Formats::Formats(const Parameters &parameters)
    : m_money(moneyPattern(parameters.amountDecimals, parameters.noCurrencySymbol)
                  .value_or(QStringLiteral(",0.00"))) {
    const auto grouped = [&](int places) {
        m_shapes.push_back({places, NumberFormat(groupedPattern(places).value_or(
                                        QStringLiteral("#,0.00;-#,0.00")))});
    };
    grouped(parameters.quantityDecimals);
    grouped(parameters.priceDecimals);
    grouped(parameters.amountDecimals);
    grouped(0);
    m_shapes.push_back({6, NumberFormat(factorPattern)});
    grouped(2);
}

const Formats::Shape &Formats::shape(ValueKind kind) const {
    return m_shapes.at(static_cast<size_t>(kind) - static_cast<size_t>(ValueKind::quantity));
}

QString Formats::text(ValueKind kind, Decimal value) const {
    return shape(kind).grouped.text(value);
}

QString Formats::typed(ValueKind kind, Decimal value) const {
    return value.isZero() ? QString() : value.rounded(shape(kind).decimals).toText();
}

QString Formats::money(Decimal value) const {
    return m_money.text(value);
}

int Formats::decimals(ValueKind kind) const {
    return shape(kind).decimals;
}

QString Formats::cell(const ColumnSpec &column, const Row &row, size_t index) const {
    if (!column.words.isEmpty())
        if (const auto word = column.words.constFind(row.text(index)); word != column.words.cend())
            return *word;
    // No figure at all is not a nought.
    if (isNumber(column.kind))
        return row.isNull(index) ? QString() : text(column.kind, row.decimal(index));
    const QString stored = row.text(index);
    if (column.kind == ValueKind::status)
        return stored == QLatin1String("1") ? QStringLiteral("已审核") : QStringLiteral("未审核");
    if (column.kind == ValueKind::flag)
        return stored.isEmpty() || stored == QLatin1String("0") ? QString() : QStringLiteral("√");
    // A batch without expiry is stored with one that never comes.
    if (column.kind == ValueKind::date && stored == QLatin1String("0000-00"))
        return {};
    return stored;
}

} // namespace jxc
