#include "retail/forms/tf_posxs_rjmx.h"

#include "core/prompter.h"
#include "core/session.h"
#include "retail/forms/counter_printing.h"
#include "retail/settlement_query.h"
#include "ui/goods_columns.h"
#include "ui/grid.h"
#include "ui/list_page.h"
#include "ui/search_box.h"

#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace jxc {

namespace {

ColumnSpec amount(const char16_t *field, const char16_t *caption, int width = 88) {
    return summed(column(field, caption, ValueKind::amount, width));
}

} // namespace

TF_Posxs_Rjmx::TF_Posxs_Rjmx(const FormContext &context, const QString &number, QWidget *parent)
    : Form(context, QStringLiteral("TF_Posxs_Rjmx"),
           QStringLiteral("POS日结明细 － %1").arg(number), parent)
    , m_number(number)
    , m_pages(new QTabWidget(this))
    , m_printing(new CounterPrinting(context, this)) {
    m_pages->setObjectName(QStringLiteral("pages"));
    makeLines();
    makeReceipts();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->addWidget(m_pages);
    connect(m_pages, &QTabWidget::currentChanged, this, &TF_Posxs_Rjmx::FormActivate);
    const auto turn = [this](const QKeySequence &keys, int page) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, page] { m_pages->setCurrentIndex(page); });
    };
    turn(QKeySequence(Qt::CTRL | Qt::Key_PageUp), 0);
    turn(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { prompter().inform(words, informCaption); });
    resize(1280, 680);
    setFillsParent(true);
}

void TF_Posxs_Rjmx::makeLines() {
    ColumnSpecs columns = {column(u"rj_xsrq", u"销售日期", ValueKind::date)};
    for (const ColumnSpec &more :
         afterGoodsName({summed(column(u"rj_sl", u"数量", ValueKind::quantity, 104)),
                         summed(column(u"rj_je", u"金额", ValueKind::amount, 120))}))
        columns.push_back(more);
    m_lines = new ListPage(
        *this, QStringLiteral("TF_Posxs_Rjmx"), QStringLiteral("POS日结明细 ") + m_number, columns,
        [this](const QString &search) { return settlementLines(session(), m_number, search); });
    m_lines->searchBox().setPlaceholderText(QStringLiteral("查找 F3：商品、条码"));
    m_lines->addCommonActions();
    m_pages->addTab(m_lines, QStringLiteral("商品"));
}

void TF_Posxs_Rjmx::makeReceipts() {
    m_receipts = new ListPage(
        *this, QStringLiteral("TF_Posxs_Rjmx_Xp"), QStringLiteral("日结小票 ") + m_number,
        {text(u"pos_xsrq", u"销售时间", 152), text(u"gl_djh", u"单号", 136),
         text(u"hy_name", u"会员", 80), amount(u"pos_yfje", u"应付金额", 104),
         amount(u"pos_sfje", u"实付金额", 104), amount(u"pos_zlje", u"找零金额"),
         amount(u"pos_xj", u"现金"), amount(u"pos_czk", u"储值卡"), amount(u"pos_yhk", u"银行卡"),
         amount(u"pos_djq", u"代金券"), amount(u"pos_wxje", u"微信"),
         amount(u"pos_zfbje", u"支付宝"), text(u"a_name", u"收银员", 80)},
        [this](const QString &search) { return settlementReceipts(session(), m_number, search); });
    m_receipts->searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、会员"));
    m_receipts->addAction(
        QStringLiteral("btnReprint"), QStringLiteral("重打"), Qt::Key_F5, [this] { printPos(); },
        true);
    m_receipts->addAction(
        QStringLiteral("btnOpen"), QStringLiteral("打开单据"), Qt::Key_F4,
        [this] { context().stage.openDocument(m_receipts->grid().currentText(u"gl_djh")); }, true);
    m_receipts->addCommonActions();
    Grid &grid = m_receipts->grid();
    grid.model().setTone([](const Row &row, const ColumnSpec &) {
        return row.flag(u"is_back") ? Tone::danger : Tone::plain;
    });
    connect(&grid, &Grid::activated, this,
            [this, &grid] { context().stage.openDocument(grid.currentText(u"gl_djh")); });
    m_pages->addTab(m_receipts, QStringLiteral("小票"));
}

void TF_Posxs_Rjmx::FormActivate() {
    auto *page = qobject_cast<ListPage *>(m_pages->currentWidget());
    page->refresh();
    page->grid().setFocus();
}

void TF_Posxs_Rjmx::printPos() {
    m_printing->print(m_receipts->grid().currentText(u"gl_djh"), true);
}

} // namespace jxc
