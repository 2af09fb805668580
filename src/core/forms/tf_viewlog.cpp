#include "core/forms/tf_viewlog.h"

#include "core/log_viewer.h"
#include "core/rights.h"
#include "core/session.h"
#include "ui/period_bar.h"

#include <QAction>
#include <QLineEdit>

namespace jxc {

TF_ViewLog::TF_ViewLog(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_ViewLog"), QStringLiteral("查看日志"), parent) {
    searchBox().setObjectName(QStringLiteral("edtFind"));
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：内容或操作员"));
    setColumns({text(u"log_time", u"日志日期", 176), text(u"a_name", u"操作员", 136),
                text(u"log_note", u"备注", 600)},
               QStringLiteral("id"));
    addAction(QStringLiteral("btnFind"), QStringLiteral("查询"), Qt::Key_F5,
              [this] { btnFindClick(); });
    m_clear = addAction(QStringLiteral("btnClear"), QStringLiteral("清除日志"), {},
                        [this] { btnClearClick(); });
    addCommonActions();
    m_period = addPeriodBar(static_cast<int>(PeriodChoice::thisMonth));
    resize(1100, 620);
}

void TF_ViewLog::FormActivate() {
    m_clear->setVisible(mayClearLog(session()));
    { // searched once, below
        const QSignalBlocker search(searchBox()), period(m_period);
        searchBox().clear();
        const QString today = session().today();
        m_period->setPeriod({today.left(8) + QStringLiteral("01"), today});
    }
    btnFindClick();
    searchBox().setFocus();
}

Rows TF_ViewLog::read(const QString &search) {
    const Period days = m_period->period();
    return searchLog(session(), days.from, days.to, search);
}

void TF_ViewLog::btnFindClick() {
    refresh();
}

void TF_ViewLog::btnClearClick() {
    if (!mayClearLog(session())) {
        showNoRightMessage(prompter(), QStringLiteral("清除日志！"));
        return;
    }
    if (!grid().model().rows().empty() && show(clearLog(session(), prompter())))
        btnFindClick();
}

} // namespace jxc
