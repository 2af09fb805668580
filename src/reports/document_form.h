#pragma once

#include "reports/pages.h"
#include "reports/template_files.h"

namespace jxc {

/// The printed form of a document: read once, then laid out with any of the templates that fit it.
class DocumentForm {
public:
    /// `home` holds report/ and Layout/. Throws Refusal when there is no such document.
    DocumentForm(const Session &session, const QString &home, const QString &number);

    [[nodiscard]] const QString &number() const { return m_number; }
    /// What the document is: "采购进货单".
    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] const QString &kind() const { return m_kind; }
    /// The first is the one that fits.
    [[nodiscard]] const std::vector<TemplateChoice> &choices() const { return m_choices; }
    /// The template that was chosen for the kind before, if it may be used; else the one that fits.
    [[nodiscard]] QString proposed(const QString &chosenBefore) const;
    /// Printed before: the paper says so.
    [[nodiscard]] bool isAgain() const { return m_again; }

    /// Throws TemplateError.
    [[nodiscard]] Pages pages(const QString &templateFile) const;
    /// How many copies a template asks for; the parameters' number for one that asks for none.
    [[nodiscard]] int copies(const QString &templateFile) const;

private:
    QString m_home, m_number, m_title, m_kind;
    int m_copies; ///< that the parameters ask for
    PrintData m_data;
    std::vector<TemplateChoice> m_choices;
    bool m_again = false;
};

/// Writes a document into a PDF file with the template that fits it, without any window or printer.
/// False when the file could not be written; throws Refusal and TemplateError.
[[nodiscard]] bool saveDocumentPdf(const Session &session, const QString &home,
                                   const QString &number, const QString &file);

} // namespace jxc
