#include "master/goods_search.h"
#include "ui/document_dialogs.h"

namespace jxc {

QString goodsOfBarcode(const FormContext &context, const QString &barcode) {
    const std::vector<GoodsHit> hits = context.goods.findBarcode(barcode, {});
    return hits.empty() ? QString() : hits.front().code;
}

bool isBarcode(const FormContext &context, const QString &text) {
    return text.size() >= 6 && !goodsOfBarcode(context, text).isEmpty();
}

} // namespace jxc
