#pragma once

#include "retail/counter_rows.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"

class QComboBox;
class QHBoxLayout;

namespace jxc {

class PickField;
struct PickSource;

/// A report of the counter: period, cashier, warehouse and member narrow it, Enter opens the lines
/// behind a row.
class CounterReport : public ListForm {
    Q_OBJECT
public:
    [[nodiscard]] PeriodBar &periodBar() { return *m_period; }
    /// Shows what a filter means; what the filters of the window cannot say is kept beside them.
    void setFilter(const CounterFilter &filter);

public Q_SLOTS:
    /// The lines behind the current row.
    void btnDetailClick();

protected:
    CounterReport(const FormContext &context, const QString &className, const QString &title,
                  QWidget *parent);

    /// Which filters a report has beside the period.
    enum class Filters { cashier, all };
    void addFilters(PeriodChoice first, Filters filters);
    /// Something to choose by, beside the search.
    void addChoice(const QString &caption, QWidget *choice);
    /// The button for the lines behind a row.
    void addDetail();

    [[nodiscard]] CounterFilter filter() const;
    Rows read(const QString &search) final;
    virtual Rows readFor(const CounterFilter &filter) = 0;
    /// Narrows the filter of the report to a row.
    virtual void narrow(CounterFilter &filter, const Row &row) const {
        Q_UNUSED(filter)
        Q_UNUSED(row)
    }
    /// What a row is called in the title of its lines.
    [[nodiscard]] virtual QString nameOf(const Row &row) const {
        Q_UNUSED(row)
        return {};
    }

private:
    PickField *addPick(const PickSource &source, const QString &name, const QString &all);
    [[nodiscard]] QStringList notes() const;

    PeriodBar *m_period = nullptr;
    QHBoxLayout *m_choices = nullptr;
    QComboBox *m_cashier = nullptr;
    PickField *m_warehouse = nullptr, *m_member = nullptr;
    CounterFilter m_kept;
};

} // namespace jxc
