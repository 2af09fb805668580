#include "master/record_checks.h"

#include "base/dates.h"
#include "base/pinyin.h"
#include "base/sanitize.h"
#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "master/record.h"
#include "master/record_values.h"

#include <algorithm>

namespace jxc {

namespace {

QString sanitized(Sanitizer sanitizer, const QString &text) {
    switch (sanitizer) {
    case Sanitizer::light:
        return sanitizeSqlTextLight(text);
    case Sanitizer::words:
        return sanitizeSqlText(text);
    case Sanitizer::none:
        break;
    }
    return text;
}

/// The figure with the decimals of its kind; a text that is none stays, for the check to tell.
QString rounded(const Parameters &parameters, ValueKind kind, const QString &text) {
    if (text.isEmpty())
        return QStringLiteral("0");
    int places = 6;
    if (kind == ValueKind::price)
        places = parameters.priceDecimals;
    else if (kind == ValueKind::quantity)
        places = parameters.quantityDecimals;
    else if (kind == ValueKind::amount)
        places = parameters.amountDecimals;
    try {
        return Decimal::fromText(text).rounded(places).toText();
    } catch (const NumberError &) {
        return text;
    } catch (const RangeError &) {
        return text;
    }
}

void fillMnemonic(const MasterKind &kind, Record &record) {
    if (kind.mnemonicColumn.isEmpty())
        return;
    const auto initials = [&](const QString &name) {
        return fitted(kind.table, kind.mnemonicColumn, pinyinInitials(name));
    };
    const QString typed = record.text(kind.mnemonicColumn);
    const QString name = record.text(kind.nameColumn);
    const QString before = record.stored(kind.nameColumn);
    const bool followedTheName = !record.isNew() && name != before &&
                                 typed == record.stored(kind.mnemonicColumn) &&
                                 typed == initials(before);
    if (typed.isEmpty() || followedTheName)
        record.set(kind.mnemonicColumn, initials(name));
}

void checkNumber(const MasterField &field, const QString &text) {
    const QString badFormat = QStringLiteral("格式不正确！");
    Decimal figure;
    try {
        figure = Decimal::fromText(text);
    } catch (const NumberError &) {
        refuseField(field, badFormat);
    } catch (const RangeError &) {
        refuseField(field, badFormat);
    }
    if (field.kind == ValueKind::integer && !figure.isWhole())
        refuseField(field, badFormat);
    if (field.positive && !figure.isPositive())
        refuseField(field, QStringLiteral("必须大于零！"));
    if (field.notNegative && figure.isNegative())
        refuseField(field, QStringLiteral("不能小于零！"));
}

void checkChoice(const MasterField &field, const QString &text) {
    const auto &choices = field.choices;
    if (std::none_of(choices.begin(), choices.end(),
                     [&](const Choice &choice) { return choice.value == text; }))
        refuseField(field, QStringLiteral("不存在！"));
}

void checkFormat(const MasterField &field, const QString &text) {
    if (isNumber(field.kind))
        checkNumber(field, text);
    else if (field.kind == ValueKind::date && !text.isEmpty() && !isDate(text))
        refuseField(field, QStringLiteral("格式不正确！"));
    else if (field.kind == ValueKind::choice)
        checkChoice(field, text);
}

void checkUnique(Database &db, const MasterKind &kind, const MasterField &field,
                 const Record &record) {
    const QString text = record.text(field.column);
    if (!field.unique || text.isEmpty())
        return;
    if (db.exists(
            QStringLiteral("select id from %1 where %2=? and id<>?").arg(kind.table, field.column),
            {fieldValue(kind.table, field.column, text), record.id}))
        refuseField(field, QStringLiteral("不能重复！"));
}

} // namespace

void refuseField(const MasterField &field, const QString &text) {
    throw FieldRefusal(field.column, field.caption + text);
}

void prepareRecord(const Session &session, const MasterKind &kind, Record &record) {
    for (const MasterField &field : kind.fields) {
        QString text = record.text(field.column);
        if (!record.isChanged(field.column))
            continue;
        text = sanitized(field.sanitizer, text.trimmed());
        if (isNumber(field.kind))
            text = rounded(session.parameters, field.kind, text);
        else if (field.kind == ValueKind::flag)
            text = text == u"1" ? text : QStringLiteral("0");
        record.set(field.column, text);
    }
    fillMnemonic(kind, record);
}

void checkRecord(const Session &session, const MasterKind &kind, Record &record) {
    for (const MasterField &field : kind.fields) {
        if (field.readOnly)
            continue;
        const QString text = record.text(field.column);
        if (field.required && text.isEmpty())
            refuseField(field, QStringLiteral("必须填写！"));
        // What older makes of the program stored and nobody touched is left in peace.
        if (record.isChanged(field.column)) {
            checkFormat(field, text);
            checkUnique(session.db(), kind, field, record);
            if (!followPick(session.db(), field, record))
                refuseField(field, QStringLiteral("不存在！"));
        }
    }
    if (kind.check)
        kind.check(session, record);
}

} // namespace jxc
