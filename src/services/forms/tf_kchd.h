#pragma once

#include "ui/form.h"

class QLabel;

namespace jxc {

class ActionBar;
class Grid;

/// 库存核对: where the stored stock is not what the approved documents make it, and its repair.
class TF_Kchd : public Form {
    Q_OBJECT
public:
    explicit TF_Kchd(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    [[nodiscard]] Grid &grid() { return *m_grid; }

    void btnCheckClick();
    void btnRepairClick();

private:
    ActionBar *m_actions;
    QLabel *m_result;
    QAction *m_repair;
    Grid *m_grid;
};

} // namespace jxc
