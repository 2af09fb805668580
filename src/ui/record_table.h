#pragma once

#include "ui/form.h"
#include "ui/grid.h"
#include "ui/pick_list.h"
#include "ui/record_rows.h"

#include <QTableView>

namespace jxc {

/// A short list that is edited where it stands: Enter goes from cell to cell and from row to row,
/// the blank last row adds, Space ticks, Ctrl+Del takes a row away.
class RecordTable : public QTableView {
    Q_OBJECT
public:
    /// The layout is kept under `name`; `table` is where the fields belong.
    RecordTable(const FormContext &context, const QString &name, const QString &table,
                RecordRows *rows, QWidget *parent);

    [[nodiscard]] RecordRows &rows() const { return *m_rows; }
    [[nodiscard]] const FormContext &context() const { return m_context; }
    [[nodiscard]] const QString &tableName() const { return m_table; }
    [[nodiscard]] bool isEditing() const { return state() == EditingState; }
    /// Takes what is being typed into the row; false when it means nothing.
    bool commitEditor();
    /// To a cell, ready to be typed in.
    void edit(int row, int column);
    using QTableView::edit;
    void startNewRow();
    void advance(int direction = 1);
    /// The column is picked from here instead of the master data that its field names.
    void setPickSource(const QString &column, const PickSource &source) {
        m_sources.insert(column, source);
    }
    [[nodiscard]] std::optional<PickSource> pickSource(const QString &column) const;
    /// No key and no button takes rows away; for lists that ask first.
    void setDeletable(bool on) { m_deletable = on; }
    [[nodiscard]] GridPicture picture(const QString &title) const;

public Q_SLOTS:
    void saveLayout();
    void resetLayout();

Q_SIGNALS:
    /// The cursor goes from one row to another.
    void rowLeft(int row);
    /// Enter on the blank row's first cell: nothing more to enter.
    void finished();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void restoreLayout();
    [[nodiscard]] int nextCell(int row, int column, int direction) const;

    FormContext m_context;
    QString m_name, m_table;
    QHash<QString, PickSource> m_sources;
    RecordRows *m_rows;
    bool m_deletable = true;
};

} // namespace jxc
