#include "core/forms/tf_admin_add.h"

#include "core/operators.h"
#include "core/prompter.h"
#include "core/roles.h"
#include "core/session.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace jxc {

TF_Admin_Add::TF_Admin_Add(const FormContext &context, qint64 id, QWidget *parent)
    : PlainEditor(context,
                  id == 0 ? QStringLiteral("TF_Admin_Add") : QStringLiteral("TF_Admin_Modi"),
                  id == 0 ? QStringLiteral("增加操作员") : QStringLiteral("修改操作员"), parent)
    , m_id(id)
    , m_name(new QLineEdit)
    , m_password(new QLineEdit)
    , m_confirmation(new QLineEdit)
    , m_limit(new QLineEdit)
    , m_role(new QComboBox) {
    m_name->setObjectName(QStringLiteral("a_name"));
    m_name->setMaxLength(32);
    m_password->setObjectName(QStringLiteral("a_pwd"));
    m_confirmation->setObjectName(QStringLiteral("a_pwd2"));
    m_role->setObjectName(QStringLiteral("r_sn"));
    m_limit->setObjectName(QStringLiteral("a_zreoje"));
    for (QLineEdit *secret : {m_password, m_confirmation}) {
        secret->setEchoMode(QLineEdit::Password);
        secret->setMaxLength(32);
    }
    m_limit->setAlignment(Qt::AlignRight);
    m_limit->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("\\d{0,12}(\\.\\d{0,6})?")), m_limit));
    m_limit->setPlaceholderText(QStringLiteral("不限制"));
    fields()->addRow(QStringLiteral("操作员"), m_name);
    fields()->addRow(QStringLiteral("密码"), m_password);
    fields()->addRow(QStringLiteral("确认密码"), m_confirmation);
    fields()->addRow(QStringLiteral("所属角色"), m_role);
    fields()->addRow(QStringLiteral("最多抹零金额"), m_limit);
    fill();
}

void TF_Admin_Add::fill() {
    for (const Role &role : listRoles(session()))
        m_role->addItem(role.name, role.number);
    m_role->setEnabled(session().currentRoleNo == administratorNo);
    const auto stored = m_id == 0 ? std::nullopt : readOperator(session(), m_id);
    if (!stored)
        return;
    m_name->setText(stored->name);
    m_password->setText(stored->password);
    m_confirmation->setText(stored->confirmation);
    m_role->setCurrentIndex(m_role->findData(stored->roleNo));
    if (!stored->roundingLimit.isZero())
        m_limit->setText(stored->roundingLimit.toText());
}

QStringList TF_Admin_Add::content() const {
    return {m_name->text(), m_password->text(), m_confirmation->text(),
            m_role->currentData().toString(), m_limit->text()};
}

bool TF_Admin_Add::save() {
    OperatorInput input;
    input.name = m_name->text();
    input.password = m_password->text();
    input.confirmation = m_confirmation->text();
    input.roleNo = m_role->currentData().toString();
    if (!m_limit->text().isEmpty())
        input.roundingLimit = Decimal::fromText(m_limit->text());
    return show(m_id == 0 ? addOperator(session(), prompter(), input)
                          : modifyOperator(session(), prompter(), m_id, input));
}

} // namespace jxc
