#include "ui/grid_export.h"

#include "core/prompter.h"
#include "core/session.h"
#include "sheets/write.h"
#include "ui/grid.h"

#include <QDir>
#include <QFileDialog>

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

void exportAndTell(const GridPicture &picture, const FormContext &context, const QString &file) {
    const QString failure = exportGrid(picture, Formats(context.session.parameters), file);
    context.prompter.inform(
        failure.isEmpty()
            ? QStringLiteral("导出完成！\r\n\r\n%1").arg(QDir::toNativeSeparators(file))
            : failure,
        informCaption);
}

void chooseExportFile(const GridPicture &picture, const FormContext &context, const QString &name,
                      QWidget *parent) {
    const QString proposed = QDir::home().filePath(
        QStringLiteral("%1%2.xlsx").arg(name, context.session.today().remove(u'-')));
    const QString file =
        QFileDialog::getSaveFileName(parent, QStringLiteral("导出"), proposed,
                                     QStringLiteral("Excel 工作簿 (*.xlsx);;文本表格 (*.csv)"));
    if (!file.isEmpty())
        exportAndTell(picture, context, file);
}

} // namespace jxc
