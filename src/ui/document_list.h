#pragma once

#include "ui/document_spec.h"
#include "ui/form.h"
#include "ui/grid.h"

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
    /// Actions of the kind itself, between approval and printing.
    virtual void addOwnActions() {}
    [[nodiscard]] QString currentNumber() const;
    QAction *addAction(const QString &name, const QString &caption, const QKeySequence &key,
                       std::function<void()> run);
    /// Tabs before 待审核, of a kind that has its own (待入库).
    int addTab(const QString &caption);
    [[nodiscard]] int tab() const;
    virtual void refreshOwnTab(int) {}
    virtual void tabChosen(int) {}

private:
    void build();
    void addActions();
    void refreshLines();
    [[nodiscard]] ColumnSpecs headColumns() const;
    [[nodiscard]] ColumnSpecs lineColumnsOfKind() const;
    [[nodiscard]] bool may(int right) const;
    [[nodiscard]] bool refuseWithout(int right, const QString &action);
    [[nodiscard]] QString neededNumber();
    DocumentEditor *makeEditor();
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
    QHash<int, QAction *> m_onDrafts, m_onApproved;
    QString m_goTo;
    int m_ownTabs = 0;
};

} // namespace jxc
