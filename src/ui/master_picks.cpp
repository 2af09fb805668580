#include "ui/master_picks.h"

#include "base/pinyin.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "master/record.h"
#include "master/record_list.h"
#include "ui/pick_sources.h"
#include "ui/record_editor.h"
#include "ui/row_list.h"
#include "ui/small_list_form.h"

#include <memory>

namespace jxc {

namespace {

constexpr int mostRows = 200;

const auto codeField = QStringLiteral("sn");
const auto nameField = QStringLiteral("name");

bool isMeant(const PickRow &row, const QString &typed) {
    return typed.isEmpty() || row.name.contains(typed, Qt::CaseInsensitive) ||
           row.value.startsWith(typed, Qt::CaseInsensitive) ||
           row.mnemonic.startsWith(typed, Qt::CaseInsensitive) || initialsMatch(row.name, typed);
}

Rows pickRows(const Session &session, const Pick &pick, const QString &typed) {
    RowList list({u"sn", u"name"});
    int left = mostRows;
    const std::vector<PickRow> rows = listPicks(session, pick);
    // Who typed the whole name means that one, however many others contain it.
    for (const bool exact : {true, false})
        for (const PickRow &row : rows)
            if ((row.name == typed) == exact && isMeant(row, typed) && left-- > 0)
                list.add({row.value, row.name});
    return list.take();
}

std::optional<Row> namedRow(const Session &session, const Pick &pick, const QString &code) {
    if (!pick.forAll.isEmpty() && code == pick.forAll) {
        RowList list({u"sn", u"name"});
        list.add({pick.forAll, pick.forAllName});
        return list.take().front();
    }
    // A number of a class is compared as text here; both engines read it so.
    return session.db().row(
        QStringLiteral("select cast(%1 as varchar(100)) as sn,%2 as name from %3 where "
                       "cast(%1 as varchar(100))=? order by id")
            .arg(pick.valueColumn, pick.nameColumn, pick.table),
        {code});
}

} // namespace

bool mayKeep(const Session &session, const MasterKind &kind) {
    static const QHash<QString, int> rights{
        {QStringLiteral("jxc_goods"), 1}, {QStringLiteral("jxc_ghsxx"), 2},
        {QStringLiteral("jxc_khxx"), 3},  {QStringLiteral("jxc_user"), 4},
        {QStringLiteral("jxc_ckxx"), 5},  {QStringLiteral("jxc_hyxx"), 10}};
    const int position = rights.value(kind.table);
    return position == 0 || hasRight(session, u"qtcz", position);
}

PickSource masterPickSource(const FormContext &context, const Pick &pick) {
    if (pick.table == QLatin1String("jxc_ghsxx"))
        return partnerSource(context, Partner::Kind::supplier);
    Session &session = context.session;
    PickSource source;
    if (pick.valueColumn != pick.nameColumn)
        source.columns.push_back(text(u"sn", u"编号", 80));
    source.columns.push_back(text(u"name", u"名称", 176));
    source.codeField = codeField;
    source.nameField = nameField;
    source.search = [&session, pick](const QString &typed) {
        return pickRows(session, pick, typed);
    };
    source.find = [&session, pick](const QString &code) { return namedRow(session, pick, code); };
    if (findMasterKind(pick.table) != nullptr)
        source.addNew = [context, pick](QWidget *parent) {
            return addMasterRecord(context, pick.table, pick.valueColumn, parent);
        };
    return source;
}

QString addMasterRecord(const FormContext &context, const QString &table, const QString &column,
                        QWidget *parent) {
    const MasterKind &kind = masterKind(table);
    if (!mayKeep(context.session, kind)) {
        showNoRightMessage(context.prompter, QStringLiteral("增加%1！").arg(kind.noun));
        return {};
    }
    if (kind.isSmallList) {
        const auto list = std::make_unique<SmallListForm>(context, kind, parent->window());
        list->startChoosing();
        return list->runModal() ? list->chosen().text(column) : QString();
    }
    const std::unique_ptr<RecordEditor> editor(makeRecordEditor(context, kind, parent->window()));
    editor->startNew();
    return editor->runModal() ? editor->saved().text(column) : QString();
}

} // namespace jxc
