#pragma once

#include "master/record.h"
#include "ui/form.h"

class QLineEdit;

namespace jxc {

class ActionBar;
class RecordRows;
class RecordTable;
struct MasterKind;

/// A small list behind pickers, edited in the grid: the last row adds, leaving a row stores it, Esc
/// undoes what was typed in it.
class SmallListForm : public Form {
    Q_OBJECT
public:
    SmallListForm(const FormContext &context, const MasterKind &kind, QWidget *parent);

    /// For a picker: begins on the blank row, and F6 (or closing after a row was added) chooses.
    void startChoosing();
    /// The row that was chosen.
    [[nodiscard]] const Record &chosen() const { return m_chosen; }
    [[nodiscard]] RecordTable &table() const { return *m_table; }

    void FormActivate() override;
    bool mayLeave() override;
    void reject() override;

public Q_SLOTS:
    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();
    void btnFindClick();
    void btnExportClick();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addActions(ActionBar &bar);
    void addRelated();
    void openMenu(const QPoint &at);
    void choose();
    void refresh();
    [[nodiscard]] std::vector<Record> read() const;
    /// Stores the row if something was typed in it. False when it was refused; the cursor is back.
    bool saveRow(int row);
    bool saveCurrent();
    void clearOtherDefaults(int row);
    void undo();
    void goTo(qint64 id);

    const MasterKind &m_kind;
    RecordRows *m_rows;
    RecordTable *m_table;
    ActionBar *m_bar;
    QLineEdit *m_search;
    Record m_chosen;
    QList<QAction *> m_actions;
    bool m_choosing = false;
    bool m_busy = false; ///< a row is being stored; leaving it is no second reason
};

} // namespace jxc
