#include "reports/template.h"

#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

namespace jxc {

namespace {

struct Paper {
    qreal width, height;
};

/// The papers that shops have; the wide ones are three-part paper with holes, a whole, a half and a
/// third of a sheet.
const QHash<QString, Paper> &papers() {
    static const QHash<QString, Paper> known = {
        {QStringLiteral("A4"), {210, 297}},      {QStringLiteral("241x280"), {241, 280}},
        {QStringLiteral("241x140"), {241, 140}}, {QStringLiteral("241x93"), {241, 93}},
        {QStringLiteral("58"), {58, 0}},         {QStringLiteral("80"), {80, 0}},
        {QStringLiteral("label"), {40, 30}},
    };
    return known;
}

QString xmlFault(const QXmlStreamReader &xml) {
    switch (xml.error()) {
    case QXmlStreamReader::PrematureEndOfDocumentError:
        return QStringLiteral("文件不完整，缺少结束标签");
    case QXmlStreamReader::NotWellFormedError:
        return QStringLiteral("标签书写有误，或没有正确配对");
    default:
        return QStringLiteral("不是有效的 XML：%1").arg(xml.errorString());
    }
}

/// Reads the elements and says where it could not go on.
class Reader {
public:
    explicit Reader(const QByteArray &bytes)
        : m_xml(bytes) {}

    Template read() {
        if (!m_xml.readNextStartElement())
            fail(m_xml.hasError() ? xmlFault(m_xml) : QStringLiteral("文件是空的"));
        if (m_xml.name() != u"report")
            fail(QStringLiteral("最外层应为 <report>，而不是 <%1>").arg(m_xml.name()));
        readReport();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() != u"band")
                fail(QStringLiteral("<report> 中只能有 <band>，而不是 <%1>").arg(m_xml.name()));
            readBand();
        }
        if (m_xml.hasError())
            fail(xmlFault(m_xml));
        return m_template;
    }

private:
    [[noreturn]] void fail(const QString &reason) const {
        throw TemplateError(
            QStringLiteral("报表模板第%1行：%2！").arg(m_xml.lineNumber()).arg(reason));
    }

    /// An attribute misspelt would silently do nothing, so all that are not expected are named.
    void expect(const QSet<QString> &names) const {
        for (const auto &attribute : m_xml.attributes())
            if (!names.contains(attribute.name().toString()))
                fail(QStringLiteral("<%1> 没有属性“%2”").arg(m_xml.name(), attribute.name()));
    }
    [[nodiscard]] bool has(QLatin1String name) const {
        return m_xml.attributes().hasAttribute(name);
    }
    [[nodiscard]] QString text(QLatin1String name) const {
        return m_xml.attributes().value(name).toString();
    }
    [[nodiscard]] bool flag(QLatin1String name) const { return text(name) == QLatin1String("1"); }
    [[nodiscard]] qreal number(QLatin1String name, qreal otherwise) const {
        return has(name) ? toLength(text(name), name) : otherwise;
    }
    [[nodiscard]] qreal toLength(const QString &written, QLatin1String name) const {
        bool isNumber = false;
        const qreal value = written.trimmed().toDouble(&isNumber);
        if (!isNumber || value < 0 || value > 2000)
            fail(QStringLiteral("属性“%1”的值“%2”不是 0 到 2000 之间的数字").arg(name, written));
        return value;
    }

    void readReport() {
        expect({u"name"_qs, u"paper"_qs, u"width"_qs, u"height"_qs, u"orient"_qs, u"margins"_qs,
                u"font"_qs, u"copies"_qs});
        m_template.name = text(QLatin1String("name"));
        m_template.font = text(QLatin1String("font"));
        m_template.copies = qMax(1, static_cast<int>(number(QLatin1String("copies"), 1)));
        const QString name =
            has(QLatin1String("paper")) ? text(QLatin1String("paper")) : QStringLiteral("A4");
        const auto paper = papers().constFind(name);
        if (paper == papers().constEnd())
            fail(QStringLiteral(
                     "不认识的纸张“%1”，可用：A4、241x280、241x140、241x93、58、80、label")
                     .arg(name));
        m_template.isLabel = name == QLatin1String("label");
        m_template.paper = {number(QLatin1String("width"), paper->width),
                            number(QLatin1String("height"), paper->height)};
        if (text(QLatin1String("orient")) == QLatin1String("landscape"))
            m_template.paper.transpose();
        m_template.margins = margins();
        if (m_template.width() < 10)
            fail(QStringLiteral("纸张太窄，左右边距之间不足 10 毫米"));
    }

