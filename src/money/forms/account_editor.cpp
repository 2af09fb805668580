#include "money/forms/account_editor.h"

#include "core/session.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QFormLayout>
#include <QLabel>

namespace jxc {

namespace {

QLineEdit *lineOf(const char *name, int length, const QString &text) {
    auto *field = new QLineEdit(text);
    field->setObjectName(QString::fromLatin1(name));
    field->setMaxLength(length);
    return field;
}

NumberField *amountOf(const Session &session) {
    auto *field = new NumberField(ValueKind::amount, Formats(session.parameters));
    field->setObjectName(QStringLiteral("yh_zje"));
    field->setNegativeAllowed(true);
    return field;
}

} // namespace

AccountEditor::AccountEditor(const FormContext &context, AccountDraft draft, QWidget *parent)
    : PlainEditor(
          context, draft.id == 0 ? QStringLiteral("TF_Yhzh_Add") : QStringLiteral("TF_Yhzh_Modi"),
          draft.id == 0 ? QStringLiteral("增加银行账户") : QStringLiteral("修改银行账户"), parent)
    , m_draft(std::move(draft))
    , m_type(lineOf("yh_type", 32, m_draft.type))
    , m_name(lineOf("yh_name", 32, m_draft.name))
    , m_note(lineOf("yh_note", 200, m_draft.note)) {
    fields()->addRow(QStringLiteral("账户类型"), m_type);
    fields()->addRow(QStringLiteral("账户名称"), m_name);
    if (m_draft.id == 0) {
        m_opening = amountOf(session());
        fields()->addRow(QStringLiteral("期初金额"), m_opening);
    }
    fields()->addRow(QStringLiteral("备注"), m_note);
}

bool AccountEditor::save() {
    AccountDraft draft = m_draft;
    draft.type = m_type->text();
    draft.name = m_name->text();
    draft.note = m_note->text();
    if (m_opening != nullptr)
        draft.opening = m_opening->value();
    return show(saveAccount(session(), prompter(), draft));
}

QStringList AccountEditor::content() const {
    return {m_type->text(), m_name->text(), m_note->text(),
            m_opening == nullptr ? QString() : m_opening->text()};
}

OpeningEditor::OpeningEditor(const FormContext &context, qint64 id, const QString &name,
                             Decimal opening, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Yhzh_Qcjz"), QStringLiteral("账户期初金额"), parent)
    , m_id(id)
    , m_opening(amountOf(session())) {
    fields()->addRow(QStringLiteral("账户名称"), new QLabel(name));
    fields()->addRow(QStringLiteral("期初金额"), m_opening);
    m_opening->setValue(opening);
}

bool OpeningEditor::save() {
    return show(setAccountOpening(session(), prompter(), m_id, m_opening->value()));
}

QStringList OpeningEditor::content() const {
    return {m_opening->text()};
}

} // namespace jxc
