#pragma once

#include <QString>
#include <QStringList>

namespace jxc {

class Record;
class Session;

// What members are offered (jxc_hyyh). The kind of an offer decides which of its figures count:
// "0" a recharge counts as a multiple, "1" so much spent brings so much back, "2" a recharge of
// exactly an amount brings the gift that the table of gifts has for it.

/// The columns of the figures that an offer of this kind has; the others stay 0.
[[nodiscard]] QStringList offerFigures(const QString &kind);
/// What the offer means, in words.
[[nodiscard]] QString offerNote(const Record &offer);
/// Whether an offer other than the one of this id gives by the table of gifts; one is enough for
/// all members.
[[nodiscard]] bool hasOtherGiftOffer(const Session &session, qint64 id);

inline const QString secondGiftOffer = QStringLiteral("已有充值赠送的优惠方式！");

} // namespace jxc
