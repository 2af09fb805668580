#include "reports/pages.h"
#include "reports/barcode.h"
#include "reports/fill_in.h"
#include "reports/pagination.h"
#include "reports/template.h"
#include "reports/text_measure.h"

#include <cmath>
#include <numeric>

namespace jxc {

namespace {

constexpr qreal cellPadding = 0.8;
/// A figure without its last digits would be a wrong one: it is set smaller until it fits.
constexpr qreal smallestFigure = 4;
constexpr qreal savesALine = 0.85;
/// A heading shrinks a little before it is cut.
constexpr qreal leastShare = 0.7;

/// A cell of a row before it has a place.
struct Cell {
    QStringList lines;
    TextAlign align = TextAlign::left;
    qreal size = 9;
};
using Cells = std::vector<Cell>;

class Layout {
public:
    Layout(const Template &form, const PrintData &data)
        : m_form(form)
        , m_data(data)
        , m_measure(form.font) {}

    Pages run() {
        fitColumns();
        if (m_form.isLabel)
            return labels();
        const std::vector<qreal> heights = prepareRows();
        const std::vector<PageRows> dealt = dealRows(heights, room());
        m_place.pages = dealt.size();
        for (size_t i = 0; i < dealt.size(); ++i)
            placePage(i, dealt[i], heights);
        if (m_form.isEndless())
            m_pages.front().paper.setHeight(m_y + m_form.margins.bottom());
        return std::move(m_pages);
    }

private:
    [[nodiscard]] const TableItem *table() const {
        return m_form.detail.table ? &*m_form.detail.table : nullptr;
    }
    [[nodiscard]] bool hasSums() const {
        return table() && std::any_of(table()->columns.begin(), table()->columns.end(),
                                      [](const TableColumn &column) { return column.sum; });
    }

    /// The columns' widths, stretched or shrunk to what the paper gives.
    void fitColumns() {
        if (!table())
            return;
        qreal total = 0;
        for (const TableColumn &column : table()->columns)
            total += column.width;
        for (const TableColumn &column : table()->columns)
            m_widths.push_back(column.width * m_form.width() / total);
    }

    /// The band of a page that lies above the rows.
    [[nodiscard]] qreal headHeight(bool isFirst) const {
        return (isFirst || m_form.title.everyPage ? m_form.title.height : 0) +
               m_form.header.height + (table() ? table()->rowHeight : 0);
    }

    [[nodiscard]] PageRoom room() const {
        PageRoom r;
        const qreal sums = hasSums() ? table()->rowHeight : 0;
        r.pageSum = r.total = sums;
        r.footer = m_form.footer.height;
        const qreal height = m_form.paper.height() - m_form.margins.top() -
                             m_form.margins.bottom() - m_form.pageFooter.height;
        r.first = m_form.isEndless() ? -1 : qMax(qreal(0), height - headHeight(true));
        r.others = qMax(qreal(0), height - headHeight(false));
        return r;
    }

    /// Breaks the texts of all rows and answers the rows' heights.
    std::vector<qreal> prepareRows() {
        if (!table())
            return std::vector<qreal>(m_form.detail.height > 0 ? m_data.lines.size() : 0,
                                      m_form.detail.height);
        std::vector<qreal> heights;
        heights.reserve(m_data.lines.size());
        for (size_t line = 0; line < m_data.lines.size(); ++line) {
            qsizetype most = 1;
            m_rows.push_back(cellsOf(line));
            for (const Cell &cell : m_rows.back())
                most = qMax(most, cell.lines.size());
            const qreal more = static_cast<qreal>(most - 1) * lineHeight(table()->size);
            heights.push_back(table()->rowHeight + more);
        }
        return heights;
    }

    Cells cellsOf(size_t line) {
        Cells cells;
        PrintPlace place;
        place.line = line;
        for (size_t i = 0; i < m_widths.size(); ++i) {
            const TableColumn &column = table()->columns[i];
            const PrintValue value = m_data.lines[line].value(column.field);
            const QString text = column.field.contains(u'[')
                                     ? fillIn(column.field, m_data, place, column.format)
                                     : m_data.shown(value, column.format);
            cells.push_back(cellOf(text, i, value, false));
        }
        return cells;
    }

