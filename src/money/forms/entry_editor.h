#pragma once

#include "core/action.h"
#include "ui/pick_list.h"
#include "ui/plain_editor.h"

class QLabel;
class QLineEdit;

namespace jxc {

class DateField;
class NumberField;
class PickField;

/// The editor of a record of money that is approved later: Enter next field, F5 stores, F6 stores
/// and begins another one, F8 stores and approves. An approved record can only be read.
class EntryEditor : public PlainEditor {
    Q_OBJECT
public:
    [[nodiscard]] QString number() const { return m_number; }

protected:
    EntryEditor(const FormContext &context, const QString &className, const QString &title,
                QWidget *parent);

    // Fields, in the order of Enter. The name is the column's.
    void addNumber();
    DateField *addDate(const char *name, const QString &caption, bool mayChange);
    PickField *addPick(const char *name, const QString &caption, const PickSource &source,
                       bool mayBeEmpty = false);
    NumberField *addAmount(const char *name, const QString &caption, bool negative = false);
    QLineEdit *addText(const char *name, const QString &caption, int length);
    QLineEdit *addNote(const char *name);
    /// The usual clerk of a new record.
    void chooseClerk(PickField *clerk) const;

    void showNumber(const QString &number);
    /// Where typing begins; what stands there gives way to it.
    static void beginAt(QLineEdit *field);

    /// Stores what the fields hold and answers its number.
    virtual Outcome store(QString *number) = 0;
    virtual Outcome approve(const QString &number) = 0;

    bool save() override;
    [[nodiscard]] QStringList content() const override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void add(QWidget *field, const char *name, const QString &caption);
    [[nodiscard]] bool commitPicks();
    void focusRefused(const QString &text);
    void saveAndApprove();

    QLabel *m_numberLabel = nullptr;
    QLineEdit *m_note = nullptr;
    QString m_number;
    std::vector<std::pair<QString, QLineEdit *>> m_inputs; ///< by caption
};

} // namespace jxc
