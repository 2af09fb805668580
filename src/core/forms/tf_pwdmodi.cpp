#include "core/forms/tf_pwdmodi.h"

#include "core/operators.h"
#include "core/prompter.h"

#include <QFormLayout>
#include <QLineEdit>

namespace jxc {

TF_PwdModi::TF_PwdModi(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_PwdModi"), QStringLiteral("修改密码"), parent)
    , m_current(new QLineEdit)
    , m_wanted(new QLineEdit)
    , m_confirmation(new QLineEdit) {
    m_current->setObjectName(QStringLiteral("edtOld"));
    m_wanted->setObjectName(QStringLiteral("edtNew"));
    m_confirmation->setObjectName(QStringLiteral("edtNew2"));
    for (QLineEdit *secret : {m_current, m_wanted, m_confirmation})
        secret->setEchoMode(QLineEdit::Password);
    fields()->addRow(QStringLiteral("当前密码"), m_current);
    fields()->addRow(QStringLiteral("新密码"), m_wanted);
    fields()->addRow(QStringLiteral("确认密码"), m_confirmation);
}

void TF_PwdModi::FormActivate() {
    for (QLineEdit *secret : {m_current, m_wanted, m_confirmation})
        secret->clear();
    PlainEditor::FormActivate();
}

QStringList TF_PwdModi::content() const {
    return {m_current->text(), m_wanted->text(), m_confirmation->text()};
}

bool TF_PwdModi::save() {
    return show(changePassword(session(), prompter(), m_current->text(), m_wanted->text(),
                               m_confirmation->text()));
}

} // namespace jxc
