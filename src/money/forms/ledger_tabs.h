#pragma once

#include "money/partner_ledger.h"
#include "ui/form.h"
#include "ui/grid.h"
#include "ui/piece_reader.h"

class QCheckBox;
class QHBoxLayout;
class QTabWidget;

namespace jxc {

class ActionBar;
class PeriodBar;
class PickField;
struct Period;

/// Several tables over one ledger, a tab each, with the period and the partner above. A tab is read
/// when it is looked at. Enter opens what stands behind a row.
class LedgerTabs : public Form {
    Q_OBJECT
public:
    void FormActivate() override;
    void refresh();
    [[nodiscard]] Grid &currentGrid() const;
    [[nodiscard]] Grid &gridOf(int page) const;
    void showPage(int page);
    [[nodiscard]] int pageCount() const { return static_cast<int>(m_tables.size()); }
    /// Narrows everything to one partner; all of them for an empty number.
    void choosePartner(const QString &partner);

public Q_SLOTS:
    void btnOpenClick();

protected:
    LedgerTabs(const FormContext &context, const QString &className, const QString &title,
               Partner::Kind kind, int firstPeriod, QWidget *parent);

    void addPage(const QString &caption, const ColumnSpecs &columns, std::function<Rows()> read);
    /// A page that may be long.
    void addLongPage(const QString &caption, const ColumnSpecs &columns, PieceReader::Source read);
    /// A box that narrows the tables, beside the partner.
    QCheckBox *addBox(const char *name, const QString &caption, bool on);
    /// The usual buttons at the end.
    void addCommonActions();
    [[nodiscard]] ActionBar &actionBar() const { return *m_actions; }

    [[nodiscard]] Partner::Kind kind() const { return m_kind; }
    [[nodiscard]] QString partner() const;
    [[nodiscard]] QString partnerName() const;
    [[nodiscard]] Period period() const;
    /// The partner of the current row, else the chosen one.
    [[nodiscard]] QString currentPartner() const;
    /// What Enter does on a row without a document.
    virtual void openRow(const Row &row) { Q_UNUSED(row) }

private:
    void build(int firstPeriod);
    void addTable(const QString &caption, const ColumnSpecs &columns,
                  std::function<void(Grid &)> show);
    [[nodiscard]] QStringList notes() const;

    struct Table {
        Grid *grid;
        std::function<void(Grid &)> show;
    };
    Partner::Kind m_kind;
    ActionBar *m_actions;
    PeriodBar *m_period;
    PickField *m_partner;
    QHBoxLayout *m_filters;
    QTabWidget *m_tabs;
    std::vector<Table> m_tables;
};

} // namespace jxc
