#include "core/rights.h"
#include "ctl/commands.h"
#include "services/import.h"
#include "sheets/read.h"

namespace jxc::ctl {

namespace {

std::vector<Sheet> sheetsOf(const QString &file) {
    try {
        return readSheets(file);
    } catch (const SheetError &error) {
        throw Refusal(error.userText());
    }
}

/// The sheet and header that know most of the columns.
ImportRequest requestOf(const Session &session, const ImportTarget &target, const QString &file) {
    const auto fields = importFields(session, target);
    ImportRequest best;
    for (Sheet &sheet : sheetsOf(file)) {
        const size_t header = findHeaderRow(fields, sheet);
        ImportMapping mapping = proposeMapping(session, fields, sheet.rows.at(header));
        if (best.target == nullptr || mapping.size() > best.mapping.size())
            best = {&target, std::move(sheet), header, std::move(mapping)};
    }
    return best;
}

void sayMapping(const Session &session, const ImportRequest &request) {
    QStringList pairs;
    for (const ImportField &field : importFields(session, *request.target))
        if (const auto found = request.mapping.find(field.id); found != request.mapping.end())
            pairs << field.caption + u'=' +
                         request.sheet.rows.at(request.headerRow).value(found->second).trimmed();
    say(QStringLiteral("工作表“%1”，第%2行为标题：%3")
            .arg(request.sheet.name)
            .arg(request.headerRow + 1)
            .arg(pairs.join(QStringLiteral("，"))));
}

} // namespace

ExitCode importFile(Context &context) {
    const bool update = context.takeSwitch(QStringLiteral("--update"));
    const ImportTarget *target = findImportTarget(context.arguments().value(0));
    if (context.arguments().size() != 2 || target == nullptr)
        throw UsageError(QStringLiteral("import goods|suppliers|customers FILE [--update]"));
    Session &session = context.session();
    if (!hasRight(session, u"qtcz", target->right))
        throw Refusal(noRightMessage(target->title + u'！'));
    ImportRequest request = requestOf(session, *target, context.arguments().at(1));
    request.known = update ? KnownRows::update : KnownRows::skip;
    sayMapping(session, request);
    ImportResult result;
    const Outcome outcome = runImport(session, context.prompter(), request, &result);
    for (const ImportRow &row : result.rows)
        if (row.fate == ImportRow::Fate::bad)
            say(QStringLiteral("第%1行 %2：%3")
                    .arg(row.row + 1)
                    .arg(row.name, oneLine(row.status)));
    say(oneLine(outcome.text));
    return outcome.isDone() && result.failed > 0 ? failed : exitCodeOf(outcome);
}

} // namespace jxc::ctl
