#include "db/defaults.h"

#include "db/schema_reader.h"

#include <map>

namespace jxc {

namespace {

/// Rows with their placeholders, by table.
using DefaultRows = std::map<QString, std::vector<DefaultRow>>;

class DefaultsReader {
public:
    DefaultRows read() {
        for (const SchemaLine &line : readSchemaLines(QStringLiteral("defaults.rows"))) {
            if (!line.indented)
                startTable(line);
            else if (m_table == nullptr)
                line.fail("this belongs to no table");
            else if (m_isRecord)
                readField(line);
            else
                readRow(line);
        }
        return std::move(m_rows);
    }

private:
    void startTable(const SchemaLine &line) {
        QStringList words = line.text.split(u' ', Qt::SkipEmptyParts);
        m_isRecord = words[0] == u"record";
        if ((!m_isRecord && words[0] != u"rows") || words.size() < 2 ||
            m_isRecord != (words.size() == 2))
            line.fail("rows TABLE COLUMN ... or record TABLE is expected");
        m_table = schema().find(words[1]);
        if (m_table == nullptr)
            line.fail("no such table");
        if (m_rows.contains(words[1]))
            line.fail("the table stands here twice");
        m_columns.clear();
        for (const QString &name : words.mid(2))
            m_columns.push_back(indexOf(line, name));
        std::vector<DefaultRow> &rows = m_rows[words[1]];
        if (m_isRecord)
            rows.push_back(emptyRow());
    }

    void readField(const SchemaLine &line) {
        const auto sign = line.text.indexOf(u'=');
        if (sign < 0)
            line.fail("COLUMN = VALUE is expected");
        const size_t column = indexOf(line, QStringView(line.text).left(sign).trimmed());
        setValue(line, m_rows[m_table->name].back(), column, QStringView(line.text).mid(sign + 1));
    }

    void readRow(const SchemaLine &line) {
        const QStringList values = line.text.split(u'|');
        if (static_cast<size_t>(values.size()) != m_columns.size())
            line.fail("another number of values than of columns");
        DefaultRow row = emptyRow();
        for (size_t i = 0; i < m_columns.size(); ++i)
            setValue(line, row, m_columns[i], values[static_cast<qsizetype>(i)]);
        m_rows[m_table->name].push_back(std::move(row));
    }

    [[nodiscard]] DefaultRow emptyRow() const {
        DefaultRow row;
        for (const Column &column : m_table->columns)
            row.append(column.isText() ? QStringLiteral("") : QStringLiteral("0"));
        return row;
    }

    [[nodiscard]] size_t indexOf(const SchemaLine &line, QStringView name) const {
        const Column *column = m_table->column(name);
        if (column == nullptr)
            line.fail("no such column");
        return static_cast<size_t>(column - m_table->columns.data());
    }

    void setValue(const SchemaLine &line, DefaultRow &row, size_t index, QStringView value) const {
        value = value.trimmed();
        if (value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"'))
            value = value.mid(1).chopped(1);
        const Column &column = m_table->columns[index];
        if (column.length > 0 && value.size() > column.length)
            line.fail("too long for its column");
        if (!column.isText()) {
            bool isNumber = false;
            static_cast<void>(value.toInt(&isNumber));
            if (!isNumber)
                line.fail("a whole number is expected");
        }
        row[static_cast<qsizetype>(index)] = value.toString();
    }

    const Table *m_table = nullptr;
    bool m_isRecord = false;
    std::vector<size_t> m_columns;
    DefaultRows m_rows;
};

} // namespace

std::vector<DefaultRow> defaultRows(const Table &table, QDate today) {
    static const DefaultRows all = DefaultsReader().read();
    const auto found = all.find(table.name);
    if (found == all.end())
        return {};
    std::vector<DefaultRow> rows = found->second;
    for (DefaultRow &row : rows)
        row.replaceInStrings(QStringLiteral("{today}"), today.toString(u"yyyy-MM-dd"))
            .replaceInStrings(QStringLiteral("{product}"), QStringLiteral("岚舟通"));
    return rows;
}

} // namespace jxc
