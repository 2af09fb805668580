#pragma once

#include "master/master_kind.h"
#include "ui/form.h"
#include "ui/pick_list.h"

namespace jxc {

/// The rows that a field of master data may take. Ctrl+Ins adds one where the operator may open
/// the form that keeps them.
[[nodiscard]] PickSource masterPickSource(const FormContext &context, const Pick &pick);

/// Whether the operator may open the form of a kind; small lists go with the forms that use them.
[[nodiscard]] bool mayKeep(const Session &session, const MasterKind &kind);

/// Opens the form that adds a row of this table and waits: the small list, or the editor with an
/// empty row. Answers the named column of the row that was added (of a small list: the one chosen
/// at the end); empty for none.
[[nodiscard]] QString addMasterRecord(const FormContext &context, const QString &table,
                                      const QString &column, QWidget *parent);

} // namespace jxc
