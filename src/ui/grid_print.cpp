#include "ui/grid_print.h"

#include "core/session.h"
#include "ui/grid.h"

#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace jxc {

namespace {

/// Black on paper, whatever the shade on screen.
class ListPrinter {
public:
    ListPrinter(const GridPicture &picture, const FormContext &context, QPrinter &printer)
        : m_picture(picture)
        , m_context(context)
        , m_printer(printer)
        , m_painter(&printer) {}

    void print() {
        m_page = m_painter.viewport();
        m_dpi = m_printer.resolution();
        setFont(9);
        m_rowHeight = m_painter.fontMetrics().height() * 3 / 2;
        fitColumns();
        const int perPage =
            qMax(1, (m_page.height() - headHeight() - footHeight()) / m_rowHeight - 2);
        const int rows = static_cast<int>(m_picture.rows.size());
        m_pages = qMax(1, (rows + perPage - 1) / perPage);
        for (m_pageNo = 1; m_pageNo <= m_pages; ++m_pageNo) {
            if (m_pageNo > 1)
                m_printer.newPage();
            printPage((m_pageNo - 1) * perPage, qMin(rows, m_pageNo * perPage));
        }
    }

private:
    [[nodiscard]] int mm(int length) const { return length * m_dpi / 25; }
    [[nodiscard]] int headHeight() const {
        return mm(12) + static_cast<int>(m_picture.notes.size()) * m_rowHeight;
    }
    [[nodiscard]] int footHeight() const { return mm(8); }

    void setFont(int points, bool bold = false) {
        QFont font = QApplication::font();
        font.setPixelSize(points * m_dpi / 72);
        font.setBold(bold);
        m_painter.setFont(font);
    }

    /// The widths on screen, scaled to the page.
    void fitColumns() {
        int total = 0;
        for (const ColumnSpec &column : m_picture.columns)
            total += qMax(1, column.width);
        int left = 0;
        for (const ColumnSpec &column : m_picture.columns) {
            const int width =
                static_cast<int>(qint64(m_page.width()) * qMax(1, column.width) / qMax(1, total));
            m_places.push_back({left, width});
            left += width;
        }
    }

    void printPage(int from, int to) {
        setFont(14, true);
        m_painter.drawText(QRect(0, 0, m_page.width(), mm(8)), int(Qt::AlignCenter),
                           m_picture.title);
        setFont(9);
        int y = mm(10);
        for (const QString &note : m_picture.notes) {
            m_painter.drawText(QRect(0, y, m_page.width(), m_rowHeight),
                               int(Qt::AlignLeft | Qt::AlignVCenter), note);
            y += m_rowHeight;
        }
        QStringList captions;
        for (const ColumnSpec &column : m_picture.columns)
            captions << column.caption;
        y = printRow(y, captions, true);
        for (int i = from; i < to; ++i)
            y = printRow(y, m_picture.rows[static_cast<size_t>(i)], false);
        if (m_pageNo == m_pages && !m_picture.sums.isEmpty()) {
            QStringList sums = m_picture.sums;
            if (sums.front().isEmpty())
                sums.front() = QStringLiteral("合计");
            printRow(y, sums, true);
        }
        const QRect foot(0, m_page.height() - footHeight(), m_page.width(), footHeight());
        m_painter.drawText(foot, int(Qt::AlignLeft | Qt::AlignBottom),
                           m_context.session.company.name);
        m_painter.drawText(foot, int(Qt::AlignRight | Qt::AlignBottom),
                           QStringLiteral("%1　第%2页／共%3页")
                               .arg(m_context.session.timeStamp())
                               .arg(m_pageNo)
                               .arg(m_pages));
    }

    int printRow(int y, const QStringList &texts, bool bold) {
        setFont(9, bold);
        for (size_t i = 0; i < m_places.size(); ++i) {
            const QRect cell(m_places[i].first, y, m_places[i].second, m_rowHeight);
            m_painter.drawRect(cell);
            const QRect inside = cell.adjusted(mm(1), 0, -mm(1), 0);
            const QString text = m_painter.fontMetrics().elidedText(
                texts[static_cast<qsizetype>(i)], Qt::ElideRight, inside.width());
            m_painter.drawText(
                inside,
                int(Qt::AlignVCenter |
                    (isNumber(m_picture.columns[i].kind) ? Qt::AlignRight : Qt::AlignLeft)),
                text);
        }
        return y + m_rowHeight;
    }

    const GridPicture &m_picture;
    const FormContext &m_context;
    QPrinter &m_printer;
    QPainter m_painter;
    QRect m_page;
    std::vector<std::pair<int, int>> m_places; ///< left and width of each column
    int m_dpi = 72, m_rowHeight = 0, m_pages = 1, m_pageNo = 1;
};

} // namespace

void printGrid(const GridPicture &picture, const FormContext &context, QPrinter &printer) {
    ListPrinter(picture, context, printer).print();
}

void previewGrid(const GridPicture &picture, const FormContext &context, QWidget *parent) {
    QPrinter printer(QPrinter::HighResolution);
    int width = 0;
    for (const ColumnSpec &column : picture.columns)
        width += column.width;
    printer.setPageOrientation(width > 720 ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(QStringLiteral("打印预览 － %1").arg(picture.title));
    preview.resize(parent->window()->size());
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&](QPrinter *target) { printGrid(picture, context, *target); });
    preview.exec();
}

} // namespace jxc
