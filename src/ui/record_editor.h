#pragma once

#include "master/record.h"
#include "ui/field_tabs.h"

class QBoxLayout;
class QPushButton;

namespace jxc {

/// The editor of one row of master data, made from the description of its kind: a tab per page, a
/// field per column. Enter next field, F5 stores and closes, F6 stores and begins another one, Esc
/// leaves and asks when something was changed. A refusal brings its field to the front.
class RecordEditor : public Form {
    Q_OBJECT
public:
    RecordEditor(const FormContext &context, const MasterKind &kind, QWidget *parent);

    void startNew();
    /// False when the row is gone; it has been told.
    bool startStored(qint64 id);
    /// A new row like a stored one.
    bool startCopy(qint64 id);

    /// The row that was stored last.
    [[nodiscard]] const Record &saved() const { return m_saved; }
    [[nodiscard]] FieldInput *input(QStringView column) const { return m_tabs->input(column); }
    [[nodiscard]] FieldTabs &tabs() const { return *m_tabs; }
    [[nodiscard]] const MasterKind &kind() const { return m_kind; }

    void FormActivate() override;
    bool mayLeave() override;
    /// F5.
    void accept() override;

public Q_SLOTS:
    /// F6.
    void saveAndContinue();

Q_SIGNALS:
    void stored(qint64 id);

protected:
    // What the goods editor does otherwise, since a goods is more than its row.
    virtual void makeNew();
    [[nodiscard]] virtual bool load(qint64 id);
    [[nodiscard]] virtual bool loadCopy(qint64 id);
    [[nodiscard]] virtual Record &record() { return m_record; }
    [[nodiscard]] virtual bool isChanged() { return m_record.isChanged(); }
    [[nodiscard]] virtual Outcome store(QString *field);
    virtual void fill();
    /// What the fields hold, into the record; false when a picker holds something that is not
    /// there, which has been told.
    [[nodiscard]] virtual bool collect();
    /// Whether a field may not be typed in this row.
    [[nodiscard]] virtual bool isFixed(const MasterField &field) const;
    /// Brings the field that a refusal speaks of to the front.
    virtual void focusRefused(const QString &column);
    /// Enter.
    virtual void nextField();
    [[nodiscard]] QPushButton &okButton() const { return *m_ok; }

    void keyPressEvent(QKeyEvent *event) override;

private:
    void addButtons(QBoxLayout *column);
    void showTitle();
    void focusFirst();
    void followName();
    bool save();
    [[nodiscard]] QString tooLongColumn();

    const MasterKind &m_kind;
    FieldTabs *m_tabs;
    QPushButton *m_ok;
    Record m_record, m_saved;
    bool m_mnemonicFollows = false;
};

/// The editor of a kind: its own form where the program has one ("TF_Spxxgl_Add"), else the common
/// one. The caller owns it.
[[nodiscard]] RecordEditor *makeRecordEditor(const FormContext &context, const MasterKind &kind,
                                             QWidget *parent);

} // namespace jxc
