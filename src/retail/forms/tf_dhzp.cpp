#include "retail/forms/tf_dhzp.h"

#include "core/session.h"
#include "retail/exchange_query.h"
#include "retail/forms/tf_dhzp_add.h"
#include "retail/points_exchange.h"
#include "ui/period_bar.h"

#include <QAction>
#include <QLayout>
#include <QLineEdit>

namespace jxc {

TF_Dhzp::TF_Dhzp(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Dhzp"), QStringLiteral("积分兑换"), parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、会员、备注"));
    setColumns({column(u"dh_dhrq", u"兑换日期", ValueKind::date), text(u"gl_djh", u"单据号", 140),
                text(u"hy_bh", u"会员卡号", 104), text(u"hy_name", u"会员姓名", 112),
                text(u"ck_name", u"仓库", 112),
                summed(column(u"dh_sl", u"数量", ValueKind::quantity)),
                summed(column(u"dh_jf", u"总积分", ValueKind::integer)),
                text(u"dh_note", u"备注", 240), text(u"a_name", u"操作员", 88)},
               QStringLiteral("gl_djh"));
    addAction(QStringLiteral("btnAdd"), QStringLiteral("新增"), Qt::Key_Insert,
              [this] { btnAddClick(); });
    addAction(
        QStringLiteral("btnUndo"), QStringLiteral("撤销"), Qt::Key_F9, [this] { btnUndoClick(); },
        true)
        ->setShortcuts({QKeySequence(Qt::Key_F9), QKeySequence(Qt::Key_Delete)});
    addAction(QStringLiteral("btnFind"), QStringLiteral("查询"), Qt::Key_F5, [this] { refresh(); });
    addCommonActions();
    m_period = addPeriodBar(static_cast<int>(PeriodChoice::thisMonth));
    m_lines = new Grid(context, QStringLiteral("TF_Dhzp_Sp"),
                       {text(u"g_sn", u"商品编号", 120), text(u"g_name", u"赠品名称", 240),
                        text(u"gg_name", u"规格", 120), text(u"dw_name", u"单位", 64),
                        column(u"dh_zpjf", u"兑换积分", ValueKind::integer),
                        summed(column(u"dh_sl", u"数量", ValueKind::quantity)),
                        summed(column(u"dh_jf", u"积分", ValueKind::integer))},
                       this);
    m_lines->setMaximumHeight(220);
    m_lines->setTitle(QStringLiteral("积分兑换明细"));
    layout()->addWidget(m_lines);
    connect(&grid(), &Grid::currentChanged, this, &TF_Dhzp::refreshLines);
}

Rows TF_Dhzp::read(const QString &search) {
    const Period days = m_period->period();
    return listExchanges(session(), {days.from, days.to, search});
}

void TF_Dhzp::refreshLines() {
    const QString number = grid().currentText(u"gl_djh");
    m_lines->setRows(number.isEmpty() ? Rows() : exchangeLines(session(), number));
}

void TF_Dhzp::btnAddClick() {
    auto *editor = new TF_Dhzp_Add(context(), this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &PlainEditor::stored, this, [this](const QString &number) {
        goToAfterRefresh(number);
        refresh();
    });
    connect(editor, &QDialog::finished, this, [this] { grid().setFocus(); });
    editor->showModal();
}

void TF_Dhzp::btnUndoClick() {
    if (show(undoPointsExchange(session(), prompter(), grid().currentText(u"gl_djh"))))
        refresh();
}

} // namespace jxc
