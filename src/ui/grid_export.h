#pragma once

#include <QString>

class QWidget;

namespace jxc {

class Formats;
struct FormContext;
struct GridPicture;

/// Writes what a grid shows into a spreadsheet: ".csv" as text, any other name as ".xlsx" with
/// figures as numbers. Whole or not at all; answers what went wrong, empty when all is well.
[[nodiscard]] QString exportGrid(const GridPicture &picture, const Formats &formats,
                                 const QString &file);
/// The same, and tells how it went.
void exportAndTell(const GridPicture &picture, const FormContext &context, const QString &file);
/// Asks for the file first; `name` and the day are proposed.
void chooseExportFile(const GridPicture &picture, const FormContext &context, const QString &name,
                      QWidget *parent);

} // namespace jxc
