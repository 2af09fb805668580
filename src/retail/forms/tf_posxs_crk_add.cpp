#include "retail/forms/tf_posxs_crk_add.h"

#include "core/session.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace jxc {

namespace {

constexpr int longestNote = 200;

} // namespace

TF_Posxs_Crk_Add::TF_Posxs_Crk_Add(const FormContext &context, TillDirection direction,
                                   QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Posxs_Crk_Add"),
                  direction == TillDirection::in ? QStringLiteral("入款") : QStringLiteral("出款"),
                  parent)
    , m_direction(direction)
    , m_amount(new NumberField(ValueKind::amount, Formats(session().parameters), this))
    , m_note(new QLineEdit(this)) {
    const QString number =
        direction == TillDirection::in ? QStringLiteral("RK") : QStringLiteral("CK");
    m_amount->setObjectName(QStringLiteral("crk_je"));
    m_note->setObjectName(QStringLiteral("crk_note"));
    m_note->setMaxLength(longestNote);
    fields()->addRow(QStringLiteral("单号"),
                     new QLabel(number + QStringLiteral(" 自动编号"), this));
    fields()->addRow(QStringLiteral("日期"), new QLabel(session().today(), this));
    fields()->addRow(QStringLiteral("收银员"), new QLabel(session().currentOperatorName, this));
    fields()->addRow(QStringLiteral("金额"), m_amount);
    fields()->addRow(QStringLiteral("备注"), m_note);
}

bool TF_Posxs_Crk_Add::save() {
    QString number;
    if (!show(recordTillCash(session(), prompter(),
                             {m_direction, m_amount->value(), m_note->text().trimmed()},
                             &number))) {
        m_amount->setFocus();
        return false;
    }
    Q_EMIT stored(number, true);
    return true;
}

QStringList TF_Posxs_Crk_Add::content() const {
    return {m_amount->text(), m_note->text()};
}

} // namespace jxc
