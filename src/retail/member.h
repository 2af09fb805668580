#pragma once

#include "base/decimal.h"

#include <QString>
#include <optional>

namespace jxc {

class Database;

/// What a member owns and is, as it stands in jxc_hyxx.
struct Member {
    qint64 id = 0;
    QString key;    ///< hy_sn
    QString number; ///< hy_bh, of the card
    QString name, mobile, birthday;
    QString password;          ///< hy_mm, as stored
    QString level, offer;      ///< hl_sn, hh_sn
    bool levelFollows = false; ///< hy_sj: the level follows the points
    bool lost = false;         ///< hy_status
    bool expires = false;      ///< hy_qx
    QString expiry;            ///< hy_dqrq
    Decimal value;             ///< hy_zhje, stored on the card
    Decimal points, allPoints; ///< hy_jf to spend, hy_zjf ever earned
    Decimal spent;             ///< hy_zje
    Decimal remainder;         ///< hy_ye, below one point
    qint64 visits = 0;         ///< hy_cs
};

/// Nothing for an unknown key.
[[nodiscard]] std::optional<Member> findMember(Database &db, const QString &key);
/// The member whose card bears this number.
[[nodiscard]] std::optional<Member> findMemberByNumber(Database &db, const QString &number);
/// Throws Refusal for an unknown key.
[[nodiscard]] Member loadMember(Database &db, const QString &key);

/// Writes value, points, spending, remainder, visits and level back.
void storeMemberFigures(Database &db, const Member &member);

/// The level (hl_sn) whose bounds hold this many points, both included; nothing when none does.
[[nodiscard]] std::optional<QString> levelHolding(Database &db, Decimal points);
/// The same, but "100001" when no level matches: a fixed key rather than none, deliberately.
[[nodiscard]] QString LevelForPoints(Database &db, Decimal points);

} // namespace jxc
