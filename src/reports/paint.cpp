#include "reports/pages.h"
#include "reports/template.h"
#include "reports/text_measure.h"

#include <QImage>
#include <QPainter>

namespace jxc {

namespace {

/// Thin enough for a laser printer, and a whole needle of a dot-matrix one.
constexpr qreal ruleWidth = 0.18;

QRectF inDots(const QRectF &mm) {
    return {mm.topLeft() * dotsPerMm, mm.size() * dotsPerMm};
}

int flagsOf(TextAlign align) {
    const int vertical = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
    switch (align) {
    case TextAlign::center:
        return vertical | Qt::AlignHCenter;
    case TextAlign::right:
        return vertical | Qt::AlignRight;
    case TextAlign::left:
        break;
    }
    return vertical | Qt::AlignLeft;
}

/// A picture keeps its shape; one that cannot be read leaves its place empty.
void paintImage(const PlacedImage &placed, QPainter &painter) {
    const QImage image(placed.file);
    if (image.isNull())
        return;
    const QRectF place = inDots(placed.area);
    const QSizeF size = QSizeF(image.size()).scaled(place.size(), Qt::KeepAspectRatio);
    QRectF target(QPointF(), size);
    target.moveCenter(place.center());
    painter.drawImage(target, image);
}

} // namespace

void paint(const Page &page, QPainter &painter, int dotsPerInch) {
    painter.save();
    const qreal scale = dotsPerInch / (25.4 * dotsPerMm);
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, ruleWidth * dotsPerMm));
    painter.setBrush(Qt::NoBrush);
    for (const PlacedImage &image : page.images)
        paintImage(image, painter);
    for (const QRectF &rect : page.rects)
        painter.drawRect(inDots(rect));
    for (const QLineF &line : page.lines)
        painter.drawLine(line.p1() * dotsPerMm, line.p2() * dotsPerMm);
    for (const QRectF &bar : page.bars)
        painter.fillRect(inDots(bar), Qt::black);
    for (const PlacedText &text : page.texts) {
        painter.setFont(printFont(page.font, text.size, text.bold));
        painter.drawText(inDots(text.area), flagsOf(text.align), text.text);
    }
    painter.restore();
}

} // namespace jxc
