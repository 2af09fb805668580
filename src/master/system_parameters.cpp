#include "master/system_parameters.h"

#include "core/session.h"
#include "db/database.h"
#include "db/schema.h"
#include "master/kind_parts.h"
#include "master/record_values.h"

namespace jxc {

namespace {

const QString company = QStringLiteral("jxc_company");
const QString settings = QStringLiteral("jxc_xtcs");

/// Builds the list page by page.
class Settings {
public:
    Settings &page(const char16_t *name) {
        m_page = QString::fromUtf16(name);
        return *this;
    }
    Settings &add(MasterField field, bool isDecimals = false) {
        const QString &table = m_page == QStringLiteral("公司") ? company : settings;
        const Column *description = column(table, field.column);
        if (description == nullptr)
            throw std::logic_error("no such setting: " + field.column.toStdString());
        if (field.caption.isEmpty())
            field.caption = description->caption;
        m_all.push_back({table, m_page, std::move(field), isDecimals});
        return *this;
    }
    Settings &flags(const char16_t *columns) {
        for (const QString &name : wordList(columns))
            add(Field(reinterpret_cast<const char16_t *>(name.utf16()), ValueKind::flag));
        return *this;
    }
    Settings &decimals(const char16_t *column) {
        return add(Field(column, ValueKind::integer), true);
    }
    [[nodiscard]] std::vector<SystemParameter> all() const { return m_all; }

private:
    QString m_page;
    std::vector<SystemParameter> m_all;
};

std::vector<SystemParameter> allSettings() {
    const char16_t *discountModes = u"分摊到各行 单列优惠行";
    Settings s;
    s.page(u"公司")
        .add(Field(u"c_name").caption(u"公司名称").required().words())
        .add(Field(u"c_jc").caption(u"简称").required().words())
        .add(Field(u"c_tele").caption(u"电话"))
        .add(Field(u"c_address").caption(u"地址").words());
    s.page(u"小数")
        .decimals(u"cs_xsws")
        .decimals(u"cs_cs004")
        .flags(u"cs_zjews")
        .decimals(u"cs_jews")
        .decimals(u"cs_posfkws")
        .flags(u"cs_cs003");
    s.page(u"采购")
        .add(Field(u"cs_cgdj").numbered(u"预设进价 上次进价"))
        .add(Field(u"cs_cgyh").numbered(discountModes))
        .flags(u"cs_cgje cs_jhzk cs_sprk cs_ct cs_ysdh")
        .flags(u"cs_hs")
        .add(Field(u"cs_tax", ValueKind::factor).notNegative());
    s.page(u"销售")
        .flags(u"cs_xsdj cs_cs001")
        .add(Field(u"cs_xsjgts").numbered(u"不提示 低于成本价 低于预设售价"))
        .flags(u"cs_xgdj")
        .add(Field(u"cs_xsyh").numbered(discountModes))
        .flags(u"cs_xsje")
        .add(Field(u"cs_zdzk", ValueKind::factor).notNegative())
        .flags(u"cs_spck cs_xt cs_zerocost cs_lsj cs_tjcyjf cs_kp cs_ht cs_kddy");
    s.page(u"库存")
        .flags(u"cs_kc cs_cbjs")
        .add(Field(u"cs_dbdj").numbered(u"成本价 销售价"))
        .add(Field(u"cs_cs005", ValueKind::integer).notNegative())
        .add(Field(u"cs_cs006").numbered(u"提醒 禁止"));
    s.page(u"商品条码").flags(u"cs_spbh cs_barcode cs_barunique cs_tmzdsc cs_fzdw");
    s.page(u"单据打印")
        .flags(u"cs_spcz cs_shdj cs_djsh")
        .add(Field(u"cs_djrq", ValueKind::integer).notNegative())
        .add(Field(u"cs_dysx").numbered(u"录入顺序 商品编号"))
        .flags(u"cs_bcqdy cs_djzddy")
        .add(Field(u"cs_djzddysl", ValueKind::integer).notNegative())
        .add(Field(u"cs_ts"));
    s.page(u"权限").flags(u"cs_cs002 cs_xjyh");
    s.page(u"POS").flags(u"cs_posdj cs_posblur cs_poshooktoday cs_possk cs_posrq");
    s.page(u"短信支付").flags(u"cs_sms cs_wxzf").add(Field(u"cs_mchid")).add(Field(u"cs_key"));
    return s.all();
}

} // namespace

const std::vector<SystemParameter> &systemParameters() {
    static const std::vector<SystemParameter> all = allSettings();
    return all;
}

QStringList parameterPages() {
    QStringList pages;
    for (const SystemParameter &parameter : systemParameters())
        if (!pages.contains(parameter.page))
            pages << parameter.page;
    return pages;
}

QHash<QString, QString> loadSystemParameters(const Session &session) {
    QHash<QString, QString> texts;
    for (const QString &table : {company, settings}) {
        const auto row =
            session.db().row(QStringLiteral("select * from %1 order by id").arg(table));
        for (const SystemParameter &parameter : systemParameters())
            if (parameter.table == table)
                texts.insert(parameter.field.column,
                             row ? fieldText(*row, table, parameter.field.column)
                                 : emptyText(table, parameter.field.column));
    }
    return texts;
}

} // namespace jxc
