#pragma once

#include "services/import_target.h"
#include "ui/form.h"

class QComboBox;
class QTableWidget;

namespace jxc {

/// Which column of the sheet fills which field: proposed, and corrected by the user.
class ImportColumns : public QWidget {
    Q_OBJECT
public:
    ImportColumns(const FormContext &context, QWidget *parent);

    /// Proposes the columns of a header. What was corrected stays while the header is the same.
    void show(const std::vector<ImportField> &fields, const QStringList &header,
              const QStringList &firstRow);
    using QWidget::show;
    /// Forgets what was corrected.
    void clear();
    [[nodiscard]] ImportMapping mapping() const;
    /// The box of a field; null for one that the file cannot fill.
    [[nodiscard]] QComboBox *box(const QString &field) const;

private:
    [[nodiscard]] QComboBox *boxAt(int row) const;
    void showSamples();

    FormContext m_context;
    QTableWidget *m_table;
    QStringList m_header, m_firstRow;
};

/// A table of the import: to read, with fields of its own in the cells.
[[nodiscard]] QTableWidget *importTable(const char16_t *name, QWidget *parent);

} // namespace jxc
