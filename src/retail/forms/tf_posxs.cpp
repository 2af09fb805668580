#include "retail/forms/tf_posxs.h"

#include "core/employees.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/errors.h"
#include "master/goods_search.h"
#include "retail/forms/counter_choices.h"
#include "retail/forms/counter_dialogs.h"
#include "retail/forms/counter_keys.h"
#include "retail/forms/counter_paying.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/counter_screen.h"
#include "retail/forms/tf_posth.h"
#include "retail/receipt_hold.h"
#include "retail/receipt_wallet.h"
#include "ui/formats.h"
#include "ui/pick_field.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace jxc {

TF_Posxs::TF_Posxs(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Posxs"), QStringLiteral("收银台"), parent)
    , m_settings(CounterSettings::load(context.session))
    , m_printing(new CounterPrinting(context, this))
    , m_screen(new CounterScreen(this->context(), this))
    , m_input(m_screen->input())
    , m_keep(new QTimer(this)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_screen);
    m_input.installEventFilter(this);
    setFocusProxy(&m_input);
    connect(m_screen, &CounterScreen::lineChosen, this, [this](int line) { m_line = line; });
    connect(&m_screen->clerk(), &PickField::chosen, this, [this] {
        m_receipt.clerk = m_screen->clerk().code();
        m_input.setFocus();
    });
    m_keep->setSingleShot(true);
    m_keep->setInterval(0);
    connect(m_keep, &QTimer::timeout, this, [this] {
        try {
            keepRunningReceipt(session(), m_receipt);
        } catch (const DatabaseError &error) { // the sale goes on; only a crash would lose it
            say(error.userText(), true);
        }
    });
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { say(words, true); });
    setFillsParent(true);
    resize(1366, 768);
}

/// The names are those that the keys are defined under.
const TF_Posxs::Functions &TF_Posxs::functions() {
    static const Functions all = {{QStringLiteral("付款结账"), &TF_Posxs::btnPayClick},
                                  {QStringLiteral("修改折扣"), &TF_Posxs::btnDiscountClick},
                                  {QStringLiteral("修改数量"), &TF_Posxs::btnQuantityClick},
                                  {QStringLiteral("删除当前"), &TF_Posxs::btnDeleteClick},
                                  {QStringLiteral("删除全部"), &TF_Posxs::btnDeleteAllClick},
                                  {QStringLiteral("选择会员"), &TF_Posxs::btnMemberClick},
                                  {QStringLiteral("打开钱箱"), &TF_Posxs::btnDrawerClick},
                                  {QStringLiteral("挂单"), &TF_Posxs::btnHoldClick},
                                  {QStringLiteral("解挂"), &TF_Posxs::btnRecallClick},
                                  {QStringLiteral("锁定屏幕"), &TF_Posxs::btnLockClick},
                                  {QStringLiteral("浏览图片"), &TF_Posxs::btnPictureClick},
                                  {QStringLiteral("设为赠品"), &TF_Posxs::btnGiftClick}};
    return all;
}

void TF_Posxs::fillHints() {
    QStringList hints;
    for (const CounterKey &key : m_settings.keys)
        if (functions().contains(key.function))
            hints << nameOfVirtualKey(key.virtualKey) + u' ' + key.function;
    hints << QStringLiteral("Ctrl+J 改价") << QStringLiteral("F3 退货")
          << QStringLiteral("F5 重打上单") << QStringLiteral("Ctrl+U 交班")
          << QStringLiteral("Esc 清除、退出");
    m_screen->setHints(hints);
}

void TF_Posxs::FormActivate() {
    if (!hasRight(session(), u"xsgl", 1)) {
        showNoRightMessage(prompter(), QStringLiteral("收银！"));
        QTimer::singleShot(0, this, [this] { QDialog::reject(); });
        return;
    }
    setWindowState(windowState() | Qt::WindowFullScreen);
    m_settings = CounterSettings::load(session());
    fillHints();
    if (m_receipt.clerk.isEmpty())
        if (const auto clerk = defaultEmployee(session())) {
            m_receipt.clerk = clerk->number;
            m_screen->clerk().setCode(clerk->number);
        }
    m_receipt.warehouse = m_settings.warehouse;
    if (m_receipt.lines.empty())
        offerRunning();
    refresh();
    m_input.setFocus();
    while (context().goods.readAhead()) { // the first scan shall not wait for the list of goods
    }
}

