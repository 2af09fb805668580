#include "sheets/sheet_builder.h"

namespace jxc {

void SheetBuilder::put(qsizetype row, qsizetype column, const QString &text) {
    if (text.isEmpty())
        return;
    if (row >= mostRows)
        throw SheetError(
            QStringLiteral("表格的行数太多，最多可读取%1行，请分成几个文件！").arg(mostRows));
    if (column >= mostColumns)
        throw SheetError(QStringLiteral("表格的列数太多，最多可读取%1列！").arg(mostColumns));
    if (row >= static_cast<qsizetype>(m_rows.size()))
        m_rows.resize(static_cast<size_t>(row) + 1);
    QStringList &cells = m_rows[static_cast<size_t>(row)];
    if (column >= cells.size()) {
        m_cells += column + 1 - cells.size();
        if (m_cells > mostCells)
            throw SheetError(QStringLiteral("表格的内容太多，请分成几个文件！"));
        cells.resize(column + 1);
    }
    cells[column] = text;
}

Sheet SheetBuilder::take(const QString &name) {
    m_cells = 0;
    return {name, std::exchange(m_rows, {})};
}

} // namespace jxc
