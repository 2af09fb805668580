#pragma once

#include "reports/pages.h"

#include <functional>

class QWidget;

namespace jxc {

struct FormContext;

/// Shows pages that a template made, and prints them. What keeps them from being made is told.
void previewPages(const FormContext &context, const QString &title,
                  const std::function<Pages()> &make, QWidget *parent);

} // namespace jxc
