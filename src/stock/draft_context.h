#pragma once

#include "core/session.h"
#include "db/database.h"
#include "stock/amounts.h"
#include "stock/document_kind.h"
#include "stock/draft.h"

#include <QHash>

namespace jxc {

/// What a goods brings into a line.
struct LineGoods {
    QString name, unit, barcode, supplier;
    Decimal retailPrice, presetPrice; ///< per base unit
    bool restricted = false;
    int shelfLifeMonths = 0;
};

/// A line with everything that is stored of it.
struct CompleteLine {
    DraftLine typed; ///< gifts without a price, purchase discounts in the price
    LineGoods goods;
    QString unit{}, barcode{};
    Decimal baseQuantity{}, rate{};
    Decimal retailPrice{}, presetPrice{}; ///< per unit of entry
    Decimal cost{}, totalCost{};          ///< of sales
    LineAmounts amounts{};
};

/// A document as it stands in its tables.
struct StoredState {
    Row header;
    Rows lines;
    QString fingerprint; ///< tells any change of either
};

[[nodiscard]] std::optional<StoredState> readStoredState(Database &db, const DocumentKind &kind,
                                                         const QString &number);

/// The kind of a document that drafts know; throws Refusal for any other.
[[nodiscard]] const DocumentKind &draftKind(const QString &code);

/// What the steps of one saving share.
struct DraftContext {
    DraftContext(Session &session, Draft &draft);

    Session &session;
    Database &db;
    Draft &draft;
    const DocumentKind &kind;
    Parameters parameters;
    bool isSale;                         ///< of the customers' side: XS, XT, CK
    bool isReturn;                       ///< CT, XT
    bool isFollower;                     ///< RK, CK: moves the goods of a receipt or sale, no money
    std::optional<StoredState> stored{}; ///< what is replaced

    [[nodiscard]] bool is(QLatin1String code) const { return kind.code == code; }
    /// "jh", "ls" or "th", "rk", "ck": begins the names of the lines' columns.
    [[nodiscard]] QString linePrefix() const;
    /// The column of the header that names the partner; followers have one as well.
    [[nodiscard]] QString partnerColumn() const;
};

} // namespace jxc
