#pragma once

#include "ui/action_bar.h"
#include "ui/form.h"
#include "ui/grid.h"
#include "ui/search_box.h"

class QBoxLayout;
class QHBoxLayout;

namespace jxc {

class PeriodBar;

/// A window around one list: buttons, search, filters, grid.
class ListForm : public Form {
    Q_OBJECT
public:
    ListForm(const FormContext &context, const QString &className, const QString &title,
             QWidget *parent = nullptr);

    [[nodiscard]] Grid &grid() { return *m_grid; }
    [[nodiscard]] const Grid &grid() const { return *m_grid; }
    void FormActivate() override;
    /// Reads the rows anew and stays on the row it was on.
    void refresh();

protected:
    /// The rows for the search text and whatever filters the form has.
    virtual Rows read(const QString &search) = 0;

    void setColumns(ColumnSpecs columns, const QString &keyField);
    /// An action that needs a row tells so when there is none.
    QAction *addAction(const QString &name, const QString &caption, const QKeySequence &key,
                       std::function<void()> run, bool needsRow = false);
    /// 打印 F12, 导出 Ctrl+E, 退出 Esc; the last ones of every list.
    void addCommonActions();
    /// F12: prints the list as it stands; a form with a template of its own prints that.
    virtual void printList() { m_grid->print(); }
    [[nodiscard]] ActionBar &actions() { return *m_actions; }
    /// The line for period and filters, between buttons and grid.
    [[nodiscard]] QBoxLayout *filterLine() { return m_filters; }
    /// Left of the grid, for example a class tree.
    void setSide(QWidget *side, int width);
    PeriodBar *addPeriodBar(int firstChoice);
    [[nodiscard]] QLineEdit &searchBox() { return *m_search; }

    void goToAfterRefresh(const QString &key) { m_goTo = key; }

private:
    ActionBar *m_actions;
    SearchBox *m_search;
    QBoxLayout *m_filters;
    QHBoxLayout *m_body;
    Grid *m_grid;
    QString m_keyField, m_goTo;
};

/// The box that says so when an action needs a row: "请先选择一条记录！".
void tellNoRow(Prompter &prompter);

} // namespace jxc
