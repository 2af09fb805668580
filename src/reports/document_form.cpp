#include "reports/document_form.h"

#include "reports/document_data.h"
#include "reports/pdf.h"
#include "reports/print_log.h"
#include "stock/document_kind.h"

namespace jxc {

DocumentForm::DocumentForm(const Session &session, const QString &home, const QString &number)
    : m_home(home)
    , m_number(number)
    , m_copies(qBound(1, session.parameters.copiesAfterApproval, 99))
    , m_data(documentData(session, number)) {
    const DocumentKind &kind = *findDocumentKind(number); // documentData has refused any other
    m_title = kind.title;
    m_kind = kind.code;
    m_choices = templateChoices(session, kind, m_data);
    m_again = PrintLog(home).holds(number);
    if (m_again)
        m_data.vars.insert(QStringLiteral("again"), QStringLiteral("补打"));
    installTemplates(home);
}

QString DocumentForm::proposed(const QString &chosenBefore) const {
    const bool isThere =
        std::any_of(m_choices.begin(), m_choices.end(),
                    [&](const TemplateChoice &choice) { return choice.file == chosenBefore; });
    return isThere ? chosenBefore : m_choices.front().file;
}

Pages DocumentForm::pages(const QString &templateFile) const {
    return layOut(loadTemplate(m_home, templateFile), m_data);
}

int DocumentForm::copies(const QString &templateFile) const {
    const int asked = loadTemplate(m_home, templateFile).copies;
    return asked > 1 ? asked : m_copies;
}

bool saveDocumentPdf(const Session &session, const QString &home, const QString &number,
                     const QString &file) {
    const DocumentForm form(session, home, number);
    return writePdf(form.pages(form.choices().front().file), number, file);
}

} // namespace jxc
