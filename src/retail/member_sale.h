#pragma once

#include "retail/member.h"

namespace jxc {

class Session;
struct PointsSettings;

/// What happened to a receipt.
enum class MemberMode {
    sale,       ///< "XS"
    saleReturn, ///< "XT"
    undoSale,   ///< "unXS"
    undoReturn  ///< "unXT"
};

/// Posts one receipt of jxc_posxsd on a member, inside a transaction that is open: points, stored
/// value, spending, visits and level of the member, and what the receipt keeps of them. A return
/// stands there with negative amounts. Throws Refusal for an unknown member.
void PostMemberSale(Session &session, const QString &receipt, const QString &member,
                    MemberMode mode);

/// Adds what a posted return pays back onto its member's card: the posting does not touch the card,
/// while its undoing takes that amount off again.
void payBackOntoCard(Database &db, const QString &receipt, const QString &member);

/// What the member's spending leaves below one point (hy_ye), in whole numbers; unchanged unless
/// remainders are carried and points are earned.
void UpdateMemberRemainder(const PointsSettings &settings, Member &member);

} // namespace jxc
