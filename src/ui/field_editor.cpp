#include "ui/field_editor.h"

#include "core/prompter.h"
#include "core/session.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"

#include <QFormLayout>
#include <QLabel>

namespace jxc {

namespace {

constexpr int fieldWidth = 240;

} // namespace

FieldEditor::FieldEditor(const FormContext &context, const QString &className, const QString &title,
                         QWidget *parent)
    : PlainEditor(context, className, title, parent) {
    fields()->setVerticalSpacing(8);
}

void FieldEditor::add(QWidget *field, const char *name, const QString &caption) {
    field->setObjectName(QString::fromLatin1(name));
    field->setMinimumWidth(fieldWidth);
    fields()->addRow(caption, field);
    if (auto *line = qobject_cast<QLineEdit *>(field))
        m_inputs.emplace_back(caption, line);
}

DateField *FieldEditor::addDate(const char *name, const QString &caption, bool mayChange) {
    auto *field = new DateField(session().today());
    field->setReadOnly(!mayChange);
    add(field, name, caption);
    return field;
}

PickField *FieldEditor::addPick(const char *name, const QString &caption, const PickSource &source,
                                bool mayBeEmpty) {
    auto *field = new PickField(source, Formats(session().parameters));
    field->setClearable(mayBeEmpty);
    connect(field, &PickField::notFound, this, [this, caption] {
        prompter().inform(caption + QStringLiteral("不存在！"), informCaption);
    });
    add(field, name, caption);
    return field;
}

NumberField *FieldEditor::addFigure(const char *name, const QString &caption, ValueKind kind,
                                    bool negative) {
    auto *field = new NumberField(kind, Formats(session().parameters));
    field->setNegativeAllowed(negative);
    add(field, name, caption);
    return field;
}

NumberField *FieldEditor::addAmount(const char *name, const QString &caption, bool negative) {
    return addFigure(name, caption, ValueKind::amount, negative);
}

QLineEdit *FieldEditor::addText(const char *name, const QString &caption, int length) {
    auto *field = new QLineEdit;
    field->setMaxLength(length);
    add(field, name, caption);
    return field;
}

QLineEdit *FieldEditor::addPassword(const char *name, const QString &caption, int length) {
    QLineEdit *field = addText(name, caption, length);
    field->setEchoMode(QLineEdit::Password);
    return field;
}

void FieldEditor::addShown(const QString &caption, const QString &text) {
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    fields()->addRow(caption, label);
}

void FieldEditor::beginAt(QLineEdit *field) {
    field->setFocus();
    field->selectAll();
}

QStringList FieldEditor::content() const {
    QStringList all;
    for (const auto &[caption, input] : m_inputs) {
        const auto *pick = qobject_cast<const PickField *>(input);
        all << (pick == nullptr ? input->text() : pick->code());
    }
    return all;
}

/// What was typed and not taken yet counts as typed.
bool FieldEditor::commitPicks() {
    for (const auto &[caption, input] : m_inputs)
        if (auto *pick = qobject_cast<PickField *>(input);
            pick != nullptr && pick->isTyped() && !pick->commitTyped()) {
            pick->setFocus();
            return false;
        }
    return true;
}

void FieldEditor::focusRefused(const QString &text) {
    for (const auto &[caption, input] : m_inputs)
        if (text.startsWith(caption)) {
            beginAt(input);
            return;
        }
}

} // namespace jxc
