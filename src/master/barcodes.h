#pragma once

#include <QString>

namespace jxc {

class Database;

/// What the shop demands of barcodes.
struct BarcodeRules {
    bool unique = false;    ///< cs_barunique: none stands on two goods or units
    bool automatic = false; ///< cs_tmzdsc: a new goods without one gets one of the shop's own

    static BarcodeRules load(Database &db);
};

inline const QString repeatedBarcodeText = QStringLiteral("商品条码不能重复！");

/// Whether another goods bears the barcode: itself, on a unit or in its further barcodes.
[[nodiscard]] bool isForeignBarcode(Database &db, const QString &barcode, const QString &goods);
/// Whether it stands among the further barcodes of another goods.
[[nodiscard]] bool isForeignListedBarcode(Database &db, const QString &barcode,
                                          const QString &goods);

/// The last digit of an EAN-13, from the twelve before it.
[[nodiscard]] QChar ean13CheckDigit(QStringView twelveDigits);
/// The next barcode of the shop's own: "2", a serial of eleven digits, the check digit. The serial
/// is noted, so that it is never given twice. Inside the transaction that uses it.
[[nodiscard]] QString drawBarcode(Database &db);

} // namespace jxc
