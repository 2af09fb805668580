#include "stock/order_progress.h"

#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

struct OrderSide {
    QString orderLines, followingLines, quantity, baseQuantity, done;
};

Decimal followed(Database &db, const OrderSide &s, qint64 orderLine) {
    Decimal base;
    for (const Row &row : db.rows(
             QStringLiteral("select %1 from %2 where id3=?").arg(s.baseQuantity, s.followingLines),
             {orderLine}))
        base += row.decimal(size_t{0});
    return base;
}

} // namespace

void refreshOrderProgress(Database &db, const QString &code, std::vector<qint64> orderLines) {
    static const OrderSide purchases{QStringLiteral("jxc_cgsp"), QStringLiteral("jxc_jhsp"),
                                     QStringLiteral("jh_sl"), QStringLiteral("jh_zsl"),
                                     QStringLiteral("jh_rksl")};
    static const OrderSide sales{QStringLiteral("jxc_xssp"), QStringLiteral("jxc_lsxssp"),
                                 QStringLiteral("ls_sl"), QStringLiteral("ls_zsl"),
                                 QStringLiteral("ls_cksl")};
    const OrderSide &s = code == QLatin1String("XS") ? sales : purchases;
    std::sort(orderLines.begin(), orderLines.end());
    orderLines.erase(std::unique(orderLines.begin(), orderLines.end()), orderLines.end());
    for (const qint64 id : orderLines) {
        const auto line = id == 0 ? std::nullopt
                                  : db.row(QStringLiteral("select %1 as sl,%2 as zsl from %3 "
                                                          "where id=?")
                                               .arg(s.quantity, s.baseQuantity, s.orderLines),
                                           {id});
        if (!line)
            continue;
        const Decimal base = followed(db, s, id);
        // The same factor as the order's own line, whatever unit the follower was typed in.
        const Decimal done = (base * line->decimal(u"sl") / line->decimal(u"zsl")).rounded(6);
        db.updateRows(s.orderLines, {{s.done, done}}, QStringLiteral("id=?"), {id});
    }
}

} // namespace jxc
