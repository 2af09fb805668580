#include "retail/forms/tf_posxs_crk.h"

#include "core/login.h"
#include "core/session.h"
#include "retail/forms/tf_posxs_crk_add.h"
#include "ui/period_bar.h"
#include "ui/row_list.h"
#include "ui/till_cash_print.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>

namespace jxc {

TF_Posxs_Crk::TF_Posxs_Crk(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Posxs_Crk"), QStringLiteral("收银员出入款管理"),
               parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、备注"));
    setColumns({text(u"gl_djh", u"单号", 136), column(u"crk_rq", u"日期", ValueKind::date),
                text(u"kind", u"类型", 96),
                summed(column(u"rkje", u"入款金额", ValueKind::amount, 120)),
                summed(column(u"ckje", u"出款金额", ValueKind::amount, 120)),
                text(u"a_name", u"收银员", 96), text(u"crk_note", u"备注", 280)},
               QStringLiteral("gl_djh"));
    addAction(QStringLiteral("btnIn"), QStringLiteral("入款"), Qt::Key_F5,
              [this] { btnInClick(); });
    addAction(QStringLiteral("btnOut"), QStringLiteral("出款"), Qt::Key_F6,
              [this] { btnOutClick(); });
    addAction(QStringLiteral("btnAllTime"), QStringLiteral("全部时间"),
              QKeySequence(QStringLiteral("Ctrl+T")), [this] { btnAllTimeClick(); });
    addCommonActions();
    m_cashier = new QComboBox(this);
    m_cashier->setObjectName(QStringLiteral("cashier"));
    m_cashier->addItem(everyCashier);
    m_cashier->addItems(operatorNames(session()));
    m_period = addPeriodBar(static_cast<int>(PeriodChoice::thisMonth));
    filterLine()->insertWidget(filterLine()->count() - 1, m_cashier);
    connect(m_cashier, &QComboBox::currentIndexChanged, this, &ListForm::refresh);
    grid().model().setTone([](const Row &row, const ColumnSpec &spec) {
        return spec.field == u"ckje" && !row.decimal(u"ckje").isZero() ? Tone::danger : Tone::plain;
    });
}

std::vector<TillRow> TF_Posxs_Crk::rows(const QString &search) const {
    const Period days = m_period->period();
    std::vector<TillRow> found =
        listTillCash(session(), days.from, days.to, m_cashier->currentText());
    if (!search.isEmpty())
        std::erase_if(found, [&](const TillRow &row) {
            return !row.number.contains(search, Qt::CaseInsensitive) &&
                   !row.note.contains(search, Qt::CaseInsensitive);
        });
    return found;
}

Rows TF_Posxs_Crk::read(const QString &search) {
    RowList list({u"gl_djh", u"crk_rq", u"kind", u"rkje", u"ckje", u"a_name", u"crk_note"});
    for (const TillRow &row : rows(search))
        list.add({row.number, row.date, row.kind, row.in, row.out, row.cashier, row.note});
    return list.take();
}

void TF_Posxs_Crk::printList() {
    const Period days = m_period->period();
    previewTillCash(context(), rows(searchBox().text().trimmed()),
                    {days.from, days.to, m_cashier->currentText()}, this);
}

void TF_Posxs_Crk::btnAllTimeClick() {
    m_period->choose(PeriodChoice::allTime);
}

void TF_Posxs_Crk::record(TillDirection direction) {
    auto *editor = new TF_Posxs_Crk_Add(context(), direction, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &PlainEditor::stored, this, [this](const QString &number) {
        goToAfterRefresh(number);
        refresh();
    });
    editor->showModal();
}

void TF_Posxs_Crk::btnInClick() {
    record(TillDirection::in);
}

void TF_Posxs_Crk::btnOutClick() {
    record(TillDirection::out);
}

} // namespace jxc
