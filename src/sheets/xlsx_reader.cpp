#include "sheets/xlsx_reader.h"

#include "sheets/cell_text.h"
#include "sheets/faults.h"
#include "sheets/sheet_builder.h"
#include "sheets/zip_archive.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace jxc {

namespace {

/// Steps from element to element of one part. Element names are compared without their namespace:
/// the strict and the usual dialect differ in nothing else that is read here.
class Part {
public:
    explicit Part(const QByteArray &bytes)
        : m_xml(bytes) {}

    /// False at the end of the part. Throws when it is no well-formed document.
    bool nextElement() {
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::DTD)
                throw damagedFile(); // none is ever written; what it defines could grow without end
            if (token == QXmlStreamReader::StartElement)
                return true;
        }
        finish();
        return false;
    }

    /// The next child of the element named, or false when that ends.
    bool nextInside(QStringView element) {
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::StartElement)
                return true;
            if (token == QXmlStreamReader::EndElement && m_xml.name() == element)
                return false;
        }
        finish();
        return false;
    }

    [[nodiscard]] bool is(QStringView element) const { return m_xml.name() == element; }
    /// By local name: relations carry theirs in a namespace of their own.
    [[nodiscard]] QString attribute(QStringView name) const {
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const QXmlStreamAttribute &attribute : attributes)
            if (attribute.name() == name)
                return attribute.value().toString();
        return {};
    }
    QString text() { return m_xml.readElementText(QXmlStreamReader::IncludeChildElements); }
    void skip() { m_xml.skipCurrentElement(); }

private:
    void finish() const {
        if (m_xml.hasError())
            throw damagedFile();
    }

    QXmlStreamReader m_xml;
};

/// "_x000D_" stands for the character with that number.
QString unescaped(QString text) {
    static const QRegularExpression escape(QStringLiteral("_x([0-9A-Fa-f]{4})_"));
    if (!text.contains(QLatin1String("_x")))
        return text;
    QRegularExpressionMatch match;
    for (qsizetype at = 0; (at = text.indexOf(escape, at, &match)) >= 0; ++at)
        text.replace(at, 7, QChar(match.captured(1).toUShort(nullptr, 16)));
    return text;
}

/// The text of a shared or inline string: its runs, without the reading aids beside them.
QString richText(Part &part, QStringView element) {
    QString text;
    while (part.nextInside(element)) {
        if (part.is(u"t"))
            text += part.text();
        else if (part.is(u"rPh") || part.is(u"rPr"))
            part.skip();
    }
    return unescaped(text).trimmed();
}

QString folderOf(const QString &part) {
    return part.left(part.lastIndexOf(u'/') + 1);
}

/// Where the relations of a part point to, by id, and by the last word of their kind.
struct Relations {
    QHash<QString, QString> byId;
    QHash<QString, QString> byKind;
};

Relations relationsOf(ZipArchive &archive, const QString &part) {
    const QString folder = folderOf(part);
    Part xml(archive.read(folder + QStringLiteral("_rels/") + part.mid(folder.size()) +
                          QStringLiteral(".rels")));
    Relations relations;
    while (xml.nextElement()) {
        if (!xml.is(u"Relationship"))
            continue;
        const QString target = xml.attribute(u"Target");
        const QString path =
            target.startsWith(u'/') ? target.mid(1) : QDir::cleanPath(folder + target);
        relations.byId.insert(xml.attribute(u"Id"), path);
        relations.byKind.insert(xml.attribute(u"Type").section(u'/', -1), path);
    }
    return relations;
}

class XlsxFile {
public:
    explicit XlsxFile(const QString &path)
        : m_archive(path) {
        if (!m_archive.has(QStringLiteral("_rels/.rels")))
            throw unknownFile();
        const QString workbook =
            relationsOf(m_archive, {}).byKind.value(QStringLiteral("officeDocument"));
        if (!workbook.endsWith(QLatin1String(".xml")) || !m_archive.has(workbook))
            throw unknownFile();
        m_relations = relationsOf(m_archive, workbook);
        readWorkbook(workbook);
        readStrings(m_relations.byKind.value(QStringLiteral("sharedStrings")));
        readStyles(m_relations.byKind.value(QStringLiteral("styles")));
    }

