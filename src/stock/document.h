#pragma once

#include "db/row.h"
#include "money/partner_ledger.h"

#include <QHash>
#include <QString>

namespace jxc {

class Database;
struct DocumentKind;
struct Parameters;

/// What the journal copies of a goods.
struct GoodsCopy {
    QString name, mnemonic, unit, specification, registration;
    Decimal averageCost, retailPrice;
};

/// A document as it stands in the database, with the names that its postings copy.
struct Document {
    const DocumentKind &kind;
    QString number;
    Row header;
    Rows lines; ///< in the order of entry, the discount line among them
    QHash<QString, GoodsCopy> goods;
    QString date{};
    QString warehouse{};
    std::optional<QString> warehouseName{}; ///< nothing when the warehouse was deleted
    Partner partner{};
    std::optional<QString> partnerName{};
    QString clerkNo{}, clerkName{};

    [[nodiscard]] bool isApproved() const;
    /// Kinds of goods, the discount line not counted.
    [[nodiscard]] qsizetype goodsLines() const;
    [[nodiscard]] QString note() const;
};

/// Reads a document; throws Refusal when there is none of that number.
[[nodiscard]] Document loadDocument(Database &db, const DocumentKind &kind, const QString &number);

/// Throws Refusal unless the document can be posted at all: it has lines and a date, and its
/// warehouse, partner and goods still exist.
void checkReferences(const Document &document);

} // namespace jxc
