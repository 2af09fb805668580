#include "db/schema_reader.h"

#include <QFile>
#include <array>
#include <iterator>
#include <map>

// Resources of a static library are linked only if something asks for them; the macro must stand
// outside every namespace.
static void loadSchemaResource() {
    Q_INIT_RESOURCE(schema);
}

namespace jxc {

namespace {

const std::array<QStringView, 10> tableFiles{u"master", u"system",    u"stock",  u"purchase",
                                             u"sales",  u"movements", u"retail", u"members",
                                             u"money",  u"records"};

/// The first word of `rest`, which keeps what follows it.
QStringView takeWord(QStringView &rest) {
    const auto end = rest.indexOf(u' ');
    const QStringView word = end < 0 ? rest : rest.left(end);
    rest = end < 0 ? QStringView() : rest.mid(end).trimmed();
    return word;
}

void parseType(const SchemaLine &line, QStringView type, Column &column) {
    const auto bracket = type.indexOf(u'(');
    const QStringView name = bracket < 0 ? type : type.left(bracket);
    static const std::map<QStringView, ColumnType> types{
        {u"varchar", ColumnType::VarChar}, {u"nvarchar", ColumnType::NVarChar},
        {u"text", ColumnType::Text},       {u"numeric", ColumnType::Numeric},
        {u"int", ColumnType::Int},         {u"bit", ColumnType::Bit}};
    const auto found = types.find(name);
    if (found == types.end())
        line.fail("unknown type");
    column.type = found->second;
    const bool needsLength =
        column.type == ColumnType::VarChar || column.type == ColumnType::NVarChar;
    if (needsLength != (bracket >= 0))
        line.fail("a length belongs to varchar and nvarchar");
    if (!needsLength)
        return;
    column.length = type.mid(bracket + 1).chopped(1).toInt();
    if (column.length <= 0 || !type.endsWith(u')'))
        line.fail("bad length");
}

Table parseTable(const SchemaLine &line, QStringView rest) {
    Table table;
    table.name = takeWord(rest).toString();
    if (rest.startsWith(u"without-key ")) {
        takeWord(rest);
        table.hasPrimaryKey = false;
    }
    table.caption = rest.toString();
    if (!table.name.startsWith(u"jxc_") || table.caption.isEmpty())
        line.fail("table NAME CAPTION");
    return table;
}

void parseColumn(const SchemaLine &line, QStringView name, QStringView rest, Table &table) {
    if (name == u"id" || table.column(name) != nullptr)
        line.fail("the column stands here twice");
    Column column;
    column.name = name.toString();
    parseType(line, takeWord(rest), column);
    column.caption = rest.toString();
    table.columns.push_back(std::move(column));
}

void parseIndex(const SchemaLine &line, QStringView rest, Table &table) {
    Index index;
    while (!rest.isEmpty()) {
        const QStringView name = takeWord(rest);
        if (name != u"id" && table.column(name) == nullptr)
            line.fail("no such column above");
        index.columns.append(name.toString());
    }
    if (index.columns.isEmpty())
        line.fail("index COLUMN ...");
    index.name = QStringLiteral("ix_%1_%2").arg(table.name.mid(4), index.columns.join(u'_'));
    table.indexes.push_back(std::move(index));
}

std::vector<Table> readFile(const QString &fileName) {
    std::vector<Table> tables;
    for (const SchemaLine &line : readSchemaLines(fileName)) {
        QStringView rest = line.text;
        const QStringView first = takeWord(rest);
        if (!line.indented) {
            if (first != u"table")
                line.fail("a table is expected");
            tables.push_back(parseTable(line, rest));
        } else if (tables.empty()) {
            line.fail("this belongs to no table");
        } else if (first == u"index") {
            parseIndex(line, rest, tables.back());
        } else {
            parseColumn(line, first, rest, tables.back());
        }
    }
    return tables;
}

} // namespace

void SchemaLine::fail(const char *why) const {
    qFatal("%s:%d: %s: %s", qUtf8Printable(file), number, why, qUtf8Printable(text));
}

std::vector<SchemaLine> readSchemaLines(const QString &fileName) {
    loadSchemaResource();
    QFile file(QStringLiteral(":/db/schema/") + fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is missing", qUtf8Printable(file.fileName()));
    const QString content = QString::fromUtf8(file.readAll());
    std::vector<SchemaLine> lines;
    int number = 0;
    for (const QStringView raw : QStringTokenizer(content, u'\n')) {
        ++number;
        const QStringView text = raw.trimmed();
        if (text.isEmpty() || text.startsWith(u'#'))
            continue;
        lines.push_back({fileName, number, raw.startsWith(u' '), text.toString()});
    }
    return lines;
}

std::vector<Table> readTables() {
    std::map<QString, Table> byName;
    for (const QStringView name : tableFiles)
        for (Table &table : readFile(QStringLiteral("%1.tables").arg(name))) {
            const QString key = table.name;
            if (!byName.emplace(key, std::move(table)).second)
                qFatal("table %s is described twice", qUtf8Printable(key));
        }

    std::vector<Table> ordered;
    ordered.reserve(byName.size());
    for (const SchemaLine &line : readSchemaLines(QStringLiteral("creation.order"))) {
        QStringView rest = line.text;
        const auto found = byName.find(takeWord(rest).toString());
        if (found == byName.end())
            line.fail("not described, or ordered twice");
        if (!rest.isEmpty() && rest != u"kept")
            line.fail("only the word kept may follow");
        found->second.isMasterData = !rest.isEmpty();
        ordered.push_back(std::move(found->second));
        byName.erase(found);
    }
    if (!byName.empty())
        qFatal("%s is missing in creation.order", qUtf8Printable(byName.begin()->first));
    return ordered;
}

} // namespace jxc
