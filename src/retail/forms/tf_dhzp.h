#pragma once

#include "ui/list_form.h"

namespace jxc {

/// 积分兑换: the gifts that members took for points. There is no approval: what is entered counts
/// at once, and can be taken back whole.
class TF_Dhzp : public ListForm {
    Q_OBJECT
public:
    explicit TF_Dhzp(const FormContext &context, QWidget *parent = nullptr);

    /// The gifts of the current exchange.
    [[nodiscard]] Grid &lines() { return *m_lines; }

public Q_SLOTS:
    void btnAddClick();
    void btnUndoClick();

protected:
    Rows read(const QString &search) override;

private:
    void refreshLines();

    PeriodBar *m_period;
    Grid *m_lines;
};

} // namespace jxc
