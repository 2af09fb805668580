#pragma once

#include "stock/draft.h"
#include "ui/document_lines.h"
#include "ui/document_spec.h"
#include "ui/form.h"

namespace jxc {

class HeaderPanel;

// What the document editor asks in windows of its own.

/// Whether a text is the barcode of some unit of a goods.
[[nodiscard]] bool isBarcode(const FormContext &context, const QString &text);
/// The goods with this barcode; empty without one.
[[nodiscard]] QString goodsOfBarcode(const FormContext &context, const QString &barcode);

/// Lets the user choose the batch of a line, first to expire first.
void chooseBatch(const FormContext &context, DocumentLines &lines, int row, QWidget *parent);

/// Registers who buys the restricted goods of a line; what is entered is copied to the document's
/// other restricted lines that have nobody yet.
void registerBuyer(const FormContext &context, DocumentLines &lines, int row,
                   const QString &customer, QWidget *parent);

/// Asks what the whole document shall come to; nothing when the user leaves. The old total takes a
/// discount away.
[[nodiscard]] std::optional<Decimal> askNewTotal(const FormContext &context, Decimal ofLines,
                                                 std::optional<Decimal> now, QWidget *parent);

/// Shows at which prices the goods of a line was traded, with this partner first; answers the one
/// that is taken.
[[nodiscard]] std::optional<Decimal> choosePastPrice(const FormContext &context,
                                                     const DocumentFormSpec &spec,
                                                     const EditLine &line, const QString &partner,
                                                     QWidget *parent);

struct GoodsName {
    QString code, name;
};
/// The same to read; Enter opens the document of a price.
void showPastPrices(const FormContext &context, const DocumentFormSpec &spec,
                    const GoodsName &goods, const QString &partner, QWidget *parent);

/// Brings lines of the documents that this one follows: receipts and sales for goods-in and
/// goods-out, for returns what can be returned.
void chooseSource(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                  HeaderPanel &header, Draft &base, QWidget *parent);

/// Brings all open lines of one receipt or sale; `base` gets its partner and, when nothing was
/// entered yet, the header its warehouse.
void followSource(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                  HeaderPanel &header, Draft &base, const QString &number);

/// Adds one of the scanned goods to a goods-in or goods-out document, from the oldest open line of
/// the warehouse. False when nothing is open for it.
bool addScanOfSource(const FormContext &context, const DocumentFormSpec &spec, DocumentLines &lines,
                     const QString &warehouse, const QString &barcode);

/// Goods ticked in the list of all, with their quantities.
struct GoodsChoice {
    QString goods, name;
    Decimal quantity;
};
[[nodiscard]] std::vector<GoodsChoice> chooseGoods(const FormContext &context,
                                                   const DocumentFormSpec &spec,
                                                   const QString &warehouse, QWidget *parent);

/// The number of an unapproved document of the kind to go on with; empty when the user leaves.
[[nodiscard]] QString chooseDraft(const FormContext &context, const DocumentFormSpec &spec,
                                  QWidget *parent);

} // namespace jxc
