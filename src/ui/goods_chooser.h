#pragma once

#include "ui/document_dialogs.h"

class QLabel;
class QLineEdit;
class QTimer;

namespace jxc {

class GoodsClassTree;
class Grid;
class NumberField;

/// Goods chosen from the list of all: classes at the left, ticks in the list, what was taken and
/// how much of it at the right. Enter on a goods goes to its quantity, Enter there back to the
/// search; a digit on a goods begins its quantity.
class TF_GoodsSele : public Form {
    Q_OBJECT
public:
    TF_GoodsSele(const FormContext &context, bool forSale, const QString &warehouse,
                 QWidget *parent);

    /// What was taken, in that order; the current goods once where nothing was.
    [[nodiscard]] std::vector<GoodsChoice> chosen() const;
    [[nodiscard]] Grid &grid() { return *m_grid; }
    bool mayLeave() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    void buildSearch();
    void refresh();
    void showTicks();
    void takeTicks();
    void startQuantity(const QString &firstDigit);
    void takeQuantity();
    void drop();
    void take(const Row &goods, Decimal quantity);
    void remove(const QString &goods);
    [[nodiscard]] const GoodsChoice *taken(const QString &goods) const;
    void showTaken();

    bool m_forSale;
    QString m_warehouse;
    QLineEdit *m_search;
    GoodsClassTree *m_tree;
    Grid *m_grid, *m_takenGrid;
    NumberField *m_quantity;
    QLabel *m_hint;
    std::vector<GoodsChoice> m_taken;
    bool m_showingTicks = false;
};

} // namespace jxc