/// A receipt that a wallet has paid, or may have paid, is not thrown away.
bool TF_Posxs::isPaidByWallet() {
    const auto payment = walletPaymentOf(session(), m_receipt.number);
    if (!payment)
        return false;
    prompter().inform(
        (payment->isOpen ? QStringLiteral("该小票有一笔移动支付%1还不知道结果，请付款结账时查询！")
                         : QStringLiteral("该小票已用移动支付收款%1，请付款结账！"))
            .arg(Formats(session().parameters).money(payment->amount)),
        informCaption);
    return true;
}

void TF_Posxs::offerRunning() {
    auto kept = runningReceipt(session());
    if (!kept)
        return;
    m_receipt.number = kept->number;
    m_receipt.lines = std::move(kept->lines);
    if (isPaidByWallet() ||
        prompter().confirm(
            QStringLiteral("上次有未结账的小票，共%1行，是否继续？").arg(m_receipt.lines.size()),
            confirmCaption))
        return;
    startAnew();
    keepRunningReceipt(session(), m_receipt);
}

bool TF_Posxs::mayLeave() {
    if (m_receipt.lines.empty())
        return true;
    if (!prompter().confirm(QStringLiteral("当前小票还没有结账，确定退出吗？\r\n\r\n"
                                           "（下次打开收银台时可以继续）"),
                            confirmCaption))
        return false;
    keepRunningReceipt(session(), m_receipt);
    return true;
}

bool TF_Posxs::eventFilter(QObject *watched, QEvent *event) {
    if (watched == &m_input && event->type() == QEvent::KeyPress &&
        runKey(*static_cast<QKeyEvent *>(event)))
        return true;
    return Form::eventFilter(watched, event);
}

/// Keys that did not go to the input line belong there all the same.
void TF_Posxs::keyPressEvent(QKeyEvent *event) {
    if (!m_input.hasFocus() && !m_screen->clerk().hasFocus())
        m_input.setFocus();
    if (event->key() != Qt::Key_Escape && event->key() != Qt::Key_Return &&
        event->key() != Qt::Key_Enter)
        Form::keyPressEvent(event);
}

bool TF_Posxs::runKey(QKeyEvent &event) {
    const int key = event.key();
    if (event.modifiers() == Qt::ControlModifier)
        return runControlKey(key);
    // While something is typed, Delete and the like are for the text.
    const bool edits = key == Qt::Key_Delete || key == Qt::Key_Backspace || key == Qt::Key_Home ||
                       key == Qt::Key_End ||
                       (key >= Qt::Key_Space && key < Qt::Key_AsciiTilde && key != Qt::Key_Equal);
    const auto function = functions().value(functionOfKey(m_settings, event), nullptr);
    if (function != nullptr && (m_input.text().isEmpty() || !edits)) {
        (this->*function)();
        return true;
    }
    return runFixedKey(event);
}

bool TF_Posxs::runControlKey(int key) {
    if (key == Qt::Key_J)
        btnPriceClick();
    else if (key == Qt::Key_Y)
        m_screen->clerk().setFocus();
    else if (key == Qt::Key_U)
        btnShiftClick();
    else
        return false;
    return true;
}

bool TF_Posxs::runFixedKey(const QKeyEvent &event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enterInput();
        return true;
    case Qt::Key_Escape:
        if (m_input.text().isEmpty())
            reject();
        else
            m_input.clear();
        return true;
    case Qt::Key_Plus:
        if ((event.modifiers() & Qt::KeypadModifier) == 0)
            return false;
        btnPayClick();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int last = static_cast<int>(m_receipt.lines.size()) - 1;
        const int line = m_line + (event.key() == Qt::Key_Up ? -1 : 1);
        m_screen->goToLine(std::clamp(line, 0, std::max(0, last)));
        return true;
    }
    case Qt::Key_F3:
        btnReturnClick();
        return true;
    case Qt::Key_F5:
        btnReprintClick();
        return true;
    default:
        return false;
    }
}

void TF_Posxs::btnDeleteAllClick() {
    if (m_receipt.lines.empty() || isPaidByWallet())
        return;
    if (!prompter().confirm(QStringLiteral("您的操作将删除当前小票的全部商品，确认吗？"),
                            confirmCaption) ||
        allowedBy(context(), 7, QStringLiteral("删除全部！"), this).isEmpty())
        return;
    startAnew();
    changed();
}

