#pragma once

#include "db/upgrade.h"

namespace jxc {

class Layout;

/// What a conversion works with.
struct Conversion {
    Database &db;
    Layout &layout;
    const UpgradeHooks &hooks;
    QDate today;
};

/// What the step of this date does to the rows, after its columns are there; most do nothing.
void convertRows(const QString &stepDate, const Conversion &conversion);

} // namespace jxc
