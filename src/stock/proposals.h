#pragma once

#include "stock/batches.h"

#include <QHash>
#include <QStringList>
#include <optional>
#include <vector>

namespace jxc {

class Session;

/// A unit that a goods is counted in.
struct UnitChoice {
    QString name;
    Decimal factor = 1; ///< base units per unit
    QString barcode{};
};

/// What a line of a document is proposed for.
struct LineRequest {
    QString code; ///< of the document: CJ, CT, XS, XT
    QString partner, warehouse, date;
    QString goods;
    QString unit{};    ///< empty: the barcode's unit, else the base unit
    QString barcode{}; ///< as scanned
};

/// What the grid shows of a goods and proposes for its line.
struct LineProposal {
    QString goods, name, commonName, dosageForm, specification, maker,
        licence; ///< licence: color_name
    QString baseUnit, barcode, supplier, location;
    bool restricted = false;         ///< g_iscf: the buyer is registered
    Decimal limit{};                 ///< g_xzsl: most of one sale, 0 for any
    int shelfLifeMonths = 0;         ///< g_bzq
    std::vector<UnitChoice> units{}; ///< the base unit first
    QString unit{};
    Decimal factor = 1;
    Decimal price{};       ///< per unit, as it is typed (with tax while prices include tax)
    Decimal retailPrice{}; ///< per unit
    Decimal presetPrice{}; ///< g_sj of the unit
    Decimal cost{};        ///< per unit, of the warehouse and date; for the eye
    Decimal stock{};       ///< kc_sl in the unit
    Decimal bookStock{};   ///< kc_zsl in the unit
};

/// Everything that the line of a goods starts with. Nothing when there is no such goods or it is
/// disabled.
[[nodiscard]] std::optional<LineProposal> proposeLine(Session &session, const LineRequest &request);

/// The price alone, when unit or partner change.
[[nodiscard]] Decimal proposePrice(Session &session, const LineRequest &request);

/// A batch that goods can be taken from.
struct BatchChoice {
    Batch batch;
    Decimal quantity;                 ///< in base units
    std::optional<qint64> daysLeft{}; ///< until it expires, negative past; nothing: never expires
};

/// The batches of a goods in a warehouse that hold something, those that expire first in front,
/// those that never do at the end.
[[nodiscard]] std::vector<BatchChoice> batchesOut(Session &session, const QString &goods,
                                                  const QString &warehouse);
/// The same of several goods in one statement, by goods; those without any are left out.
[[nodiscard]] QHash<QString, std::vector<BatchChoice>>
batchesOut(Session &session, const QStringList &goods, const QString &warehouse);

/// A part of a line's quantity, taken from one batch.
struct BatchPart {
    Batch batch;
    Decimal quantity; ///< in the line's unit
};

/// Takes a quantity (in a unit of `factor` base units) from the batches in their order; what they
/// do not hold stays on the last part. `batches` as batchesOut() gives them; `taken` is what other
/// lines of the document already take of them, in base units.
[[nodiscard]] std::vector<BatchPart> splitOverBatches(const std::vector<BatchChoice> &batches,
                                                      Decimal quantity, Decimal factor,
                                                      const std::vector<BatchChoice> &taken = {});

/// A price at which a goods was traded.
struct PastPrice {
    QString date, number, partnerName, unit;
    Decimal quantity, price, taxPrice, discount;
};

/// The last ten prices of a goods with this partner, newest first, of approved documents: receipts
/// and sales by the code. An empty partner: with all.
[[nodiscard]] std::vector<PastPrice> lastPrices(Session &session, const QString &code,
                                                const QString &goods, const QString &partner);

} // namespace jxc