    /// A figure always is one line. A text is set a little smaller when that saves a line, and
    /// otherwise broken into as many as its column allows.
    Cell cellOf(const QString &text, size_t index, const PrintValue &value, bool bold) {
        const TableColumn &column = table()->columns[index];
        const qreal width = m_widths[index] - 2 * cellPadding, full = table()->size;
        const bool isFigure = isNumber(value.kind);
        const qreal size = m_measure.fittingSize(text, width, full, bold,
                                                 isFigure ? smallestFigure : full * savesALine);
        const TextAlign align = alignOf(column, value);
        if (isFigure || m_measure.fits(text, width, size, bold))
            return {m_measure.broken(text, width, size, bold, 1), align, size};
        return {m_measure.broken(text, width, full, bold, column.lines), align, full};
    }

    static TextAlign alignOf(const TableColumn &column, const PrintValue &value) {
        return column.align.value_or(isNumber(value.kind) ? TextAlign::right : TextAlign::left);
    }

    void placePage(size_t index, const PageRows &rows, const std::vector<qreal> &heights) {
        const bool isFirst = index == 0, isLast = index + 1 == m_place.pages;
        newPage();
        m_place.page = index + 1;
        m_place.firstLine = rows.from;
        m_place.endLine = rows.to;
        if (isFirst || m_form.title.everyPage)
            placeBand(m_form.title);
        placeBand(m_form.header);
        if (table())
            placeTable(rows, heights, isLast);
        else
            placeDetails(rows);
        if (isLast)
            placeBand(m_form.footer);
        if (!m_form.isEndless())
            m_y = m_form.paper.height() - m_form.margins.bottom() - m_form.pageFooter.height;
        placeBand(m_form.pageFooter);
    }

    void newPage() {
        Page page;
        page.paper = m_form.paper;
        page.font = m_form.font;
        m_pages.push_back(std::move(page));
        m_y = m_form.margins.top();
    }

    void placeDetails(const PageRows &rows) {
        for (size_t line = rows.from; line < rows.to; ++line) {
            m_place.line = line;
            placeBand(m_form.detail);
        }
        m_place.line.reset();
    }

    void placeTable(const PageRows &rows, const std::vector<qreal> &heights, bool isLast) {
        const qreal height = table()->rowHeight;
        Cells captions;
        for (size_t i = 0; i < m_widths.size(); ++i)
            captions.push_back(shrunk(table()->columns[i].caption, m_widths[i] - 2 * cellPadding,
                                      table()->size, true, TextAlign::center));
        placeRow(captions, height, true);
        for (size_t line = rows.from; line < rows.to; ++line)
            placeRow(m_rows[line], heights[line], false);
        if (table()->fill && !m_form.isEndless())
            for (int left = static_cast<int>((rows.free + 0.001) / height); left > 0; --left)
                placeRow(Cells(m_widths.size()), height, false);
        if (hasSums() && m_place.pages > 1)
            placeSums(QStringLiteral("本页小计"), rows.from, rows.to);
        if (hasSums() && isLast)
            placeSums(QStringLiteral("合计"), 0, m_data.lines.size());
    }

    /// The word takes the columns up to the first sum.
    void placeSums(const QString &word, size_t from, size_t to) {
        Cells cells;
        for (size_t i = 0; i < m_widths.size(); ++i) {
            const TableColumn &column = table()->columns[i];
            const PrintValue sum = column.sum ? m_data.sum(column.field, from, to) : PrintValue();
            cells.push_back(cellOf(m_data.shown(sum, column.format), i, sum, true));
        }
        const size_t free =
            static_cast<size_t>(std::find_if(table()->columns.begin(), table()->columns.end(),
                                             [](const TableColumn &column) { return column.sum; }) -
                                table()->columns.begin());
        placeRow(cells, table()->rowHeight, true, free, word);
    }

    /// A row of cells with their frames; the first `merged` of them are one, which holds `word`.
    void placeRow(const Cells &cells, qreal height, bool bold, size_t merged = 0,
                  const QString &word = {}) {
        qreal x = m_form.margins.left();
        for (size_t i = 0; i < merged && i < cells.size(); ++i)
            x += m_widths[i];
        if (merged > 0) {
            const QRectF cell(m_form.margins.left(), m_y, x - m_form.margins.left(), height);
            page().rects.push_back(cell);
            placeLines(cell,
                       shrunk(word, cell.width() - 2 * cellPadding, table()->size, bold,
                              TextAlign::center),
                       bold);
        }
        for (size_t i = merged; i < cells.size(); ++i) {
            const QRectF cell(x, m_y, m_widths[i], height);
            page().rects.push_back(cell);
            placeLines(cell, cells[i], bold);
            x += m_widths[i];
        }
        m_y += height;
    }

