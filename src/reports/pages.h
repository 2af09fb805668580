#pragma once

#include <QLineF>
#include <QRectF>
#include <QString>
#include <vector>

class QPainter;

namespace jxc {

struct PrintData;
struct Template;
enum class TextAlign;

/// One line of text that fits into its place.
struct PlacedText {
    QRectF area;
    QString text;
    qreal size = 9; ///< points
    bool bold = false;
    TextAlign align{};
};

struct PlacedImage {
    QRectF area;
    QString file;
};

/// What stands on one page, in millimetres from the corner of the paper.
struct Page {
    QSizeF paper;
    QString font;
    std::vector<PlacedText> texts;
    std::vector<QLineF> lines;
    std::vector<QRectF> rects;
    std::vector<QRectF> bars; ///< of barcodes, filled
    std::vector<PlacedImage> images;
};

using Pages = std::vector<Page>;

/// Decides what goes on which page, and where; needs no printer. There is always a page. Texts that
/// are too long are wrapped or cut here, so that nothing ever lies upon another.
[[nodiscard]] Pages layOut(const Template &form, const PrintData &data);

/// Draws a page with its corner at the painter's origin; the device prints so many dots per inch.
void paint(const Page &page, QPainter &painter, int dotsPerInch);

} // namespace jxc
