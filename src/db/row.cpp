#include "db/row.h"

#include <stdexcept>

namespace jxc {

size_t Columns::indexOf(QStringView name) const {
    for (size_t i = 0; i < m_names.size(); ++i)
        if (m_names[i] == name)
            return i;
    throw std::logic_error("no column in the result: " + name.toString().toStdString());
}

QString Row::text(size_t index) const {
    const Cell &cell = m_cells[index];
    if (const auto *text = std::get_if<QString>(&cell))
        return *text;
    if (const auto *number = std::get_if<qint64>(&cell))
        return QString::number(*number);
    if (const auto *figure = std::get_if<double>(&cell))
        return Decimal::fromDouble(*figure).toText();
    if (const auto *computed = std::get_if<Decimal>(&cell))
        return computed->toText();
    return {};
}

Decimal Row::decimal(size_t index) const {
    const Cell &cell = m_cells[index];
    if (const auto *figure = std::get_if<double>(&cell))
        return Decimal::fromDouble(*figure);
    if (const auto *number = std::get_if<qint64>(&cell))
        return Decimal::fromInteger(*number);
    if (const auto *text = std::get_if<QString>(&cell))
        return Decimal::fromText(*text);
    if (const auto *computed = std::get_if<Decimal>(&cell))
        return *computed;
    return {};
}

qint64 Row::integer(size_t index) const {
    const Cell &cell = m_cells[index];
    if (const auto *number = std::get_if<qint64>(&cell))
        return *number;
    // Files of older makes keep flags as -1 or "True", counts as reals.
    if (const auto *text = std::get_if<QString>(&cell)) {
        if (text->compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return 1;
        if (text->compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return 0;
    }
    return static_cast<qint64>(decimal(index).rounded(0).micros() / 1'000'000);
}

} // namespace jxc