    /// One line, in smaller letters when they are too many.
    Cell shrunk(const QString &text, qreal width, qreal size, bool bold, TextAlign align) {
        const qreal fits = m_measure.fittingSize(text, width, size, bold, size * leastShare);
        return {m_measure.broken(text, width, fits, bold, 1), align, fits};
    }

    /// The lines of a cell, in the middle of its height.
    void placeLines(const QRectF &area, const Cell &cell, bool bold) {
        const qreal line = lineHeight(cell.size);
        qreal y = area.center().y() - line * static_cast<qreal>(cell.lines.size()) / 2;
        for (const QString &text : cell.lines) {
            if (!text.isEmpty())
                page().texts.push_back(
                    {QRectF(area.left() + cellPadding, y, area.width() - 2 * cellPadding, line),
                     text, cell.size, bold, cell.align});
            y += line;
        }
    }

    void placeBand(const Band &band) {
        const QPointF corner(m_form.margins.left(), m_y);
        for (const TextItem &item : band.texts)
            placeText(item, corner);
        for (const LineItem &item : band.lines)
            page().lines.push_back({item.from + corner, item.to + corner});
        for (const QRectF &rect : band.rects)
            page().rects.push_back(rect.translated(corner));
        for (const ImageItem &item : band.images)
            page().images.push_back({item.area.translated(corner), filled(item.file)});
        for (const BarcodeItem &item : band.barcodes)
            placeBarcode(item, corner);
        m_y += band.height;
    }

    [[nodiscard]] QString filled(const QString &text, const QString &format = {}) const {
        return fillIn(text, m_data, m_place, format);
    }

    void placeText(const TextItem &item, QPointF corner) {
        const QRectF area = item.area.translated(corner);
        if (item.border)
            page().rects.push_back(area);
        const int lines =
            qMax(1, static_cast<int>(std::floor((area.height() + 0.01) / lineHeight(item.size))));
        const QString text = filled(item.text, item.format);
        const qreal width = area.width() - (item.border ? 2 * cellPadding : 0);
        const Cell cell = lines == 1
                              ? shrunk(text, width, item.size, item.bold, item.align)
                              : Cell{m_measure.broken(text, width, item.size, item.bold, lines),
                                     item.align, item.size};
        const qreal inset = item.border ? 0 : -cellPadding;
        placeLines(area.adjusted(inset, 0, -inset, 0), cell, item.bold);
    }

    /// What cannot be a barcode of that kind is printed as text, so that it can be typed.
    void placeBarcode(const BarcodeItem &item, QPointF corner) {
        const QRectF area = item.area.translated(corner);
        const QString text = filled(item.text);
        if (text.isEmpty())
            return;
        constexpr qreal size = 7;
        const bool isSquare = item.kind == QLatin1String("qr");
        const qreal below = isSquare ? 0 : lineHeight(size);
        const std::vector<QRectF> bars =
            barcodeBars(item.kind, text, area.adjusted(0, 0, 0, -below));
        page().bars.insert(page().bars.end(), bars.begin(), bars.end());
        if (isSquare && !bars.empty())
            return;
        const QRectF place(area.left(), area.bottom() - lineHeight(size), area.width(),
                           lineHeight(size));
        placeLines(place,
                   shrunk(text, area.width() - 2 * cellPadding, size, false, TextAlign::center),
                   false);
    }

    Pages labels() {
        m_place.pages = m_data.lines.size();
        for (size_t line = 0; line < m_data.lines.size(); ++line) {
            newPage();
            m_place.line = line;
            m_place.page = line + 1;
            placeBand(m_form.detail);
        }
        if (m_pages.empty())
            newPage();
        return std::move(m_pages);
    }

    [[nodiscard]] Page &page() { return m_pages.back(); }

    const Template &m_form;
    const PrintData &m_data;
    TextMeasure m_measure;
    std::vector<qreal> m_widths;
    std::vector<Cells> m_rows;
    PrintPlace m_place;
    Pages m_pages;
    qreal m_y = 0;
};

} // namespace

Pages layOut(const Template &form, const PrintData &data) {
    return Layout(form, data).run();
}

} // namespace jxc
