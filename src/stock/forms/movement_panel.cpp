#include "stock/forms/movement_panel.h"

#include "core/prompter.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/movement_query.h"
#include "ui/grid.h"
#include "ui/period_bar.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QLabel>

namespace jxc {

namespace {

ColumnSpecs movementColumns() {
    return {column(u"gl_kdrq", u"日期", ValueKind::date),
            text(u"gl_djh", u"单据号", 132),
            text(u"title", u"类型", 88),
            text(u"ck_name", u"仓库", 88),
            text(u"ghs_name", u"往来单位", 128),
            costOnly(column(u"gl_dj", u"单价", ValueKind::price, 80)),
            summed(column(u"gl_in", u"入库数量", ValueKind::quantity, 84)),
            summed(column(u"gl_out", u"出库数量", ValueKind::quantity, 84)),
            column(u"gl_kc", u"结存数量", ValueKind::quantity, 84),
            costOnly(column(u"gl_pjjj", u"成本价", ValueKind::price, 80)),
            costOnly(column(u"gl_kczje", u"结存金额", ValueKind::amount)),
            text(u"t_ph", u"批号", 96),
            hidden(column(u"t_scrq", u"生产日期", ValueKind::date)),
            hidden(column(u"t_yxq", u"有效期至", ValueKind::date)),
            text(u"u_name", u"经手人", 72),
            text(u"a_name", u"操作员", 72),
            hidden(text(u"gl_bz", u"备注", 120))};
}

} // namespace

MovementPanel::MovementPanel(const FormContext &context, QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_goods(new PickField(goodsSource(context, false, [this] { return m_warehouse->code(); }),
                            Formats(context.session.parameters), this))
    , m_warehouse(
          new PickField(warehouseSource(context), Formats(context.session.parameters), this))
    , m_period(new PeriodBar(context.session.today(), PeriodChoice::thisMonth, this))
    , m_grid(new Grid(context, QStringLiteral("TF_Kccx_Change"), movementColumns(), this)) {
    build();
}

void MovementPanel::build() {
    m_goods->setObjectName(QStringLiteral("edtGoods"));
    m_goods->setPlaceholderText(QStringLiteral("商品 F3：编号、简码、名称、条码"));
    m_goods->setFixedWidth(280);
    m_warehouse->setObjectName(QStringLiteral("edtMoveWarehouse"));
    m_warehouse->setPlaceholderText(QStringLiteral("全部仓库"));
    m_warehouse->setClearable(true);
    m_warehouse->setFixedWidth(136);
    m_grid->setTitle(QStringLiteral("库存变动情况"));
    m_grid->model().setTone([](const Row &row, const ColumnSpec &column) {
        if (row.isNull(u"id"))
            return Tone::quiet;
        return column.field == u"gl_kc" && row.decimal(u"gl_kc").isNegative() ? Tone::danger
                                                                              : Tone::plain;
    });
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(m_goods);
    line->addWidget(m_warehouse);
    line->addWidget(m_period);
    line->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addLayout(line);
    layout->addWidget(m_grid, 1);
    connect(m_goods, &PickField::chosen, this, [this](const Row &row) {
        m_goods->setChoice(row.text(u"g_sn"),
                           QStringLiteral("%1　%2").arg(row.text(u"g_sn"), row.text(u"g_name")));
        refresh();
        m_grid->setFocus();
    });
    connect(m_goods, &PickField::notFound, this, [this] {
        m_context.prompter.inform(QStringLiteral("没有找到该商品，请检查！"), informCaption);
    });
    connect(m_warehouse, &PickField::chosen, this, &MovementPanel::refresh);
    connect(m_warehouse, &PickField::cleared, this, &MovementPanel::refresh);
    connect(m_period, &PeriodBar::periodChanged, this, &MovementPanel::refresh);
    connect(m_grid, &Grid::activated, this, &MovementPanel::documentWanted);
}

QString MovementPanel::goods() const {
    return m_goods->code();
}

void MovementPanel::activate() {
    refresh();
    if (goods().isEmpty())
        m_goods->setFocus();
    else
        m_grid->setFocus();
}

void MovementPanel::refresh() {
    if (goods().isEmpty()) {
        m_grid->setRows({});
        return;
    }
    const Period period = m_period->period();
    const qint64 id = m_grid->current() == nullptr ? 0 : m_grid->current()->integer(u"id");
    QStringList notes = {QStringLiteral("商品：") + m_goods->name(),
                         QStringLiteral("日期：%1 至 %2").arg(period.from, period.to)};
    if (!m_warehouse->code().isEmpty())
        notes << QStringLiteral("仓库：") + m_warehouse->name();
    m_grid->setNotes(notes);
    m_grid->setRows(
        movements(m_context.session, {goods(), m_warehouse->code(), period.from, period.to}));
    m_grid->goTo(u"id", id == 0 ? QString() : QString::number(id));
}

void MovementPanel::showGoods(const JournalKey &key) {
    const QString name = m_context.session.db().scalar(
        QStringLiteral("select g_name from jxc_goods where g_sn=?"), {key.goods});
    m_goods->setChoice(key.goods, QStringLiteral("%1　%2").arg(key.goods, name));
    m_warehouse->setCode(key.warehouse);
    refresh();
    m_grid->setFocus();
}

void MovementPanel::startSearch() {
    m_goods->setFocus();
    m_goods->selectAll();
}

} // namespace jxc
