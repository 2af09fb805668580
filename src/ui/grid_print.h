#pragma once

class QPrinter;
class QWidget;

namespace jxc {

struct FormContext;
struct GridPicture;

/// Draws a list on as many pages as it needs: title, notes, the columns fitted to the width, sums
/// at the end, company and page numbers at the foot.
void printGrid(const GridPicture &picture, const FormContext &context, QPrinter &printer);
/// Shows the pages first.
void previewGrid(const GridPicture &picture, const FormContext &context, QWidget *parent);

} // namespace jxc
