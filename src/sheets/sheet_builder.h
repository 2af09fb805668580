#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// Puts cells together to a sheet and stops files that claim to be larger than any list of goods:
/// one cell in the last corner of a sheet would else be room for millions of empty texts.
class SheetBuilder {
public:
    static constexpr qsizetype mostRows = 200'000;
    static constexpr qsizetype mostColumns = 500;
    static constexpr qsizetype mostCells = 6'000'000;

    /// Row and column count from 0. Throws SheetError beyond the limits.
    void put(qsizetype row, qsizetype column, const QString &text);
    /// The sheet under this name; the builder is empty afterwards.
    [[nodiscard]] Sheet take(const QString &name);

private:
    std::vector<QStringList> m_rows;
    qsizetype m_cells = 0;
};

} // namespace jxc
