#pragma once

#include <QRectF>
#include <QString>
#include <vector>

namespace jxc {

/// The bars or modules of a barcode ("code128", "ean13", "qr") scaled into an area. Empty when the
/// text cannot be coded, for example an EAN-13 with a wrong check digit.
[[nodiscard]] std::vector<QRectF> barcodeBars(const QString &kind, const QString &text,
                                              const QRectF &area);

} // namespace jxc
