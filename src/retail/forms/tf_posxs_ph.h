#pragma once

#include "retail/counter_ranking.h"
#include "retail/forms/counter_report.h"

class QSpinBox;

namespace jxc {

/// POS销售排行: goods, classes, members or cashiers, the largest first.
class TF_Posxs_Ph : public CounterReport {
    Q_OBJECT
public:
    explicit TF_Posxs_Ph(const FormContext &context, QWidget *parent = nullptr);

protected:
    Rows readFor(const CounterFilter &filter) override;
    void narrow(CounterFilter &filter, const Row &row) const override;
    [[nodiscard]] QString nameOf(const Row &row) const override;

private:
    void changeGroup();
    [[nodiscard]] RankedBy group() const;

    QComboBox *m_group, *m_measure;
    QSpinBox *m_most;
};

} // namespace jxc
