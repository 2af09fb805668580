#pragma once

#include "ui/form.h"
#include "ui/grid.h"

class QLabel;
class QPushButton;

namespace jxc {

/// A list that is shown, or chosen from: documents that block an action, batches, source lines.
/// Enter is OK, Esc is Cancel; OK sets the result flag to "1".
class TF_GridMsg : public Form {
    Q_OBJECT
public:
    TF_GridMsg(const FormContext &context, const QString &name, const QString &title,
               const ColumnSpecs &columns, Rows rows, QWidget *parent);

    /// A sentence above the list.
    void setMessage(const QString &message);
    /// Rows get ticks; Space sets them, Ctrl+A all.
    void setTickable();
    /// Adds the list's own search box, which asks anew.
    [[nodiscard]] Grid &grid() { return *m_grid; }
    /// "1" after OK.
    [[nodiscard]] QString resultFlag() const { return m_flag; }
    /// The ticked rows, or the current one where nothing is ticked.
    [[nodiscard]] std::vector<const Row *> chosen() const;

    /// Shows the list and waits: true for OK with at least one row.
    bool choose();

private:
    void btnOKClick();

    Grid *m_grid;
    QLabel *m_message;
    QString m_flag;
};

} // namespace jxc
