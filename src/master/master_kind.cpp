#include "master/master_kind.h"

#include "db/schema.h"
#include "master/kind_parts.h"

#include <algorithm>
#include <stdexcept>

namespace jxc {

namespace {

QString schemaCaption(const QString &table, const QString &columnName) {
    if (columnName.endsWith(QLatin1String("_jm")))
        return QStringLiteral("简码");
    const Column *description = column(table, columnName);
    return description == nullptr ? QString() : description->caption;
}

/// What the field shows is what its label names: the picked row's name, not its code.
QString captionOf(const QString &table, const MasterField &field) {
    const Pick &pick = field.pick;
    if (!pick.shownAs.isEmpty()) {
        if (const QString caption = schemaCaption(table, pick.shownAs); !caption.isEmpty())
            return caption;
        return schemaCaption(pick.table, pick.nameColumn);
    }
    if (!field.choiceText.isEmpty())
        return schemaCaption(table, field.choiceText);
    return schemaCaption(table, field.column);
}

/// The field that a list column shows: its own, or the picker whose name it is.
const MasterField *shownField(const MasterKind &kind, const QString &columnName) {
    if (const MasterField *field = kind.field(columnName))
        return field;
    const auto found =
        std::find_if(kind.fields.begin(), kind.fields.end(), [&](const MasterField &field) {
            return field.pick.shownAs == columnName || field.choiceText == columnName;
        });
    return found == kind.fields.end() ? nullptr : &*found;
}

void complete(MasterKind &kind) {
    for (MasterField &field : kind.fields) {
        if (column(kind.table, field.column) == nullptr)
            throw std::logic_error("no such column: " + field.column.toStdString());
        if (field.caption.isEmpty())
            field.caption = captionOf(kind.table, field);
    }
    for (MasterColumn &listed : kind.columns) {
        const MasterField *field = shownField(kind, listed.column);
        if (field == nullptr)
            throw std::logic_error("no field is shown by: " + listed.column.toStdString());
        if (listed.caption.isEmpty())
            listed.caption = field->caption;
        listed.secrecy = field->secrecy;
        if (field->column == listed.column)
            listed.kind = field->kind;
    }
}

std::vector<MasterKind> allKinds() {
    std::vector<MasterKind> kinds{goodsKind()};
    for (auto more : {partnerKinds(), memberKinds(), smallListKinds()})
        std::move(more.begin(), more.end(), std::back_inserter(kinds));
    for (MasterKind &kind : kinds)
        complete(kind);
    return kinds;
}

} // namespace

const MasterField *MasterKind::field(QStringView columnName) const {
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const MasterField &field) {
        return field.column == columnName;
    });
    return found == fields.end() ? nullptr : &*found;
}

const std::vector<MasterKind> &masterKinds() {
    static const std::vector<MasterKind> kinds = allKinds();
    return kinds;
}

const MasterKind *findMasterKind(QStringView table) {
    const auto &kinds = masterKinds();
    const auto found = std::find_if(kinds.begin(), kinds.end(),
                                    [&](const MasterKind &kind) { return kind.table == table; });
    return found == kinds.end() ? nullptr : &*found;
}

const MasterKind &masterKind(QStringView table) {
    if (const MasterKind *kind = findMasterKind(table))
        return *kind;
    throw std::logic_error("no master data: " + table.toString().toStdString());
}

} // namespace jxc