    /// "5" on all sides, or "left,top,right,bottom".
    [[nodiscard]] QMarginsF margins() const {
        const QLatin1String name("margins");
        const QStringList sides = has(name) ? text(name).split(u',') : QStringList{u"5"_qs};
        if (sides.size() != 1 && sides.size() != 4)
            fail(QStringLiteral("属性“margins”应为一个数字，或“左,上,右,下”四个数字"));
        const auto side = [&](qsizetype i) {
            return toLength(sides.value(i, sides.front()), name);
        };
        return {side(0), side(1), side(2), side(3)};
    }

    void readBand() {
        expect({u"type"_qs, u"height"_qs, u"data"_qs, u"repeat"_qs});
        const QHash<QString, Band *> bands = {{u"title"_qs, &m_template.title},
                                              {u"header"_qs, &m_template.header},
                                              {u"detail"_qs, &m_template.detail},
                                              {u"footer"_qs, &m_template.footer},
                                              {u"pagefooter"_qs, &m_template.pageFooter}};
        Band *band = bands.value(text(QLatin1String("type")));
        if (!band)
            fail(QStringLiteral("不认识的区域“%1”，可用：title、header、detail、footer、pagefooter")
                     .arg(text(QLatin1String("type"))));
        checkData();
        band->height = number(QLatin1String("height"), 0);
        band->everyPage = flag(QLatin1String("repeat"));
        while (m_xml.readNextStartElement())
            readItem(*band, band == &m_template.detail);
        if (m_xml.hasError())
            fail(xmlFault(m_xml));
    }

    void checkData() const {
        const QLatin1String name("data");
        if (has(name) && text(name) != QLatin1String("line"))
            fail(QStringLiteral("不认识的数据“%1”，可用：line").arg(text(name)));
    }

    void readItem(Band &band, bool isDetail) {
        const QString item = m_xml.name().toString();
        if (item == QLatin1String("table")) {
            if (!isDetail)
                fail(QStringLiteral("<table> 只能放在 detail 区域"));
            band.table = readTable();
            return;
        }
        if (item == QLatin1String("text"))
            band.texts.push_back(readText(band));
        else if (item == QLatin1String("line"))
            band.lines.push_back(readLine());
        else if (item == QLatin1String("rect"))
            band.rects.push_back(readRect(band));
        else if (item == QLatin1String("image"))
            band.images.push_back(readImage(band));
        else if (item == QLatin1String("barcode"))
            band.barcodes.push_back(readBarcode(band));
        else
            fail(QStringLiteral("不认识的元素 <%1>").arg(item));
    }

    /// Without a width an item reaches to the right margin, without a height to the band's end.
    [[nodiscard]] QRectF area(const Band &band) const {
        const qreal x = number(QLatin1String("x"), 0), y = number(QLatin1String("y"), 0);
        return {x, y, number(QLatin1String("w"), qMax(qreal(0), m_template.width() - x)),
                number(QLatin1String("h"), qMax(qreal(0), band.height - y))};
    }

    [[nodiscard]] std::optional<TextAlign> align() const {
        const QString word = text(QLatin1String("align"));
        if (word.isEmpty())
            return std::nullopt;
        if (word == QLatin1String("left"))
            return TextAlign::left;
        if (word == QLatin1String("center"))
            return TextAlign::center;
        if (word == QLatin1String("right"))
            return TextAlign::right;
        fail(QStringLiteral("不认识的对齐方式“%1”，可用：left、center、right").arg(word));
    }

