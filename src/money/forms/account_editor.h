#pragma once

#include "money/accounts.h"
#include "ui/plain_editor.h"

class QLineEdit;

namespace jxc {

class NumberField;

/// An account, new or stored (TF_Yhzh_Add, TF_Yhzh_Modi).
class AccountEditor : public PlainEditor {
    Q_OBJECT
public:
    AccountEditor(const FormContext &context, AccountDraft draft, QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    AccountDraft m_draft;
    QLineEdit *m_type, *m_name, *m_note;
    NumberField *m_opening = nullptr; ///< of a new one
};

/// What an account began with (TF_Yhzh_Qcjz).
class OpeningEditor : public PlainEditor {
    Q_OBJECT
public:
    OpeningEditor(const FormContext &context, qint64 id, const QString &name, Decimal opening,
                  QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    qint64 m_id;
    NumberField *m_opening;
};

} // namespace jxc
