#include "ui/plain_table.h"

#include <QHeaderView>

namespace jxc {

PlainTable::PlainTable(const QList<Column> &columns, QWidget *parent)
    : QTableWidget(0, static_cast<int>(columns.size()), parent)
    , m_columns(columns) {
    for (int i = 0; i < columns.size(); ++i) {
        auto *caption = new QTableWidgetItem(columns[i].caption);
        caption->setTextAlignment((columns[i].isNumber ? Qt::AlignRight : Qt::AlignLeft) |
                                  Qt::AlignVCenter);
        setHorizontalHeaderItem(i, caption);
        setColumnWidth(i, columns[i].width);
    }
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(30);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
}

void PlainTable::setLines(const QList<Line> &lines) {
    const qint64 chosen = currentId();
    clearContents();
    setRowCount(static_cast<int>(lines.size()));
    for (int row = 0; row < lines.size(); ++row)
        for (int i = 0; i < lines[row].cells.size(); ++i) {
            auto *item = new QTableWidgetItem(lines[row].cells[i]);
            item->setData(Qt::UserRole, lines[row].id);
            if (m_columns[i].isNumber)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            setItem(row, i, item);
        }
    choose(chosen);
    if (currentRow() < 0 && rowCount() > 0)
        selectRow(0);
}

qint64 PlainTable::currentId() const {
    const QTableWidgetItem *first = item(currentRow(), 0);
    return first == nullptr ? 0 : first->data(Qt::UserRole).toLongLong();
}

void PlainTable::choose(qint64 id) {
    for (int row = 0; row < rowCount(); ++row)
        if (item(row, 0)->data(Qt::UserRole).toLongLong() == id)
            selectRow(row);
}

QString PlainTable::currentText(int column) const {
    const QTableWidgetItem *cell = item(currentRow(), column);
    return cell == nullptr ? QString() : cell->text();
}

} // namespace jxc
