#include "services/import.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "db/fitted.h"
#include "services/import_check.h"
#include "services/import_writer.h"

namespace jxc {

namespace {

/// Keeps the mapping for the next file of this kind.
void noteMapping(Session &session, const ImportRequest &request) {
    Database &db = session.db();
    const QStringList header = request.sheet.rows.at(request.headerRow);
    for (const ImportField &field : importFields(session, *request.target)) {
        db.execute(QStringLiteral("delete from jxc_importchk where i_fieldid=?"), {field.id});
        const auto found = request.mapping.find(field.id);
        const bool isMapped = found != request.mapping.end();
        db.insertRow(
            QStringLiteral("jxc_importchk"),
            {{QStringLiteral("i_fieldid"), field.id},
             {QStringLiteral("i_excelfield"),
              isMapped ? fitted(u"jxc_importchk", u"i_excelfield", header.value(found->second))
                       : QString()},
             {QStringLiteral("i_sele"), isMapped},
             {QStringLiteral("i_image"), 0}});
    }
}

void noteRows(Session &session, const std::vector<ImportRow> &rows) {
    Database &db = session.db();
    db.execute(QStringLiteral("delete from jxc_importdata"));
    std::vector<Values> staged;
    for (const ImportRow &row : rows)
        staged.push_back({row.ticked, fitted(u"jxc_importdata", u"id_exceldata", row.name),
                          fitted(u"jxc_importdata", u"id_status", row.status), 0});
    if (!staged.empty())
        db.insertRows(QStringLiteral("jxc_importdata"),
                      QStringLiteral("id_sele,id_exceldata,id_status,id_image").split(u','),
                      staged);
}

void writeRows(Session &session, const ImportRequest &request, ImportResult &result,
               const ImportProgress &progress) {
    ImportWriter writer(session, *request.target);
    writer.expectNumbers(result.rows);
    const int all = static_cast<int>(result.rows.size());
    int seen = 0;
    for (ImportRow &row : result.rows) {
        if (progress && seen++ % 50 == 0 && !progress(seen, all))
            throw Refusal(QStringLiteral("导入已停止，没有写入任何数据！"));
        if (row.fate == ImportRow::Fate::bad)
            ++result.failed;
        if (!row.ticked || !row.isGood())
            continue;
        try {
            if (row.fate == ImportRow::Fate::add)
                writer.add(row);
            else
                writer.update(row);
            ++result.imported;
        } catch (const Refusal &refusal) { // of this row; the others go in
            row.fate = ImportRow::Fate::bad;
            row.status = refusal.text();
            row.ticked = false;
            ++result.failed;
        }
    }
    writer.finish();
}

} // namespace

Outcome checkImport(Session &session, Prompter &prompter, const ImportRequest &request,
                    std::vector<ImportRow> *rows) {
    return runAction(session.db(), prompter, [&](Answers &) {
        *rows = checkedRows(session, request);
        noteMapping(session, request);
        noteRows(session, *rows);
    });
}

Outcome runImport(Session &session, Prompter &prompter, const ImportRequest &request,
                  ImportResult *result, const ImportProgress &progress) {
    ImportResult taken;
    Outcome outcome = runAction(session.db(), prompter, [&](Answers &) {
        taken = {}; // the action may run more than once
        taken.rows = checkedRows(session, request);
        noteMapping(session, request);
        writeRows(session, request, taken, progress);
        noteRows(session, taken.rows);
        writeLog(session, QStringLiteral("导入%1，共%2条")
                              .arg(masterKind(request.target->table).noun)
                              .arg(taken.imported));
    });
    if (!outcome.isDone())
        return outcome;
    outcome.text =
        QStringLiteral("导入完成，成功%1条，失败%2条！").arg(taken.imported).arg(taken.failed);
    if (result != nullptr)
        *result = std::move(taken);
    return outcome;
}

} // namespace jxc
