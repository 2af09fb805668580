#include "stock/forms/tf_kccx.h"

#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "stock/forms/movement_panel.h"
#include "stock/forms/stock_panel.h"
#include "ui/cost_story_window.h"
#include "ui/grid_msg.h"
#include "ui/list_form.h"

#include <QAction>
#include <QStackedWidget>
#include <QTabBar>

namespace jxc {

namespace {

const auto movementsCaption = QStringLiteral("库存商品变动查询");

} // namespace

TF_Kccx::TF_Kccx(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Kccx"), QStringLiteral("当前库存查询"), parent)
    , m_actions(new ActionBar(this))
    , m_tabs(new QTabBar(this))
    , m_pages(new QStackedWidget(this))
    , m_stock(new StockPanel(context, this))
    , m_movement(new MovementPanel(context, this)) {
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->addTab(QStringLiteral("库存"));
    m_tabs->addTab(QStringLiteral("变动"));
    m_pages->addWidget(m_stock);
    m_pages->addWidget(m_movement);
    addActions();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addWidget(m_tabs);
    layout->addWidget(m_pages, 1);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int tab) {
        m_pages->setCurrentIndex(tab);
        FormActivate();
    });
    connect(m_stock, &StockPanel::movementsWanted, this, &TF_Kccx::btnMovementsClick);
    connect(m_movement, &MovementPanel::documentWanted, this, &TF_Kccx::btnOpenClick);
    resize(1280, 720);
}

void TF_Kccx::addActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            std::function<void()> run) {
        return m_actions->add(QString::fromLatin1(name), caption, key, std::move(run));
    };
    QList<QAction *> own;
    own << add("btnMovements", QStringLiteral("变动情况"), Qt::Key_F6,
               [this] { btnMovementsClick(); });
    own << add("btnOpen", QStringLiteral("打开单据"), Qt::Key_F4, [this] { btnOpenClick(); });
    if (session().rights.showCostPrice)
        own << add("btnCost", QStringLiteral("为什么是这个成本？"),
                   QKeySequence(QStringLiteral("Ctrl+Y")), [this] { btnCostClick(); });
    own << add("btnPriceHistory", QStringLiteral("历史价"), Qt::Key_F10,
               [this] { btnPriceHistoryClick(); });
    m_actions->addSeparator();
    QAction *check =
        add("btnCheck", QStringLiteral("库存核对"), Qt::Key_F7, [this] { btnCheckClick(); });
    check->setEnabled(context().stage.isKnown(QStringLiteral("TF_Kchd")));
    m_actions->addSeparator();
    add("btnPrint", QStringLiteral("打印"), Qt::Key_F12, [this] { grid().print(); });
    add("btnExport", QStringLiteral("导出"), QKeySequence(QStringLiteral("Ctrl+E")),
        [this] { grid().chooseExport(); });
    add("btnExit", QStringLiteral("退出"), {}, [this] { reject(); });
    m_stock->grid().setOwnActions(own);
    m_movement->grid().setOwnActions(own);
    const auto quiet = [this](const QKeySequence &key, std::function<void()> run) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, std::move(run));
        addAction(action);
    };
    quiet(Qt::Key_F5, [this] { FormActivate(); });
    quiet(Qt::Key_F3, [this] {
        if (showsMovements())
            m_movement->startSearch();
        else
            m_stock->startSearch();
    });
    quiet(QKeySequence(QStringLiteral("Ctrl+Tab")),
          [this] { showTab(1 - m_tabs->currentIndex()); });
}

void TF_Kccx::setCaption(const QString &caption) {
    Form::setCaption(caption);
    if (!caption.isEmpty())
        showTab(caption == movementsCaption ? 1 : 0);
}

void TF_Kccx::showTab(int tab) {
    m_tabs->setCurrentIndex(tab);
}

bool TF_Kccx::showsMovements() const {
    return m_tabs->currentIndex() == 1;
}

