#include "ui/goods_chooser.h"

#include "core/prompter.h"
#include "core/session.h"
#include "stock/stock_query.h"
#include "ui/goods_class_tree.h"
#include "ui/goods_columns.h"
#include "ui/list_form.h"
#include "ui/number_field.h"
#include "ui/row_list.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTimer>

namespace jxc {

namespace {

constexpr int searchDelay = 120;

ColumnSpecs goodsColumnsFor(bool forSale) {
    ColumnSpecs columns =
        afterGoodsName({column(u"kc_sl", u"库存数量", ValueKind::quantity, 84),
                        forSale ? sellingPriceOnly(column(u"g_sj", u"售价", ValueKind::price, 80))
                                : costOnly(column(u"kc_cbj", u"成本价", ValueKind::price, 80))});
    columns.front().width = 124;       // the tick stands before the code
    for (ColumnSpec &column : columns) // found by, but no room to show it beside what was taken
        column.hidden = column.hidden || column.field == u"g_tym";
    return columns;
}

} // namespace

TF_GoodsSele::TF_GoodsSele(const FormContext &context, bool forSale, const QString &warehouse,
                           QWidget *parent)
    : Form(context, QStringLiteral("TF_GoodsSele"), QStringLiteral("选择商品"), parent)
    , m_forSale(forSale)
    , m_warehouse(warehouse)
    , m_search(new QLineEdit(this))
    , m_tree(new GoodsClassTree(this))
    , m_grid(new Grid(context, QStringLiteral("TF_GoodsSele"), goodsColumnsFor(forSale), this))
    , m_takenGrid(new Grid(context, QStringLiteral("TF_GoodsSele_Taken"),
                           {text(u"name", u"已选商品", 168),
                            summed(column(u"quantity", u"数量", ValueKind::quantity, 80))},
                           this))
    , m_quantity(new NumberField(ValueKind::quantity, Formats(context.session.parameters), this))
    , m_hint(new QLabel(this)) {
    build();
    buildSearch();
    m_tree->load(session());
    refresh();
    m_search->setFocus();
}

void TF_GoodsSele::build() {
    auto *bar = new ActionBar(this);
    bar->add(QStringLiteral("btnOK"), QStringLiteral("确定"), Qt::Key_F5, [this] { accept(); });
    bar->add(QStringLiteral("btnDrop"), QStringLiteral("取消已选"),
             QKeySequence(QStringLiteral("Ctrl+Del")), [this] { drop(); });
    bar->add(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { reject(); });
    bar->addRight(m_search);
    m_tree->setFixedWidth(176);
    m_takenGrid->setFixedWidth(288);
    m_grid->model().setTickable(true);
    m_grid->view().installEventFilter(this);
    m_quantity->setObjectName(QStringLiteral("edtQuantity"));
    m_quantity->setFixedWidth(112);
    m_hint->setText(
        QStringLiteral("回车：填数量　空格：勾选　数字键：直接填数量　F3 查找　F5 确定"));
    m_hint->setProperty("quiet", true);
    auto *body = new QHBoxLayout;
    body->setSpacing(8);
    body->addWidget(m_tree);
    body->addWidget(m_grid, 1);
    body->addWidget(m_takenGrid);
    auto *foot = new QHBoxLayout;
    foot->setSpacing(8);
    foot->addWidget(m_hint, 1);
    foot->addWidget(new QLabel(QStringLiteral("数量"), this));
    foot->addWidget(m_quantity);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(bar);
    layout->addLayout(body, 1);
    layout->addLayout(foot);
    connect(m_tree, &GoodsClassTree::classChosen, this, &TF_GoodsSele::refresh);
    connect(m_tree, &GoodsClassTree::left, this, [this] { m_grid->setFocus(); });
    connect(&m_grid->model(), &RowsModel::ticksChanged, this, &TF_GoodsSele::takeTicks);
    connect(m_grid, &Grid::activated, this, [this] { startQuantity({}); });
    connect(m_quantity, &QLineEdit::returnPressed, this, &TF_GoodsSele::takeQuantity);
    resize(1200, 640);
}

void TF_GoodsSele::buildSearch() {
    m_search->setObjectName(QStringLiteral("edtSearch"));
    m_search->setPlaceholderText(QStringLiteral("查找 F3：编号、条码、名称、成分、厂商"));
    m_search->setFixedWidth(280);
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    auto *delay = new QTimer(this);
    delay->setSingleShot(true);
    delay->setInterval(searchDelay);
    connect(m_search, &QLineEdit::textChanged, delay, qOverload<>(&QTimer::start));
    connect(delay, &QTimer::timeout, this, &TF_GoodsSele::refresh);
    connect(m_search, &QLineEdit::returnPressed, this, [this, delay] {
        delay->stop();
        refresh();
        m_grid->setFocus();
    });
    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    addAction(find);
}

void TF_GoodsSele::refresh() {
    StockFilter filter;
    filter.search = m_search->text().trimmed();
    filter.classCode = m_tree->classCode();
    filter.warehouse = m_warehouse;
    Rows rows = stockList(session(), filter);
    std::erase_if(rows, [](const Row &row) { return row.flag(u"g_jy"); });
    m_grid->setRows(std::move(rows));
    m_grid->goToLine(0);
    showTicks();
}

const GoodsChoice *TF_GoodsSele::taken(const QString &goods) const {
    const auto found = std::ranges::find(m_taken, goods, &GoodsChoice::goods);
    return found == m_taken.end() ? nullptr : &*found;
}

void TF_GoodsSele::showTicks() {
    const QScopedValueRollback showing(m_showingTicks, true);
    RowsModel &model = m_grid->model();
    for (int line = 0; line < model.rowCount(); ++line)
        if (const bool wanted = taken(model.at(line).text(u"g_sn")) != nullptr;
            wanted != model.isTicked(line))
            model.tick(line, wanted);
}

/// A tick takes one, the tick taken away leaves it.
void TF_GoodsSele::takeTicks() {
    if (m_showingTicks)
        return;
    const RowsModel &model = m_grid->model();
    for (int line = 0; line < model.rowCount(); ++line) {
        const Row &row = model.at(line);
        const QString goods = row.text(u"g_sn");
        if (model.isTicked(line) && taken(goods) == nullptr)
            take(row, Decimal(1));
        else if (!model.isTicked(line) && taken(goods) != nullptr)
            remove(goods);
    }
    showTaken();
}

void TF_GoodsSele::take(const Row &goods, Decimal quantity) {
    const QString code = goods.text(u"g_sn");
    const auto found = std::ranges::find(m_taken, code, &GoodsChoice::goods);
    if (found != m_taken.end())
        found->quantity = quantity;
    else
        m_taken.push_back({code, goods.text(u"g_name"), quantity});
}

void TF_GoodsSele::remove(const QString &goods) {
    std::erase_if(m_taken, [&](const GoodsChoice &choice) { return choice.goods == goods; });
}

void TF_GoodsSele::startQuantity(const QString &firstDigit) {
    const Row *row = m_grid->current();
    if (row == nullptr)
        return;
    const GoodsChoice *before = taken(row->text(u"g_sn"));
    m_quantity->setValue(before == nullptr ? Decimal(1) : before->quantity);
    m_quantity->setFocus();
    m_quantity->selectAll();
    if (!firstDigit.isEmpty())
        m_quantity->insert(firstDigit);
}

void TF_GoodsSele::takeQuantity() {
    const Row *row = m_grid->current();
    if (row == nullptr)
        return;
    const Decimal quantity = m_quantity->value();
    if (quantity.isPositive())
        take(*row, quantity);
    else
        remove(row->text(u"g_sn"));
    showTicks();
    showTaken();
    if (m_search->text().isEmpty()) {
        m_grid->setFocus();
    } else {
        m_search->setFocus();
        m_search->selectAll();
    }
}

void TF_GoodsSele::drop() {
    const QString goods = m_takenGrid->view().hasFocus() ? m_takenGrid->currentText(u"goods")
                                                         : m_grid->currentText(u"g_sn");
    remove(goods);
    showTicks();
    showTaken();
}

void TF_GoodsSele::showTaken() {
    RowList list({u"goods", u"name", u"quantity"});
    for (const GoodsChoice &choice : m_taken)
        list.add({choice.goods, choice.name, choice.quantity});
    m_takenGrid->setRows(list.take());
}

std::vector<GoodsChoice> TF_GoodsSele::chosen() const {
    const Row *row = m_grid->current();
    if (!m_taken.empty() || row == nullptr)
        return m_taken;
    return {{row->text(u"g_sn"), row->text(u"g_name"), Decimal(1)}};
}

bool TF_GoodsSele::mayLeave() {
    return m_taken.empty() ||
           prompter().confirm(QStringLiteral("已选的商品还没有确定，确认放弃吗？"), confirmCaption);
}

/// Digits on a goods are its quantity; other keys find among the rows shown, as in every list.
bool TF_GoodsSele::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent *>(event)->text();
        if (typed.size() == 1 && typed.front().isDigit()) {
            startQuantity(typed);
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

std::vector<GoodsChoice> chooseGoods(const FormContext &context, const DocumentFormSpec &spec,
                                     const QString &warehouse, QWidget *parent) {
    TF_GoodsSele dialog(context, spec.isSale(), warehouse, parent);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.chosen();
}

} // namespace jxc
