#include "retail/forms/tf_posxs_lsz.h"

#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "retail/forms/counter_printing.h"
#include "retail/receipt_query.h"

#include <QAction>
#include <QLayout>
#include <QLineEdit>

namespace jxc {

namespace {

ColumnSpec amount(const char16_t *field, const char16_t *caption, int width = 88) {
    return summed(column(field, caption, ValueKind::amount, width));
}

} // namespace

TF_Posxs_Lsz::TF_Posxs_Lsz(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Lsz"), QStringLiteral("POS销售流水账"),
                    parent)
    , m_printing(new CounterPrinting(context, this)) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、会员"));
    setColumns({text(u"pos_xsrq", u"销售时间", 160), text(u"gl_djh", u"单号", 136),
                text(u"hy_bh", u"会员编号", 80), text(u"hy_name", u"会员", 80),
                amount(u"pos_yfje", u"应付金额", 96), amount(u"pos_sfje", u"实付金额", 96),
                amount(u"pos_zlje", u"找零金额"), amount(u"pos_xj", u"现金"),
                amount(u"pos_czk", u"储值卡"), amount(u"pos_yhk", u"银行卡"),
                amount(u"pos_djq", u"代金券"), amount(u"pos_wxje", u"微信"),
                amount(u"pos_zfbje", u"支付宝"), amount(u"pos_mlje", u"抹零金额"),
                text(u"a_name", u"收银员", 80), hidden(text(u"ck_name", u"仓库", 100)),
                text(u"pos_rjid", u"日结单号", 136)},
               QStringLiteral("gl_djh"));
    addAction(QStringLiteral("btnCounter"), QStringLiteral("收银台"), Qt::Key_F2,
              [this] { btnCounterClick(); });
    addAction(
        QStringLiteral("btnReprint"), QStringLiteral("重打"), Qt::Key_F5,
        [this] { btnReprintClick(); }, true);
    addAction(QStringLiteral("btnSettings"), QStringLiteral("打印设置"),
              QKeySequence(QStringLiteral("Ctrl+P")), [this] { btnSettingsClick(); });
    addAction(QStringLiteral("btnDevices"), QStringLiteral("功能键和设备"), {},
              [this] { btnDevicesClick(); });
    addCommonActions();
    addFilters(PeriodChoice::today, Filters::all);
    grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.flag(u"is_back") ? Tone::danger : Tone::plain;
    });
    m_lines =
        new Grid(context, QStringLiteral("TF_Posxs_Lsz_Sp"),
                 {text(u"g_sn", u"商品编号", 120), text(u"g_name", u"商品名称", 240),
                  text(u"gg_name", u"规格", 120), text(u"dw_name", u"单位", 60),
                  summed(column(u"pos_sl", u"数量", ValueKind::quantity, 88)),
                  column(u"pos_dj", u"单价", ValueKind::price, 88),
                  column(u"pos_dzl", u"折扣", ValueKind::factor, 64), amount(u"pos_zje", u"金额"),
                  text(u"t_ph", u"批号", 120), text(u"t_yxq", u"有效期至", 100)},
                 this);
    m_lines->setMaximumHeight(220);
    layout()->addWidget(m_lines);
    connect(&grid(), &Grid::currentChanged, this, &TF_Posxs_Lsz::refreshLines);
    connect(&grid(), &Grid::activated, this,
            [this] { this->context().stage.openDocument(grid().currentText(u"gl_djh")); });
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { prompter().inform(words, informCaption); });
}

Rows TF_Posxs_Lsz::readFor(const CounterFilter &filter) {
    return listReceipts(session(), filter);
}

void TF_Posxs_Lsz::refreshLines() {
    const Row *row = grid().current();
    m_lines->setRows(row == nullptr
                         ? Rows()
                         : receiptLines(session(), row->text(u"gl_djh"), row->flag(u"is_return")));
}

void TF_Posxs_Lsz::btnReprintClick() {
    m_printing->print(grid().currentText(u"gl_djh"), true);
}

void TF_Posxs_Lsz::btnCounterClick() {
    if (Form *counter = context().stage.openForm(QStringLiteral("TF_Posxs"), {})) {
        connect(counter, &QDialog::finished, this, &ListForm::refresh, Qt::UniqueConnection);
    }
}

void TF_Posxs_Lsz::btnSettingsClick() {
    context().stage.openForm(QStringLiteral("TF_PosPrinSet"), {});
}

void TF_Posxs_Lsz::btnDevicesClick() {
    if (hasRight(session(), u"qtcz", 12))
        this->context().stage.openForm(QStringLiteral("TF_Gnb"), {});
    else
        showNoRightMessage(prompter(), QStringLiteral("POS功能键！"));
}

} // namespace jxc
