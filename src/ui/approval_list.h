#pragma once

#include "core/action.h"
#include "core/approval_query.h"
#include "ui/form.h"
#include "ui/grid.h"

class QLineEdit;
class QTabBar;
class QTimer;

namespace jxc {

class ActionBar;
class PeriodBar;
class PlainEditor;

/// A kind of record that is entered, approved and taken back, described: what its list shows and
/// which functions of its room do the work. Rows have a field "number".
struct ApprovalSpec {
    QString formClass, title;
    QString rightGroup;
    int entryRight = 0;
    ColumnSpecs columns;
    QString searchHint = QStringLiteral("查找 F3：单号、往来单位、备注");

    using Reader = std::function<Rows(const Session &, const ApprovalQuery &)>;
    using Doer = std::function<Outcome(Session &, Prompter &, const QString &number)>;
    Reader read;
    Doer approve, cancel, remove;
    /// The editor of a record, of a new one for an empty number; null, and told so, when there is
    /// no such record. The list deletes it when it closes.
    std::function<PlainEditor *(const FormContext &, const QString &number, QWidget *parent)>
        makeEditor;
    /// Opens what a row stands for when it is no record of this kind; false for those that are.
    std::function<bool(const FormContext &, const Row &)> openOther{};

    // A second grid below: of the current row, or of all rows that are shown.
    ColumnSpecs lowerColumns{};
    std::function<Rows(const Session &, const Rows &shown, const Row *current)> lower{};
};

/// Tabs 待审核 and 已审核, the period, the list; Ins, F4, Del, F8, F9.
class ApprovalList : public Form {
    Q_OBJECT
public:
    ApprovalList(const FormContext &context, ApprovalSpec spec, QWidget *parent);

    void FormActivate() override;
    void refresh();
    void showApproved(bool approved);
    [[nodiscard]] bool showsApproved() const;
    [[nodiscard]] Grid &grid() { return *m_grid; }
    [[nodiscard]] Grid *lowerGrid() { return m_lower; }

public Q_SLOTS:
    void btnAddClick();
    void btnModifyClick();
    void btnDeleteClick();
    void btnCheckClick();
    void btnCancelClick();

protected:
    [[nodiscard]] ActionBar &actionBar() { return *m_actions; }

private:
    void build();
    void addActions();
    void refreshLower();
    /// Does something to the current record and shows what came of it.
    void act(const ApprovalSpec::Doer &act);
    void edit(const QString &number);

    ApprovalSpec m_spec;
    ActionBar *m_actions;
    QTabBar *m_tabs;
    PeriodBar *m_period;
    QLineEdit *m_search;
    Grid *m_grid;
    Grid *m_lower = nullptr;
    QTimer *m_delay;
    QString m_goTo;
};

/// "您的操作将审核当前选中的单据：…，确认吗？"
[[nodiscard]] bool confirmApproving(Prompter &prompter, const QString &number);

} // namespace jxc
