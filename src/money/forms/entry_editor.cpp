#include "money/forms/entry_editor.h"

#include "core/employees.h"
#include "core/session.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>

namespace jxc {

namespace {

constexpr int fieldWidth = 240;

} // namespace

EntryEditor::EntryEditor(const FormContext &context, const QString &className, const QString &title,
                         QWidget *parent)
    : PlainEditor(context, className, title, parent) {
    fields()->setVerticalSpacing(8);
    addButton(QStringLiteral("btnSaveCheck"), QStringLiteral("保存并审核"), Qt::Key_F8,
              [this] { saveAndApprove(); });
    allowContinuing();
}

void EntryEditor::addNumber() {
    m_numberLabel = new QLabel;
    m_numberLabel->setObjectName(QStringLiteral("number"));
    fields()->addRow(QStringLiteral("单据号"), m_numberLabel);
    showNumber({});
}

void EntryEditor::showNumber(const QString &number) {
    m_number = number;
    m_numberLabel->setText(number.isEmpty() ? QStringLiteral("自动编号") : number);
    m_numberLabel->setProperty("quiet", number.isEmpty());
}

void EntryEditor::add(QWidget *field, const char *name, const QString &caption) {
    field->setObjectName(QString::fromLatin1(name));
    field->setMinimumWidth(fieldWidth);
    fields()->addRow(caption, field);
    if (auto *line = qobject_cast<QLineEdit *>(field))
        m_inputs.emplace_back(caption, line);
}

DateField *EntryEditor::addDate(const char *name, const QString &caption, bool mayChange) {
    auto *field = new DateField(session().today());
    field->setReadOnly(!mayChange);
    add(field, name, caption);
    return field;
}

PickField *EntryEditor::addPick(const char *name, const QString &caption, const PickSource &source,
                                bool mayBeEmpty) {
    auto *field = new PickField(source, Formats(session().parameters));
    field->setClearable(mayBeEmpty);
    connect(field, &PickField::notFound, this, [this, caption] {
        prompter().inform(caption + QStringLiteral("不存在！"), informCaption);
    });
    add(field, name, caption);
    return field;
}

NumberField *EntryEditor::addAmount(const char *name, const QString &caption, bool negative) {
    auto *field = new NumberField(ValueKind::amount, Formats(session().parameters));
    field->setNegativeAllowed(negative);
    add(field, name, caption);
    return field;
}

QLineEdit *EntryEditor::addText(const char *name, const QString &caption, int length) {
    auto *field = new QLineEdit;
    field->setMaxLength(length);
    add(field, name, caption);
    return field;
}

QLineEdit *EntryEditor::addNote(const char *name) {
    m_note = addText(name, QStringLiteral("备注"), 200);
    m_note->setPlaceholderText(QStringLiteral("F2 常用备注"));
    return m_note;
}

void EntryEditor::chooseClerk(PickField *clerk) const {
    if (const auto usual = defaultEmployee(session()))
        clerk->setChoice(usual->number, usual->name);
}

void EntryEditor::beginAt(QLineEdit *field) {
    field->setFocus();
    field->selectAll();
}

QStringList EntryEditor::content() const {
    QStringList all;
    for (const auto &[caption, input] : m_inputs) {
        const auto *pick = qobject_cast<const PickField *>(input);
        all << (pick == nullptr ? input->text() : pick->code());
    }
    return all;
}

/// What was typed and not taken yet counts as typed.
bool EntryEditor::commitPicks() {
    for (const auto &[caption, input] : m_inputs)
        if (auto *pick = qobject_cast<PickField *>(input);
            pick != nullptr && pick->isTyped() && !pick->commitTyped()) {
            pick->setFocus();
            return false;
        }
    return true;
}

void EntryEditor::focusRefused(const QString &text) {
    for (const auto &[caption, input] : m_inputs)
        if (text.startsWith(caption)) {
            beginAt(input);
            return;
        }
}

bool EntryEditor::save() {
    if (!commitPicks())
        return false;
    QString number = m_number;
    const Outcome outcome = store(&number);
    if (!show(outcome)) {
        focusRefused(outcome.text);
        return false;
    }
    showNumber(number);
    Q_EMIT stored(number, false);
    return true;
}

void EntryEditor::saveAndApprove() {
    if (isReadOnly() || !save())
        return;
    // Whatever comes of the approval, the draft is stored.
    const bool approved = show(approve(m_number));
    Q_EMIT stored(m_number, approved);
    done(QDialog::Accepted);
}

void EntryEditor::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_F2 && m_note != nullptr && m_note->hasFocus())
        choosePhrase(context(), m_note);
    else
        PlainEditor::keyPressEvent(event);
}

} // namespace jxc
