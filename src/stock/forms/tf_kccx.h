#pragma once

#include "stock/cost_story.h"
#include "ui/form.h"

class QStackedWidget;
class QTabBar;

namespace jxc {

class ActionBar;
class Grid;
class MovementPanel;
class StockPanel;

/// 当前库存查询, 库存商品变动查询: what is on the shelf, and how it came there. The caption chooses
/// the tab.
class TF_Kccx : public Form {
    Q_OBJECT
public:
    explicit TF_Kccx(const FormContext &context, QWidget *parent = nullptr);

    void setCaption(const QString &caption) override;
    void FormActivate() override;

    [[nodiscard]] StockPanel &stock() { return *m_stock; }
    [[nodiscard]] MovementPanel &movement() { return *m_movement; }
    [[nodiscard]] bool showsMovements() const;
    void showTab(int tab);

    void btnMovementsClick();
    void btnOpenClick();
    void btnCostClick();
    void btnCheckClick();
    void btnPriceHistoryClick();

private:
    void addActions();
    [[nodiscard]] Grid &grid();
    /// A warehouse of the current goods, asked for when there are several; empty when left.
    [[nodiscard]] QString chooseWarehouse(const QString &goods);

    ActionBar *m_actions;
    QTabBar *m_tabs;
    QStackedWidget *m_pages;
    StockPanel *m_stock;
    MovementPanel *m_movement;
};

} // namespace jxc
