#pragma once

#include "db/schema.h"

namespace jxc {

/// A column that a release added to the tables of an older one.
struct AddedColumn {
    Column column;
    /// What the rows of an old file get: an expression over the row, or 0 and '' when it is empty.
    QString fill;
};

/// The changes of one release. An upgrade runs those that are newer than the file.
struct UpgradeStep {
    struct Addition {
        QString table;
        std::vector<AddedColumn> columns;
    };
    struct Widening {
        QString table;
        const Column *column = nullptr;
    };

    QString date; ///< yyyy-MM-dd, compared as text
    QString subject;
    std::vector<Addition> additions;
    std::vector<Widening> widenings;
};

/// All steps in the order in which they run, which is not quite that of their dates. They stand as
/// text in src/db/schema/upgrade.steps; a mistake there stops the program.
const std::vector<UpgradeStep> &upgradeSteps();

} // namespace jxc