    /// The content of an element, which holds no others.
    QString content() {
        const QString written = m_xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
        if (m_xml.hasError())
            fail(m_xml.error() == QXmlStreamReader::UnexpectedElementError
                     ? QStringLiteral("此处只能写文字，不能有其它元素")
                     : xmlFault(m_xml));
        return written.trimmed();
    }

    TextItem readText(const Band &band) {
        expect({u"x"_qs, u"y"_qs, u"w"_qs, u"h"_qs, u"size"_qs, u"bold"_qs, u"align"_qs,
                u"border"_qs, u"format"_qs});
        TextItem item;
        item.area = area(band);
        item.size = number(QLatin1String("size"), item.size);
        item.bold = flag(QLatin1String("bold"));
        item.align = align().value_or(TextAlign::left);
        item.border = flag(QLatin1String("border"));
        item.format = text(QLatin1String("format"));
        item.text = content();
        return item;
    }

    LineItem readLine() {
        expect({u"x"_qs, u"y"_qs, u"x2"_qs, u"y2"_qs});
        const QPointF from(number(QLatin1String("x"), 0), number(QLatin1String("y"), 0));
        const QPointF to(number(QLatin1String("x2"), m_template.width()),
                         number(QLatin1String("y2"), from.y()));
        content();
        return {from, to};
    }

    QRectF readRect(const Band &band) {
        expect({u"x"_qs, u"y"_qs, u"w"_qs, u"h"_qs});
        const QRectF rect = area(band);
        content();
        return rect;
    }

    ImageItem readImage(const Band &band) {
        expect({u"x"_qs, u"y"_qs, u"w"_qs, u"h"_qs});
        const QRectF where = area(band);
        return {where, content()};
    }

    BarcodeItem readBarcode(const Band &band) {
        expect({u"x"_qs, u"y"_qs, u"w"_qs, u"h"_qs, u"kind"_qs});
        BarcodeItem item{area(band), text(QLatin1String("kind")), {}};
        if (item.kind.isEmpty())
            item.kind = QStringLiteral("code128");
        if (!QStringList{u"code128"_qs, u"ean13"_qs, u"qr"_qs}.contains(item.kind))
            fail(QStringLiteral("不认识的条码“%1”，可用：code128、ean13、qr").arg(item.kind));
        item.text = content();
        return item;
    }

    TableItem readTable() {
        expect({u"data"_qs, u"rowheight"_qs, u"size"_qs, u"fill"_qs});
        checkData();
        TableItem table;
        table.rowHeight = qMax(qreal(2), number(QLatin1String("rowheight"), table.rowHeight));
        table.size = number(QLatin1String("size"), table.size);
        table.fill = flag(QLatin1String("fill"));
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() != u"col")
                fail(QStringLiteral("<table> 中只能有 <col>，而不是 <%1>").arg(m_xml.name()));
            table.columns.push_back(readColumn());
        }
        if (m_xml.hasError())
            fail(xmlFault(m_xml));
        if (table.columns.empty())
            fail(QStringLiteral("<table> 中没有 <col>"));
        return table;
    }

    TableColumn readColumn() {
        expect({u"field"_qs, u"caption"_qs, u"width"_qs, u"align"_qs, u"format"_qs, u"sum"_qs,
                u"lines"_qs});
        TableColumn column;
        column.field = text(QLatin1String("field"));
        column.caption = text(QLatin1String("caption"));
        column.width = number(QLatin1String("width"), 0);
        if (column.width <= 0)
            fail(QStringLiteral("列“%1”没有宽度 width").arg(column.caption));
        column.align = align();
        column.format = text(QLatin1String("format"));
        column.sum = flag(QLatin1String("sum"));
        column.lines = qBound(1, static_cast<int>(number(QLatin1String("lines"), 1)), 9);
        content();
        return column;
    }

    QXmlStreamReader m_xml;
    Template m_template;
};

} // namespace

Template readTemplate(const QByteArray &xml) {
    return Reader(xml).read();
}

} // namespace jxc