Grid &TF_Kccx::grid() {
    return showsMovements() ? m_movement->grid() : m_stock->grid();
}

void TF_Kccx::FormActivate() {
    if (showsMovements())
        m_movement->activate();
    else
        m_stock->activate();
}

void TF_Kccx::btnMovementsClick() {
    if (showsMovements())
        return;
    const JournalKey key = m_stock->currentKey();
    if (key.goods.isEmpty()) {
        tellNoRow(prompter());
        return;
    }
    showTab(1);
    m_movement->showGoods(key);
}

/// The document of the current movement; on the stock tab, of the price line that has the focus.
void TF_Kccx::btnOpenClick() {
    if (!showsMovements()) {
        auto *focused = focusWidget();
        auto *prices = focused == nullptr ? nullptr : qobject_cast<Grid *>(focused->parentWidget());
        if (prices != nullptr && prices != &m_stock->grid() && prices->current() != nullptr)
            Q_EMIT prices->activated();
        else
            btnMovementsClick();
        return;
    }
    const Row *row = grid().current();
    if (row == nullptr || row->isNull(u"id"))
        tellNoRow(prompter());
    else
        context().stage.openDocument(row->text(u"gl_djh"));
}

void TF_Kccx::btnCostClick() {
    if (showsMovements()) {
        const Row *row = grid().current();
        if (row == nullptr || row->isNull(u"id")) {
            tellNoRow(prompter());
            return;
        }
        showCostStory(context(), {m_movement->goods(), row->text(u"ck_sn")},
                      {row->text(u"gl_kdrq"), row->integer(u"id")}, this);
        return;
    }
    JournalKey key = m_stock->currentKey();
    if (key.goods.isEmpty()) {
        tellNoRow(prompter());
        return;
    }
    if (key.warehouse.isEmpty())
        key.warehouse = chooseWarehouse(key.goods);
    if (!key.warehouse.isEmpty())
        showCostStory(context(), key, {QStringLiteral("9999-12-31")}, this);
}

/// A cost belongs to one warehouse; the sum over several has as many stories.
QString TF_Kccx::chooseWarehouse(const QString &goods) {
    StockFilter filter;
    filter.search = goods;
    filter.perWarehouse = true;
    Rows rows = stockList(session(), filter);
    std::erase_if(rows, [&](const Row &row) { return row.text(u"g_sn") != goods; });
    if (rows.empty()) {
        prompter().inform(QStringLiteral("该商品还没有出入库记录！"), informCaption);
        return {};
    }
    if (rows.size() == 1)
        return rows.front().text(u"ck_sn");
    TF_GridMsg dialog(context(), QStringLiteral("TF_Kccx_Warehouse"),
                      QStringLiteral("成本按仓库计算，请选择仓库"),
                      {text(u"ck_name", u"仓库", 140),
                       column(u"kc_zsl", u"帐面数量", ValueKind::quantity),
                       costOnly(column(u"kc_cbj", u"成本价", ValueKind::price))},
                      std::move(rows), this);
    return dialog.choose() ? dialog.grid().currentText(u"ck_sn") : QString();
}

void TF_Kccx::btnCheckClick() {
    if (!hasRight(session(), u"kcgl", 17)) {
        showNoRightMessage(prompter(), QStringLiteral("库存核对！"));
        return;
    }
    context().stage.openForm(QStringLiteral("TF_Kchd"), {});
}

/// Below the stock, last selling prices first: that is what a customer asks about.
void TF_Kccx::btnPriceHistoryClick() {
    const QString goods = showsMovements() ? m_movement->goods() : m_stock->currentKey().goods;
    if (goods.isEmpty()) {
        tellNoRow(prompter());
        return;
    }
    if (showsMovements()) {
        showTab(0);
        m_stock->grid().goTo(u"g_sn", goods);
    }
    m_stock->showDetail(session().rights.showSellingPrice ? 2 : 1);
}

} // namespace jxc
