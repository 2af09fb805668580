#include "ui/form.h"

#include "core/action.h"
#include "core/prompter.h"
#include "core/session.h"
#include "ui/period_bar.h"

namespace jxc {

Form::Form(const FormContext &context, const QString &className, const QString &title,
           QWidget *parent)
    : QDialog(parent)
    , m_context(context) {
    setObjectName(className);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

Database &Form::db() const {
    return m_context.session.db();
}

bool Form::show(const Outcome &outcome) {
    if (!outcome.text.isEmpty() && outcome.kind != Outcome::Kind::declined)
        prompter().inform(outcome.text, informCaption);
    return outcome.isDone();
}

void Form::showModal() {
    setWindowModality(Qt::ApplicationModal);
    if (m_fillsParent && parentWidget() != nullptr)
        setGeometry(parentWidget()->window()->geometry());
    QDialog::show();
    raise();
    activateWindow();
    for (PeriodBar *bar : findChildren<PeriodBar *>())
        bar->setToday(session().today());
    FormActivate();
}

bool Form::runModal() {
    showModal(); // a cell can be opened for typing only where it is seen
    return exec() == QDialog::Accepted;
}

void Form::setCaption(const QString &caption) {
    if (!caption.isEmpty())
        setWindowTitle(caption);
}

void Form::reject() {
    if (mayLeave())
        QDialog::reject();
}

} // namespace jxc
