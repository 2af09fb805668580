#pragma once

#include <QString>

namespace jxc {

class Formats;
struct GridPicture;

/// Writes what a grid shows into a spreadsheet: ".csv" as text, any other name as ".xlsx" with
/// figures as numbers. Whole or not at all; answers what went wrong, empty when all is well.
[[nodiscard]] QString exportGrid(const GridPicture &picture, const Formats &formats,
                                 const QString &file);

} // namespace jxc
