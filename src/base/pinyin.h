#pragma once

#include <QString>
#include <QStringList>

namespace jxc {

/// The mnemonic code of a name: the upper-case first letters of its pinyin, with polyphones read as
/// the trade reads them in that word ("重楼" CL, "长效尿素" CXNS).
///
/// Letters and digits stay, upper-case and half-width ("2,4-滴" 24D); punctuation, blanks and
/// characters without a known reading are dropped. As long as the name has characters: whoever
/// stores it cuts it to the column.
[[nodiscard]] QString pinyinInitials(QStringView name);

/// For each character of the mnemonic code all letters it may be read with, the best one first:
/// "长沙" gives "CZ", "S".
[[nodiscard]] QStringList pinyinReadings(QStringView name);

/// Whether the name can be meant by what was typed: its initials begin with it, in any reading of
/// each character. Case, width, blanks and punctuation do not count; nothing typed matches all.
[[nodiscard]] bool initialsMatch(QStringView name, QStringView typed);

} // namespace jxc
