#include "money/forms/tf_xjyh.h"

#include "core/session.h"
#include "money/accounts.h"
#include "money/cash_entry.h"
#include "money/forms/cash_editor.h"
#include "ui/approval_list.h"
#include "ui/period_bar.h"
#include "ui/row_list.h"

#include <QAction>
#include <QTableView>
#include <QToolButton>

namespace jxc {

namespace {

const char16_t *const allAccounts = u"全部账户";

} // namespace

TF_Xjyh::TF_Xjyh(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Xjyh"), QStringLiteral("现金银行"), parent)
    , m_accounts(new Grid(
          context, QStringLiteral("TF_Xjyh_Account"),
          {text(u"yh_name", u"账户", 112), column(u"balance", u"余额", ValueKind::amount, 112)},
          this)) {
    setColumns({column(u"xj_rq", u"日期", ValueKind::date), text(u"number", u"单据号", 124),
                text(u"xj_dlx", u"单据类型", 88), text(u"xj_kmmc", u"科目名称", 96),
                summed(column(u"income", u"收入", ValueKind::amount, 96)),
                summed(column(u"expense", u"支出", ValueKind::amount, 96)),
                column(u"xj_ljje", u"期末余额", ValueKind::amount, 104),
                text(u"ghs_name", u"往来单位", 128), hidden(text(u"ck_name", u"仓库", 96)),
                text(u"u_name", u"经手人", 80), text(u"xj_note", u"备注", 120),
                hidden(text(u"a_name", u"操作员", 72)),
                column(u"xj_chk", u"状态", ValueKind::status)},
               QStringLiteral("id"));
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：单号、往来单位、备注"));
    addEntryActions();
    addCommonActions();
    m_period = addPeriodBar(static_cast<int>(PeriodChoice::thisMonth));
    addAccountsButton();
    setSide(m_accounts, 232);
    connect(m_accounts, &Grid::currentChanged, this, &TF_Xjyh::refresh);
    connect(&grid(), &Grid::activated, this, &TF_Xjyh::btnModiClick);
    grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.text(u"xj_chk") == u"1" ? Tone::plain : Tone::quiet;
    });
    m_accounts->model().setTone([](const Row &row, const ColumnSpec &spec) {
        if (row.integer(u"subtotal") != 0)
            return Tone::quiet;
        return spec.field == u"balance" && row.decimal(u"balance").isNegative() ? Tone::danger
                                                                                : Tone::plain;
    });
}

void TF_Xjyh::addEntryActions() {
    addAction(QStringLiteral("btnCk"), QStringLiteral("存款"), Qt::Key_Insert,
              [this] { btnCkClick(); });
    addAction(QStringLiteral("btnJk"), QStringLiteral("取款"), Qt::Key_F6,
              [this] { btnJkClick(); });
    addAction(QStringLiteral("btnZz"), QStringLiteral("转账"), Qt::Key_F7,
              [this] { btnZzClick(); });
    addAction(
        QStringLiteral("btnModi"), QStringLiteral("修改"), Qt::Key_F4, [this] { btnModiClick(); },
        true);
    addAction(
        QStringLiteral("btnDele"), QStringLiteral("删除"), Qt::Key_Delete,
        [this] { btnDeleClick(); }, true);
    actions().addSeparator();
    addAction(
        QStringLiteral("btnCheck"), QStringLiteral("审核"), Qt::Key_F8, [this] { btnCheckClick(); },
        true);
    addAction(
        QStringLiteral("btnCancel"), QStringLiteral("取消审核"), Qt::Key_F9,
        [this] { btnCancelClick(); }, true);
}

/// Beside the period: the buttons above would be too many for a small screen.
void TF_Xjyh::addAccountsButton() {
    auto *action = new QAction(QStringLiteral("银行账户 Ctrl+B"), this);
    action->setObjectName(QStringLiteral("btnAccounts"));
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+B")));
    connect(action, &QAction::triggered, this,
            [this] { context().stage.openForm(QStringLiteral("TF_Yhzh"), {}); });
    QWidget::addAction(action);
    auto *button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::NoFocus);
    filterLine()->addWidget(button);
}

void TF_Xjyh::FormActivate() {
    showAccounts();
    ListForm::FormActivate();
}

