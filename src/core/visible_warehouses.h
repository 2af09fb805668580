#pragma once

#include <QString>

namespace jxc {

class Session;
class Where;

/// While the warehouse restriction binds the operator, adds that the column (a warehouse number)
/// is one of his.
void addWarehouseRestriction(const Session &session, Where &where, const QString &column);

} // namespace jxc
