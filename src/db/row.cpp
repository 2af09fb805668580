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
    const QVariant &v = m_values[index];
    if (v.isNull())
        return {};
    switch (v.typeId()) {
    case QMetaType::Double:
        return Decimal::fromDouble(v.toDouble()).toText();
    case QMetaType::QString:
        return v.toString();
    default:
        return v.toString();
    }
}

Decimal Row::decimal(size_t index) const {
    const QVariant &v = m_values[index];
    if (v.isNull())
        return {};
    switch (v.typeId()) {
    case QMetaType::Double:
        return Decimal::fromDouble(v.toDouble());
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::ULongLong:
        return Decimal::fromInteger(v.toLongLong());
    default:
        return Decimal::fromText(v.toString());
    }
}

qint64 Row::integer(size_t index) const {
    const QVariant &v = m_values[index];
    if (v.isNull())
        return 0;
    if (v.typeId() == QMetaType::LongLong)
        return v.toLongLong();
    if (v.typeId() == QMetaType::Bool)
        return v.toBool() ? 1 : 0;
    // Files of older makes keep flags as -1 or "True", counts as reals.
    const QString content = v.toString();
    if (content.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return 1;
    if (content.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
        return 0;
    return static_cast<qint64>(decimal(index).rounded(0).micros() / 1'000'000);
}

} // namespace jxc
