#pragma once

#include "ui/document_spec.h"
#include "ui/form.h"
#include "ui/grid.h"

#include <QPointer>

class QLineEdit;
class QTabBar;

namespace jxc {

class ActionBar;
class DocumentEditor;
class PeriodBar;
class PickField;

/// The list of a kind of document: what waits for approval, what is approved; the lines of the
/// current one below.
class DocumentList : public Form {
    Q_OBJECT
public:
    DocumentList(const FormContext &context, const DocumentFormSpec &spec,
                 QWidget *parent = nullptr);

    void FormActivate() override;
    void refresh();
    [[nodiscard]] bool isReading() const;
    void showApproved(bool approved);
    [[nodiscard]] bool showsApproved() const;
    [[nodiscard]] Grid &grid() { return *m_grid; }
    [[nodiscard]] Grid &lineGrid() { return *m_lines; }
    /// The window that types a document; made anew each time, none while none is open.
    [[nodiscard]] DocumentEditor *editor() const;

public Q_SLOTS:
    void btnAddClick();
    void btnModifyClick();
    void btnDeleteClick();
    void btnCheckClick();
    void btnCheckAllClick();
    void btnCancelClick();
    void btnCopyClick();
    void btnPrintClick();
    void btnPriceHistoryClick();

protected:
    [[nodiscard]] const DocumentFormSpec &spec() const { return m_spec; }
    [[nodiscard]] ActionBar &actionBar() { return *m_actions; }
    [[nodiscard]] QString currentNumber() const;
    QAction *addAction(const QString &name, const QString &caption, const QKeySequence &key,
                       std::function<void()> run);
    /// A tab before 待审核, of a kind that has its own (待入库); it is shown first.
    void addOwnTab(const QString &caption);
    [[nodiscard]] bool isOnOwnTab() const { return tab() < 0; }
    [[nodiscard]] QString warehouse() const;
    virtual ColumnSpecs ownColumns() const { return {}; }
    virtual Rows ownRows() { return {}; }
    /// What Enter does on the own tab.
    virtual void openOwnRow() {}
    DocumentEditor *makeEditor();
    [[nodiscard]] bool refuseWithout(int right, const QString &action);
    void goToAfterRefresh(const QString &number) { m_goTo = number; }

private:
    void build();
    void addActions();
    void refreshLines();
    [[nodiscard]] Rows readPiece(int most, bool isFirst);
    void showCount();
    [[nodiscard]] ColumnSpecs headColumns() const;
    [[nodiscard]] ColumnSpecs lineColumnsOfKind() const;
    [[nodiscard]] bool may(int right) const;
    /// The current document; empty, and told so, without one.
    [[nodiscard]] QString neededNumber();
    /// 0 待审核, 1 已审核, negative the kind's own from the left.
    [[nodiscard]] int tab() const;
    void useColumnsOfTab();
    void edit(const QString &number);
    void afterChange(const QString &number);

    const DocumentFormSpec &m_spec;
    ActionBar *m_actions;
    QTabBar *m_tabs;
    PeriodBar *m_period;
    QLineEdit *m_search;
    PickField *m_warehouse, *m_partner, *m_goods;
    Grid *m_grid, *m_lines;
    QPointer<DocumentEditor> m_editor;
    QString m_lastDate;
    qint64 m_lastId = 0; ///< the last row read
    QString m_goTo;
    int m_ownTabs = 0;
    bool m_ownColumns = false; ///< the grid has those of the own tab
};

} // namespace jxc
