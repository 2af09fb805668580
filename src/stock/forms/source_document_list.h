#pragma once

#include "ui/document_list.h"

namespace jxc {

/// Goods-in and goods-out: before the documents themselves stand the receipts (sales) of which
/// something is still to be taken in (issued).
class SourceDocumentList : public DocumentList {
    Q_OBJECT
public:
    SourceDocumentList(const FormContext &context, const DocumentFormSpec &spec,
                       QWidget *parent = nullptr);

public Q_SLOTS:
    /// All that is open of the current source becomes a document: 自动入库, 自动出库.
    void btnZdrkClick();
    /// What is open of the current source will never come or go: 取消入库, 取消出库.
    void btn_QxckClick();

protected:
    ColumnSpecs ownColumns() const override;
    Rows ownRows() override;
    void openOwnRow() override;

private:
    [[nodiscard]] QString neededSource();
    [[nodiscard]] bool isGoodsIn() const { return spec().code() == u"RK"; }
};

} // namespace jxc
