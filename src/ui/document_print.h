#pragma once

#include <QString>

class QWidget;

namespace jxc {

struct FormContext;

/// Shows a stored document as it will be printed, and prints it: printer, copies and template can
/// be chosen, Enter prints, Esc leaves. Without a printer it can still be kept as a PDF file.
void printDocument(const FormContext &context, const QString &number, QWidget *parent);

/// Prints a document at once, on the printer last used for its kind, with the template that fits it
/// and as many copies as the parameters say; for printing right after approval. What went wrong is
/// said; true when it was sent to the printer.
bool printDocumentNow(const FormContext &context, const QString &number, QWidget *parent);

} // namespace jxc
