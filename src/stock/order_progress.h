#pragma once

#include <QString>
#include <vector>

namespace jxc {

class Database;

/// Sets what order lines have got to: the sum over all lines of receipts (code "CJ", into jh_rksl
/// of the purchase order's lines) or sales ("XS", into ls_cksl of the sales order's) that carry
/// their ids, drafts too, in the order line's unit. Called by whatever saves or deletes those.
void refreshOrderProgress(Database &db, const QString &code, std::vector<qint64> orderLines);

} // namespace jxc
