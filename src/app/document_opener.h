#pragma once

#include <QString>

class QWidget;

namespace jxc {

struct FormContext;

/// Shows a stored document to read, whatever its kind; says so when its kind has no window yet, or
/// when it is not there any more.
void openDocumentToRead(const FormContext &context, const QString &number, QWidget *owner);

} // namespace jxc
