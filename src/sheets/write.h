#pragma once

#include "sheets/sheet.h"

namespace jxc {

/// A column of a table that leaves the program.
struct SheetColumn {
    enum class Kind { text, number, date };

    QString caption;
    Kind kind = Kind::text;
    int decimals = 0; ///< shown of a number; all of it is written
    int width = 0;    ///< in characters of the standard font; 0: as wide as the content
    bool sum = false; ///< stands in the sums row
};

/// What a grid shows, ready to be written. Cells are texts in the form that `Sheet` describes:
/// numbers "1234.5", days "yyyy-MM-dd"; a cell that is not what its column says is written as text.
struct SheetTable {
    QString title;     ///< above the table; none when empty
    QString sheetName; ///< signs that sheet names may not hold are replaced
    std::vector<SheetColumn> columns;
    std::vector<QStringList> rows;
};

/// As .csv when the path ends so, else as .xlsx. The file is written whole or, with SheetError,
/// not at all: what stood there before stays.
void writeSheet(const SheetTable &table, const QString &path);

/// Title, header that stays in view, typed cells, a filter on every column, sums as formulas.
void writeXlsx(const SheetTable &table, const QString &path);

/// Header, rows and sums as text; no title, since whoever reads it again expects the header first.
void writeCsv(const SheetTable &table, const QString &path);

/// The sums of the columns that have one, "" elsewhere; exact. What is no number does not count.
[[nodiscard]] QStringList sumsRow(const SheetTable &table);

} // namespace jxc
