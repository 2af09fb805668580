#pragma once

#include <QByteArray>
#include <QMarginsF>
#include <QRectF>
#include <QString>
#include <optional>
#include <stdexcept>
#include <vector>

namespace jxc {

/// A template file that cannot be used. The text is for the user: it names the line and the reason.
class TemplateError : public std::runtime_error {
public:
    explicit TemplateError(const QString &text)
        : std::runtime_error(text.toStdString())
        , m_text(text) {}
    [[nodiscard]] const QString &text() const { return m_text; }

private:
    QString m_text;
};

// All lengths are millimetres from the upper left corner of the band, font sizes are points.

enum class TextAlign { left, center, right };

struct TextItem {
    QRectF area;
    QString text; ///< with fields in brackets: "单号：[head.number]"
    qreal size = 9;
    bool bold = false;
    TextAlign align = TextAlign::left;
    bool border = false;
    QString format; ///< pattern for the figures of the text; empty: by the figure's own kind
};

struct LineItem {
    QPointF from, to;
};

struct ImageItem {
    QRectF area;
    QString file; ///< beside the template; fields allowed
};

struct BarcodeItem {
    QRectF area;
    QString kind; ///< code128, ean13 or qr
    QString text;
};

struct TableColumn {
    QString field; ///< of the line, "g_name"; or a text with fields
    QString caption;
    qreal width = 0;
    std::optional<TextAlign> align; ///< nothing: figures right, all else left
    QString format;
    bool sum = false;
    int lines = 1; ///< a text too long takes up to so many lines, then it is cut with an ellipsis
};

/// Caption row, one row per line of the data, sums. Fills the width of the page's band.
struct TableItem {
    std::vector<TableColumn> columns;
    qreal rowHeight = 6;
    qreal size = 9;
    bool fill = false; ///< empty rows down to the end of the page
};

/// A strip of the page as wide as its margins allow.
struct Band {
    qreal height = 0;
    bool everyPage = false; ///< a title that stands on every page
    std::vector<TextItem> texts;
    std::vector<LineItem> lines;
    std::vector<QRectF> rects;
    std::vector<ImageItem> images;
    std::vector<BarcodeItem> barcodes;
    std::optional<TableItem> table; ///< of the detail band
};

/// A printed form, as its file describes it.
struct Template {
    QString name;
    QSizeF paper;         ///< an endless paper has height 0
    bool isLabel = false; ///< every line of the data is a page of its own
    QMarginsF margins;
    QString font; ///< empty: the program's
    int copies = 1;

    Band title;      ///< on top of the first page, or of all
    Band header;     ///< on top of every page, below the title
    Band detail;     ///< once per line of the data, or the table
    Band footer;     ///< once, below the last line
    Band pageFooter; ///< at the bottom of every page

    [[nodiscard]] bool isEndless() const { return paper.height() <= 0; }
    /// What lies between the left and right margins.
    [[nodiscard]] qreal width() const { return paper.width() - margins.left() - margins.right(); }
};

/// Reads a template. Throws TemplateError.
[[nodiscard]] Template readTemplate(const QByteArray &xml);

} // namespace jxc
