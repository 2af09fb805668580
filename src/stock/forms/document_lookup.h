#pragma once

#include "stock/trade_query.h"
#include "ui/form.h"

class QComboBox;
class QLineEdit;
class QTimer;

namespace jxc {

class ActionBar;
class Grid;
class PeriodBar;
class PickField;

/// Documents looked up by whatever is known of them: headers above, the lines of the current one
/// below. Nothing is changed here; Enter and F4 open the document to read.
class DocumentLookup : public Form {
    Q_OBJECT
public:
    /// Approved purchases or sales with their returns; without a trade the documents of all kinds.
    DocumentLookup(const FormContext &context, const QString &className, const QString &title,
                   std::optional<Trade> trade, QWidget *parent);

    void FormActivate() override;
    void refresh();
    [[nodiscard]] Grid &grid() { return *m_grid; }
    [[nodiscard]] Grid &lineGrid() { return *m_lines; }

    void btnOpenClick();
    void btnPriceHistoryClick();
    void btnCostClick();

private:
    void build();
    void addActions();
    QLayout *makeFirstLine();
    QLayout *makeSecondLine();
    void setUp(PickField *field, const QString &name, const QString &hint);
    void refreshLines();
    [[nodiscard]] DocumentQuery query() const;
    [[nodiscard]] Rows readAll() const;
    [[nodiscard]] QStringList notes() const;
    [[nodiscard]] PickField *partnerField() const;

    std::optional<Trade> m_trade;
    ActionBar *m_actions;
    PeriodBar *m_period;
    QLineEdit *m_search, *m_batch;
    QComboBox *m_kind, *m_state; ///< null with a trade
    PickField *m_warehouse, *m_supplier, *m_customer, *m_clerk, *m_goods;
    Grid *m_grid, *m_lines;
    QTimer *m_rest, *m_delay;
};

} // namespace jxc
