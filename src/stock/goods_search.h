#pragma once

#include <QString>

namespace jxc {

class Where;

/// The columns that name a goods in every list, of a goods table called `a`.
inline const QString goodsColumns =
    QStringLiteral("a.g_sn,a.g_name,a.g_tym,a.g_yjlx,a.gg_name,a.dw_name,a.g_sccs,a.color_name");

/// What is typed into one box to find goods of a table called `a`: a part of code, name, active
/// ingredient, maker or registration number, the beginning of the mnemonic code, or a barcode of
/// the goods or one of its units. Nothing typed adds no condition.
void addGoodsSearch(Where &where, const QString &text);

/// A class and all below it, by the class code; an empty one adds no condition.
void addClassBranch(Where &where, const QString &classCode);

} // namespace jxc
