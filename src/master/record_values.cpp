#include "master/record_values.h"

#include "db/database.h"
#include "db/schema.h"
#include "master/record.h"

#include <algorithm>

namespace jxc {

namespace {

const Column &describe(const QString &table, const QString &columnName) {
    const Column *description = column(table, columnName);
    if (description == nullptr)
        throw std::logic_error("no such column: " + columnName.toStdString());
    return *description;
}

/// The row that a value picks: its name and the column that is copied along.
std::optional<Row> pickedRow(Database &db, const Pick &pick, const QString &value) {
    const QString copied = pick.copiedColumn.isEmpty() ? pick.nameColumn : pick.copiedColumn;
    return db.row(QStringLiteral("select %1 as name,%2 as copied from %3 where %4=? order by id "
                                 "limit 1")
                      .arg(pick.nameColumn, copied, pick.table, pick.valueColumn),
                  {fieldValue(pick.table, pick.valueColumn, value)});
}

bool followList(Database &db, const Pick &pick, const QString &values, Record &record) {
    QString names;
    for (const QString &value : listValues(values)) {
        const auto row = pickedRow(db, pick, value);
        if (!row)
            return false;
        names += row->text(u"name") + u',';
    }
    record.set(pick.shownAs, names);
    return true;
}

void followChoice(const MasterField &field, Record &record) {
    if (field.choiceText.isEmpty())
        return;
    for (const Choice &choice : field.choices)
        if (choice.value == record.text(field.column))
            record.set(field.choiceText, choice.caption);
}

} // namespace

QString fieldText(const Row &row, const QString &table, const QString &columnName) {
    switch (describe(table, columnName).type) {
    case ColumnType::Numeric:
        return row.decimal(columnName).toText();
    case ColumnType::Int:
        return QString::number(row.integer(columnName));
    case ColumnType::Bit:
        return row.flag(columnName) ? QStringLiteral("1") : QStringLiteral("0");
    default:
        return row.text(columnName);
    }
}

Value fieldValue(const QString &table, const QString &columnName, const QString &text) {
    switch (describe(table, columnName).type) {
    case ColumnType::Numeric:
        return Decimal::fromText(text);
    case ColumnType::Int:
        return static_cast<qint64>(Decimal::fromText(text).rounded(0).micros() / 1'000'000);
    case ColumnType::Bit:
        return text == u"1";
    default:
        return text;
    }
}

QString emptyText(const QString &table, const QString &columnName) {
    return describe(table, columnName).isText() ? QString() : QStringLiteral("0");
}

QStringList writtenColumns(const MasterKind &kind, const MasterField &field) {
    QStringList columns{field.column};
    for (const QString &following : {field.pick.shownAs, field.pick.copiedTo, field.choiceText})
        if (!following.isEmpty() && column(kind.table, following) != nullptr)
            columns << following;
    return columns;
}

QStringList listValues(const QString &text) {
    return text.split(u',', Qt::SkipEmptyParts);
}

QString listPattern(const QString &value) {
    return QStringLiteral("%,%1,%").arg(value);
}

bool followPick(Database &db, const MasterField &field, Record &record) {
    followChoice(field, record);
    const Pick &pick = field.pick;
    if (pick.table.isEmpty())
        return true;
    const QString value = record.text(field.column);
    if (pick.several)
        return followList(db, pick, value, record);
    QString name;
    QString copied;
    if (!value.isEmpty() && value == pick.forAll) {
        name = pick.forAllName;
    } else if (!value.isEmpty()) {
        const auto row = pickedRow(db, pick, value);
        if (!row)
            return false;
        name = row->text(u"name");
        copied = row->text(u"copied");
    }
    if (!pick.shownAs.isEmpty())
        record.set(pick.shownAs, name);
    if (!pick.copiedTo.isEmpty())
        record.set(pick.copiedTo, copied);
    return true;
}

} // namespace jxc
