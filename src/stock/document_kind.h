#pragma once

#include "master/goods_rules.h"
#include "money/document_money.h"
#include "stock/journal.h"

#include <QString>
#include <QStringList>

namespace jxc {

struct Document;

/// What a journal row of a document adds to the goods' own figures.
struct GoodsEffect {
    int purchases = 0;          ///< g_cgpl
    int sales = 0;              ///< g_xspl
    bool takesPrice = false;    ///< g_scjj and ghs_sn become the row's price and supplier
    bool refreshesCost = false; ///< g_pjjj becomes the average over the warehouses
};

/// A document that stands in the way of cancelling another: what is looked for and what is said.
struct Follower {
    QString sql;  ///< selects the following document's number; the number is bound to every "?"
    QString text; ///< %1 this document, %2 the following one
};

/// One kind of document: a row of constants, and the two small functions that say what it does to
/// the books. One pipeline (posting.h) approves and cancels every kind.
struct DocumentKind {
    QString code, title;
    QString headerTable, lineTable, numberColumn, dateColumn;
    /// Of the approval triple: "j" for j_status, j_checker, j_chkrq; empty for kinds that post as
    /// soon as they are saved.
    QString prefix;
    QString warehouseColumn, noteColumn;
    QString clerkColumn = QStringLiteral("u_sn"); ///< empty for kinds that name no clerk
    QString partnerColumn;
    Partner::Kind partnerKind = Partner::Kind::supplier;
    QString quantityColumn, baseQuantityColumn;
    QString memberColumn;        ///< of the header; empty for kinds that name no member
    bool headerHasGoods = false; ///< split and bundle: the header names a goods as well

    QString rightGroup;
    int entryRight = 0, approveRight = 0, cancelRight = 0;

    QString approveLog; ///< "审核采购进货单"; the count of goods is appended
    QString cancelLog;
    bool cancelLogNamesNumber = false;
    QString shortageWord; ///< 出库, 退货 or 销售; empty for inbound kinds, whose batches are not
                          ///< checked

    std::vector<Follower> followers;
    QString feeDocument; ///< how fee notes call the document; empty when it has no fees

    GoodsEffect onApproval, onCancelling;

    /// Columns of the header that cancelling puts back to 0, beside the triple.
    QStringList headerZeroes;

    /// What has to be settled before anything is written, beyond what all kinds check.
    void (*check)(Session &, const Document &) = nullptr;
    /// What cancelling does not undo, told with the question; null for kinds where it undoes all.
    QString (*cancelWarning)(Database &, const QString &number) = nullptr;
    /// Marks the lines at approval and at cancelling.
    void (*markApproved)(Database &, const QString &number) = nullptr;
    void (*markCancelled)(Database &, const QString &number) = nullptr;

    /// The journal rows that approval writes, in their order; null for kinds without any.
    std::vector<JournalRow> (*movements)(const Document &) = nullptr;
    /// Whether the line of a journal row moves goods physically (or only in the books).
    bool (*movesPhysically)(const Row &line) = nullptr;
    /// The money that approval books; null for kinds without money.
    DocumentMoney (*payments)(const Document &) = nullptr;
    /// Goods-in and goods-out move physical stock against another document's lines: `direction` 1
    /// at approval, -1 at cancelling.
    void (*moveAgainstSource)(Session &, const Document &, int direction) = nullptr;
    /// Tidies the header once it is approved.
    void (*afterApproval)(Database &, const Document &) = nullptr;

    [[nodiscard]] QString statusColumn() const { return prefix + QStringLiteral("_status"); }
    [[nodiscard]] QString checkerColumn() const { return prefix + QStringLiteral("_checker"); }
    [[nodiscard]] QString checkDateColumn() const { return prefix + QStringLiteral("_chkrq"); }
};

/// All kinds that can be posted.
[[nodiscard]] const std::vector<DocumentKind> &documentKinds();
/// The kind by the first two letters of a document number; null when there is none.
[[nodiscard]] const DocumentKind *findDocumentKind(QStringView number);

} // namespace jxc
