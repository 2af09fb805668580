#pragma once

#include "stock/walk.h"
#include "ui/form.h"

namespace jxc {

class Grid;
class PeriodBar;
class PickField;

/// How the stock of one goods came about: the journal of a period after its opening line.
class MovementPanel : public QWidget {
    Q_OBJECT
public:
    MovementPanel(const FormContext &context, QWidget *parent);

    /// Goes to the goods field where none is chosen yet, else reads anew.
    void activate();
    void refresh();
    /// Shows a goods, in one warehouse or (empty) in all.
    void showGoods(const JournalKey &key);
    void startSearch();
    [[nodiscard]] Grid &grid() { return *m_grid; }
    [[nodiscard]] QString goods() const;

Q_SIGNALS:
    /// Enter or double click on a row.
    void documentWanted();

private:
    void build();

    FormContext m_context;
    PickField *m_goods, *m_warehouse;
    PeriodBar *m_period;
    Grid *m_grid;
};

} // namespace jxc
