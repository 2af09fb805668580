#pragma once

#include "core/action.h"
#include "ui/field_editor.h"

class QLabel;

namespace jxc {

/// The editor of a record of money that is approved later: Enter next field, F5 stores, F6 stores
/// and begins another one, F8 stores and approves. An approved record can only be read.
class EntryEditor : public FieldEditor {
    Q_OBJECT
public:
    [[nodiscard]] QString number() const { return m_number; }

protected:
    EntryEditor(const FormContext &context, const QString &className, const QString &title,
                QWidget *parent);

    // Fields, in the order of Enter. The name is the column's.
    void addNumber();
    QLineEdit *addNote(const char *name);
    /// The usual clerk of a new record.
    void chooseClerk(PickField *clerk) const;

    void showNumber(const QString &number);

    /// Stores what the fields hold and answers its number.
    virtual Outcome store(QString *number) = 0;
    virtual Outcome approve(const QString &number) = 0;

    bool save() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void saveAndApprove();

    QLabel *m_numberLabel = nullptr;
    QLineEdit *m_note = nullptr;
    QString m_number;
};

} // namespace jxc
