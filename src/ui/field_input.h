#pragma once

#include "master/master_kind.h"
#include "ui/form.h"

#include <functional>

class QLineEdit;

namespace jxc {

class PickField;
class Record;

/// What one field of master data is typed in: made as its description says, filled from a record
/// and read back into it. What nobody touched stays as it is stored, with all its decimals.
class FieldInput : public QObject {
    Q_OBJECT
public:
    enum class Place {
        dialog, ///< with a button beside a picker that opens the list behind it
        cell    ///< in a table: the bare field
    };
    FieldInput(const FormContext &context, const QString &table, const MasterField &field,
               Place place, QWidget *parent);

    [[nodiscard]] const MasterField &field() const { return m_field; }
    /// What goes into the layout, and what in it has the focus.
    [[nodiscard]] QWidget *widget() const { return m_widget; }
    [[nodiscard]] QWidget *focusTarget() const { return m_target; }
    /// Null unless the field is typed as text of any kind.
    [[nodiscard]] QLineEdit *line() const;
    [[nodiscard]] PickField *pick() const { return m_pick; }

    void fill(const Record &record);
    void collect(Record &record) const;
    /// The field's text as a record holds it.
    [[nodiscard]] QString text() const { return m_read(); }
    [[nodiscard]] bool isTouched() const { return m_filled && m_read() != m_shown; }
    /// Takes what was typed into a picker, as Enter does; false when there is nothing like that.
    [[nodiscard]] bool commit();
    void setReadOnly(bool on);
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }

Q_SIGNALS:
    void edited();

private:
    void make(QWidget *parent);
    void makeText(QWidget *parent);
    void makeNumber(QWidget *parent);
    void makeDate(QWidget *parent);
    void makeFlag(QWidget *parent);
    void makeChoice(QWidget *parent);
    void makeProposals(QWidget *parent);
    void makePick(QWidget *parent);
    void makeSeveral(QWidget *parent);
    void makeShown(QWidget *parent);
    void addListButton(QWidget *parent, QWidget *field);
    void openList();
    void offerToAdd(const QString &typed);

    FormContext m_context;
    QString m_table;
    MasterField m_field;
    Place m_place;
    QWidget *m_widget = nullptr, *m_target = nullptr;
    PickField *m_pick = nullptr;
    std::function<QString()> m_read;
    std::function<void(const Record &)> m_show;
    QString m_shown;  ///< what the widget read after filling
    QString m_stored; ///< what the record held then
    bool m_filled = false;
    bool m_readOnly = false;
};

} // namespace jxc
