#pragma once

#include "core/value_kind.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace jxc {

class Database;
class Record;
class Session;

// Master data are described, not programmed: the same description drives the list, the editor, the
// checks at saving, the import and the deletion of a kind.

/// What a text passes before it is stored and before it is searched.
enum class Sanitizer {
    light, ///< sanitizeSqlTextLight: codes, numbers, phones, goods names, specifications
    words, ///< sanitizeSqlText: names and notes
    none   ///< composed by the program, not typed
};

struct Choice {
    QString value;   ///< as stored
    QString caption; ///< as shown
};

/// A field whose value comes from the rows of another table.
struct Pick {
    QString table;       ///< empty: no picker
    QString valueColumn; ///< of that table: what the field stores
    QString nameColumn;  ///< of that table: what the user sees
    /// Under what the record keeps that name: a column of the record's own table, or a text that
    /// loading adds ("gc_name" of a goods). Empty: the value is the name.
    QString shownAs;
    /// A further column of the picked row that goes into a column of the record.
    QString copiedColumn, copiedTo;
    QString condition;    ///< which rows may be picked, as SQL; empty: all
    QString forAll;       ///< a value that stands for all rows ("-1"); empty: there is none
    QString forAllName;   ///< its name ("所有仓库")
    bool several = false; ///< many rows, each value followed by ","
};

struct MasterField {
    QString column;
    ValueKind kind = ValueKind::text;
    QString caption{};            ///< filled from the schema where it is not given
    bool required = false;        ///< "必须填写！"
    bool unique = false;          ///< "不能重复！"
    bool positive = false;        ///< "必须大于零！"
    bool notNegative = false;     ///< "不能小于零！"
    bool readOnly = false;        ///< shown, never typed: code and what documents write
    bool fixedOnceStored = false; ///< typed for a new row only
    bool isSingle = false;        ///< a flag that at most one row bears: set here, cleared there
    /// Typed, but written by the ledger of the room above: the opening balance of partners.
    bool keptByLedger = false;
    /// Documents write it too: their change is no conflict unless it was typed over here.
    bool alsoByDocuments = false;
    QString follower{}; ///< a column that the kind's check fills from this one
    QString initial{};  ///< of a new row; numbers start with 0 by themselves
    Sanitizer sanitizer = Sanitizer::light;
    Secrecy secrecy = Secrecy::open;
    std::vector<Choice> choices{}; ///< of ValueKind::choice; also proposals for a text
    QString choiceText{};          ///< column that keeps the chosen caption too
    Pick pick{};
    QString page{}; ///< tab of the editor; empty: the first
};

/// A column of the list.
struct MasterColumn {
    QString column;
    QString caption;
    ValueKind kind = ValueKind::text;
    Secrecy secrecy = Secrecy::open;
    bool sum = false; ///< totalled in the footer
};

/// Where something is looked for beside the kind's own rules.
struct Mention {
    QString table;
    QString column;
    QString condition{}; ///< further, as SQL: "k_type='kh'"
    bool inList = false; ///< the column holds several codes, each followed by ","
};

/// A copy of the row's name in another table, kept up to date.
struct NameCopy {
    QString table;
    QString nameColumn;
    QString codeColumn{}; ///< beside the code of the row; empty: the old name itself is replaced
    bool inList = false;  ///< both hold several, each followed by ","
};

struct MasterKind {
    QString noun;             ///< "供货商", in messages and log
    QString table;            ///< "jxc_ghsxx"
    QString form;             ///< "TF_Ghsgl"
    bool isSmallList = false; ///< edited in the grid
    QString codeColumn;       ///< empty: the name identifies the row
    QString nameColumn;
    QString mnemonicColumn;
    QString numberColumn{};  ///< of a running number beside the code: a member's card
    QString disabledColumn;  ///< empty: rows cannot be disabled
    QString defaultColumn;   ///< flag of the row that new documents propose
    QString warehouseColumn; ///< bound by the warehouse restriction; "-1" is open to all

    std::vector<MasterField> fields; ///< in the order of the editor and of the checks
    std::vector<MasterColumn> columns;
    QStringList findColumns;         ///< searched besides code, name and mnemonic
    std::vector<Mention> findAlso{}; ///< tables whose rows of the same code are searched too
    QString hiddenCode{};            ///< a row that no list shows

    QStringList protectedCodes{QStringLiteral("100001")}; ///< "系统默认数据，不能删除！"
    QStringList protectedNames{};
    std::vector<Mention> usedAlso{};  ///< mentions under other column names
    QStringList notUsedBy{};          ///< tables that do not count, beside satellites
    QStringList satellites{};         ///< deleted along with the row
    std::vector<Mention> emptyRows{}; ///< rows that do not count while they meet the condition,
                                      ///< and are deleted along
    std::vector<NameCopy> nameCopies{};

    /// The code of a new row; the largest plus one where the kind has no rule of its own.
    std::function<QString(const Session &, const Record &)> drawCode{};
    /// Proposals of a new row that no field can state by itself.
    std::function<void(const Session &, Record &)> propose{};
    /// Rules of the kind, after the fields' own; throws FieldRefusal.
    std::function<void(const Session &, Record &)> check{};
    /// What stands against deleting a row, before it is asked who uses it; throws Refusal.
    std::function<void(const Session &, const Record &)> checkDeletion{};

    [[nodiscard]] const MasterField *field(QStringView column) const;
};

/// All kinds, in the order of the menu.
[[nodiscard]] const std::vector<MasterKind> &masterKinds();
/// Null when the table is no master data.
[[nodiscard]] const MasterKind *findMasterKind(QStringView table);
/// Throws std::logic_error for another table.
[[nodiscard]] const MasterKind &masterKind(QStringView table);

} // namespace jxc
