#include "ui/grid_export.h"

#include "sheets/write.h"
#include "ui/grid.h"

namespace jxc {

namespace {

SheetColumn sheetColumn(const ColumnSpec &column, const Formats &formats) {
    SheetColumn out;
    out.caption = column.caption;
    out.width = qMax(8, column.width / 8);
    out.sum = column.sum;
    if (isNumber(column.kind)) {
        out.kind = SheetColumn::Kind::number;
        out.decimals = formats.decimals(column.kind);
    } else if (column.kind == ValueKind::date) {
        out.kind = SheetColumn::Kind::date;
    }
    return out;
}

} // namespace

QString exportGrid(const GridPicture &picture, const Formats &formats, const QString &file) {
    SheetTable table;
    table.title = picture.title;
    table.sheetName = picture.title;
    for (const ColumnSpec &column : picture.columns)
        table.columns.push_back(sheetColumn(column, formats));
    for (size_t line = 0; line < picture.rows.size(); ++line) {
        QStringList cells = picture.rows[line];
        for (size_t i = 0; i < picture.columns.size(); ++i)
            if (isNumber(picture.columns[i].kind))
                cells[static_cast<qsizetype>(i)] = picture.values[line][i].toText();
        table.rows.push_back(cells);
    }
    try {
        writeSheet(table, file);
    } catch (const SheetError &error) {
        return error.userText();
    }
    return {};
}

} // namespace jxc
