#include "db/schema.h"
#include "master/kind_parts.h"

// The lists behind the pickers, edited in the grid.

namespace jxc {

namespace {

/// A list of names. Renaming one renames it in the tables named, which hold the name itself and so
/// make it used; documents keep theirs.
MasterKind nameList(const char16_t *form, const char16_t *noun, const char16_t *tableName,
                    const char16_t *code, const char16_t *name, const char16_t *heldBy) {
    MasterKind kind;
    kind.isSmallList = true;
    kind.form = QString::fromUtf16(form);
    kind.noun = QString::fromUtf16(noun);
    kind.table = QString::fromUtf16(tableName);
    kind.codeColumn = QString::fromUtf16(code);
    kind.nameColumn = QString::fromUtf16(name);
    kind.fields = {Field(code).readOnly(), Field(name).required().unique().words()};
    for (const QString &holder : wordList(heldBy))
        kind.nameCopies.push_back({holder, kind.nameColumn});
    return kind;
}

/// The columns of a small list are its fields.
MasterKind finished(MasterKind kind) {
    for (const MasterField &field : kind.fields) {
        kind.columns.emplace_back();
        kind.columns.back().column = field.column;
    }
    return kind;
}

MasterKind with(MasterKind kind, std::initializer_list<MasterField> fields) {
    kind.fields.insert(kind.fields.end(), fields);
    return finished(std::move(kind));
}

/// Specifications and registration numbers carry dots and brackets.
MasterKind lightly(MasterKind kind) {
    kind.fields[1].sanitizer = Sanitizer::light;
    return kind;
}

/// A list that starts empty has no rows of the system's own: also its first may go.
MasterKind withoutDefaults(MasterKind kind) {
    kind.protectedCodes.clear();
    return kind;
}

MasterKind registrationKind() {
    MasterKind kind = lightly(
        nameList(u"TF_Color", u"批准文号", u"jxc_color", u"color_sn", u"color_name", u"jxc_goods"));
    kind.mnemonicColumn = QStringLiteral("color_jm");
    return with(kind,
                {Field(u"color_jm"), Field(u"color_date", ValueKind::date).caption(u"有效期至")});
}

MasterKind supplierTypeKind() {
    MasterKind kind =
        nameList(u"TF_Ghstype", u"供货商类型", u"jxc_ghstype", u"gt_sn", u"gt_name", u"jxc_ghsxx");
    kind.defaultColumn = QStringLiteral("gt_default");
    return with(kind, {Field(u"gt_default", ValueKind::flag).single()});
}

MasterKind customerTypeKind() {
    MasterKind kind =
        nameList(u"TF_Khtype", u"客户类型", u"jxc_khtype", u"kt_sn", u"kt_name", u"jxc_khxx");
    kind.defaultColumn = QStringLiteral("kt_default");
    // The price levels are chosen by these.
    kind.protectedCodes = wordList(u"1000 1001 1002 1003 1004 1005");
    return with(kind, {Field(u"kt_default", ValueKind::flag).single().caption(u"默认选择")});
}

MasterKind zoneKind() {
    MasterKind kind =
        nameList(u"TF_Zone", u"地区", u"jxc_zone", u"z_sn", u"z_name", u"jxc_ghsxx jxc_khxx");
    kind.mnemonicColumn = QStringLiteral("z_jm");
    kind.defaultColumn = QStringLiteral("z_default");
    return with(kind, {Field(u"z_jm"), Field(u"z_default", ValueKind::flag).single()});
}

/// Kinds of expenses have no code: the name itself stands on the entries.
MasterKind expenseKind() {
    MasterKind kind;
    kind.isSmallList = true;
    kind.form = QStringLiteral("TF_Fylx");
    kind.noun = QStringLiteral("费用类型");
    kind.table = QStringLiteral("jxc_fylx");
    kind.nameColumn = QStringLiteral("fy_lx");
    kind.nameCopies = {{QStringLiteral("jxc_yyfy"), QStringLiteral("fy_lx")}};
    // The approval of documents books under these names.
    kind.protectedNames = wordList(u"费用 运费 包装费 收入");
    return with(kind, {Field(u"fy_lx").required().unique().words(),
                       Field(u"fy_fx").caption(u"方向").numbered(u"费用 收入"),
                       Field(u"fy_note").words()});
}

} // namespace

std::vector<MasterKind> smallListKinds() {
    return {
        finished(
            nameList(u"TF_Dw", u"单位", u"jxc_dw", u"dw_sn", u"dw_name", u"jxc_goods jxc_goodsdw")),
        finished(lightly(
            nameList(u"TF_Ggxh", u"产品规格", u"jxc_ggxh", u"gg_sn", u"gg_name", u"jxc_goods"))),
        registrationKind(),
        finished(lightly(withoutDefaults(
            nameList(u"TF_Tym", u"通用名", u"jxc_tym", u"tym_sn", u"g_tym", u"jxc_goods")))),
        finished(nameList(u"TF_Yjlx", u"药剂类型", u"jxc_yjlx", u"lx_sn", u"g_yjlx", u"jxc_goods")),
        with(nameList(u"TF_Hjxx", u"库位", u"jxc_hjxx", u"hj_sn", u"hj_name", u"jxc_goods"),
             {Field(u"hj_wz").caption(u"位置").words()}),
        supplierTypeKind(),
        customerTypeKind(),
        zoneKind(),
        finished(nameList(u"TF_Dept", u"部门", u"jxc_dept", u"de_sn", u"de_name", u"")),
        finished(nameList(u"TF_Fkfs", u"付款方式", u"jxc_fkfs", u"fk_sn", u"fk_name", u"")),
        expenseKind(),
        with(withoutDefaults(
                 nameList(u"TF_Djbz", u"常用备注", u"jxc_djbz", u"dj_sn", u"dj_name", u"")),
             {Field(u"dj_pl", ValueKind::integer).caption(u"使用次数").readOnly()}),
        with(nameList(u"TF_Gspcs", u"药品类型", u"jxc_gspcs", u"gsp_sn", u"gsp_name", u"jxc_goods"),
             {Field(u"gsp_sele", ValueKind::flag).caption(u"专册登记")}),
    };
}

} // namespace jxc
