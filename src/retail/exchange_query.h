#pragma once

#include "db/row.h"

#include <QString>

namespace jxc {

class Session;

/// Which exchanges of points the list shows.
struct ExchangeFilter {
    QString from, to; ///< "yyyy-MM-dd", both included
    QString search{}; ///< a part of the number, of the member's name or of the note, or his card
};

/// The exchanges, newest first. Fields: id dh_dhrq gl_djh hy_bh hy_name ck_name dh_sl dh_jf dh_note
/// a_name.
[[nodiscard]] Rows listExchanges(const Session &session, const ExchangeFilter &filter);
/// The gifts of one: id g_sn g_name gg_name dw_name dh_zpjf dh_sl dh_jf.
[[nodiscard]] Rows exchangeLines(const Session &session, const QString &number);

/// The gifts that can be had for points, with what a warehouse has of them: those whose code,
/// name, initials or barcode fit what was typed, at most `most`. Fields: g_sn g_name gg_name
/// dw_name g_zpjf kc_sl.
[[nodiscard]] Rows findGifts(const Session &session, const QString &typed, const QString &warehouse,
                             int most);
/// The same row for one gift; nothing when the goods is none.
[[nodiscard]] std::optional<Row> giftRow(const Session &session, const QString &goods,
                                         const QString &warehouse);

} // namespace jxc
