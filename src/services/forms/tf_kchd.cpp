#include "services/forms/tf_kchd.h"

#include "core/rights.h"
#include "core/session.h"
#include "services/stock_check.h"
#include "ui/goods_columns.h"
#include "ui/list_form.h"

#include <QApplication>
#include <QLabel>

namespace jxc {

namespace {

ColumnSpecs differenceColumns() {
    return afterGoodsName({text(u"ck_name", u"仓库", 96), text(u"item", u"项目", 88),
                           text(u"t_ph", u"批号", 104),
                           hidden(column(u"t_scrq", u"生产日期", ValueKind::date)),
                           column(u"t_yxq", u"有效期至", ValueKind::date),
                           column(u"found", u"账面", ValueKind::quantity),
                           column(u"due", u"应为", ValueKind::quantity),
                           column(u"diff", u"差异", ValueKind::quantity)});
}

/// The whole journal is read: seconds, in which the pointer says that work goes on.
class BusyCursor {
public:
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(BusyCursor)
};

} // namespace

TF_Kchd::TF_Kchd(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Kchd"), QStringLiteral("库存核对"), parent)
    , m_actions(new ActionBar(this))
    , m_result(new QLabel(this))
    , m_grid(new Grid(context, QStringLiteral("TF_Kchd"), differenceColumns(), this)) {
    m_actions->add(QStringLiteral("btnCheck"), QStringLiteral("重新核对"), Qt::Key_F5,
                   [this] { btnCheckClick(); });
    m_repair = m_actions->add(QStringLiteral("btnRepair"), QStringLiteral("修复"), Qt::Key_F8,
                              [this] { btnRepairClick(); });
    m_actions->addSeparator();
    m_actions->add(QStringLiteral("btnPrint"), QStringLiteral("打印"), Qt::Key_F12,
                   [this] { m_grid->print(); });
    m_actions->add(QStringLiteral("btnExport"), QStringLiteral("导出"),
                   QKeySequence(QStringLiteral("Ctrl+E")), [this] { m_grid->chooseExport(); });
    m_actions->add(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { reject(); });
    m_result->setObjectName(QStringLiteral("lblResult"));
    m_result->setProperty("title", true);
    m_grid->setTitle(QStringLiteral("库存核对"));
    m_grid->model().setTone([](const Row &, const ColumnSpec &column) {
        return column.field == u"diff" ? Tone::danger : Tone::plain;
    });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addWidget(m_result);
    layout->addWidget(m_grid, 1);
    resize(1160, 560);
}

void TF_Kchd::FormActivate() {
    btnCheckClick();
    m_grid->setFocus();
}

void TF_Kchd::btnCheckClick() {
    Rows differences;
    {
        const BusyCursor busy;
        differences = checkStock(session());
    }
    const auto count = differences.size();
    m_grid->setRows(std::move(differences));
    m_repair->setEnabled(count > 0);
    m_result->setText(count == 0 ? QStringLiteral("核对完成，库存与已审核的单据完全一致。")
                                 : QStringLiteral("有 %1 项库存与已审核的单据不符：").arg(count));
}

void TF_Kchd::btnRepairClick() {
    if (!hasRight(session(), u"kcgl", 17)) {
        showNoRightMessage(prompter(), QStringLiteral("库存核对！"));
        return;
    }
    int repaired = 0;
    if (!show(repairStock(session(), prompter(), &repaired)))
        return;
    btnCheckClick();
    prompter().inform(QStringLiteral("修复完成，共 %1 项！").arg(repaired), informCaption);
}

} // namespace jxc
