#include "reports/pdf.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace jxc {

void setPaper(QPagedPaintDevice &device, const Page &page) {
    // An exact size, and upright: otherwise wide papers would be turned.
    const QPageSize size(page.paper, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    device.setPageLayout(
        QPageLayout(size, QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter));
}

bool writePdf(const Pages &pages, const QString &title, const QString &file) {
    // The old file stays until the new one is whole.
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&target);
        writer.setTitle(title);
        writer.setResolution(600);
        setPaper(writer, pages.front());
        QPainter painter;
        if (!painter.begin(&writer))
            return false;
        for (size_t i = 0; i < pages.size(); ++i) {
            if (i > 0) {
                setPaper(writer, pages[i]);
                if (!writer.newPage())
                    return false;
            }
            paint(pages[i], painter, writer.resolution());
        }
    }
    return target.commit();
}

} // namespace jxc
