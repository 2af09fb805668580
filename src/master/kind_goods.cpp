#include "master/goods_rules.h"
#include "master/kind_parts.h"

namespace jxc {

namespace {

const QString prices = QStringLiteral("价格");
const QString compliance = QStringLiteral("合规");

std::vector<MasterField> basicFields() {
    Pick goodsClass = pickCode(u"jxc_goodsclass", u"gc_cid", u"gc_name", u"gc_name");
    goodsClass.copiedColumn = goodsClass.copiedTo = QStringLiteral("gc_sn");
    Pick registration = pickName(u"jxc_color", u"color_name");
    registration.copiedColumn = registration.copiedTo = QStringLiteral("color_jm");
    return {Field(u"gc_cid").required().initial(u"2").pick(goodsClass),
            Field(u"g_sn").required().unique().fixedOnceStored(),
            Field(u"g_name").required(),
            Field(u"g_jm"),
            Field(u"g_jc"),
            Field(u"g_sptm"),
            Field(u"dw_name").required().pick(pickName(u"jxc_dw", u"dw_name")),
            Field(u"gg_name").follower(u"gg_jm").pick(pickName(u"jxc_ggxh", u"gg_name")),
            Field(u"color_name").pick(registration),
            Field(u"ghs_sn").alsoByDocuments().initial(u"100001").pick(
                pickCode(u"jxc_ghsxx", u"ghs_sn", u"ghs_name", u"ghs_name")),
            Field(u"hj_name").pick(pickName(u"jxc_hjxx", u"hj_name")),
            Field(u"g_zdkc", ValueKind::integer).notNegative(),
            Field(u"g_bzq", ValueKind::integer).caption(u"保质期(月)").notNegative(),
            Field(u"g_sccs"),
            Field(u"g_bz").words(),
            Field(u"g_jy", ValueKind::flag)};
}

std::vector<MasterField> priceFields() {
    std::vector<MasterField> fields{
        Field(u"g_jj", ValueKind::price).notNegative().cost().page(prices)};
    for (const char16_t *column :
         {u"g_sj", u"g_sj1", u"g_sj2", u"g_sj3", u"g_sj4", u"g_sj5", u"g_lsj", u"g_hyj"})
        fields.push_back(Field(column, ValueKind::price).notNegative().selling().page(prices));
    for (const MasterField &field : std::initializer_list<MasterField>{
             Field(u"g_dzll", ValueKind::factor).initial(u"1").notNegative().page(prices),
             Field(u"g_tclb")
                 .caption(u"提成类别")
                 .numbered(u"按业务员 金额% 毛利% 每单位")
                 .page(prices),
             Field(u"g_tc", ValueKind::factor).notNegative().page(prices),
             Field(u"g_scjj", ValueKind::price).readOnly().cost().page(prices),
             Field(u"g_pjjj", ValueKind::price).caption(u"成本均价").readOnly().cost().page(prices),
             Field(u"g_kc", ValueKind::quantity).readOnly().page(prices)})
        fields.push_back(field);
    return fields;
}

std::vector<MasterField> complianceFields() {
    std::vector<MasterField> fields{
        Field(u"g_iscf", ValueKind::flag),
        Field(u"g_xzsl", ValueKind::quantity).notNegative(),
        Field(u"g_tym").pick(pickName(u"jxc_tym", u"g_tym")),
        Field(u"g_yjlx").pick(pickName(u"jxc_yjlx", u"g_yjlx")),
        Field(u"gsp_name").pick(pickName(u"jxc_gspcs", u"gsp_name")),
        Field(u"g_scxkz"),
        Field(u"g_zczh"),
        Field(u"g_cztj").words(u"常温 阴凉 冷藏 避光"),
        Field(u"g_yhlx", ValueKind::choice).words(u"不养护 一般养护 重点养护").initial(u"不养护"),
        Field(u"g_qxlx").initial(u"无"),
        Field(u"g_sykz", ValueKind::flag),
        Field(u"g_isjk", ValueKind::flag),
        Field(u"g_dwpz", ValueKind::flag),
        Field(u"g_dzjgm", ValueKind::flag),
        Field(u"g_clxs", ValueKind::factor).notNegative(),
        Field(u"g_iszp", ValueKind::flag),
        Field(u"g_zpjf", ValueKind::integer).notNegative()};
    for (MasterField &field : fields)
        field.page = compliance;
    return fields;
}

std::vector<MasterField> goodsFields() {
    std::vector<MasterField> all;
    for (const auto &page : {basicFields(), priceFields(), complianceFields()})
        all.insert(all.end(), page.begin(), page.end());
    return all;
}

} // namespace

MasterKind goodsKind() {
    MasterKind kind;
    kind.noun = QStringLiteral("商品");
    kind.table = QStringLiteral("jxc_goods");
    kind.form = QStringLiteral("TF_Spxxgl");
    kind.codeColumn = QStringLiteral("g_sn");
    kind.nameColumn = QStringLiteral("g_name");
    kind.mnemonicColumn = QStringLiteral("g_jm");
    kind.disabledColumn = QStringLiteral("g_jy");
    kind.fields = goodsFields();
    kind.columns =
        listColumns(u"g_sn g_name g_jm gc_name dw_name gg_name g_sptm color_name g_tym g_yjlx "
                    u"gsp_name g_sccs g_jj g_sj g_lsj g_hyj g_kc+ g_pjjj g_scjj g_zdkc g_xzsl "
                    u"g_iscf g_jy g_bz");
    kind.findColumns = wordList(u"g_tym g_sccs g_sptm");
    kind.findAlso = {{QStringLiteral("jxc_goodstm"), QStringLiteral("g_sptm")},
                     {QStringLiteral("jxc_goodsdw"), QStringLiteral("g_sptm")}};
    kind.hiddenCode = discountGoods;
    kind.protectedCodes = {discountGoods};
    kind.satellites = wordList(u"jxc_goodsprice jxc_goodstm jxc_goodsdw jxc_goodsremind jxc_dxdz "
                               u"jxc_tm jxc_ghsbj jxc_khbj jxc_sptjb");
    kind.emptyRows = {
        {QStringLiteral("jxc_kcsp"), QStringLiteral("g_sn"),
         QStringLiteral("coalesce(kc_sl,0)=0 and coalesce(kc_zsl,0)=0")},
        {QStringLiteral("jxc_tkc"), QStringLiteral("g_sn"), QStringLiteral("coalesce(t_sl,0)=0")}};
    kind.drawCode = goodsCode;
    kind.check = checkGoodsRow;
    return kind;
}

} // namespace jxc
