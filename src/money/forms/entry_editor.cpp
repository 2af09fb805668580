#include "money/forms/entry_editor.h"

#include "core/employees.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>

namespace jxc {

EntryEditor::EntryEditor(const FormContext &context, const QString &className, const QString &title,
                         QWidget *parent)
    : FieldEditor(context, className, title, parent) {
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

QLineEdit *EntryEditor::addNote(const char *name) {
    m_note = addText(name, QStringLiteral("备注"), 200);
    m_note->setPlaceholderText(QStringLiteral("F2 常用备注"));
    return m_note;
}

void EntryEditor::chooseClerk(PickField *clerk) const {
    if (const auto usual = defaultEmployee(session()))
        clerk->setChoice(usual->number, usual->name);
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
        FieldEditor::keyPressEvent(event);
}

} // namespace jxc
