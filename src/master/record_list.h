#pragma once

#include "db/row.h"

#include <QString>
#include <vector>

namespace jxc {

struct MasterKind;
struct Pick;
class Session;

/// What narrows a list besides the search box.
struct ListFilter {
    enum class How {
        equal,
        beginsWith, ///< a branch of the class tree: "gc_sn"
        notZero     ///< in stock: "g_kc"; ticked: "g_iscf"
    };
    QString column; ///< of the kind's table
    How how = How::equal;
    QString value{};
};

struct ListRequest {
    QString search{}; ///< part of code, name, mnemonic code and the find columns
    bool showDisabled = false;
    std::vector<ListFilter> filters{};
};

/// The rows of a kind in the order of entry, read by one statement: "id", the kind's list columns
/// by name, and "disabled" (0 or 1). Columns that the operator may not see are read all the same:
/// the window hides them. While the warehouse restriction binds the operator, only rows of his
/// warehouses and of all.
[[nodiscard]] Rows listRecords(const Session &session, const MasterKind &kind,
                               const ListRequest &request = {});

/// A row that can be picked for a field.
struct PickRow {
    QString value, name;
    QString copied;     ///< the further column, if the pick copies one
    QString mnemonic{}; ///< empty where the table keeps none
};
/// What a picker offers, the value for all rows first; disabled rows and warehouses of others are
/// left out.
[[nodiscard]] std::vector<PickRow> listPicks(const Session &session, const Pick &pick);

} // namespace jxc
