#include "retail/forms/tf_hygl_xfjl.h"

#include "core/prompter.h"
#include "core/session.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_hyxf.h"
#include "retail/member_history.h"
#include "retail/receipt_query.h"
#include "retail/recharge_query.h"
#include "ui/grid.h"
#include "ui/list_page.h"
#include "ui/period_bar.h"
#include "ui/search_box.h"

#include <QLabel>
#include <QShortcut>
#include <QTabWidget>

namespace jxc {

namespace {

ColumnSpec amount(const char16_t *field, const char16_t *caption) {
    return summed(column(field, caption, ValueKind::amount, 80));
}

/// The rows that have the text in a field that is shown; a member's own are few.
Rows matching(Rows rows, const ColumnSpecs &columns, const QString &search) {
    if (!search.isEmpty())
        std::erase_if(rows, [&](const Row &row) {
            return std::none_of(columns.begin(), columns.end(), [&](const ColumnSpec &column) {
                return row.text(column.field).contains(search, Qt::CaseInsensitive);
            });
        });
    return rows;
}

} // namespace

TF_Hygl_Xfjl::TF_Hygl_Xfjl(const FormContext &context, const Member &member, QWidget *parent)
    : Form(context, QStringLiteral("TF_Hygl_Xfjl"), QStringLiteral("消费记录"), parent)
    , m_member(member)
    , m_period(new PeriodBar(session().today(), PeriodChoice::thisYear))
    , m_pages(new QTabWidget)
    , m_printing(new CounterPrinting(context, this)) {
    setWindowTitle(QStringLiteral("消费记录：%1　%2").arg(member.number, member.name));
    auto *top = new QHBoxLayout;
    top->addWidget(m_period);
    top->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->setSpacing(8);
    column->addLayout(top);
    column->addWidget(m_pages, 1);
    addReceipts();
    addGoods();
    addRecharges();
    addTransfers();
    connect(m_period, &PeriodBar::periodChanged, this, &TF_Hygl_Xfjl::showCurrent);
    connect(m_pages, &QTabWidget::currentChanged, this, &TF_Hygl_Xfjl::showCurrent);
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { prompter().inform(words, informCaption); });
    for (const auto &[key, step] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, 3)})
        connect(new QShortcut(QKeySequence(Qt::CTRL | key), this), &QShortcut::activated, this,
                [this, by = step] {
                    m_pages->setCurrentIndex((m_pages->currentIndex() + by) % m_pages->count());
                });
    resize(1180, 620);
}

ListPage *
TF_Hygl_Xfjl::addPage(const QString &caption, const QString &layoutName, ColumnSpecs columns,
                      const std::function<Rows(const QString &from, const QString &to)> &read) {
    const QString title = QStringLiteral("%1 %2 %3").arg(m_member.number, m_member.name, caption);
    auto *page = new ListPage(*this, objectName() + layoutName, title, columns,
                              [this, read, columns](const QString &search) {
                                  const Period days = m_period->period();
                                  return matching(read(days.from, days.to), columns, search);
                              });
    page->searchBox().setPlaceholderText(QStringLiteral("查找 F3"));
    m_pages->addTab(page, caption);
    return page;
}

void TF_Hygl_Xfjl::addReprint(ListPage *page,
                              void (CounterPrinting::*print)(const QString &, bool)) {
    page->addAction(
        QStringLiteral("btnReprint"), QStringLiteral("重打"), Qt::Key_F7,
        [printing = m_printing, page, print] {
            std::invoke(print, printing, page->grid().currentText(u"gl_djh"), true);
        },
        true);
}

void TF_Hygl_Xfjl::addReceipts() {
    ListPage *page = addPage(QStringLiteral("消费单据"), QStringLiteral("_Xf"),
                             {text(u"pos_xsrq", u"销售时间", 152), text(u"gl_djh", u"单号", 128),
                              amount(u"pos_yfje", u"应付金额"), amount(u"pos_sfje", u"实付金额"),
                              amount(u"pos_xj", u"现金"), amount(u"pos_czk", u"储值卡"),
                              amount(u"pos_yhk", u"银行卡"), amount(u"pos_djq", u"代金券"),
                              amount(u"pos_wxje", u"微信"), amount(u"pos_zfbje", u"支付宝"),
                              text(u"a_name", u"操作员", 96), text(u"ck_name", u"仓库", 96)},
                             [this](const QString &from, const QString &to) {
                                 return listReceipts(
                                     session(), {.from = from, .to = to, .member = m_member.key});
                             });
    const auto open = [this, page] {
        context().stage.openDocument(page->grid().currentText(u"gl_djh"));
    };
    page->addAction(QStringLiteral("btnOpen"), QStringLiteral("查看"), Qt::Key_F4, open, true);
    connect(&page->grid(), &Grid::activated, this, open);
    addReprint(page, &CounterPrinting::print);
    page->addCommonActions();
    page->grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.decimal(u"pos_yfje").isNegative() ? Tone::danger : Tone::plain;
    });
}

void TF_Hygl_Xfjl::addGoods() {
    addPage(QStringLiteral("商品明细"), QStringLiteral("_Sp"),
            {text(u"pos_xsrq", u"销售时间", 152), text(u"gl_djh", u"单号", 128),
             text(u"g_sn", u"商品编号", 104), text(u"g_name", u"商品名称", 208),
             text(u"gg_name", u"规格", 104), text(u"dw_name", u"单位", 56),
             summed(column(u"pos_sl", u"数量", ValueKind::quantity, 88)),
             column(u"pos_dj", u"单价", ValueKind::price, 88), amount(u"pos_zje", u"金额"),
             text(u"t_ph", u"批号", 104)},
            [this](const QString &from, const QString &to) {
                return memberGoods(session(), m_member.key, from, to);
            })
        ->addCommonActions();
}

void TF_Hygl_Xfjl::addRecharges() {
    ListPage *page = addPage(QStringLiteral("充值"), QStringLiteral("_Cz"), rechargeColumns(false),
                             [this](const QString &from, const QString &to) {
                                 return listRecharges(
                                     session(), {.from = from, .to = to, .member = m_member.key});
                             });
    addReprint(page, &CounterPrinting::printRecharge);
    page->addCommonActions();
}

void TF_Hygl_Xfjl::addTransfers() {
    addPage(QStringLiteral("转账和积分"), QStringLiteral("_Zz"),
            {text(u"moved_at", u"时间", 152), text(u"kind", u"类别", 80), amount(u"value", u"金额"),
             summed(column(u"points", u"积分", ValueKind::integer, 88)),
             text(u"remark", u"说明", 320), text(u"a_name", u"操作员", 96)},
            [this](const QString &from, const QString &to) {
                return memberTransfers(session(), m_member.key, from, to);
            })
        ->addCommonActions();
}

ListPage &TF_Hygl_Xfjl::page(int at) const {
    return *static_cast<ListPage *>(m_pages->widget(at));
}

void TF_Hygl_Xfjl::showCurrent() {
    ListPage &current = page(m_pages->currentIndex());
    current.refresh();
    current.grid().setFocus();
}

void TF_Hygl_Xfjl::FormActivate() {
    showCurrent();
}

} // namespace jxc
