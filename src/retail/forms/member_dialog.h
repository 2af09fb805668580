#pragma once

#include "core/action.h"
#include "retail/member.h"
#include "ui/field_editor.h"

namespace jxc {

/// A small dialog about one member's card; who it is stands on top.
class MemberDialog : public FieldEditor {
    Q_OBJECT
protected:
    MemberDialog(const FormContext &context, const QString &className, const QString &title,
                 Member member, QWidget *parent);

    [[nodiscard]] const Member &member() const { return m_member; }
    /// The card's password, where it has one.
    void addCardPassword();
    [[nodiscard]] QString cardPassword() const;
    [[nodiscard]] QString figure(ValueKind kind, Decimal value) const;

    /// What the dialog does; afterwards it closes.
    virtual Outcome store() = 0;
    /// The field that a refusal speaks of; by itself the one whose caption it begins with.
    virtual QLineEdit *refusedField(const QString &text) const;

    bool save() override;

private:
    Member m_member;
    QLineEdit *m_password = nullptr;
};

} // namespace jxc
