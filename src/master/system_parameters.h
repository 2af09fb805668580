#pragma once

#include "master/master_kind.h"

#include <QHash>
#include <QString>
#include <vector>

namespace jxc {

/// A setting of the form TF_Xtcs: a column of jxc_xtcs, or of jxc_company on its page.
struct SystemParameter {
    QString table;
    QString page; ///< 公司 小数 采购 销售 库存 商品条码 单据打印 权限 POS 短信支付
    MasterField field;       ///< column, caption, kind and choices
    bool isDecimals = false; ///< a number of decimals, 0 to 6
};

/// All settings, page by page. Columns that are not listed are kept and shown nowhere.
[[nodiscard]] const std::vector<SystemParameter> &systemParameters();
/// The pages in their order.
[[nodiscard]] QStringList parameterPages();

/// Column by column what is set now, as the fields hold it.
[[nodiscard]] QHash<QString, QString> loadSystemParameters(const Session &session);

} // namespace jxc
