#pragma once

#include "master/goods_index.h"

#include <QString>
#include <vector>

namespace jxc {

class Database;

/// What the goods are sought for: which of them are the usual ones.
enum class GoodsUse { purchase, sale };

/// A goods that a picker offers.
struct GoodsHit {
    qint64 id = 0;
    QString code, name, genericName, dosageForm, specification, unit, maker, registration;
    qint64 classNumber = 0;
    Decimal stock;     ///< kc_sl of the warehouse, base units
    Decimal bookStock; ///< kc_zsl
    Decimal presetPurchasePrice, lastPurchasePrice, sellingPrice, retailPrice;
    bool exact = false;    ///< code, mnemonic code, name or a barcode is what was typed
    QString barcode;       ///< the barcode that was scanned; empty when it was found otherwise
    QString barcodeUnit;   ///< the unit that bears it; the base unit for the goods' own
    Decimal barcodeFactor; ///< base units per that unit
};

/// Finds goods while one types: code and mnemonic code from their beginning (in any reading of the
/// name), a part of name, generic name, maker or registration number, or a whole barcode of goods,
/// further barcode or unit. Disabled goods and the discount goods are not found. One per
/// connection; kept between searches.
class GoodsFinder {
public:
    explicit GoodsFinder(Database &db)
        : m_db(db)
        , m_index(db) {}

    static constexpr size_t mostHits = 50;

    /// Exact hits first, then the goods that are bought (sold) most. Empty for nothing typed.
    [[nodiscard]] std::vector<GoodsHit> find(const QString &typed, const QString &warehouse,
                                             GoodsUse use);
    /// The goods or unit that bears exactly this barcode, whatever else begins so.
    [[nodiscard]] std::vector<GoodsHit> findBarcode(const QString &barcode,
                                                    const QString &warehouse);

    /// Reads a part of the goods ahead, in less than a tenth of a second; false when all are there.
    /// A search reads what is still missing.
    bool readAhead() { return m_index.readMore(); }

private:
    struct BarcodeHit {
        qint64 id = 0;
        QString unit;
        Decimal factor;
    };
    [[nodiscard]] std::vector<BarcodeHit> barcodeHits(const QString &barcode);
    [[nodiscard]] std::vector<GoodsHit> details(const std::vector<qint64> &ids,
                                                const QString &warehouse);

    Database &m_db;
    GoodsIndex m_index;
};

} // namespace jxc
