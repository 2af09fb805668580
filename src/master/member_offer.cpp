#include "master/member_offer.h"

#include "core/session.h"
#include "db/database.h"
#include "master/record.h"

namespace jxc {

QStringList offerFigures(const QString &kind) {
    if (kind == u"0")
        return {QStringLiteral("hh_yh1")};
    if (kind == u"1")
        return {QStringLiteral("hh_yh2"), QStringLiteral("hh_yh3")};
    return {};
}

QString offerNote(const Record &offer) {
    const QString kind = offer.text(u"hh_zl");
    if (kind == u"0")
        return QStringLiteral("实际款=所付存款*") + offer.text(u"hh_yh1");
    if (kind == u"1")
        return QStringLiteral("累计消费 %1 元，转换现金 %2 元")
            .arg(offer.text(u"hh_yh2"), offer.text(u"hh_yh3"));
    return QStringLiteral("充值赠送金额");
}

bool hasOtherGiftOffer(const Session &session, qint64 id) {
    return session.db().exists(QStringLiteral("select id from jxc_hyyh where hh_zl=2 and id<>?"),
                               {id});
}

} // namespace jxc
