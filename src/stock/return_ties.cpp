#include "stock/return_ties.h"

namespace jxc {

namespace {
const QString mark = QStringLiteral("原单");
}

TiedNote readTiedNote(const QString &stored) {
    if (!stored.startsWith(mark))
        return {{}, stored};
    const qsizetype begin = mark.size();
    qsizetype end = begin;
    while (end < stored.size() && stored[end].unicode() < 128 && stored[end].isLetterOrNumber())
        ++end;
    if (end - begin < 13) // no document number is shorter
        return {{}, stored};
    return {stored.sliced(begin, end - begin), stored.sliced(end).trimmed()};
}

QString tiedNote(const TiedNote &note) {
    if (note.number.isEmpty())
        return note.note;
    const QString tie = mark + note.number;
    return note.note.isEmpty() ? tie : tie + u' ' + note.note;
}

} // namespace jxc
