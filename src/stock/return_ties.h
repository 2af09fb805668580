#pragma once

#include "stock/batches.h"

#include <QString>
#include <optional>

namespace jxc {

/// A return's line names the document that it returns at the start of its note, "原单" and the
/// number: ids of lines are renewed when a draft is saved again, numbers stay.
struct TiedNote {
    QString number; ///< empty: no tie
    QString note;   ///< what else was noted
};

[[nodiscard]] TiedNote readTiedNote(const QString &stored);
[[nodiscard]] QString tiedNote(const TiedNote &note);

/// What is counted together: lines of one document that agree in goods, unit and batch.
struct ReturnKey {
    QString number, goods, unit;
    Batch batch; ///< normalised
    friend bool operator<(const ReturnKey &a, const ReturnKey &b) {
        return std::tie(a.number, a.goods, a.unit, a.batch) <
               std::tie(b.number, b.goods, b.unit, b.batch);
    }
};

} // namespace jxc
