#include "master/forms/tf_spxxgl_add.h"

#include "core/session.h"
#include "master/forms/goods_picture.h"
#include "master/goods_details.h"
#include "master/goods_rules.h"
#include "ui/grid.h"
#include "ui/record_table.h"

#include <QLabel>
#include <QTabBar>

namespace jxc {

namespace {

const auto unitsPage = QStringLiteral("单位条码");
const auto picturePage = QStringLiteral("图片");
const auto batchPage = QStringLiteral("批号");
const auto stockPage = QStringLiteral("库存");

} // namespace

TF_Spxxgl_Add::TF_Spxxgl_Add(const FormContext &context, QWidget *parent)
    : RecordEditor(context, masterKind(u"jxc_goods"), parent) {
    addGrids();
    addDetails();
    addHints();
    tabs().finish();
    connect(input(u"gc_cid"), &FieldInput::edited, this, &TF_Spxxgl_Add::proposeCode);
    resize(860, 600);
}

void TF_Spxxgl_Add::addGrids() {
    for (const GoodsGrid &grid : goodsGrids()) {
        std::vector<MasterField> fields;
        for (const MasterField &field : grid.fields)
            if (maySee(field, session()))
                fields.push_back(field);
        auto *rows = new RecordRows(
            std::move(fields), Formats(session().parameters), [&grid] { return newGoodsRow(grid); },
            this);
        auto *table =
            new RecordTable(context(), objectName() + u'_' + grid.table, grid.table, rows, &tabs());
        table->setMinimumHeight(124);
        auto *caption = new QLabel(grid.caption + QStringLiteral("（Ctrl+Del 删除一行）"), table);
        caption->setProperty("quiet", true);
        tabs().addBelow(grid.page, caption, 0);
        tabs().addBelow(grid.page, table, grid.table == QLatin1String("jxc_goodsdw") ? 3 : 2);
        m_tables.push_back(table);
    }
    // Units stand between prices and the papers.
    QTabBar *bar = tabs().tabBar();
    bar->moveTab(bar->count() - 1, 2);
}

void TF_Spxxgl_Add::addDetails() {
    m_picture = new GoodsPicture(context(), this);
    tabs().addBelow(picturePage, m_picture);
    m_batches = new Grid(context(), objectName() + QStringLiteral("_ph"),
                         {text(u"ck_name", u"仓库"), text(u"t_ph", u"批号"),
                          column(u"t_scrq", u"生产日期", ValueKind::date),
                          column(u"t_yxq", u"有效期至", ValueKind::date),
                          summed(column(u"t_sl", u"数量", ValueKind::quantity))},
                         this);
    tabs().addBelow(batchPage, m_batches);
    m_stock = new Grid(context(), objectName() + QStringLiteral("_kc"),
                       {text(u"ck_name", u"仓库"),
                        summed(column(u"kc_sl", u"库存数量", ValueKind::quantity)),
                        summed(column(u"kc_zsl", u"账面数量", ValueKind::quantity)),
                        costOnly(column(u"kc_cbj", u"成本价", ValueKind::price))},
                       this);
    tabs().addBelow(stockPage, m_stock);
}

/// The captions come from the trade in medicines; this is what they mean in this one.
void TF_Spxxgl_Add::addHints() {
    const std::pair<const char16_t *, const char16_t *> hints[] = {
        {u"color_name", u"登记证号"},
        {u"g_zczh", u"肥料登记证号或品种审定号"},
        {u"g_tym", u"有效成分"},
        {u"g_yjlx", u"剂型"},
        {u"gsp_name", u"杀虫剂、除草剂、杀菌剂、肥料、种子等"},
        {u"g_iscf", u"限制使用农药：销售时登记购买人"}};
    for (const auto &[column, hint] : hints)
        if (const FieldInput *field = input(QString::fromUtf16(column)))
            field->focusTarget()->setToolTip(QString::fromUtf16(hint));
}

RecordTable *TF_Spxxgl_Add::table(QStringView name) const {
    for (RecordTable *table : m_tables)
        if (table->tableName() == name)
            return table;
    return nullptr;
}

void TF_Spxxgl_Add::makeNew() {
    m_goods = newGoods(session());
    if (m_class == 0)
        return;
    m_goods.goods.set(QStringLiteral("gc_cid"), QString::number(m_class));
    // The name is shown by the picker, which asks for it.
    m_goods.goods.set(QStringLiteral("gc_name"), {});
    m_goods.goods.set(QStringLiteral("g_sn"), proposedGoodsCode(session(), m_goods));
    m_goods.goods.settle();
}

bool TF_Spxxgl_Add::load(qint64 id) {
    const auto found = loadGoods(session(), id);
    if (found)
        m_goods = *found;
    return found.has_value();
}

bool TF_Spxxgl_Add::loadCopy(qint64 id) {
    const auto found = loadGoods(session(), id);
    if (found)
        m_goods = copiedGoods(session(), *found);
    return found.has_value();
}

void TF_Spxxgl_Add::fill() {
    RecordEditor::fill();
    for (RecordTable *table : m_tables)
        table->rows().setRecords(m_goods.rows(table->tableName()));
    const QString goods = record().isNew() ? QString() : record().text(u"g_sn");
    m_proposed = record().isNew() ? record().text(u"g_sn") : QString();
    m_picture->load(goods);
    m_batches->setRows(goods.isEmpty() ? Rows() : goodsBatches(db(), goods));
    m_stock->setRows(goods.isEmpty() ? Rows() : goodsStock(db(), goods));
}

/// Another class, another code, as long as nobody typed one.
void TF_Spxxgl_Add::proposeCode() {
    FieldInput *code = input(u"g_sn");
    if (!record().isNew() || code->text() != m_proposed)
        return;
    GoodsRecord now = m_goods;
    now.goods.set(QStringLiteral("gc_cid"), input(u"gc_cid")->text());
    m_proposed = proposedGoodsCode(session(), now);
    code->line()->setText(m_proposed);
}

void TF_Spxxgl_Add::takeTables() {
    for (const RecordTable *table : m_tables)
        m_goods.rows(table->tableName()) = table->rows().records();
}

bool TF_Spxxgl_Add::collect() {
    for (RecordTable *table : m_tables)
        if (!table->commitEditor())
            return false;
    takeTables();
    return RecordEditor::collect();
}

bool TF_Spxxgl_Add::isChanged() {
    takeTables();
    return m_goods.isChanged() || m_picture->isChanged();
}

Outcome TF_Spxxgl_Add::store(QString *field) {
    m_refused = {};
    Outcome outcome = saveGoods(session(), prompter(), m_goods, &m_refused);
    if (outcome.isDone())
        m_picture->store(record().text(u"g_sn"));
    *field = m_refused.column;
    return outcome;
}

void TF_Spxxgl_Add::focusRefused(const QString &column) {
    RecordTable *refused = table(m_refused.table);
    if (refused == nullptr || m_refused.row < 0) {
        RecordEditor::focusRefused(column);
        return;
    }
    tabs().showPageOf(refused);
    refused->edit(m_refused.row, qMax(0, refused->rows().columnOf(column)));
}

bool TF_Spxxgl_Add::isFixed(const MasterField &field) const {
    if (field.column == QLatin1String("g_sn"))
        return !m_goods.goods.isNew() || goodsCodeIsAutomatic(db());
    if (field.column == QLatin1String("dw_name"))
        return baseUnitIsFixed(session(), m_goods);
    return RecordEditor::isFixed(field);
}

} // namespace jxc
