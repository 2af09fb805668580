#include "app/dispatch.h"

#include "base/pinyin.h"

namespace jxc {

namespace {

FunctionButton button(int group, QStringView handler, QStringView caption, QStringView icon,
                      QStringView rightGroup, const QList<int> &rights, QStringView formClass,
                      QStringView refusal, QStringView formCaption = {}) {
    return {handler.toString(),    group,  caption.toString(),   icon.toString(),
            rightGroup.toString(), rights, formClass.toString(), formCaption.toString(),
            refusal.toString()};
}

FunctionButton special(QStringView handler, QStringView caption, QStringView icon,
                       ButtonAction action) {
    FunctionButton result = button(0, handler, caption, icon, {}, {}, {}, {});
    result.action = action;
    return result;
}

} // namespace

const std::vector<MenuGroup> &menuGroups() {
    static const std::vector<MenuGroup> groups = {
        {QStringLiteral("采购管理"), QStringLiteral("group-purchase")},
        {QStringLiteral("销售管理"), QStringLiteral("group-sale")},
        {QStringLiteral("库存管理"), QStringLiteral("group-stock")},
        {QStringLiteral("统计报表"), QStringLiteral("group-report")},
        {QStringLiteral("日常管理"), QStringLiteral("group-daily")},
        {QStringLiteral("基础资料"), QStringLiteral("group-master")},
        {QStringLiteral("GSP管理"), QStringLiteral("group-gsp")},
        {QStringLiteral("往来帐款"), QStringLiteral("group-money")}};
    return groups;
}

// Some positions guard two buttons, and the staff register's also opens the stock query: shops have
// granted their rights so, and it stays.
const std::vector<FunctionButton> &dispatchTable() {
    static const std::vector<FunctionButton> table = {
        // 采购管理
        button(1, u"btn_Menu1_Btn1Click", u"采购进货", u"truck-in", u"cggl", {1, 6, 10}, u"TF_Cgjh",
               u"采购进货！"),
        button(1, u"btn_Menu1_Btn2Click", u"采购退货", u"truck-back", u"cggl", {2, 7, 11},
               u"TF_Cgth", u"采购退货！"),
        button(1, u"btn_Menu1_Btn6Click", u"商品入库", u"box-in", u"cggl", {8, 9, 12}, u"TF_Cgrk",
               u"商品入库！"),
        button(1, u"btn_Menu1_Btn7Click", u"采购计划", u"plan", u"cggl", {13, 14, 15}, u"TF_Cgplan",
               u"采购计划单！"),
        button(1, u"btn_Menu1_Btn3Click", u"供货商往来账务", u"ledger-supplier", u"cggl", {3},
               u"TF_WlzwGhs", u"往来账务！", u"往来账务(供货商)"),
        button(1, u"btn_Menu1_Btn4Click", u"进退货查询", u"doc-search", u"cggl", {4}, u"TF_Jthcx",
               u"进退货查询！"),
        button(1, u"btn_Menu1_Btn5Click", u"当前库存查询", u"shelves", u"cggl", {5}, u"TF_Kccx",
               u"当前库存查询！", u"当前库存查询"),
        // 销售管理
        button(2, u"btn_Menu2_Btn1Click", u"商品销售", u"cart", u"xsgl", {1, 7, 11}, u"TF_Spxs",
               u"商品销售！"),
        button(2, u"btn_Menu2_Btn4Click", u"顾客退货", u"cart-back", u"xsgl", {2, 8, 12},
               u"TF_Xsth", u"顾客退货！"),
        button(2, u"btn_Menu2_Btn3Click", u"商品出库", u"box-out", u"xsgl", {6, 9, 13}, u"TF_Spck",
               u"商品出库！"),
        button(2, u"btn_Menu2_Btn2Click", u"快递打印", u"parcel", u"xsgl", {10}, u"TF_Kdddy",
               u"快递打印！"),
        button(2, u"btn_Menu2_Btn5Click", u"客户往来账务", u"ledger-customer", u"xsgl", {3},
               u"TF_WlzwKh", u"往来账务！", u"往来账务(客户)"),
        button(2, u"btn_Menu2_Btn6Click", u"销售退货查询", u"receipt-search", u"xsgl", {4},
               u"TF_Xsdjcx", u"销售退货查询！"),
        button(2, u"img_Menu2_CangkuClick", u"当前库存查询", u"shelves", u"xsgl", {5}, u"TF_Kccx",
               u"当前库存查询！", u"当前库存查询"),
        // 库存管理
        button(3, u"btn_Menu3_Btn1Click", u"库存调拨", u"transfer", u"kcgl", {1, 8, 12}, u"TF_Kcdb",
               u"库存调拨！"),
        button(3, u"btn_Menu3_Btn4Click", u"库存盘点", u"count", u"kcgl", {2, 9, 13}, u"TF_Kcpd",
               u"库存盘点！"),
        button(3, u"btn_Menu3_Btn3Click", u"库存报损报溢", u"balance", u"kcgl", {3, 10, 14},
               u"TF_Bsby", u"库存报损报溢！"),
        button(3, u"btn_Menu3_Btn2Click", u"商品拆分捆绑", u"split", u"kcgl", {5, 11, 15},
               u"TF_Cfkb", u"商品拆分捆绑！"),
        button(3, u"btn_Menu3_Btn6Click", u"库存报警查询", u"bell", u"kcgl", {4}, u"TF_Kcbj",
               u"库存报警查询！"),
        button(3, u"btn_Menu3_Btn7Click", u"过期查询", u"hourglass", u"kcgl", {16}, u"TF_Bzqcx",
               u"过期查询！"),
        button(3, u"btn_Menu3_Right3Click", u"库存成本统计", u"cost", u"kcgl", {7}, u"TF_Kccb",
               u"库存成本统计！"),
        button(3, u"img_Menu3_CangkuClick", u"库存变动情况", u"shelves", u"kcgl", {6}, u"TF_Kccx",
               u"库存变动情况！", u"库存商品变动查询"),
        // 统计报表
        button(4, u"btn_Menu4_Btn1Click", u"进货月报", u"month-in", u"tjgl", {1}, u"TF_Rkrbyb",
               u"进货月报！"),
        button(4, u"btn_Menu4_Btn2Click", u"商品采购统计", u"bars-in", u"tjgl", {2}, u"TF_Spcgtj",
               u"商品采购统计！"),
        button(4, u"btn_Menu4_Btn3Click", u"业务员采购统计", u"clerk-in", u"tjgl", {3},
               u"TF_Ywycgtj", u"业务员采购统计！"),
        button(4, u"btn_Menu4_Btn5Click", u"进货台账", u"book-in", u"tjgl", {20}, u"TF_Jhtz",
               u"进货台账！"),
        button(4, u"btn_Menu4_Btn6Click", u"出库月报", u"month-out", u"tjgl", {4}, u"TF_Ckrbyb",
               u"出库月报！"),
        button(4, u"btn_Menu4_Btn8Click", u"商品销售统计", u"bars-out", u"tjgl", {5}, u"TF_Spxstj",
               u"商品销售统计！"),
        button(4, u"btn_Menu4_Btn7Click", u"业务员销售统计", u"clerk-out", u"tjgl", {6},
               u"TF_Ywyxstj", u"业务员销售统计！"),
        button(4, u"btn_Menu4_BtnCClick", u"销售台账", u"book-out", u"tjgl", {21}, u"TF_Xstz",
               u"销售台账！"),
        button(4, u"btn_Menu4_Btn9Click", u"商品销售排行", u"podium", u"tjgl", {10}, u"TF_Spxsph",
               u"商品销售排行！"),
        button(4, u"btn_Menu4_BtnAClick", u"营业分析", u"pie", u"tjgl", {9}, u"TF_Yyfx",
               u"营业分析！"),
        button(4, u"btn_Menu4_BtnJClick", u"进销存统计", u"summary", u"tjgl", {13}, u"TF_Jxctj",
               u"进销存统计！"),
        button(4, u"btn_Menu4_Btn4Click", u"库存成本统计", u"cost", u"tjgl", {8}, u"TF_Kccb",
               u"库存成本统计！"),
        button(4, u"btn_DjcxClick", u"单据查询", u"files", u"tjgl", {11}, u"TF_Djcx",
               u"单据查询！"),
        button(4, u"btn_XsfxClick", u"商品查询", u"goods-search", u"tjgl", {12}, u"TF_Spcx",
               u"商品查询！"),
        button(4, u"btn_PoslszClick", u"POS销售流水账", u"journal", u"tjgl", {14}, u"TF_Posxs_Lsz",
               u"POS销售流水账！"),
        button(4, u"btn_PosxstjClick", u"POS商品销售统计", u"till-bars", u"tjgl", {15},
               u"TF_Posxs_Tj", u"POS商品销售统计！"),
        button(4, u"btn_PosxsphClick", u"POS销售排行", u"medal", u"tjgl", {16}, u"TF_Posxs_Ph",
               u"POS销售排行！"),
        button(4, u"btn_HyxftjClick", u"会员消费统计", u"member-bars", u"tjgl", {17},
               u"TF_Posxs_Hy", u"会员消费统计！"),
        button(4, u"btn_SyytjClick", u"收银员收银统计", u"cashier", u"tjgl", {18}, u"TF_Posxs_Sytj",
               u"收银员收银统计！"),
        button(4, u"btn_SyycrkClick", u"收银员出入款管理", u"drawer", u"tjgl", {19},
               u"TF_Posxs_Crk", u"收银员出入款管理！"),
        button(4, u"btn_PosrjClick", u"POS日结管理", u"day-end", u"tjgl", {20}, u"TF_Posxs_Rj",
               u"POS日结管理！"),
        // 日常管理
        button(5, u"btn_Menu5_Btn1Click", u"供货商管理", u"factory", u"rcgl", {1}, u"TF_GhsZhgl",
               u"供货商管理！"),
        button(5, u"btn_Menu5_Btn4Click", u"客户综合管理", u"people", u"rcgl", {2}, u"TF_Khzhgl",
               u"客户综合管理！"),
        button(5, u"btn_Menu5_Btn2Click", u"合同管理", u"contract", u"rcgl", {3}, u"TF_Htgl",
               u"合同管理！"),
        button(5, u"btn_Menu5_Btn6Click", u"客户借货管理", u"loan", u"rcgl", {4}, u"TF_Khjhgl",
               u"客户借货管理！"),
        button(5, u"btn_Menu5_Btn3Click", u"业务员管理", u"briefcase", u"rcgl", {5}, u"TF_Ywygl",
               u"业务员管理！"),
        button(5, u"btn_Menu5_Btn5Click", u"报价管理", u"tag", u"rcgl", {14}, u"TF_Bjgl",
               u"报价管理！"),
        button(5, u"btn_Menu5_Btn8Click", u"商品均价修改", u"average", u"rcgl", {6}, u"TF_Spjjxg",
               u"商品均价修改！"),
        button(5, u"btn_Menu5_BtnAClick", u"赠品管理", u"gift", u"rcgl", {11}, u"TF_Zpgl",
               u"赠品管理！"),
        button(5, u"btn_Menu5_Right1Click", u"费用及收入", u"wallet", u"rcgl", {6}, u"TF_Fyjsr",
               u"费用及收入！"),
        button(5, u"btn_Menu5_Right2Click", u"现金银行", u"bank", u"rcgl", {7}, u"TF_Xjyh",
               u"现金银行！"),
        button(5, u"btn_Menu5_Right3Click", u"固定资产", u"building", u"rcgl", {8}, u"TF_Gdzc",
               u"固定资产！"),
        button(5, u"btn_Menu5_Right4Click", u"财务报表", u"statement", u"rcgl", {9}, u"TF_Cwbb",
               u"财务报表！"),
        button(5, u"img_Menu5_CangkuClick", u"当前库存查询", u"shelves", u"rcgl", {10}, u"TF_Kccx",
               u"当前库存查询！", u"当前库存查询"),
        // 基础资料
        button(6, u"btn_Menu6_Btn1Click", u"商品管理", u"goods", u"qtcz", {1}, u"TF_Spxxgl",
               u"商品管理！"),
        button(6, u"btn_Menu6_Btn2Click", u"供货商设置", u"factory", u"qtcz", {2}, u"TF_Ghsgl",
               u"供货商设置！"),
        button(6, u"btn_Menu6_Btn6Click", u"客户设置", u"person", u"qtcz", {3}, u"TF_Khgl",
               u"客户设置！"),
        button(6, u"btn_Menu6_Btn7Click", u"员工设置", u"badge", u"qtcz", {4}, u"TF_User",
               u"员工设置！"),
        button(6, u"btn_Menu6_Btn5Click", u"仓库设置", u"warehouse", u"qtcz", {5}, u"TF_Ckgl",
               u"仓库设置！"),
        button(6, u"btn_Menu6_Btn8Click", u"会员管理", u"card", u"qtcz", {10}, u"TF_Hygl",
               u"会员管理！"),
        button(6, u"btn_Menu6_Btn10Click", u"商品调价", u"tag-percent", u"qtcz", {11}, u"TF_Sptj",
               u"商品调价！"),
        button(6, u"btn_Menu6_Btn3Click", u"操作员设置", u"key", u"qtcz", {6}, u"TF_Admin",
               u"操作员设置！"),
        button(6, u"btn_Menu6_Btn4Click", u"系统设置", u"sliders", u"qtcz", {12}, u"TF_Xtcs",
               u"系统设置！"),
        button(6, u"btn_Menu6_Right1Click", u"帐套管理", u"database", u"qtcz", {19}, u"TF_Ztgl",
               u"帐套管理！"),
        button(6, u"btn_Menu6_Btn9Click", u"系统维护", u"wrench", {}, {}, u"TF_Xtwh", {}),
        // GSP管理
        button(7, u"btn_Menu7_Btn1Click", u"药品验收记录", u"doc-check", u"gspgl", {1}, u"TF_Ysjl",
               u"药品验收记录！"),
        button(7, u"btn_Menu7_Btn2Click", u"药方管理记录", u"recipe", u"gspgl", {2}, u"TF_Yfgljl",
               u"药方管理记录！"),
        button(7, u"btn_Menu7_Btn3Click", u"陈列药品维护检查记录", u"eye", u"gspgl", {3},
               u"TF_Clypjcjl", u"陈列药品维护检查记录！"),
        button(7, u"btn_Menu7_Btn4Click", u"药品拆零记录", u"scissors", u"gspgl", {4}, u"TF_Ypcljl",
               u"药品拆零记录！"),
        button(7, u"btn_Menu7_Btn5Click", u"含麻药品查询", u"warning", u"gspgl", {5}, u"TF_Hmyp",
               u"含麻药品查询！"),
        button(7, u"btn_Menu7_Btn6Click", u"近效期跟踪记录", u"hourglass", u"gspgl", {6},
               u"TF_Jxqjcjl", u"近效期跟踪记录！"),
        button(7, u"btn_Menu7_Btn7Click", u"处方药销售记录", u"doc-pen", u"gspgl", {7},
               u"TF_Cfxsjl", u"处方药销售记录！"),
        button(7, u"btn_Menu7_Btn8Click", u"仓库温湿度管理", u"thermometer", u"gspgl", {11},
               u"TF_Ckwsdgl", u"仓库温湿度管理！"),
        button(7, u"btn_Menu7_Btn9Click", u"企业员工花名册", u"roster", u"gspgl", {8}, u"TF_Yghmc",
               u"企业员工花名册！"),
        button(7, u"btn_Menu7_BtnAClick", u"员工培训计划", u"group-daily", u"gspgl", {12},
               u"TF_Ygpxjh", u"员工培训计划！"),
        button(7, u"btn_Menu7_BtnBClick", u"员工培训记录", u"cap", u"gspgl", {13}, u"TF_Ygpxjl",
               u"员工培训记录！"),
        button(7, u"btn_Menu7_Right2Click", u"GSP参数管理", u"sliders", u"gspgl", {9}, u"TF_Gspcs",
               u"GSP参数管理！"),
        button(7, u"btn_Menu7_Right3Click", u"GSP管理文档", u"folder", u"gspgl", {10}, u"TF_Gspwd",
               u"GSP管理文档！"),
        button(7, u"img_Menu7_CangkuClick", u"当前库存查询", u"shelves", u"gspgl", {8}, u"TF_Kccx",
               u"当前库存查询！", u"当前库存查询"),
        // 往来帐款
        button(8, u"btn_Menu8_Btn1Click", u"应收登记", u"coin-note-in", u"wlzk", {1}, u"TF_Yskdj",
               u"应收登记！"),
        button(8, u"btn_Menu8_Btn2Click", u"收款登记", u"coin-in", u"wlzk", {2}, u"TF_Ysksk",
               u"收款登记！"),
        button(8, u"btn_Menu8_Btn3Click", u"应收帐表", u"ledger-in", u"wlzk", {3}, u"TF_Yskgl",
               u"应收帐表！"),
        button(8, u"btn_Menu8_Btn4Click", u"应付登记", u"coin-note-out", u"wlzk", {4}, u"TF_Yfkdj",
               u"应付登记！"),
        button(8, u"btn_Menu8_Btn5Click", u"付款登记", u"coin-out", u"wlzk", {5}, u"TF_Yfkfk",
               u"付款登记！"),
        button(8, u"btn_Menu8_Btn6Click", u"应付帐表", u"ledger-out", u"wlzk", {6}, u"TF_Yfkgl",
               u"应付帐表！"),
        button(8, u"btn_Menu8_Btn7Click", u"进货发票", u"invoice-in", u"wlzk", {12}, u"TF_Fpcg",
               u"进货发票！"),
        button(8, u"btn_Menu8_Btn8Click", u"销售发票", u"invoice-out", u"wlzk", {13}, u"TF_Fpxs",
               u"销售发票！"),
        // 所有界面都有
        button(0, u"btn_BqjlClick", u"便签", u"note", {}, {}, u"TF_Bqjl", {}),
        button(0, u"btn_Menu1_Right5Click", u"界面风格", u"palette", {}, {}, u"TF_Skin", {}),
        button(0, u"btn_RjbzClick", u"软件帮助", u"help", {}, {}, u"TF_Rjbz", {}),
        special(u"btn_HbglClick", u"更换操作员", u"switch-user", ButtonAction::changeOperator),
        special(u"btn_TcxtClick", u"退出系统", u"exit", ButtonAction::leave)};
    return table;
}

const FunctionButton *findButton(QStringView handler) {
    for (const FunctionButton &button : dispatchTable())
        if (button.handler == handler)
            return &button;
    return nullptr;
}

std::vector<const FunctionButton *> buttonsOf(int group) {
    std::vector<const FunctionButton *> found;
    for (const FunctionButton &button : dispatchTable())
        if (button.group == group)
            found.push_back(&button);
    return found;
}

namespace {

QHash<QString, QChar> assignKeys() {
    QHash<QString, QChar> keys;
    for (int group = 1; group <= static_cast<int>(menuGroups().size()); ++group) {
        QString taken;
        for (const FunctionButton *button : buttonsOf(group)) {
            const QString wished =
                pinyinInitials(button->caption) + QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
            for (const QChar letter : wished)
                if (letter.isLetter() && !taken.contains(letter)) {
                    keys.insert(button->handler, letter);
                    taken += letter;
                    break;
                }
        }
    }
    return keys;
}

} // namespace

QChar keyOf(const FunctionButton &button) {
    static const QHash<QString, QChar> keys = assignKeys();
    return keys.value(button.handler);
}

bool isMeant(const FunctionButton &button, const QString &typed) {
    const QString wanted = typed.simplified();
    if (button.caption.contains(wanted, Qt::CaseInsensitive))
        return true;
    return pinyinInitials(button.caption).contains(wanted.toUpper());
}

} // namespace jxc
