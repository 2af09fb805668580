#pragma once

#include "db/row.h"
#include "ui/action_bar.h"
#include "ui/column.h"
#include "ui/form.h"
#include "ui/period_bar.h"

class QHBoxLayout;
class QLineEdit;

namespace jxc {

class Grid;

/// A list on one page of a form with several: buttons, search, period, grid. Its keys work while
/// the page is in front.
class ListPage : public QWidget {
    Q_OBJECT
public:
    /// The rows for what stands in the search box.
    using Reader = std::function<Rows(const QString &search)>;

    /// The layout of the grid is kept under `name`.
    ListPage(Form &form, const QString &name, const QString &title, ColumnSpecs columns,
             Reader read);

    [[nodiscard]] Grid &grid() const { return *m_grid; }
    [[nodiscard]] QLineEdit &searchBox() const { return *m_search; }
    /// Reads anew and stays on the row it was on.
    void refresh();

    /// An action that needs a row tells so when there is none.
    QAction *addAction(const QString &name, const QString &caption, const QKeySequence &key,
                       std::function<void()> run, bool needsRow = false);
    /// 打印 F12, 导出 Ctrl+E, 退出 Esc; the last ones of every list.
    void addCommonActions();
    PeriodBar *addPeriodBar(PeriodChoice first);
    /// A filter beside the period.
    void addFilter(QWidget *filter);

private:
    Form &m_form;
    Reader m_read;
    ActionBar *m_actions;
    QLineEdit *m_search;
    QHBoxLayout *m_filters;
    Grid *m_grid;
};

} // namespace jxc
