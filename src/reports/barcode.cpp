#include "reports/barcode.h"

#include <memory>
#include <zint.h>

namespace jxc {

namespace {

struct Deleter {
    void operator()(zint_symbol *symbol) const { ZBarcode_Delete(symbol); }
};

int symbologyOf(const QString &kind) {
    if (kind == QLatin1String("qr"))
        return BARCODE_QRCODE;
    return kind == QLatin1String("ean13") ? BARCODE_EANX : BARCODE_CODE128;
}

} // namespace

std::vector<QRectF> barcodeBars(const QString &kind, const QString &text, const QRectF &area) {
    const std::unique_ptr<zint_symbol, Deleter> symbol(ZBarcode_Create());
    symbol->symbology = symbologyOf(kind);
    symbol->input_mode = UNICODE_MODE;
    symbol->show_hrt = 0;
    const QByteArray bytes = text.toUtf8();
    if (ZBarcode_Encode_and_Buffer_Vector(symbol.get(),
                                          reinterpret_cast<const unsigned char *>(bytes.data()),
                                          static_cast<int>(bytes.size()), 0) >= ZINT_ERROR)
        return {};
    const qreal width = qreal(symbol->vector->width), height = qreal(symbol->vector->height);
    if (width <= 0 || height <= 0)
        return {};
    qreal across = area.width() / width, down = area.height() / height;
    if (kind == QLatin1String("qr")) // stays square
        across = down = qMin(across, down);
    std::vector<QRectF> bars;
    for (const zint_vector_rect *r = symbol->vector->rectangles; r; r = r->next)
        bars.emplace_back(area.left() + qreal(r->x) * across, area.top() + qreal(r->y) * down,
                          qreal(r->width) * across, qreal(r->height) * down);
    return bars;
}

} // namespace jxc
