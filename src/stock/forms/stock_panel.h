#pragma once

#include "stock/stock_query.h"
#include "stock/walk.h"
#include "ui/form.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QTabWidget;
class QTimer;

namespace jxc {

class GoodsClassTree;
class Grid;
class PickField;

/// What is on the shelf: classes at the left, goods with their stock, and below them the batches
/// and latest prices of the current one.
class StockPanel : public QWidget {
    Q_OBJECT
public:
    StockPanel(const FormContext &context, QWidget *parent);

    /// Reads anew what it shows.
    void activate();
    void refresh();
    void startSearch();
    [[nodiscard]] Grid &grid() { return *m_grid; }
    /// Of the current row; the warehouse is empty when the row adds up several.
    [[nodiscard]] JournalKey currentKey() const;
    [[nodiscard]] QString currentName() const;
    /// Shows the batches (0), last purchase prices (1) or last selling prices (2) below, where the
    /// operator may see them.
    void showDetail(int which);

Q_SIGNALS:
    /// Enter or double click: how did the stock of the current row come about?
    void movementsWanted();

private:
    void build();
    QWidget *makeFilters();
    QWidget *makeDetails();
    void refreshDetails();
    [[nodiscard]] StockFilter filter() const;

    FormContext m_context;
    GoodsClassTree *m_tree;
    PickField *m_warehouse;
    QCheckBox *m_perWarehouse;
    QComboBox *m_level;
    QLineEdit *m_search;
    Grid *m_grid;
    QTabWidget *m_details;
    Grid *m_batches;
    Grid *m_purchases = nullptr, *m_sales = nullptr; ///< null without the right to see them
    QTimer *m_rest;
};

} // namespace jxc
