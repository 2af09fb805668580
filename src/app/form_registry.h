#pragma once

#include "core/session.h"
#include "master/goods_search.h"
#include "ui/form.h"

#include <QHash>
#include <QPointer>
#include <functional>

namespace jxc {

/// Knows how each form is made, makes it at its first use and keeps it.
class FormRegistry : public FormStage {
public:
    using Maker = std::function<Form *(const FormContext &, QWidget *parent)>;
    using DocumentOpener = std::function<void(const QString &number)>;

    FormRegistry(Session &session, Prompter &prompter, const QString &home)
        : m_goods(session.db())
        , m_context{session, prompter, *this, m_goods, home} {}

    /// Makes a form of this program known by its class name.
    template<class FormClass>
    void add(const QString &className) {
        add(className, [](const FormContext &context, QWidget *parent) -> Form * {
            return new FormClass(context, parent);
        });
    }
    void add(const QString &className, Maker maker) {
        m_makers.insert(className, std::move(maker));
    }
    void setDocumentOpener(DocumentOpener opener) { m_openDocument = std::move(opener); }
    /// The window that the forms belong to; they go when it goes.
    void setOwner(QWidget *owner) { m_owner = owner; }
    [[nodiscard]] QWidget *owner() const { return m_owner; }

    [[nodiscard]] const FormContext &context() const { return m_context; }
    [[nodiscard]] bool isKnown(const QString &className) const override {
        return m_makers.contains(className);
    }
    [[nodiscard]] QStringList knownForms() const { return m_makers.keys(); }
    /// The kept instance; null before its first use.
    [[nodiscard]] Form *kept(const QString &className) const { return m_kept.value(className); }

    Form *openForm(const QString &className, const QString &caption) override;
    Form *makeForm(const QString &className, QWidget *parent) override;
    void openDocument(const QString &number) override;

    /// Another operator shall not find what the one before him left open. Forms that are shown
    /// stay.
    void forgetHiddenForms();

private:
    GoodsFinder m_goods;
    FormContext m_context;
    QPointer<QWidget> m_owner;
    QHash<QString, Maker> m_makers;
    QHash<QString, QPointer<Form>> m_kept;
    DocumentOpener m_openDocument;
};

/// Every form of the program.
void registerForms(FormRegistry &registry);

} // namespace jxc
