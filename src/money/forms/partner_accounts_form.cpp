#include "money/forms/partner_accounts_form.h"

#include "core/prompter.h"
#include "core/rights.h"
#include "money/forms/settlement_editor.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"

#include <QCheckBox>

namespace jxc {

PartnerAccountsForm::PartnerAccountsForm(const FormContext &context, const QString &className,
                                         const QString &title, Partner::Kind kind, QWidget *parent)
    : LedgerTabs(context, className, title, kind, static_cast<int>(PeriodChoice::thisYear), parent)
    , m_hideZero(addBox("chkZero", QStringLiteral("不显示零余额"), true)) {
    const bool customer = kind == Partner::Kind::customer;
    actionBar().add(QStringLiteral("btnSettle"),
                    customer ? QStringLiteral("收款") : QStringLiteral("付款"), Qt::Key_F6,
                    [this] { btnSettleClick(); });
    actionBar().add(QStringLiteral("btnRecompute"), QStringLiteral("重算余额"),
                    QKeySequence(QStringLiteral("Ctrl+R")), [this] { btnRecomputeClick(); });
    addPages();
    addCommonActions();
    gridOf(open).model().setTone([](const Row &row, const ColumnSpec &spec) {
        if (spec.field != u"open")
            return Tone::plain;
        return row.decimal(u"open").isNegative() ? Tone::good : Tone::danger;
    });
}

void PartnerAccountsForm::addPages() {
    const bool customer = kind() == Partner::Kind::customer;
    const char16_t *who = customer ? u"客户" : u"供货商";
    const auto money = [](const char16_t *field, const char16_t *caption) {
        return summed(column(field, caption, ValueKind::amount, 104));
    };
    const ColumnSpec number = text(u"partner", customer ? u"客户编号" : u"供货商编号", 96);
    const ColumnSpec name = text(u"partner_name", who, 168);
    addPage(QStringLiteral("汇总"),
            {number, name, money(u"opening", u"期初余额"),
             money(u"due", customer ? u"本期应收" : u"本期应付"),
             money(u"settled", customer ? u"本期收款" : u"本期付款"),
             money(u"discount", u"优惠金额"), money(u"closing", u"期末余额")},
            [this] { return readSummary(); });
    addPage(QStringLiteral("明细"),
            {column(u"k_rq", u"开单日期", ValueKind::date), text(u"number", u"单据号", 132), name,
             text(u"k_djtxt", u"单据类型", 96),
             money(u"k_qcje", customer ? u"期初应收" : u"期初应付"),
             money(u"k_yfje", customer ? u"应收金额" : u"应付金额"),
             money(u"k_sfje", customer ? u"已收金额" : u"已付金额"),
             column(u"k_ljje", u"余额", ValueKind::amount, 112),
             text(u"k_fkfs", customer ? u"收款方式" : u"付款方式", 88),
             text(u"u_name", u"经手人", 72), text(u"k_note", u"备注", 160)},
            [this] { return partnerDetail(session(), query()); });
    addPage(QStringLiteral("未结单据"),
            {name, text(u"number", u"单据号", 132), text(u"kind", u"单据类型", 96),
             column(u"rq", u"开单日期", ValueKind::date),
             column(u"days", u"天数", ValueKind::integer, 64), money(u"total", u"单据金额"),
             money(u"settled", u"已结金额"), money(u"open", u"未结金额"),
             text(u"note", u"备注", 160)},
            [this] { return openDocumentRows(session(), query()); });
    addPage(QStringLiteral("账龄"),
            {number, name, money(u"age30", u"0–30天"), money(u"age60", u"31–60天"),
             money(u"age90", u"61–90天"), money(u"age180", u"91–180天"),
             money(u"age365", u"181–365天"), money(u"older", u"365天以上"),
             money(u"credit", customer ? u"预收及退货" : u"预付及退货"), money(u"total", u"合计")},
            [this] { return partnerAgeing(session(), query()); });
}

AccountQuery PartnerAccountsForm::query() const {
    return {kind(), partner(), period().from, period().to};
}

Rows PartnerAccountsForm::readSummary() const {
    Rows rows = partnerSummary(session(), query());
    if (m_hideZero->isChecked())
        std::erase_if(rows, [](const Row &row) { return row.decimal(u"closing").isZero(); });
    return rows;
}

void PartnerAccountsForm::openRow(const Row &row) {
    if (&currentGrid() == &gridOf(detail))
        return;
    choosePartner(row.text(u"partner"));
    showPage(detail);
}

void PartnerAccountsForm::btnSettleClick() {
    const bool customer = kind() == Partner::Kind::customer;
    const SettlementKind &settlement = *findSettlementKind(customer ? u"SK" : u"FK");
    if (!hasRight(session(), u"wlzk", customer ? 2 : 5)) {
        showNoRightMessage(prompter(),
                           customer ? QStringLiteral("收款登记！") : QStringLiteral("付款登记！"));
        return;
    }
    SettlementEditor *editor = makeSettlementEditor(context(), settlement, {}, this);
    if (const QString number = currentPartner(); !number.isEmpty())
        editor->choosePartner(number);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &PlainEditor::stored, this, &PartnerAccountsForm::refresh);
    editor->showModal();
}

void PartnerAccountsForm::btnRecomputeClick() {
    const QString number = currentPartner();
    if (number.isEmpty()) {
        tellNoRow(prompter());
        return;
    }
    if (show(recomputePartner(session(), prompter(), {kind(), number}))) {
        refresh();
        prompter().inform(QStringLiteral("余额已重算！"), informCaption);
    }
}

} // namespace jxc
