#include "master/kind_parts.h"

// Whom the shop deals with, where its goods lie and who works in it.

namespace jxc {

namespace {

/// What the editor calls the opening balance is by now what stands open.
void nameBalance(MasterKind &kind, const char16_t *balance, const char16_t *caption) {
    for (MasterColumn &column : kind.columns)
        if (column.column == QString::fromUtf16(balance))
            column.caption = QString::fromUtf16(caption);
}

MasterKind supplierKind() {
    MasterKind kind;
    kind.noun = QStringLiteral("供货商");
    kind.table = QStringLiteral("jxc_ghsxx");
    kind.form = QStringLiteral("TF_Ghsgl");
    kind.codeColumn = QStringLiteral("ghs_sn");
    kind.nameColumn = QStringLiteral("ghs_name");
    kind.mnemonicColumn = QStringLiteral("ghs_jm");
    kind.disabledColumn = QStringLiteral("ghs_forbid");
    kind.defaultColumn = QStringLiteral("ghs_default");
    kind.warehouseColumn = QStringLiteral("ck_sn");
    kind.fields = {Field(u"ghs_sn").readOnly(),
                   Field(u"ghs_name").required().unique().words(),
                   Field(u"ghs_jm"),
                   Field(u"gt_name").pick(pickName(u"jxc_ghstype", u"gt_name")),
                   Field(u"z_name").pick(pickName(u"jxc_zone", u"z_name")),
                   Field(u"ghs_lxr").words(),
                   Field(u"ghs_tele"),
                   Field(u"ghs_address").words(),
                   Field(u"ghs_lwje", ValueKind::amount).keptByLedger(),
                   warehouseField(),
                   Field(u"ghs_default", ValueKind::flag).single(),
                   Field(u"ghs_forbid", ValueKind::flag),
                   Field(u"ghs_note").words()};
    kind.columns = listColumns(u"ghs_sn ghs_name ghs_jm gt_name z_name ghs_lxr ghs_tele "
                               u"ghs_address ghs_lwje+ ck_name ghs_default ghs_forbid ghs_note");
    nameBalance(kind, u"ghs_lwje", u"应付余额");
    kind.findColumns = wordList(u"ghs_tele ghs_lxr");
    kind.usedAlso = {
        {QStringLiteral("jxc_ysyfk"), QStringLiteral("k_ghskh"), QStringLiteral("k_type='ghs'")},
        {QStringLiteral("jxc_ysyfk_dj"), QStringLiteral("k_ghskh"), QStringLiteral("k_type='ghs'")},
        {QStringLiteral("jxc_fpdjb"), QStringLiteral("fp_ghskh"), QStringLiteral("fp_type='ghs'")}};
    // Their column of this name holds customers' codes too.
    kind.notUsedBy = wordList(u"jxc_goodslist jxc_xjyh");
    return kind;
}

MasterKind customerKind() {
    Pick clerks = pickCode(u"jxc_user", u"u_sn", u"u_name", u"kh_uname");
    clerks.condition = QStringLiteral("u_xs<>0");
    clerks.several = true;
    MasterKind kind;
    kind.noun = QStringLiteral("客户");
    kind.table = QStringLiteral("jxc_khxx");
    kind.form = QStringLiteral("TF_Khgl");
    kind.codeColumn = QStringLiteral("kh_sn");
    kind.nameColumn = QStringLiteral("kh_name");
    kind.mnemonicColumn = QStringLiteral("kh_jm");
    kind.disabledColumn = QStringLiteral("kh_forbid");
    kind.defaultColumn = QStringLiteral("kh_default");
    kind.warehouseColumn = QStringLiteral("ck_sn");
    kind.fields = {Field(u"kh_sn").readOnly(),
                   Field(u"kh_name").required().unique().words(),
                   Field(u"kh_jm"),
                   Field(u"kt_sn").required().initial(u"1000").pick(
                       pickCode(u"jxc_khtype", u"kt_sn", u"kt_name", u"kt_name")),
                   Field(u"z_name").pick(pickName(u"jxc_zone", u"z_name")),
                   Field(u"kh_lxr").words(),
                   Field(u"kh_tele"),
                   Field(u"kh_address").words(),
                   Field(u"kh_lwje", ValueKind::amount).keptByLedger(),
                   Field(u"kh_usn").pick(clerks),
                   warehouseField(),
                   Field(u"kh_default", ValueKind::flag).single(),
                   Field(u"kh_forbid", ValueKind::flag),
                   Field(u"kh_note").words()};
    kind.columns = listColumns(u"kh_sn kh_name kh_jm kt_name z_name kh_lxr kh_tele kh_address "
                               u"kh_lwje+ kh_uname ck_name kh_default kh_forbid kh_note");
    nameBalance(kind, u"kh_lwje", u"应收余额");
    kind.findColumns = wordList(u"kh_tele kh_lxr");
    kind.usedAlso = {
        {QStringLiteral("jxc_ysyfk"), QStringLiteral("k_ghskh"), QStringLiteral("k_type='kh'")},
        {QStringLiteral("jxc_ysyfk_dj"), QStringLiteral("k_ghskh"), QStringLiteral("k_type='kh'")},
        {QStringLiteral("jxc_fpdjb"), QStringLiteral("fp_ghskh"), QStringLiteral("fp_type='kh'")}};
    return kind;
}

MasterKind warehouseKind() {
    Pick operators = pickCode(u"jxc_admin", u"a_sn", u"a_name", u"ck_aname");
    operators.several = true;
    MasterKind kind;
    kind.noun = QStringLiteral("仓库");
    kind.table = QStringLiteral("jxc_ckxx");
    kind.form = QStringLiteral("TF_Ckgl");
    kind.codeColumn = QStringLiteral("ck_sn");
    kind.nameColumn = QStringLiteral("ck_name");
    kind.mnemonicColumn = QStringLiteral("ck_jm");
    kind.defaultColumn = QStringLiteral("ck_default");
    kind.warehouseColumn = QStringLiteral("ck_sn");
    kind.fields = {Field(u"ck_sn").readOnly(),
                   Field(u"ck_name").required().unique().words(),
                   Field(u"ck_jm"),
                   Field(u"ck_fzr").words(),
                   Field(u"ck_asn").pick(operators),
                   Field(u"ck_tele"),
                   Field(u"ck_address").words(),
                   Field(u"ck_default", ValueKind::flag).single(),
                   Field(u"ck_pos", ValueKind::flag).single(),
                   Field(u"ck_note").words()};
    kind.columns = listColumns(u"ck_sn ck_name ck_jm ck_fzr ck_aname ck_tele ck_address "
                               u"ck_default ck_pos ck_note");
    kind.usedAlso = {{QStringLiteral("jxc_kcdbd"), QStringLiteral("ck_out")},
                     {QStringLiteral("jxc_kcdbd"), QStringLiteral("ck_in")}};
    kind.satellites = wordList(u"jxc_kcjs");
    kind.emptyRows = {
        {QStringLiteral("jxc_kcsp"), QStringLiteral("ck_sn"),
         QStringLiteral("coalesce(kc_sl,0)=0 and coalesce(kc_zsl,0)=0")},
        {QStringLiteral("jxc_tkc"), QStringLiteral("ck_sn"), QStringLiteral("coalesce(t_sl,0)=0")}};
    for (const char16_t *table : {u"jxc_ghsxx", u"jxc_khxx", u"jxc_user"})
        kind.nameCopies.push_back(
            {QString::fromUtf16(table), QStringLiteral("ck_name"), QStringLiteral("ck_sn")});
    return kind;
}

MasterKind employeeKind() {
    MasterKind kind;
    kind.noun = QStringLiteral("员工");
    kind.table = QStringLiteral("jxc_user");
    kind.form = QStringLiteral("TF_User");
    kind.codeColumn = QStringLiteral("u_sn");
    kind.nameColumn = QStringLiteral("u_name");
    kind.mnemonicColumn = QStringLiteral("u_jm");
    kind.disabledColumn = QStringLiteral("u_jy");
    kind.warehouseColumn = QStringLiteral("ck_sn");
    kind.fields = {Field(u"u_sn").readOnly(),
                   Field(u"u_name").required().words(),
                   Field(u"u_jm"),
                   Field(u"u_duty").words(),
                   Field(u"u_tele"),
                   Field(u"u_address").words(),
                   warehouseField(),
                   Field(u"u_cg", ValueKind::flag).caption(u"采购"),
                   Field(u"u_xs", ValueKind::flag).caption(u"销售"),
                   Field(u"u_kc", ValueKind::flag).caption(u"仓管"),
                   Field(u"u_tcfs").numbered(u"按销售额提成 按毛利提成", u"u_tctxt"),
                   Field(u"u_tc", ValueKind::factor).notNegative(),
                   Field(u"u_zdlr", ValueKind::amount),
                   Field(u"u_jy", ValueKind::flag),
                   Field(u"u_note").words()};
    kind.columns = listColumns(u"u_sn u_name u_jm u_duty u_tele u_address ck_name u_cg u_xs u_kc "
                               u"u_tctxt u_tc u_zdlr u_jy u_note");
    kind.usedAlso = {{QStringLiteral("jxc_khxx"), QStringLiteral("kh_usn"), {}, true}};
    kind.nameCopies = {
        {QStringLiteral("jxc_khxx"), QStringLiteral("kh_uname"), QStringLiteral("kh_usn"), true}};
    return kind;
}

} // namespace

std::vector<MasterKind> partnerKinds() {
    return {supplierKind(), customerKind(), warehouseKind(), employeeKind()};
}

} // namespace jxc
