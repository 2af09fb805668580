#include "core/roles.h"

namespace jxc {

namespace {

QStringList names(const QString &text) {
    return text.split(u' ');
}

} // namespace

// The order is that of the positions: a right stands where its check reads it, so a name is never
// moved and a new one comes last.
const std::vector<RightsGroup> &rightsTree() {
    static const std::vector<RightsGroup> tree = {
        {QStringLiteral("cggl"), QStringLiteral("采购管理"),
         names(QStringLiteral(
             "采购进货 采购退货 往来账务 进退货查询 当前库存查询 采购进货审核 采购退货审核 "
             "商品入库 商品入库审核 采购进货取消审核 采购退货取消审核 商品入库取消审核 采购订单 "
             "采购订单审核 采购订单取消审核 允许在采购进货待审核界面添加商品 "
             "允许删除采购进货待审核单据"))},
        {QStringLiteral("xsgl"), QStringLiteral("销售管理"),
         names(QStringLiteral(
             "商品销售 顾客退货 往来账务 销售退货查询 当前库存查询 商品出库 商品销售审核 "
             "顾客退货审核 商品出库审核 快递打印 商品销售取消审核 顾客退货取消审核 "
             "商品出库取消审核 允许修改销售成本价 销售订单 销售订单审核 销售订单取消审核 "
             "允许在商品销售待审核界面添加商品 允许删除商品销售待审核单据"))},
        {QStringLiteral("kcgl"), QStringLiteral("库存管理"),
         names(QStringLiteral(
             "库存调拨 库存盘点 库存报损报溢 库存报警查询 商品拆分捆绑 库存变动情况 库存成本统计 "
             "库存调拨审核 库存盘点审核 报损报溢审核 拆分捆绑审核 库存调拨取消审核 "
             "库存盘点取消审核 报损报溢取消审核 拆分捆绑取消审核 过期查询 库存核对 "
             "修改商品均价"))},
        {QStringLiteral("wlzk"), QStringLiteral("往来帐款"),
         names(QStringLiteral(
             "应收登记 收款登记 应收帐表 应付登记 付款登记 应付帐表 应收登记审核 收款登记审核 "
             "应付登记审核 付款登记审核 修改收付款日期 进货发票管理 销售发票管理 进货发票审核 "
             "销售发票审核"))},
        {QStringLiteral("tjgl"), QStringLiteral("统计报表"),
         names(QStringLiteral(
             "进货月报 商品采购统计 业务员采购统计 出库月报 商品销售统计 业务员销售统计 "
             "库存变动查询 库存成本统计 营业分析 商品销售排行 单据查询 药品查询 进销存统计 "
             "POS销售流水账 POS商品销售统计 POS销售排行 会员消费统计 收银员收银统计 "
             "收银员出入款管理 进货台账 销售台账"))},
        {QStringLiteral("rcgl"), QStringLiteral("日常管理"),
         names(QStringLiteral(
             "供货商管理 客户综合管理 合同管理 客户借货管理 业务员管理 费用及收入 现金银行 "
             "固定资产 财务报表 当前库存查询 赠品管理 费用及收入审核 现金银行审核 报价管理"))},
        {QStringLiteral("gspgl"), QStringLiteral("GSP管理"),
         names(QStringLiteral(
             "药品验收记录 药方管理记录 陈列药品维护检查记录 药品拆零记录 含麻药品查询 "
             "近效期跟踪记录 处方药销售记录 企业员工花名册 GSP参数管理 GSP管理文档 "
             "仓库温湿度管理 员工培训计划 员工培训记录"))},
        {QStringLiteral("qtcz"), QStringLiteral("其它操作"),
         names(QStringLiteral(
             "商品管理 供货商设置 客户设置 员工设置 仓库设置 操作员设置 显示商品成本价 "
             "允许更改单据日期 显示商品销售价 会员管理 商品调价 系统设置 备份/恢复数据库 "
             "查看日志 清除日志 商品期初建账 条码打印 报表设计 帐套管理"))}};
    return tree;
}

} // namespace jxc
