#include "sheets/csv.h"

#include "sheets/cell_text.h"
#include "sheets/sheet_builder.h"

#include <QRegularExpression>
#include <QStringConverter>

namespace jxc {

namespace {

constexpr QChar separators[] = {u',', u';', u'\t'};

std::optional<QString> decoded(const QByteArray &bytes, QStringDecoder decoder) {
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return {};
    return text;
}

QString textOf(const QByteArray &bytes) {
    // A mark decides; without one, Chinese in GB18030 is practically never valid UTF-8.
    if (const auto marked = QStringConverter::encodingForData(bytes)) {
        if (auto text = decoded(bytes, QStringDecoder(*marked)))
            return *text;
    } else if (!bytes.contains('\0')) {
        if (auto text = decoded(bytes, QStringDecoder(QStringDecoder::Utf8)))
            return *text;
        if (auto text = decoded(bytes, QStringDecoder("GB18030")))
            return *text;
    }
    throw SheetError(QStringLiteral("不能识别文件的格式或文字编码，请另存为 xlsx、xls 或 csv！"));
}

/// Counts in the first line that is not blank, outside quotes.
QChar separatorOf(QStringView text) {
    int counts[std::size(separators)] = {};
    bool quoted = false;
    bool blank = true;
    for (const QChar c : text) {
        if (c == u'"')
            quoted = !quoted;
        if (!quoted && c == u'\n' && !blank)
            break;
        blank = blank && c.isSpace();
        for (size_t i = 0; i < std::size(separators); ++i)
            if (!quoted && c == separators[i])
                ++counts[i];
    }
    return separators[std::max_element(std::begin(counts), std::end(counts)) - counts];
}

/// Whether a spreadsheet program would compute what the text says.
bool looksLikeFormula(QStringView text) {
    static const QRegularExpression number(QStringLiteral("^[+-]?[0-9]+(\\.[0-9]*)?$"));
    return !text.isEmpty() && QStringView(u"=+-@\t\r").contains(text[0]) &&
           !number.match(text).hasMatch();
}

QString withoutGuard(const QString &cell) {
    return cell.startsWith(u'\'') && looksLikeFormula(QStringView(cell).mid(1)) ? cell.mid(1)
                                                                                : cell;
}

class CsvReader {
public:
    explicit CsvReader(QStringView text)
        : m_text(text)
        , m_separator(separatorOf(text)) {}

    std::vector<QStringList> run() {
        while (m_at < m_text.size()) {
            const bool quoted = m_text[m_at] == u'"';
            const QString cell = quoted ? quotedCell() : plainCell();
            // Blanks around texts are never meant; those inside quotes may be.
            m_builder.put(m_row, m_column, withoutGuard(quoted ? cell : cell.trimmed()));
            endCell();
        }
        return m_builder.take({}).rows;
    }

private:
    [[nodiscard]] bool atEndOfCell() const {
        return m_at >= m_text.size() || m_text[m_at] == m_separator || m_text[m_at] == u'\n' ||
               m_text[m_at] == u'\r';
    }

    QString plainCell() {
        const qsizetype from = m_at;
        while (!atEndOfCell())
            ++m_at;
        return m_text.mid(from, m_at - from).toString();
    }

    QString quotedCell() {
        QString cell;
        const qsizetype opened = m_row + 1;
        for (++m_at;; ++m_at) {
            if (m_at >= m_text.size())
                throw SheetError(QStringLiteral("第%1行的引号没有结束，请检查！").arg(opened));
            if (m_text[m_at] != u'"')
                cell += m_text[m_at];
            else if (m_at + 1 < m_text.size() && m_text[m_at + 1] == u'"') {
                cell += u'"';
                ++m_at;
            } else
                break;
        }
        ++m_at;
        return cell + plainCell(); // what wrongly follows the quote is not lost
    }

    void endCell() {
        if (m_at >= m_text.size())
            return;
        const QChar end = m_text[m_at++];
        if (end == m_separator) {
            ++m_column;
            return;
        }
        if (end == u'\r' && m_at < m_text.size() && m_text[m_at] == u'\n')
            ++m_at;
        ++m_row;
        m_column = 0;
    }

    QStringView m_text;
    QChar m_separator;
    qsizetype m_at = 0;
    qsizetype m_row = 0;
    qsizetype m_column = 0;
    SheetBuilder m_builder;
};

} // namespace

std::vector<QStringList> readCsv(const QByteArray &bytes) {
    const QString text = textOf(bytes);
    return CsvReader(text).run();
}

QByteArray csvText(const std::vector<QStringList> &rows) {
    static const QRegularExpression needsQuotes(QStringLiteral("[\",;\\t\\r\\n]|^\\s|\\s$"));
    QString text(QChar::ByteOrderMark);
    for (const QStringList &row : rows) {
        for (qsizetype i = 0; i < row.size(); ++i) {
            QString cell = looksLikeFormula(row[i]) ? u'\'' + row[i] : row[i];
            if (cell.contains(needsQuotes))
                cell = u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
            text += (i > 0 ? QStringLiteral(",") : QString()) + cell;
        }
        text += QStringLiteral("\r\n");
    }
    return text.toUtf8();
}

} // namespace jxc