    std::vector<Sheet> sheets() {
        std::vector<Sheet> all;
        for (const auto &[name, part] : m_sheets)
            all.push_back(sheet(name, part));
        return all;
    }

private:
    void readWorkbook(const QString &part) {
        Part xml(m_archive.read(part));
        while (xml.nextElement()) {
            if (xml.is(u"workbookPr")) {
                const QString epoch = xml.attribute(u"date1904");
                m_from1904 = epoch == QLatin1String("1") || epoch == QLatin1String("true");
            } else if (xml.is(u"sheet")) {
                const QString state = xml.attribute(u"state");
                const QString target = m_relations.byId.value(xml.attribute(u"id"));
                if (target.contains(QLatin1String("worksheets/")) &&
                    (state.isEmpty() || state == QLatin1String("visible")))
                    m_sheets.emplace_back(xml.attribute(u"name"), target);
            }
        }
        if (m_sheets.empty())
            throw unknownFile();
    }

    void readStrings(const QString &part) {
        if (part.isEmpty())
            return;
        Part xml(m_archive.read(part));
        while (xml.nextElement())
            if (xml.is(u"si"))
                m_strings.append(richText(xml, u"si"));
    }

    void readStyles(const QString &part) {
        if (part.isEmpty())
            return;
        Part xml(m_archive.read(part));
        QHash<int, QString> patterns;
        while (xml.nextElement()) {
            if (xml.is(u"numFmt"))
                patterns.insert(xml.attribute(u"numFmtId").toInt(), xml.attribute(u"formatCode"));
            else if (xml.is(u"cellXfs"))
                while (xml.nextInside(u"cellXfs"))
                    if (xml.is(u"xf")) {
                        const int number = xml.attribute(u"numFmtId").toInt();
                        m_formats.push_back(cellFormat(number, patterns.value(number)));
                    }
        }
    }

    Sheet sheet(const QString &name, const QString &part) {
        Part xml(m_archive.read(part));
        SheetBuilder builder;
        qsizetype row = -1;
        qsizetype column = -1;
        while (xml.nextElement()) {
            if (xml.is(u"row")) {
                const QString number = xml.attribute(u"r"); // may be left out: the next one then
                row = number.isEmpty() ? row + 1 : number.toInt() - 1;
                column = -1;
            } else if (xml.is(u"c")) {
                const QString place = xml.attribute(u"r");
                column = place.isEmpty() ? column + 1 : columnOf(place);
                if (row < 0 || column < 0)
                    throw damagedFile();
                builder.put(row, column, cell(xml));
            }
        }
        return builder.take(name);
    }

    /// 27 for "AB12"; -1 without letters.
    static qsizetype columnOf(QStringView place) {
        qsizetype column = 0;
        for (const QChar c : place.left(4)) {
            if (c < u'A' || c > u'Z')
                break;
            column = column * 26 + (c.unicode() - u'A' + 1);
        }
        return column - 1;
    }

    QString cell(Part &xml) {
        const QString type = xml.attribute(u"t");
        const auto style = static_cast<size_t>(xml.attribute(u"s").toUInt());
        QString value;
        while (xml.nextInside(u"c")) {
            if (xml.is(u"v"))
                value = xml.text();
            else if (xml.is(u"is"))
                value = richText(xml, u"is");
            else
                xml.skip();
        }
        if (type == QLatin1String("s"))
            return m_strings.value(value.toInt());
        if (type == QLatin1String("b"))
            return value == QLatin1String("1") ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
        if (type == QLatin1String("d"))
            return value.left(10);
        if (!type.isEmpty() && type != QLatin1String("n"))
            return unescaped(value).trimmed(); // a formula's text, an error, an inline string
        return numericCellText(value, style < m_formats.size() ? m_formats[style] : CellFormat(),
                               m_from1904);
    }

    ZipArchive m_archive;
    Relations m_relations;
    std::vector<std::pair<QString, QString>> m_sheets; ///< name and part
    QStringList m_strings;
    std::vector<CellFormat> m_formats;
    bool m_from1904 = false;
};

} // namespace

std::vector<Sheet> readXlsx(const QString &path) {
    return XlsxFile(path).sheets();
}

} // namespace jxc
