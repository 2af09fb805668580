#pragma once

#include "core/value_kind.h"

#include <QHash>
#include <QString>
#include <vector>

namespace jxc {

/// A column of a grid, described.
struct ColumnSpec {
    QString field;   ///< the column of the row
    QString caption; ///< empty: the schema's, where the grid was told its table
    ValueKind kind = ValueKind::text;
    int width = 0; ///< pixels at 100 %; 0: what the kind usually needs
    bool sum = false;
    Secrecy secrecy = Secrecy::open;
    QHash<QString, QString> words{}; ///< stored value → what is shown
    bool hidden = false;             ///< at first; the column chooser shows it
};

using ColumnSpecs = std::vector<ColumnSpec>;

[[nodiscard]] inline ColumnSpec text(const char16_t *field, const char16_t *caption,
                                     int width = 0) {
    return {QString::fromUtf16(field), QString::fromUtf16(caption), ValueKind::text, width};
}
[[nodiscard]] inline ColumnSpec column(const char16_t *field, const char16_t *caption,
                                       ValueKind kind, int width = 0) {
    return {QString::fromUtf16(field), QString::fromUtf16(caption), kind, width};
}
[[nodiscard]] inline ColumnSpec summed(ColumnSpec spec) {
    spec.sum = true;
    return spec;
}
[[nodiscard]] inline ColumnSpec costOnly(ColumnSpec spec) {
    spec.secrecy = Secrecy::cost;
    return spec;
}
[[nodiscard]] inline ColumnSpec sellingPriceOnly(ColumnSpec spec) {
    spec.secrecy = Secrecy::selling;
    return spec;
}
[[nodiscard]] inline ColumnSpec hidden(ColumnSpec spec) {
    spec.hidden = true;
    return spec;
}

} // namespace jxc
