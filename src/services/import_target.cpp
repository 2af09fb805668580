#include "services/import_target.h"

#include "core/session.h"
#include "db/database.h"
#include "master/master_kind.h"

#include <algorithm>
#include <set>

namespace jxc {

namespace {

/// Rows above the header may hold a title and notes.
constexpr size_t deepestHeader = 15;

/// What others call our columns, the surest word first.
const QStringList &synonyms(const QString &field) {
    static const std::map<QString, QStringList> words = [] {
        const std::pair<const char16_t *, const char16_t *> all[] = {
            {u"g_sn", u"商品编码 编码 编号 货号 商品代码 物料编码 代码"},
            {u"g_name", u"品名 产品名称 货品名称 商品名 农药名称 名称"},
            {u"g_sptm", u"条码 条形码 商品条形码 国际条码"},
            {u"dw_name", u"计量单位 基本单位 单位名称"},
            {u"gg_name", u"规格 规格型号 包装规格 型号"},
            {u"color_name", u"登记证号 农药登记证号 登记证 登记号 批准文号"},
            {u"g_tym", u"有效成分 通用名称 成分"},
            {u"g_yjlx", u"剂型"},
            {u"gsp_name", u"农药类别 药品类别 类别"},
            {u"g_zczh", u"肥料登记证号 品种审定号 审定编号"},
            {u"g_jj", u"进价 进货价 采购价 成本价"},
            {u"g_sj", u"售价 销售价 批发价 单价"},
            {u"g_sj1", u"一级价"},
            {u"g_sj2", u"二级价"},
            {u"g_sj3", u"三级价"},
            {u"g_sj4", u"四级价"},
            {u"g_sj5", u"五级价"},
            {u"g_lsj", u"零售价格 零售"},
            {u"g_zdkc", u"库存下限 最低库存量"},
            {u"g_sccs", u"生产厂家 厂家 厂商 生产企业 登记证持有人 制造商"},
            {u"g_bz", u"说明"},
            {u"g_bzq", u"保质期(月) 保质期"},
            {u"ghs_name", u"供应商名称 供应商 供货商 单位名称 名称"},
            {u"kh_name", u"客户 客户姓名 姓名 名称"},
            {u"ghs_lxr", u"联系人姓名"},
            {u"kh_lxr", u"联系人姓名"},
            {u"ghs_tele", u"手机 电话 手机号 手机号码 联系方式"},
            {u"kh_tele", u"手机 电话 手机号 手机号码 联系方式"},
            {u"ghs_lwje", u"期初余额 应付余额 应付款 欠款 期初"},
            {u"kh_lwje", u"期初余额 应收余额 应收款 欠款 期初"},
            {u"gt_name", u"供应商类型 类型 分类"},
            {u"kt_name", u"类型 分类"},
            {u"z_name", u"地区 区域"},
            {u"ghs_address", u"地址"},
            {u"kh_address", u"地址 住址"},
            {u"ghs_note", u"说明"},
            {u"kh_note", u"说明"},
            {u"hy_bh", u"卡号 会员号 会员编号 会员卡 编号"},
            {u"hy_name", u"姓名 会员名称 会员 名称"},
            {u"hy_mm", u"密码 卡密码"},
            {u"hy_sr", u"生日 会员生日"},
            {u"hy_jf", u"积分 可用积分 剩余积分"},
            {u"hy_zhje", u"储值余额 卡内余额 余额 储值金额 储值"},
            {u"hy_zje", u"消费总额 累计消费金额 消费金额"},
            {u"hy_jrrq", u"入会日期 办卡日期 开卡日期"},
            {u"hy_mobile", u"手机 手机号 手机号码 联系电话 电话"},
            {u"hy_tele", u"座机 电话"},
            {u"hy_zjhm", u"身份证 身份证号 身份证号码"},
            {u"hy_dwzy", u"单位 职业"},
            {u"hy_address", u"地址 住址"},
        };
        std::map<QString, QStringList> map;
        for (const auto &[name, list] : all)
            map[QString::fromUtf16(name)] = QString::fromUtf16(list).split(u' ');
        return map;
    }();
    static const QStringList none;
    const auto found = words.find(field);
    return found == words.end() ? none : found->second;
}

/// Headers differ in blanks, stars of required columns, colons and width of brackets.
QString plain(QString header) {
    header.replace(u'（', u'(').replace(u'）', u')');
    header.removeIf([](QChar c) { return c.isSpace() || c == u'*' || c == u':' || c == u'：'; });
    return header.toLower();
}

/// All names a field goes by, the surest first.
QStringList namesOf(const ImportField &field) {
    QStringList names{plain(field.caption), plain(field.id)};
    for (const QString &word : synonyms(field.id))
        names << plain(word);
    return names;
}

QHash<QString, QString> lastHeaders(Database &db) {
    QHash<QString, QString> headers;
    for (const Row &row : db.rows(QStringLiteral(
             "select i_fieldid,i_excelfield from jxc_importchk where i_sele<>0 order by id")))
        headers.insert(row.text(u"i_fieldid"), row.text(u"i_excelfield"));
    return headers;
}

} // namespace

const std::vector<ImportTarget> &importTargets() {
    static const std::vector<ImportTarget> targets = {
        {QStringLiteral("goods"), QStringLiteral("jxc_goods"), QStringLiteral("商品管理"), 1},
        {QStringLiteral("suppliers"), QStringLiteral("jxc_ghsxx"), QStringLiteral("供货商管理"), 2},
        {QStringLiteral("customers"), QStringLiteral("jxc_khxx"), QStringLiteral("客户管理"), 3},
        {QStringLiteral("members"), QStringLiteral("jxc_hyxx"), QStringLiteral("会员管理"), 10},
    };
    return targets;
}

const ImportTarget *findImportTarget(QStringView word) {
    for (const ImportTarget &target : importTargets())
        if (target.word == word)
            return &target;
    return nullptr;
}

std::vector<ImportField> importFields(const Session &session, const ImportTarget &target) {
    std::vector<ImportField> fields;
    for (const Row &row : session.db().rows(
             QStringLiteral(
                 "select i_fieldid,i_fieldname from jxc_import where i_tablename=? order by id"),
             {target.table}))
        fields.push_back({row.text(u"i_fieldid"), row.text(u"i_fieldname")});
    return fields;
}

size_t findHeaderRow(const std::vector<ImportField> &fields, const Sheet &sheet) {
    std::set<QString> known;
    for (const ImportField &field : fields)
        for (const QString &name : namesOf(field))
            known.insert(name);
    size_t best = 0;
    qsizetype most = 0;
    for (size_t i = 0; i < std::min(sheet.rows.size(), deepestHeader); ++i) {
        const qsizetype count =
            std::count_if(sheet.rows[i].begin(), sheet.rows[i].end(),
                          [&](const QString &cell) { return known.contains(plain(cell)); });
        if (count > most) {
            most = count;
            best = i;
        }
    }
    return best;
}

ImportMapping proposeMapping(const Session &session, const std::vector<ImportField> &fields,
                             const QStringList &header) {
    QStringList names;
    for (const QString &cell : header)
        names << plain(cell);
    ImportMapping mapping;
    std::set<qsizetype> taken;
    const auto take = [&](const ImportField &field, const QString &name) {
        const qsizetype column = name.isEmpty() ? -1 : names.indexOf(name);
        if (column < 0 || mapping.contains(field.id) || !taken.insert(column).second)
            return;
        mapping[field.id] = column;
    };
    const QHash<QString, QString> before = lastHeaders(session.db());
    for (const ImportField &field : fields)
        take(field, plain(before.value(field.id)));
    // A sure name of one field goes before a doubtful one of another.
    for (qsizetype rank = 0; rank < 12; ++rank)
        for (const ImportField &field : fields)
            take(field, namesOf(field).value(rank));
    return mapping;
}

SheetTable importTemplate(const Session &session, const ImportTarget &target) {
    SheetTable table;
    table.sheetName = masterKind(target.table).noun;
    for (const ImportField &field : importFields(session, target))
        table.columns.push_back({field.caption});
    return table;
}

} // namespace jxc