void TF_Posxs::btnMemberClick() {
    QString typed = m_input.text().trimmed();
    m_input.clear();
    if (typed.isEmpty())
        typed = askText(QStringLiteral("选择会员"),
                        m_member ? QStringLiteral("会员卡号、手机、姓名或简码（0 为不用会员）")
                                 : QStringLiteral("会员卡号、手机、姓名或简码"),
                        this);
    if (typed.isEmpty())
        return;
    if (typed == u"0")
        takeMember({});
    else if (const QString key = chooseMember(context(), typed, this); !key.isEmpty())
        takeMember(key);
    m_input.setFocus();
}

/// Lines that nobody priced by hand get the prices of who buys now.
void TF_Posxs::takeMember(const QString &key) {
    const PriceBuyer before = buyer();
    try {
        if (key.isEmpty())
            m_member.reset();
        else
            m_member = counterMember(session(), key);
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
        return;
    }
    m_receipt.member = key;
    priceAnew(session(), m_settings, m_receipt, before, buyer());
    changed();
}

PriceBuyer TF_Posxs::buyer() const {
    return m_member ? m_member->asBuyer() : PriceBuyer();
}

void TF_Posxs::btnDrawerClick() {
    m_printing->openDrawer();
}

void TF_Posxs::btnHoldClick() {
    if (!show(holdReceipt(session(), prompter(), m_receipt)))
        return;
    const QString number = m_receipt.number;
    startAnew();
    refresh();
    say(QStringLiteral("已挂单：%1").arg(number), false);
}

void TF_Posxs::btnRecallClick() {
    if (!m_receipt.lines.empty()) {
        say(QStringLiteral("请先结账或挂单，再解挂！"), true);
        return;
    }
    const std::vector<HeldReceipt> held = heldReceipts(session(), m_settings);
    if (held.empty()) {
        say(QStringLiteral("没有挂单！"), true);
        return;
    }
    const QString number = chooseHeld(context(), held, this);
    if (!number.isEmpty() && show(recallReceipt(session(), prompter(), number, m_receipt))) {
        m_line = 0;
        refresh();
    }
}

void TF_Posxs::btnLockClick() {
    lockCounter(context(), this);
}

void TF_Posxs::btnReturnClick() {
    const QString who = allowedBy(context(), 2, QStringLiteral("退货！"), this);
    if (who.isEmpty())
        return;
    TF_Posth form(context(), this);
    form.start(m_settings, m_receipt.clerk, who, m_receipt.member);
    if (form.runModal()) {
        m_printing->printAfterPaying(form.number());
        say(QStringLiteral("已退货：%1").arg(form.number()), false);
    }
    m_input.setFocus();
}

void TF_Posxs::btnShiftClick() {
    if (m_receipt.lines.empty())
        context().stage.openForm(QStringLiteral("TF_Posxs_Jb"), {});
    else
        say(QStringLiteral("请先结账或挂单，再交班！"), true);
}

void TF_Posxs::btnReprintClick() {
    const QString number = lastReceiptOf(session(), session().currentOperatorName);
    if (number.isEmpty())
        say(QStringLiteral("今天还没有小票！"), true);
    else
        m_printing->print(number, true);
}

void TF_Posxs::btnPayClick() {
    if (m_receipt.lines.empty()) {
        say(QStringLiteral("请先录入商品！"), true);
        return;
    }
    m_keep->stop();
    const auto posted =
        CounterPaying(context(), m_settings, *m_printing, *this).pay(m_receipt, m_member);
    m_input.setFocus();
    if (!posted) {
        changed(); // it may have got its number
        return;
    }
    const TenderOutcome &outcome = posted->outcome;
    startAnew();
    refresh();
    m_screen->showLast(posted->number, outcome);
    say(QStringLiteral("已结账，找零 %1").arg(Formats(session().parameters).money(outcome.change)),
        false);
    m_printing->showAmount(outcome.change, DisplayLight::change);
    m_printing->printAfterPaying(posted->number);
}

void TF_Posxs::startAnew() {
    const QString clerk = m_receipt.clerk;
    m_receipt = {};
    m_receipt.clerk = clerk;
    m_receipt.warehouse = m_settings.warehouse;
    m_member.reset();
    m_line = -1;
}

void TF_Posxs::changed() {
    say({}, false);
    refresh();
    m_keep->start();
}

void TF_Posxs::refresh() {
    const int line = m_line;
    m_screen->showReceipt(m_receipt, m_settings.amountDecimals, line);
    m_line = m_receipt.lines.empty() ? -1 : std::max(0, line);
    m_screen->showMember(m_member);
}

void TF_Posxs::say(const QString &text, bool isFault) {
    m_screen->say(text, isFault);
}

} // namespace jxc
