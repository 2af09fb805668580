#include "db/upgrade_steps.h"

#include "db/schema_reader.h"

namespace jxc {

namespace {

const Table &knownTable(const SchemaLine &line, const QString &name) {
    const Table *table = schema().find(name);
    if (table == nullptr)
        line.fail("no such table");
    return *table;
}

/// "name", "name=expression" or "name:numeric".
AddedColumn parseAddition(const SchemaLine &line, const Table &table, const QString &text) {
    if (text.endsWith(u":numeric")) {
        const QString name = text.chopped(8);
        if (table.column(name) != nullptr)
            line.fail("the layout has a type for this column");
        return {{name, ColumnType::Numeric, 0, {}}, {}};
    }
    const Column *column = table.column(text.section(u'=', 0, 0));
    if (column == nullptr)
        line.fail("no such column");
    return {*column, text.section(u'=', 1)};
}

void parseChange(const SchemaLine &line, UpgradeStep &step) {
    const QStringList words = line.text.split(u' ', Qt::SkipEmptyParts);
    if (words.size() < 3)
        line.fail("add or widen TABLE COLUMN ... is expected");
    const Table &table = knownTable(line, words[1]);
    if (words[0] == u"add") {
        UpgradeStep::Addition addition{table.name, {}};
        for (const QString &word : words.mid(2))
            addition.columns.push_back(parseAddition(line, table, word));
        step.additions.push_back(std::move(addition));
    } else if (words[0] == u"widen") {
        for (const QString &word : words.mid(2)) {
            const Column *column = table.column(word);
            if (column == nullptr || column->length == 0)
                line.fail("no such text column");
            step.widenings.push_back({table.name, column});
        }
    } else {
        line.fail("add or widen is expected");
    }
}

std::vector<UpgradeStep> readSteps() {
    std::vector<UpgradeStep> steps;
    for (const SchemaLine &line : readSchemaLines(QStringLiteral("upgrade.steps"))) {
        if (line.indented) {
            if (steps.empty())
                line.fail("this belongs to no step");
            parseChange(line, steps.back());
            continue;
        }
        UpgradeStep step;
        step.date = line.text.section(u' ', 1, 1);
        step.subject = line.text.section(u' ', 2);
        if (!line.text.startsWith(u"step ") || step.date.size() != 10 || step.subject.isEmpty())
            line.fail("step DATE SUBJECT is expected");
        steps.push_back(std::move(step));
    }
    return steps;
}

} // namespace

const std::vector<UpgradeStep> &upgradeSteps() {
    static const std::vector<UpgradeStep> steps = readSteps();
    return steps;
}

} // namespace jxc
