#include "app/form_registry.h"

#include "core/prompter.h"

namespace jxc {

Form *FormRegistry::openForm(const QString &className, const QString &caption) {
    QPointer<Form> &form = m_kept[className];
    if (form == nullptr) {
        const auto maker = m_makers.constFind(className);
        if (maker == m_makers.constEnd())
            return nullptr;
        form = (*maker)(m_context, m_owner);
    } else if (form->isVisible()) {
        form->hide(); // it lies below another one, and comes up with what it holds
    }
    form->setCaption(caption);
    form->showModal();
    return form;
}

Form *FormRegistry::makeForm(const QString &className, QWidget *parent) {
    const auto maker = m_makers.constFind(className);
    return maker == m_makers.constEnd() ? nullptr : (*maker)(m_context, parent);
}

void FormRegistry::openDocument(const QString &number) {
    if (m_openDocument)
        m_openDocument(number);
    else
        m_context.prompter.inform(QStringLiteral("单据%1的界面尚未提供！").arg(number),
                                  informCaption);
}

void FormRegistry::forgetHiddenForms() {
    for (auto form = m_kept.begin(); form != m_kept.end();) {
        if (form.value() != nullptr && form.value()->isVisible()) {
            ++form;
            continue;
        }
        if (form.value() != nullptr)
            form.value()->deleteLater();
        form = m_kept.erase(form);
    }
}

} // namespace jxc
