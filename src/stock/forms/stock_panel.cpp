#include "stock/forms/stock_panel.h"

#include "core/session.h"
#include "ui/goods_class_tree.h"
#include "ui/goods_columns.h"
#include "ui/grid.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/tab_order.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>

namespace jxc {

namespace {

/// Longer than a gap between two keys of a typist, shorter than a wait.
constexpr int searchDelay = 120;
/// The details follow once the selection rests.
constexpr int restDelay = 30;

ColumnSpecs stockColumns() {
    return afterGoodsName(
        {text(u"ck_name", u"仓库", 88), summed(column(u"kc_sl", u"库存数量", ValueKind::quantity)),
         summed(column(u"kc_zsl", u"帐面数量", ValueKind::quantity)),
         summed(column(u"kc_ce", u"差异", ValueKind::quantity, 76)),
         costOnly(column(u"kc_cbj", u"成本价", ValueKind::price, 84)),
         costOnly(summed(column(u"kc_je", u"库存金额", ValueKind::amount))),
         sellingPriceOnly(column(u"g_sj", u"售价", ValueKind::price, 84)),
         sellingPriceOnly(column(u"g_lsj", u"零售价", ValueKind::price, 84)),
         column(u"g_zdkc", u"最低库存", ValueKind::quantity, 84), text(u"ghs_name", u"供货商", 120),
         hidden(text(u"g_sptm", u"商品条码", 120)), hidden(text(u"hj_name", u"货架", 72))});
}

ColumnSpecs batchColumns() {
    return {text(u"ck_name", u"仓库", 100),
            text(u"t_ph", u"批号", 140),
            column(u"t_scrq", u"生产日期", ValueKind::date),
            column(u"t_yxq", u"有效期至", ValueKind::date),
            column(u"days", u"剩余天数", ValueKind::integer, 88),
            summed(column(u"t_sl", u"库存数量", ValueKind::quantity))};
}

ColumnSpecs priceColumns(Trade trade, const Parameters &parameters) {
    const bool sale = trade == Trade::sale;
    ColumnSpecs columns = {column(u"gl_kdrq", u"日期", ValueKind::date),
                           text(u"gl_djh", u"单据号", 132),
                           text(u"ghs_name", sale ? u"客户" : u"供货商", 160),
                           text(u"ck_name", u"仓库", 88),
                           column(u"gl_sl", u"数量", ValueKind::quantity),
                           text(u"dw_name", u"单位", 56),
                           column(u"gl_dj", u"单价", ValueKind::price),
                           column(u"gl_taxdj", u"含税单价", ValueKind::price),
                           column(u"gl_dzl", u"折扣", ValueKind::factor, 64),
                           column(u"gl_zje", u"金额", ValueKind::amount),
                           text(u"u_name", u"经手人", 80)};
    if (!parameters.pricesIncludeTax && parameters.taxRate.isZero())
        std::erase_if(columns, [](const ColumnSpec &c) { return c.field == u"gl_taxdj"; });
    return columns;
}

/// Short of what shall be there, or sold before it came in.
Tone stockTone(const Row &row, const ColumnSpec &column) {
    if (column.field == u"kc_sl") {
        const Decimal stock = row.decimal(u"kc_sl");
        if (stock.isNegative())
            return Tone::danger;
        return stock < row.decimal(u"g_zdkc") ? Tone::warning : Tone::plain;
    }
    if (column.field == u"kc_ce")
        return row.decimal(u"kc_ce").isZero() ? Tone::quiet : Tone::warning;
    return Tone::plain;
}

} // namespace

StockPanel::StockPanel(const FormContext &context, QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_tree(new GoodsClassTree(this))
    , m_warehouse(
          new PickField(warehouseSource(context), Formats(context.session.parameters), this))
    , m_perWarehouse(new QCheckBox(QStringLiteral("分仓(&W)"), this))
    , m_level(new QComboBox(this))
    , m_search(new QLineEdit(this))
    , m_grid(new Grid(context, QStringLiteral("TF_Kccx"), stockColumns(), this))
    , m_details(new QTabWidget(this))
    , m_batches(new Grid(context, QStringLiteral("TF_Kccx_Batch"), batchColumns(), this))
    , m_rest(new QTimer(this)) {
    build();
}

void StockPanel::build() {
    m_tree->setFixedWidth(184);
    m_grid->setTitle(QStringLiteral("当前库存"));
    m_grid->model().setTone(stockTone);
    auto *split = new QSplitter(Qt::Vertical, this);
    split->setChildrenCollapsible(false);
    split->setHandleWidth(8);
    split->addWidget(m_grid);
    split->addWidget(makeDetails());
    split->setStretchFactor(0, 2);
    split->setStretchFactor(1, 1);
    auto *right = new QVBoxLayout;
    right->setSpacing(8);
    right->addWidget(makeFilters());
    right->addWidget(split, 1);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_tree);
    layout->addLayout(right, 1);

    m_rest->setSingleShot(true);
    m_rest->setInterval(restDelay);
    connect(m_rest, &QTimer::timeout, this, &StockPanel::refreshDetails);
    connect(m_grid, &Grid::currentChanged, m_rest, qOverload<>(&QTimer::start));
    connect(m_grid, &Grid::activated, this, &StockPanel::movementsWanted);
    connect(m_details, &QTabWidget::currentChanged, this, &StockPanel::refreshDetails);
    connect(m_tree, &GoodsClassTree::classChosen, this, &StockPanel::refresh);
    connect(m_tree, &GoodsClassTree::left, this, [this] { m_grid->setFocus(); });
}

QWidget *StockPanel::makeFilters() {
    m_warehouse->setObjectName(QStringLiteral("edtWarehouse"));
    m_warehouse->setPlaceholderText(QStringLiteral("全部仓库"));
    m_warehouse->setClearable(true);
    m_warehouse->setFixedWidth(136);
    m_perWarehouse->setObjectName(QStringLiteral("chkPerWarehouse"));
    m_level->setObjectName(QStringLiteral("cbbLevel"));
    for (const auto &[words, level] :
         {std::pair(u"全部", StockLevel::any), std::pair(u"有库存", StockLevel::inStock),
          std::pair(u"零库存", StockLevel::none), std::pair(u"负库存", StockLevel::negative)})
        m_level->addItem(QString::fromUtf16(words), static_cast<int>(level));
    m_search->setObjectName(QStringLiteral("edtSearch"));
    m_search->setPlaceholderText(QStringLiteral("查找 F3：编号、条码、名称、成分、厂商"));
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    m_search->setFixedWidth(280);

    auto *bar = new QWidget(this);
    auto *line = new QHBoxLayout(bar);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addWidget(m_search);
    line->addWidget(m_warehouse);
    line->addWidget(m_perWarehouse);
    line->addWidget(m_level);
    line->addStretch(1);

    setTabsThrough({m_tree, m_search, m_warehouse, m_perWarehouse, m_level, &m_grid->view()});
    connect(m_warehouse, &PickField::chosen, this, &StockPanel::refresh);
    connect(m_warehouse, &PickField::cleared, this, &StockPanel::refresh);
    connect(m_perWarehouse, &QCheckBox::toggled, this, &StockPanel::refresh);
    connect(m_level, &QComboBox::currentIndexChanged, this, &StockPanel::refresh);
    auto *delay = new QTimer(this);
    delay->setSingleShot(true);
    delay->setInterval(searchDelay);
    connect(m_search, &QLineEdit::textChanged, delay, qOverload<>(&QTimer::start));
    connect(delay, &QTimer::timeout, this, &StockPanel::refresh);
    connect(m_search, &QLineEdit::returnPressed, this, [this, delay] {
        delay->stop();
        refresh();
        m_grid->setFocus();
    });
    return bar;
}

QWidget *StockPanel::makeDetails() {
    const int nearDays = m_context.session.parameters.nearExpiryDays;
    m_batches->model().setTone([nearDays](const Row &row, const ColumnSpec &) {
        if (row.isNull(u"days"))
            return Tone::plain;
        const qint64 days = row.integer(u"days");
        return days < 0 ? Tone::danger : days <= nearDays ? Tone::warning : Tone::plain;
    });
    m_details->addTab(m_batches, QStringLiteral("批号"));
    const auto addPrices = [this](Trade trade, const QString &name, const QString &caption) {
        auto *grid =
            new Grid(m_context, name, priceColumns(trade, m_context.session.parameters), this);
        m_details->addTab(grid, caption);
        connect(grid, &Grid::activated, this,
                [this, grid] { m_context.stage.openDocument(grid->currentText(u"gl_djh")); });
        return grid;
    };
    const CachedRights &rights = m_context.session.rights;
    if (rights.showCostPrice)
        m_purchases = addPrices(Trade::purchase, QStringLiteral("TF_Kccx_Purchase"),
                                QStringLiteral("最近进价"));
    if (rights.showSellingPrice)
        m_sales =
            addPrices(Trade::sale, QStringLiteral("TF_Kccx_Sale"), QStringLiteral("最近售价"));
    return m_details;
}

StockFilter StockPanel::filter() const {
    StockFilter filter;
    filter.search = m_search->text().trimmed();
    filter.classCode = m_tree->classCode();
    filter.warehouse = m_warehouse->code();
    filter.perWarehouse = m_perWarehouse->isChecked();
    filter.level = static_cast<StockLevel>(m_level->currentData().toInt());
    return filter;
}

void StockPanel::activate() {
    m_tree->load(m_context.session);
    refresh();
    m_grid->setFocus();
}

void StockPanel::refresh() {
    const JournalKey key = currentKey();
    const StockFilter wanted = filter();
    QStringList notes;
    if (!wanted.warehouse.isEmpty())
        notes << QStringLiteral("仓库：") + m_warehouse->name();
    if (wanted.level != StockLevel::any)
        notes << m_level->currentText();
    if (!wanted.classCode.isEmpty())
        notes << QStringLiteral("类别：") + m_tree->currentItem()->text(0);
    m_grid->setNotes(notes);
    m_grid->setRows(stockList(m_context.session, wanted));
    m_grid->goTo(u"g_sn", key.goods);
}

void StockPanel::refreshDetails() {
    const JournalKey key = currentKey();
    QWidget *shown = m_details->currentWidget();
    if (shown == m_batches)
        m_batches->setRows(key.goods.isEmpty()
                               ? Rows()
                               : batchesOf(m_context.session, key.goods, filter().warehouse));
    else if (auto *prices = qobject_cast<Grid *>(shown))
        prices->setRows(key.goods.isEmpty()
                            ? Rows()
                            : latestPrices(m_context.session,
                                           prices == m_sales ? Trade::sale : Trade::purchase,
                                           key.goods));
}

void StockPanel::startSearch() {
    m_search->setFocus();
    m_search->selectAll();
}

JournalKey StockPanel::currentKey() const {
    if (m_grid->current() == nullptr)
        return {};
    const QString warehouse = m_grid->currentText(u"ck_sn");
    return {m_grid->currentText(u"g_sn"), warehouse.isEmpty() ? m_warehouse->code() : warehouse};
}

QString StockPanel::currentName() const {
    return m_grid->currentText(u"g_name");
}

void StockPanel::showDetail(int which) {
    QWidget *const wanted[] = {m_batches, m_purchases, m_sales};
    if (wanted[which] == nullptr)
        return;
    m_details->setCurrentWidget(wanted[which]);
    wanted[which]->setFocus();
}

} // namespace jxc
