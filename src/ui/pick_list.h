#pragma once

#include "ui/rows_model.h"

#include <QFrame>

class QTableView;

namespace jxc {

/// What can be picked: the columns of the list, how it is searched, and which fields are the code
/// that is stored and the name that is shown.
struct PickSource {
    ColumnSpecs columns;
    /// Rows for what was typed so far, the best first; everything usual for an empty text.
    std::function<Rows(const QString &typed)> search;
    QString codeField, nameField;
    /// The row of a code, to show its name; nothing for an unknown one.
    std::function<std::optional<Row>(const QString &code)> find;
    /// Opens the form that adds one, and answers its code; none where nothing can be added.
    std::function<QString(QWidget *parent)> addNew{};
    int width = 0; ///< of the list; 0: as its columns need
};

/// The list that drops down below a field while one types. The field keeps the focus.
class PickList : public QFrame {
    Q_OBJECT
public:
    PickList(const PickSource &source, const Formats &formats, QWidget *field);

    /// Shows the rows below (or above) the field.
    void popUp(Rows rows, const QRect &fieldOnScreen);
    [[nodiscard]] const Row *current() const;
    [[nodiscard]] RowsModel &model() { return *m_model; }
    void move(int lines);
    void page(int pages);

Q_SIGNALS:
    void taken();

private:
    RowsModel *m_model;
    QTableView *m_view;
    int m_width = 0;
};

} // namespace jxc
