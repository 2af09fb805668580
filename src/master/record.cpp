#include "master/record.h"

#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/schema.h"
#include "master/master_kind.h"
#include "master/record_checks.h"
#include "master/record_usage.h"
#include "master/record_values.h"

#include <algorithm>

namespace jxc {

namespace {

QString drawnCode(const Session &session, const MasterKind &kind, const Record &record) {
    if (kind.drawCode)
        return kind.drawCode(session, record);
    return nextSerialNumber(session.db(), kind.table, kind.codeColumn);
}

/// What a field of a new row starts with: the row that its list proposes, or its own value.
QString proposal(Database &db, const MasterKind &kind, const MasterField &field) {
    const MasterKind *list = findMasterKind(field.pick.table);
    if (list != nullptr && list->isSmallList && !list->defaultColumn.isEmpty()) {
        const QString chosen =
            db.scalar(QStringLiteral("select %1 from %2 where %3<>0 order by id limit 1")
                          .arg(field.pick.valueColumn, list->table, list->defaultColumn));
        if (!chosen.isEmpty())
            return chosen;
    }
    return field.initial.isEmpty() ? emptyText(kind.table, field.column) : field.initial;
}

void readFields(Database &db, const MasterKind &kind, const Row &row, Record &record) {
    for (const MasterField &field : kind.fields) {
        for (const QString &column : writtenColumns(kind, field))
            record.set(column, fieldText(row, kind.table, column));
        const QString &shownAs = field.pick.shownAs;
        if (!shownAs.isEmpty() && column(kind.table, shownAs) == nullptr) {
            Record names = record; // what follows is for the eye: stored copies stay as they are
            if (followPick(db, field, names))
                record.set(shownAs, names.text(shownAs));
        }
    }
}

Record recordOf(const Session &session, const MasterKind &kind, const Row &row) {
    Record record;
    record.id = row.integer(u"id");
    readFields(session.db(), kind, row, record);
    record.settle();
    return record;
}

bool isTyped(const MasterField &field) {
    return !field.readOnly && !field.keptByLedger;
}

/// Somebody else's change must not be overwritten by what stood there before it.
void refuseChangedMeanwhile(const Session &session, const MasterKind &kind, const Record &record) {
    const auto now = loadRecord(session, kind, record.id);
    if (!now)
        throw recordChangedMeanwhile();
    for (const MasterField &field : kind.fields) {
        const bool counts =
            isTyped(field) && (!field.alsoByDocuments || record.isChanged(field.column));
        if (counts && now->text(field.column) != record.stored(field.column))
            throw recordChangedMeanwhile();
    }
}

/// What was typed over, with what follows from it; the rest stays as it stands.
Assignments changedColumns(const MasterKind &kind, const Record &record) {
    Assignments row;
    for (const MasterField &field : kind.fields) {
        if (!isTyped(field) || field.fixedOnceStored || !record.isChanged(field.column))
            continue;
        for (const QString &column : writtenColumns(kind, field)) {
            // Several fields may have the same follower.
            if (std::none_of(row.begin(), row.end(),
                             [&](const Assignment &known) { return known.column == column; }))
                row.push_back({column, fieldValue(kind.table, column, record.text(column))});
        }
    }
    return row;
}

void clearOtherDefaults(Database &db, const MasterKind &kind, const Record &record) {
    for (const MasterField &field : kind.fields)
        if (field.isSingle && record.flag(field.column))
            db.execute(QStringLiteral("update %1 set %2=0 where id<>? and %2<>0")
                           .arg(kind.table, field.column),
                       {record.id});
}

void renameInList(Database &db, const NameCopy &copy, const QString &code, const QString &name) {
    for (const Row &row : db.rows(QStringLiteral("select id,%1,%2 from %3 where ','||%1 like ?")
                                      .arg(copy.codeColumn, copy.nameColumn, copy.table),
                                  {listPattern(code)})) {
        const QStringList codes = listValues(row.text(copy.codeColumn));
        QStringList names = listValues(row.text(copy.nameColumn));
        if (names.size() != codes.size())
            continue; // a list that was kept by hand: whose name stands where is unknown
        names[codes.indexOf(code)] = name;
        db.updateRows(copy.table, {{copy.nameColumn, QString(names.join(u',') + u',')}},
                      QStringLiteral("id=?"), {row.integer(u"id")});
    }
}

void renameCopies(Database &db, const MasterKind &kind, const Record &record) {
    const QString before = record.stored(kind.nameColumn);
    const QString name = record.text(kind.nameColumn);
    if (record.isNew() || name == before || before.isEmpty())
        return;
    if (kind.protectedNames.contains(before))
        throw FieldRefusal(kind.nameColumn, QStringLiteral("系统默认数据，不能修改！"));
    for (const NameCopy &copy : kind.nameCopies) {
        if (copy.inList)
            renameInList(db, copy, record.text(kind.codeColumn), name);
        else if (copy.codeColumn.isEmpty())
            db.updateRows(copy.table, {{copy.nameColumn, name}},
                          copy.nameColumn + QStringLiteral("=?"), {before});
        else
            db.updateRows(copy.table, {{copy.nameColumn, name}},
                          copy.codeColumn + QStringLiteral("=?"), {record.text(kind.codeColumn)});
    }
}

void logRecord(Session &session, const MasterKind &kind, const QString &verb,
               const Record &record) {
    const QString code =
        kind.codeColumn.isEmpty() ? QString() : record.text(kind.codeColumn) + u'，';
    writeLog(session, verb + kind.noun + u'：' + code + record.text(kind.nameColumn));
}

void insertRecord(Session &session, const MasterKind &kind, Record &record) {
    record.id = session.db().insertRow(kind.table, newRow(kind, record));
    logRecord(session, kind, QStringLiteral("增加"), record);
}

void updateRecord(Session &session, const MasterKind &kind, const Record &record) {
    renameCopies(session.db(), kind, record);
    if (const Assignments columns = changedColumns(kind, record); !columns.empty())
        session.db().updateRows(kind.table, columns, QStringLiteral("id=?"), {record.id});
    logRecord(session, kind, QStringLiteral("修改"), record);
}

void refuseProtected(const MasterKind &kind, const Record &record) {
    if ((!kind.codeColumn.isEmpty() &&
         kind.protectedCodes.contains(record.text(kind.codeColumn))) ||
        kind.protectedNames.contains(record.text(kind.nameColumn)))
        throw Refusal(QStringLiteral("系统默认数据，不能删除！"));
}

void refuseUsed(Database &db, const MasterKind &kind, const Record &record) {
    if (!isUsed(db, kind, record))
        return;
    QString text = QStringLiteral("该%1已被使用，不能删除！").arg(kind.noun);
    if (!kind.disabledColumn.isEmpty())
        text += QStringLiteral("\r\n\r\n可以将其禁用！");
    throw Refusal(text);
}

} // namespace

void Record::settle() {
    m_proposed = m_values;
    if (!isNew())
        m_stored = m_values;
}

Refusal recordChangedMeanwhile() {
    return Refusal(QStringLiteral("该记录已被其他操作员修改，请刷新后重试！"));
}

Record newRecord(const Session &session, const MasterKind &kind) {
    Record record;
    for (const MasterField &field : kind.fields) {
        record.set(field.column, proposal(session.db(), kind, field));
        // A proposal that the shop has deleted is none.
        if (!followPick(session.db(), field, record))
            record.set(field.column, {});
    }
    if (!kind.codeColumn.isEmpty())
        record.set(kind.codeColumn, drawnCode(session, kind, record));
    if (kind.propose)
        kind.propose(session, record);
    record.settle();
    return record;
}

Record copiedRecord(const Session &session, const MasterKind &kind, const Record &from) {
    Record record = newRecord(session, kind);
    for (const MasterField &field : kind.fields) {
        if (!isTyped(field) || field.isSingle || field.column == kind.numberColumn)
            continue;
        for (const QString &column :
             QStringList{field.column, field.pick.shownAs, field.pick.copiedTo, field.choiceText})
            if (!column.isEmpty())
                record.set(column, from.text(column));
    }
    if (!kind.codeColumn.isEmpty()) {
        record.set(kind.codeColumn, {});
        record.set(kind.codeColumn, drawnCode(session, kind, record));
    }
    return record;
}

std::optional<Record> loadRecord(const Session &session, const MasterKind &kind, qint64 id) {
    const auto row =
        session.db().row(QStringLiteral("select * from %1 where id=?").arg(kind.table), {id});
    if (!row)
        return std::nullopt;
    return recordOf(session, kind, *row);
}

std::optional<Record> loadRecordByCode(const Session &session, const MasterKind &kind,
                                       const QString &code) {
    const auto row = session.db().row(
        QStringLiteral("select * from %1 where %2=? order by id").arg(kind.table, kind.codeColumn),
        {code});
    if (!row)
        return std::nullopt;
    return recordOf(session, kind, *row);
}

void saveRecordInTransaction(Session &session, const MasterKind &kind, Record &record) {
    Record work = record;
    if (!work.isNew())
        refuseChangedMeanwhile(session, kind, work);
    prepareRecord(session, kind, work);
    // Drawn here and not when the editor opened: two workstations never get the same one.
    if (work.isNew() && !kind.codeColumn.isEmpty())
        work.set(kind.codeColumn, drawnCode(session, kind, work));
    checkRecord(session, kind, work);
    if (work.isNew())
        insertRecord(session, kind, work);
    else
        updateRecord(session, kind, work);
    clearOtherDefaults(session.db(), kind, work);
    work.settle();
    record = work;
}

Outcome runFieldAction(Database &db, Prompter &prompter, QString *field,
                       const std::function<void(Answers &)> &body) {
    if (field != nullptr)
        field->clear();
    return runAction(db, prompter, [&](Answers &answers) {
        try {
            body(answers);
        } catch (const FieldRefusal &refusal) {
            if (field != nullptr)
                *field = refusal.column();
            throw;
        }
    });
}

Outcome saveRecord(Session &session, Prompter &prompter, const MasterKind &kind, Record &record,
                   QString *field) {
    Record saved;
    Outcome outcome = runFieldAction(session.db(), prompter, field, [&](Answers &) {
        saved = record; // the action may run more than once
        saveRecordInTransaction(session, kind, saved);
    });
    if (outcome.isDone())
        record = saved;
    return outcome;
}

void deleteRecordInTransaction(Session &session, Answers &answers, const MasterKind &kind,
                               qint64 id) {
    const auto record = loadRecord(session, kind, id);
    if (!record)
        throw recordChangedMeanwhile();
    refuseProtected(kind, *record);
    if (kind.checkDeletion)
        kind.checkDeletion(session, *record);
    refuseUsed(session.db(), kind, *record);
    answers.require(QStringLiteral("您的操作将删除%1：%2，确认吗？")
                        .arg(kind.noun, record->text(kind.nameColumn)));
    deleteSatellites(session.db(), kind, *record);
    session.db().execute(QStringLiteral("delete from %1 where id=?").arg(kind.table), {id});
    logRecord(session, kind, QStringLiteral("删除"), *record);
}

Outcome deleteRecord(Session &session, Prompter &prompter, const MasterKind &kind, qint64 id) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        deleteRecordInTransaction(session, answers, kind, id);
    });
}

} // namespace jxc
