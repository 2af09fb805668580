#include "reports/print_data.h"

#include "base/numberformat.h"

namespace jxc {

PrintData PrintData::of(const Session &session) {
    PrintData data;
    data.company = session.company;
    data.quantityDecimals = session.parameters.quantityDecimals;
    data.priceDecimals = session.parameters.priceDecimals;
    data.amountDecimals = session.parameters.amountDecimals;
    return data;
}

QString PrintData::shown(const PrintValue &value, const QString &format) const {
    if (!isNumber(value.kind))
        return value.text;
    if (!format.isEmpty())
        return formatNumber(value.figure, format);
    switch (value.kind) {
    case ValueKind::quantity:
        // Whole bottles without zeros behind them leave room on narrow paper.
        return value.figure.rounded(quantityDecimals).toText();
    case ValueKind::price:
        return value.figure.toText(priceDecimals);
    case ValueKind::amount:
        return value.figure.toText(amountDecimals);
    case ValueKind::integer:
        return value.figure.toText(0);
    default:
        return value.figure.toText();
    }
}

PrintValue PrintData::sum(const QString &field, size_t from, size_t to) const {
    PrintValue total;
    for (size_t i = from; i < to && i < lines.size(); ++i) {
        const auto value = lines[i].constFind(field);
        if (value == lines[i].constEnd() || !isNumber(value->kind))
            continue;
        total.kind = value->kind;
        total.figure += value->figure;
    }
    return total;
}

} // namespace jxc
