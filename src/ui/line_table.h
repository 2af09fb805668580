#pragma once

#include "ui/document_lines.h"
#include "ui/form.h"
#include "ui/pick_list.h"

#include <QTableView>

namespace jxc {

class SumsRow;

/// The lines of a document while they are typed. Enter goes from stop to stop and from line to
/// line, ↑ ↓ between lines; a cell is open for typing as soon as one is there.
class LineTable : public QTableView {
    Q_OBJECT
public:
    LineTable(const FormContext &context, const QString &name, DocumentLines *lines,
              QWidget *parent = nullptr);

    void setGoodsSource(const PickSource &source) { m_goodsSource = source; }
    [[nodiscard]] const PickSource &goodsSource() const { return m_goodsSource; }
    [[nodiscard]] DocumentLines &lines() const { return *m_lines; }

    /// Takes what is being typed in a cell into the document.
    void commitEditor();
    [[nodiscard]] bool isEditing() const { return state() == EditingState; }
    [[nodiscard]] int currentRow() const { return currentIndex().row(); }
    void edit(int row, LineField field);
    using QTableView::edit;
    /// To the goods cell of the blank line.
    void startNextLine();
    /// To the next stop; below the last line to the blank one.
    void advance();
    void retreat();
    void moveRow(int by);

    [[nodiscard]] bool isStop(int column) const;
    void restoreLayout();
    void saveLayout();
    /// Sums under the columns, to be put below the table.
    [[nodiscard]] QWidget *sumsRow() const;

Q_SIGNALS:
    void goodsPicked(int row, const jxc::Row &goods, const QString &typed);
    void goodsNotFound(const QString &typed);
    /// Enter on the blank line: nothing more to enter.
    void finished();
    void currentRowChanged(int row);
    /// A cell was typed and left.
    void cellDone(int row, jxc::LineField field);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void step(int direction);
    void openMenu(const QPoint &at);
    void refreshSums();

    FormContext m_context;
    DocumentLines *m_lines;
    PickSource m_goodsSource;
    SumsRow *m_sums;
    QString m_name;
    std::vector<bool> m_stops;
};

} // namespace jxc
