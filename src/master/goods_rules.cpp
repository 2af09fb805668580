#include "master/goods_rules.h"

#include "base/pinyin.h"
#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "master/barcodes.h"
#include "master/record.h"

#include <algorithm>

namespace jxc {

namespace {

constexpr int serialDigits = 6;
constexpr int typedDigits = 8;

bool isDigits(const QString &text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// The greatest serial among codes of exactly this form; 0 for none.
qint64 greatestSerial(Database &db, const QString &prefix, int digits) {
    QString below = prefix + QString(digits, u'9');
    const qsizetype length = below.size();
    const QString sql =
        QStringLiteral("select max(g_sn) as sn from jxc_goods where g_sn>=? and %1 and "
                       "length(g_sn)=%2")
            .arg(QStringLiteral("g_sn<=?"), QString::number(length));
    for (;;) {
        const QString greatest = db.scalar(sql, {prefix + QString(digits, u'0'), below});
        if (greatest.isEmpty())
            return 0;
        if (isDigits(greatest.mid(prefix.size())))
            return greatest.mid(prefix.size()).toLongLong();
        // Typed codes with letters lie in between: look below them.
        below = greatest.chopped(1) + QChar(static_cast<char16_t>(greatest.back().unicode() - 1));
    }
}

QString serialText(qint64 serial, int digits) {
    return QString::number(serial).rightJustified(digits, u'0');
}

} // namespace

bool goodsCodeIsAutomatic(Database &db) {
    const auto row = db.row(QStringLiteral("select cs_spbh from jxc_xtcs order by id"));
    return row && row->flag(u"cs_spbh");
}

QString goodsCode(const Session &session, const Record &goods) {
    Database &db = session.db();
    if (goodsCodeIsAutomatic(db)) {
        const QString prefix = goods.text(u"gc_cid").rightJustified(2, u'0');
        return prefix + serialText(greatestSerial(db, prefix, serialDigits) + 1, serialDigits);
    }
    const QString typed = goods.text(u"g_sn");
    return typed.isEmpty() ? serialText(greatestSerial(db, {}, typedDigits) + 1, typedDigits)
                           : typed;
}

bool hasMoved(Database &db, const QString &goods) {
    return db.exists(QStringLiteral("select id from jxc_goodslist where g_sn=? limit 1"), {goods});
}

void checkGoodsRow(const Session &session, Record &goods) {
    if (goods.flag(u"g_iscf") && goods.text(u"color_name").isEmpty())
        throw FieldRefusal(QStringLiteral("color_name"),
                           QStringLiteral("处方药必须填写批准文号！"));
    if (!goods.isNew() && goods.isChanged(u"dw_name") &&
        hasMoved(session.db(), goods.text(u"g_sn")))
        throw FieldRefusal(QStringLiteral("dw_name"),
                           QStringLiteral("该商品已有业务发生，不能修改单位！"));
    const QString barcode = goods.text(u"g_sptm");
    if (!barcode.isEmpty() && goods.isChanged(u"g_sptm") &&
        BarcodeRules::load(session.db()).unique &&
        isForeignBarcode(session.db(), barcode, goods.text(u"g_sn")))
        throw FieldRefusal(QStringLiteral("g_sptm"), repeatedBarcodeText);
    goods.set(QStringLiteral("gg_jm"),
              fitted(u"jxc_goods", u"gg_jm", pinyinInitials(goods.text(u"gg_name"))));
}

} // namespace jxc
