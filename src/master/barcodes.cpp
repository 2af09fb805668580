#include "master/barcodes.h"

#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

constexpr int serialDigits = 11;

/// Older rows hold the whole barcode instead of its serial.
qint64 serialOf(const QString &noted) {
    const bool whole = noted.size() == serialDigits + 2 && noted.startsWith(u'2');
    return (whole ? noted.mid(1, serialDigits) : noted).toLongLong();
}

qint64 lastSerial(Database &db) {
    qint64 last = 0;
    for (const Row &row : db.rows(QStringLiteral("select tm_code from jxc_txm")))
        last = std::max(last, serialOf(row.text(u"tm_code")));
    return last;
}

} // namespace

BarcodeRules BarcodeRules::load(Database &db) {
    const auto row = db.row(QStringLiteral("select cs_barunique,cs_tmzdsc from jxc_xtcs order by "
                                           "id"));
    return row ? BarcodeRules{row->flag(u"cs_barunique"), row->flag(u"cs_tmzdsc")} : BarcodeRules();
}

bool isForeignBarcode(Database &db, const QString &barcode, const QString &goods) {
    return db.exists(
               QStringLiteral("select g_sn from jxc_goods where g_sptm=? and g_sn<>? union all "
                              "select g_sn from jxc_goodsdw where g_sptm=? and g_sn<>?"),
               {barcode, goods, barcode, goods}) ||
           isForeignListedBarcode(db, barcode, goods);
}

bool isForeignListedBarcode(Database &db, const QString &barcode, const QString &goods) {
    return db.exists(QStringLiteral("select g_sn from jxc_goodstm where g_sptm=? and g_sn<>?"),
                     {barcode, goods});
}

QChar ean13CheckDigit(QStringView twelveDigits) {
    int sum = 0;
    for (qsizetype i = 0; i < twelveDigits.size(); ++i)
        sum += twelveDigits[i].digitValue() * (i % 2 == 0 ? 1 : 3);
    return QChar(static_cast<char16_t>(u'0' + (10 - sum % 10) % 10));
}

QString drawBarcode(Database &db) {
    for (qint64 serial = lastSerial(db) + 1;; ++serial) {
        const QString digits = QString::number(serial).rightJustified(serialDigits, u'0');
        QString barcode = u'2' + digits;
        barcode += ean13CheckDigit(barcode);
        if (isForeignBarcode(db, barcode, {}))
            continue; // typed by hand before
        db.insertRow(QStringLiteral("jxc_txm"), {{QStringLiteral("tm_code"), digits}});
        return barcode;
    }
}

} // namespace jxc
