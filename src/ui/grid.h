#pragma once

#include "ui/form.h"
#include "ui/rows_model.h"

#include <QMenu>
#include <QTableView>

class QLineEdit;

namespace jxc {

class PieceReader;
class SumsRow;

/// What a grid shows, for printing and export: the visible columns in their order.
struct GridPicture {
    QString title;
    QStringList notes; ///< lines under the title: period, filters
    ColumnSpecs columns;
    std::vector<QStringList> rows;
    QStringList sums;                         ///< one per column, or none at all
    std::vector<std::vector<Decimal>> values; ///< of figures, for spreadsheets that compute on
};

/// The table of every list: described columns, footer sums, sort by a click, filter as one types,
/// column chooser, kept layout, copy, export, print.
class Grid : public QWidget {
    Q_OBJECT
public:
    /// Layouts are kept under `name`.
    Grid(const FormContext &context, const QString &name, ColumnSpecs columns,
         QWidget *parent = nullptr);

    /// Columns that the operator may not see are left out here, so that nothing leaks by export.
    void setColumns(ColumnSpecs columns);
    void setRows(Rows rows);
    /// For lists that may be long.
    [[nodiscard]] PieceReader &pieces() { return *m_pieces; }
    /// Further rows, until finishRows().
    void appendRows(Rows rows);
    void finishRows();
    [[nodiscard]] RowsModel &model() { return *m_model; }
    [[nodiscard]] const RowsModel &model() const { return *m_model; }
    [[nodiscard]] QTableView &view() { return *m_view; }

    /// Null without a current row.
    [[nodiscard]] const Row *current() const;
    /// A field of the current row; empty without one.
    [[nodiscard]] QString currentText(QStringView field) const;
    [[nodiscard]] std::vector<const Row *> selected() const;
    /// Goes to the first row whose field has the text; the first row when none has.
    void goTo(QStringView field, const QString &text);
    void goToLine(int line);

    /// Another set of columns keeps a layout of its own.
    void setName(const QString &name) { m_name = name; }
    void setTitle(const QString &title) { m_title = title; }
    void setNotes(const QStringList &notes) { m_notes = notes; }
    /// Actions that the right click offers above the grid's own.
    void setOwnActions(const QList<QAction *> &actions) { m_ownActions = actions; }
    [[nodiscard]] QString footerText(int column) const;

    [[nodiscard]] GridPicture picture() const;
    void copySelection() const;
    void exportTo(const QString &file);
    void startFilter(const QString &firstKeys = {});

public Q_SLOTS:
    void saveLayout();
    void resetLayout();
    void chooseExport();
    void print();

Q_SIGNALS:
    void currentChanged();
    void activated(); ///< Enter or double click on a row

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restoreLayout();
    void fitWidths();
    void refreshFooter();
    void openHeaderMenu(const QPoint &at);
    void openBodyMenu(const QPoint &at);
    void addColumnActions(QMenu &menu);
    void sortBy(int column);
    [[nodiscard]] std::vector<int> visibleColumns() const;
    [[nodiscard]] bool filterKey(QKeyEvent *event);

    FormContext m_context;
    QString m_name, m_title;
    QStringList m_notes;
    RowsModel *m_model;
    QTableView *m_view;
    QLineEdit *m_filter;
    SumsRow *m_sums;
    PieceReader *m_pieces;
    QList<QAction *> m_ownActions;
    bool m_layoutKept = false; ///< widths are the user's; do not stretch them
};

} // namespace jxc
