#pragma once

#include "reports/print_data.h"
#include "reports/template.h"

#include <QStringList>

namespace jxc {

struct DocumentKind;

/// A template that a document can be printed with.
struct TemplateChoice {
    QString file; ///< "spxs.fr3"
    QString name; ///< what the user chooses by
};

/// Copies the templates that the program brings into report/ under the home folder, where the user
/// may change them; those that are there stay. A folder that cannot be written is no fault: the
/// program's own are used then.
void installTemplates(const QString &home);

/// Reads a template of report/, or the program's own when there is none of that name. Throws
/// TemplateError, which names the file.
[[nodiscard]] Template loadTemplate(const QString &home, const QString &file);

/// The templates of a document: the one that fits what it holds first, then the kind's other ones,
/// then those registered for the kind (jxc_bbgl). An operator who may not see cost prices gets none
/// that shows purchase prices.
[[nodiscard]] std::vector<TemplateChoice>
templateChoices(const Session &session, const DocumentKind &kind, const PrintData &data);

} // namespace jxc
