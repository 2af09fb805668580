#pragma once
#include <QString>
class QWidget;
namespace jxc {
struct FormContext;
void printDocument(const FormContext &context, const QString &number, QWidget *parent);
bool printDocumentNow(const FormContext &context, const QString &number, QWidget *parent);
} // namespace jxc
