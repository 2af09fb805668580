#pragma once

#include "core/value_kind.h"
#include "ui/pick_list.h"
#include "ui/plain_editor.h"

class QLineEdit;

namespace jxc {

class DateField;
class NumberField;
class PickField;

/// A plain editor whose fields are made here, so that they look and behave alike: as wide as each
/// other, a refusal goes to the field whose caption it begins with, and a picker that holds half a
/// word is taken before anything is stored.
class FieldEditor : public PlainEditor {
    Q_OBJECT
protected:
    FieldEditor(const FormContext &context, const QString &className, const QString &title,
                QWidget *parent);

    // Fields, in the order of Enter. The name is the column's.
    DateField *addDate(const char *name, const QString &caption, bool mayChange);
    PickField *addPick(const char *name, const QString &caption, const PickSource &source,
                       bool mayBeEmpty = false);
    NumberField *addFigure(const char *name, const QString &caption, ValueKind kind,
                           bool negative = false);
    NumberField *addAmount(const char *name, const QString &caption, bool negative = false);
    QLineEdit *addText(const char *name, const QString &caption, int length);
    /// Signs stay hidden.
    QLineEdit *addPassword(const char *name, const QString &caption, int length);
    /// Something to read.
    void addShown(const QString &caption, const QString &text);

    /// Where typing begins; what stands there gives way to it.
    static void beginAt(QLineEdit *field);

    /// False when a picker holds something that is not there, which has been told.
    [[nodiscard]] bool commitPicks();
    /// Goes to the field whose caption the text begins with.
    void focusRefused(const QString &text);
    [[nodiscard]] QStringList content() const override;

private:
    void add(QWidget *field, const char *name, const QString &caption);

    std::vector<std::pair<QString, QLineEdit *>> m_inputs; ///< by caption
};

} // namespace jxc