/// All accounts, then each with what it holds, and a sum where a kind has several.
void TF_Xjyh::showAccounts() {
    const QString stay = m_accounts->currentText(u"key");
    const Rows stored = listAccounts(session());
    Decimal all;
    std::map<QString, std::pair<int, Decimal>> byType;
    for (const Row &row : stored) {
        all += row.decimal(u"balance");
        auto &[count, sum] = byType[row.text(u"yh_type").trimmed()];
        ++count;
        sum += row.decimal(u"balance");
    }
    RowList list({u"key", u"yh_name", u"balance", u"subtotal"});
    list.add({QString(), QString::fromUtf16(allAccounts), all, qint64(0)});
    for (const Row &row : stored)
        list.add({row.text(u"yh_name"), row.text(u"yh_name"), row.decimal(u"balance"), qint64(0)});
    for (const auto &[type, total] : byType)
        if (total.first > 1)
            list.add({QStringLiteral("\t") + type, type + QStringLiteral(" 小计"), total.second,
                      qint64(1)});
    const QSignalBlocker quiet(m_accounts);
    m_accounts->setRows(list.take());
    m_accounts->goTo(u"key", stay);
}

QString TF_Xjyh::account() const {
    const Row *row = m_accounts->current();
    return row == nullptr || row->integer(u"subtotal") != 0 ? QString() : row->text(u"key");
}

Rows TF_Xjyh::read(const QString &search) {
    const Period period = m_period->period();
    const QString name = account();
    grid().setNotes({QStringLiteral("账户：%1　日期：%2 至 %3")
                         .arg(name.isEmpty() ? QString::fromUtf16(allAccounts) : name, period.from,
                              period.to)});
    RowList list({u"id", u"xj_rq", u"number", u"xj_dlx", u"xj_kmmc", u"income", u"expense",
                  u"xj_ljje", u"ghs_name", u"ck_name", u"u_name", u"xj_note", u"a_name",
                  u"xj_chk"});
    // Over all accounts the balance runs on from row to row; what is searched stands alone.
    const bool runs = name.isEmpty() && search.isEmpty();
    Decimal balance = cashBefore(session(), name, period.from);
    if (search.isEmpty())
        list.add({qint64(0), period.from, QString(), QStringLiteral("上期余额"), name, Cell(),
                  Cell(), balance, QString(), QString(), QString(), QString(), QString(),
                  QStringLiteral("1")});
    const auto unlessZero = [](Decimal amount) { return amount.isZero() ? Cell() : Cell(amount); };
    for (const Row &row : listCash(session(), {name, period.from, period.to, search})) {
        const bool counts = row.text(u"xj_chk") == u"1";
        if (counts)
            balance += row.decimal(u"xj_je");
        const Decimal after = runs ? balance : row.decimal(u"xj_ljje");
        list.add({row.integer(u"id"), row.text(u"xj_rq"), row.text(u"number"), row.text(u"xj_dlx"),
                  row.text(u"xj_kmmc"), unlessZero(row.decimal(u"income")),
                  unlessZero(row.decimal(u"expense")), counts ? Cell(after) : Cell(),
                  row.text(u"ghs_name"), row.text(u"ck_name"), row.text(u"u_name"),
                  row.text(u"xj_note"), row.text(u"a_name"), row.text(u"xj_chk")});
    }
    return list.take();
}

void TF_Xjyh::openEditor(PlainEditor *editor) {
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &PlainEditor::stored, this, [this] {
        showAccounts();
        refresh();
    });
    connect(editor, &QDialog::finished, this, [this] {
        activateWindow();
        grid().setFocus();
    });
    editor->showModal();
}

void TF_Xjyh::enter(const QString &code) {
    auto *editor = new CashEditor(context(), code, this);
    if (const QString name = account(); !name.isEmpty())
        editor->chooseAccount(name);
    openEditor(editor);
}

void TF_Xjyh::btnCkClick() {
    enter(QStringLiteral("XC"));
}

void TF_Xjyh::btnJkClick() {
    enter(QStringLiteral("XJ"));
}

void TF_Xjyh::btnZzClick() {
    enter(QStringLiteral("XZ"));
}

void TF_Xjyh::btnModiClick() {
    const QString number = grid().currentText(u"number");
    if (isTypedCash(number, grid().currentText(u"xj_dlx"))) {
        auto *editor = new CashEditor(context(), number.left(2), this);
        if (editor->open(number))
            openEditor(editor);
        else
            delete editor;
    } else if (number.isEmpty()) {
        prompter().inform(QStringLiteral("该记录由单据产生，不能修改或删除！"), informCaption);
    } else {
        context().stage.openDocument(number);
    }
}

void TF_Xjyh::btnDeleClick() {
    show(deleteCashEntry(session(), prompter(), grid().currentText(u"number")));
    refresh();
}

void TF_Xjyh::btnCheckClick() {
    const QString number = grid().currentText(u"number");
    if (isTypedCash(number, grid().currentText(u"xj_dlx")) &&
        grid().currentText(u"xj_chk") != u"1" && !confirmApproving(prompter(), number))
        return;
    show(approveCashEntry(session(), prompter(), number));
    showAccounts();
    refresh();
}

void TF_Xjyh::btnCancelClick() {
    show(cancelCashEntry(session(), prompter(), grid().currentText(u"number")));
    showAccounts();
    refresh();
}

} // namespace jxc
