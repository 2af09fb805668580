#pragma once

#include "ui/field_input.h"

#include <QTabWidget>

class QGridLayout;

namespace jxc {

/// Fields on pages, two beside each other, the long ones over the whole line. Without a second page
/// no tabs are shown. Ctrl+PgUp and Ctrl+PgDn turn the pages.
class FieldTabs : public QTabWidget {
    Q_OBJECT
public:
    FieldTabs(const FormContext &context, QWidget *parent);

    /// Adds a field to the page of its description; nothing, if the operator may not see it.
    void add(const QString &table, const MasterField &field);
    /// Below the fields of a page, which is made when it is not there yet.
    void addBelow(const QString &caption, QWidget *widget, int stretch = 1);
    /// To be called after the last page was added.
    void finish();

    [[nodiscard]] const std::vector<FieldInput *> &inputs() const { return m_inputs; }
    /// Null for a column that is not shown.
    [[nodiscard]] FieldInput *input(QStringView column) const;

    void fill(const Record &record);
    void collect(Record &record) const;
    /// Takes what was typed into pickers; the first that holds something which is not there, or
    /// null.
    [[nodiscard]] FieldInput *commit();
    /// Brings a field to the front and into focus.
    void focus(const FieldInput &input);
    /// Goes to the field after the one with the focus; false behind the last one.
    bool focusNext();
    /// Shows a field with its caption, or hides both; Enter passes over what is hidden.
    void setShown(const FieldInput &input, bool shown);
    /// Shows the page that holds the widget.
    void showPageOf(const QWidget *widget);

private:
    QWidget *page(const QString &caption);

    FormContext m_context;
    std::vector<FieldInput *> m_inputs;
    QHash<QWidget *, int> m_cells; ///< filled places of each page
    QHash<const FieldInput *, QWidget *> m_captions;
};

/// Whether the operator may see a field at all.
[[nodiscard]] bool maySee(const MasterField &field, const Session &session);

} // namespace jxc
