#include "retail/forms/tf_posxs.h"

#include "core/employees.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/errors.h"
#include "master/goods_search.h"
#include "retail/forms/counter_dialogs.h"
#include "retail/forms/counter_keys.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_posfk.h"
#include "retail/forms/tf_posth.h"
#include "retail/receipt_hold.h"
#include "ui/buyer_dialog.h"
#include "ui/grid.h"
#include "ui/grid_msg.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/row_list.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

namespace jxc {

namespace {

ColumnSpecs lineColumns() {
    return {column(u"no", u"行", ValueKind::integer, 48),
            text(u"g_sn", u"商品编号", 110),
            text(u"g_name", u"商品名称", 204),
            text(u"gg_name", u"规格", 96),
            text(u"dw_name", u"单位", 56),
            summed(column(u"pos_sl", u"数量", ValueKind::quantity, 80)),
            column(u"pos_dj", u"单价", ValueKind::price, 84),
            column(u"pos_dzl", u"折扣", ValueKind::factor, 64),
            column(u"pos_zhdj", u"折后价", ValueKind::price, 84),
            summed(column(u"pos_zje", u"金额", ValueKind::amount, 104))};
}

Rows lineRows(const Receipt &receipt, int decimals) {
    RowList list({u"no", u"g_sn", u"g_name", u"gg_name", u"dw_name", u"pos_sl", u"pos_dj",
                  u"pos_dzl", u"pos_zhdj", u"pos_zje"});
    qint64 no = 0;
    for (const ReceiptLine &l : receipt.lines)
        list.add({++no, l.goods, l.isGift ? giftMark + l.name : l.name, l.specification, l.unit,
                  l.quantity, l.isGift ? Decimal() : l.price, l.discount,
                  l.isGift ? Decimal() : (l.price * l.discount).rounded(6), l.total(decimals)});
    return list.take();
}

/// A discount as it is spoken: 0.9, 9 (折) and 90 (percent) are one.
Decimal discountFactor(Decimal typed) {
    if (typed <= Decimal(1))
        return typed;
    return (typed / (typed <= Decimal(10) ? Decimal(10) : Decimal(100))).rounded(4);
}

} // namespace

TF_Posxs::TF_Posxs(const FormContext &context, const CounterMembers &members, QWidget *parent)
    : Form(context, QStringLiteral("TF_Posxs"), QStringLiteral("收银台"), parent)
    , m_members(members)
    , m_settings(CounterSettings::load(context.session))
    , m_printing(new CounterPrinting(context, this))
    , m_keep(new QTimer(this)) {
    m_functions = {{QStringLiteral("付款结账"), [this] { btnPayClick(); }},
                   {QStringLiteral("修改折扣"), [this] { btnDiscountClick(); }},
                   {QStringLiteral("修改数量"), [this] { btnQuantityClick(); }},
                   {QStringLiteral("删除当前"), [this] { btnDeleteClick(); }},
                   {QStringLiteral("删除全部"), [this] { btnDeleteAllClick(); }},
                   {QStringLiteral("选择会员"), [this] { btnMemberClick(); }},
                   {QStringLiteral("打开钱箱"), [this] { btnDrawerClick(); }},
                   {QStringLiteral("挂单"), [this] { btnHoldClick(); }},
                   {QStringLiteral("解挂"), [this] { btnRecallClick(); }},
                   {QStringLiteral("锁定屏幕"), [this] { btnLockClick(); }},
                   {QStringLiteral("设为赠品"), [this] { btnGiftClick(); }}};
    build();
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

void TF_Posxs::build() {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(12);
    column->addWidget(makeHead());
    m_grid = new Grid(context(), QStringLiteral("TF_Posxs"), lineColumns(), this);
    m_grid->view().setFocusPolicy(Qt::NoFocus);
    m_grid->view().setStyleSheet(QStringLiteral("font-size: 16px;"));
    connect(m_grid, &Grid::currentChanged, this, [this] {
        m_line = m_grid->current() != nullptr
                     ? static_cast<int>(m_grid->current()->integer(u"no")) - 1
                     : -1;
    });
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(m_grid, 1);
    row->addWidget(makeSide());
    column->addLayout(row, 1);
    m_input = new QLineEdit(this);
    m_input->setObjectName(QStringLiteral("input"));
    m_input->setPlaceholderText(
        QStringLiteral("条码、编号、简码；3* 在前为数量；Enter 录入，空行 Enter 付款"));
    m_input->setStyleSheet(QStringLiteral("font-size: 22px; min-height: 40px;"));
    m_input->installEventFilter(this);
    column->addWidget(m_input);
    column->addWidget(makeHints());
    setFocusProxy(m_input);
}

QWidget *TF_Posxs::makeHead() {
    auto *head = new QWidget(this);
    auto *row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    m_title = new QLabel(head);
    m_title->setProperty("title", true);
    m_title->setText(QStringLiteral("收银台"));
    m_message = new QLabel(head);
    m_message->setObjectName(QStringLiteral("message"));
    m_clerk = new PickField(employeeSource(context(), EmployeeDuty::sale, walkInCustomer),
                            Formats(session().parameters), head);
    m_clerk->setObjectName(QStringLiteral("u_sn"));
    m_clerk->setFixedWidth(140);
    m_clerk->setFocusPolicy(Qt::ClickFocus);
    connect(m_clerk, &PickField::chosen, this, [this] {
        m_receipt.clerk = m_clerk->code();
        m_input->setFocus();
    });
    row->addWidget(m_title);
    row->addWidget(m_message, 1);
    auto *cashier = new QLabel(QStringLiteral("收银员：") + session().currentOperatorName, head);
    row->addWidget(cashier);
    auto *caption = new QLabel(QStringLiteral("营业员 Ctrl+Y"), head);
    row->addWidget(caption);
    row->addWidget(m_clerk);
    return head;
}

QWidget *TF_Posxs::makeSide() {
    auto *side = new QWidget(this);
    side->setFixedWidth(300);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    const auto add = [&](const QString &name, int size, bool strong) {
        auto *label = new QLabel(side);
        label->setObjectName(name);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setStyleSheet(QStringLiteral("font-size: %1px;%2")
                                 .arg(size)
                                 .arg(strong ? QStringLiteral(" font-weight: 600;") : QString()));
        column->addWidget(label);
        return label;
    };
    m_total = add(QStringLiteral("total"), 44, true);
    m_total->setWordWrap(false);
    m_total->setProperty("total", true);
    m_pieces = add(QStringLiteral("pieces"), 18, false);
    m_memberName = add(QStringLiteral("member"), 16, false);
    column->addStretch(1);
    m_last = add(QStringLiteral("last"), 18, false);
    return side;
}

QWidget *TF_Posxs::makeHints() {
    m_hints = new QLabel(this);
    m_hints->setProperty("quiet", true);
    m_hints->setWordWrap(true);
    return m_hints;
}

void TF_Posxs::fillHints() {
    QStringList hints;
    for (const CounterKey &key : m_settings.keys) {
        const bool isMember = key.function == u"选择会员";
        if (m_functions.contains(key.function) && (!isMember || m_members.areKept()))
            hints << nameOfVirtualKey(key.virtualKey) + u' ' + key.function;
    }
    hints << QStringLiteral("Ctrl+J 改价") << QStringLiteral("F3 退货")
          << QStringLiteral("F5 重打上单") << QStringLiteral("Esc 清除、退出");
    m_hints->setText(hints.join(QStringLiteral("　")));
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
            m_clerk->setCode(clerk->number);
        }
    m_receipt.warehouse = m_settings.warehouse;
    if (m_receipt.lines.empty())
        offerRunning();
    refresh();
    m_input->setFocus();
    while (context().goods.readAhead()) { // the first scan shall not wait for the list of goods
    }
}

void TF_Posxs::offerRunning() {
    auto kept = runningReceipt(session());
    if (!kept)
        return;
    if (!prompter().confirm(
            QStringLiteral("上次有未结账的小票，共%1行，是否继续？").arg(kept->lines.size()),
            confirmCaption)) {
        keepRunningReceipt(session(), {});
        return;
    }
    m_receipt.number = kept->number;
    m_receipt.lines = std::move(kept->lines);
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
    if (watched == m_input && event->type() == QEvent::KeyPress &&
        runKey(*static_cast<QKeyEvent *>(event)))
        return true;
    return Form::eventFilter(watched, event);
}

/// Keys that did not go to the input line belong there all the same.
void TF_Posxs::keyPressEvent(QKeyEvent *event) {
    if (!m_input->hasFocus() && !m_clerk->hasFocus())
        m_input->setFocus();
    if (event->key() != Qt::Key_Escape && event->key() != Qt::Key_Return &&
        event->key() != Qt::Key_Enter)
        Form::keyPressEvent(event);
}

bool TF_Posxs::runKey(QKeyEvent &event) {
    const bool isEmpty = m_input->text().isEmpty();
    const int key = event.key();
    if (event.modifiers() == Qt::ControlModifier) {
        if (key == Qt::Key_J)
            btnPriceClick();
        else if (key == Qt::Key_Y)
            m_clerk->setFocus();
        else
            return false;
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        enterInput();
        return true;
    }
    if (key == Qt::Key_Escape) {
        if (isEmpty)
            reject();
        else
            m_input->clear();
        return true;
    }
    if (key == Qt::Key_Plus && (event.modifiers() & Qt::KeypadModifier) != 0) {
        btnPayClick();
        return true;
    }
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
        const int last = static_cast<int>(m_receipt.lines.size()) - 1;
        m_grid->goToLine(std::clamp(m_line + (key == Qt::Key_Up ? -1 : 1), 0, std::max(0, last)));
        return true;
    }
    const QString function = functionOfKey(m_settings, event);
    // While something is typed, Delete and the like are for the text.
    const bool edits = key == Qt::Key_Delete || key == Qt::Key_Backspace || key == Qt::Key_Home ||
                       key == Qt::Key_End ||
                       (key >= Qt::Key_Space && key < Qt::Key_AsciiTilde && key != Qt::Key_Equal);
    if (!function.isEmpty() && m_functions.contains(function) && (isEmpty || !edits)) {
        m_functions[function]();
        return true;
    }
    if (key == Qt::Key_F3)
        btnReturnClick();
    else if (key == Qt::Key_F5)
        btnReprintClick();
    else
        return false;
    return true;
}

void TF_Posxs::enterInput() {
    const QString typed = m_input->text().trimmed();
    if (typed.isEmpty()) {
        btnPayClick();
        return;
    }
    m_input->clear();
    takeInput(typed);
}

void TF_Posxs::takeInput(const QString &typed) {
    CounterFind found = findForCounter(context().goods, m_settings, typed);
    if (found.input.code.isEmpty()) { // "3*": a quantity for the current line
        if (ReceiptLine *line = currentLine(); line != nullptr && found.input.quantity) {
            line->quantity = *found.input.quantity;
            line->labelAmount.reset();
            changed();
        }
        return;
    }
    if (found.hits.empty()) {
        say(QStringLiteral("没有找到商品“%1”！").arg(found.input.code), true);
        return;
    }
    if (found.hits.size() > 1 && !chooseHit(found))
        return;
    takeLine(found, found.hits.front());
}

bool TF_Posxs::chooseHit(CounterFind &found) {
    RowList list(
        {u"no", u"g_sn", u"g_name", u"gg_name", u"dw_name", u"g_sccs", u"kc_sl", u"g_lsj"});
    qint64 no = 0;
    for (const GoodsHit &hit : found.hits)
        list.add({no++, hit.code, hit.name, hit.specification, hit.unit, hit.maker, hit.stock,
                  hit.retailPrice});
    TF_GridMsg choice(context(), QStringLiteral("TF_Posxs_Sele"), QStringLiteral("选择商品"),
                      {text(u"g_sn", u"商品编号", 110), text(u"g_name", u"商品名称", 204),
                       text(u"gg_name", u"规格", 110), text(u"dw_name", u"单位", 56),
                       text(u"g_sccs", u"生产厂商", 150),
                       column(u"kc_sl", u"库存", ValueKind::quantity, 90),
                       column(u"g_lsj", u"零售价", ValueKind::price, 90)},
                      list.take(), this);
    if (!choice.choose())
        return false;
    const auto chosen = static_cast<size_t>(choice.chosen().front()->integer(u"no"));
    found.hits = {found.hits[chosen]};
    return true;
}

void TF_Posxs::takeLine(const CounterFind &found, const GoodsHit &hit) {
    PriceBuyer buyer;
    if (m_member)
        buyer = {m_member->level, m_member->dayFactor};
    ReceiptLine line = counterLine(session(), m_settings, found, hit, buyer);
    m_printing->showAmount(line.price, DisplayLight::price);
    const bool isFree = !line.price.isPositive() && !line.labelAmount;
    m_line = static_cast<int>(addLine(m_receipt, std::move(line)));
    changed();
    if (isFree)
        say(QStringLiteral("商品“%1”没有零售价，请按 Ctrl+J 输入单价！").arg(hit.name), true);
}

ReceiptLine *TF_Posxs::currentLine() {
    if (m_line >= 0 && m_line < static_cast<int>(m_receipt.lines.size()))
        return &m_receipt.lines[static_cast<size_t>(m_line)];
    say(QStringLiteral("没有商品！"), true);
    return nullptr;
}

QString TF_Posxs::allowedBy(int right, const QString &what) {
    if (hasRight(session(), u"xsgl", right))
        return session().currentOperatorName;
    return askSecondOperator(context(), what, right, this);
}

void TF_Posxs::btnDiscountClick() {
    ReceiptLine *line = currentLine();
    if (line == nullptr)
        return;
    const auto typed = askFigure(context(), QStringLiteral("修改折扣（0.9、9折 或 90）"),
                                 ValueKind::factor, line->discount, this);
    if (!typed || !typed->isPositive())
        return;
    const Decimal factor = discountFactor(*typed);
    if (factor < m_settings.lowestDiscount) {
        const QString who = allowedBy(7, QStringLiteral("低于最低折扣的销售！"));
        if (who.isEmpty())
            return;
        line->authorisedBy = who;
    }
    line->discount = factor;
    changed();
}

void TF_Posxs::btnQuantityClick() {
    ReceiptLine *line = currentLine();
    if (line == nullptr)
        return;
    const auto typed =
        askFigure(context(), QStringLiteral("修改数量"), ValueKind::quantity, line->quantity, this);
    if (!typed)
        return;
    if (!typed->isPositive()) {
        say(QStringLiteral("数量必须大于零！"), true);
        return;
    }
    line->quantity = *typed;
    line->labelAmount.reset();
    changed();
}

void TF_Posxs::btnPriceClick() {
    ReceiptLine *line = currentLine();
    if (line == nullptr)
        return;
    if (!m_settings.pricesEditable && allowedBy(7, QStringLiteral("修改单价！")).isEmpty())
        return;
    const auto typed =
        askFigure(context(), QStringLiteral("修改单价"), ValueKind::price, line->price, this);
    if (!typed)
        return;
    line->price = *typed;
    line->labelAmount.reset();
    changed();
}

void TF_Posxs::btnDeleteClick() {
    if (currentLine() == nullptr)
        return;
    m_receipt.lines.erase(m_receipt.lines.begin() + m_line);
    m_line = std::min(m_line, static_cast<int>(m_receipt.lines.size()) - 1);
    changed();
}

void TF_Posxs::btnDeleteAllClick() {
    if (m_receipt.lines.empty())
        return;
    if (!prompter().confirm(QStringLiteral("您的操作将删除当前小票的全部商品，确认吗？"),
                            confirmCaption) ||
        allowedBy(7, QStringLiteral("删除全部！")).isEmpty())
        return;
    startAnew();
    changed();
}

void TF_Posxs::btnMemberClick() {
    if (!m_members.areKept())
        return;
    const QString typed = m_input->text().trimmed();
    m_input->clear();
    if (typed.isEmpty()) {
        say(QStringLiteral("请先输入会员卡号、手机或姓名！"), true);
        return;
    }
    const PriceBuyer before =
        m_member ? PriceBuyer{m_member->level, m_member->dayFactor} : PriceBuyer{};
    try {
        m_member = m_members.find(session(), typed);
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
        return;
    }
    if (!m_member)
        say(QStringLiteral("没有找到会员“%1”！").arg(typed), true);
    m_receipt.member = m_member ? m_member->key : QString();
    priceAnew(session(), m_settings, m_receipt, before,
              m_member ? PriceBuyer{m_member->level, m_member->dayFactor} : PriceBuyer{});
    changed();
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
    RowList list({u"gl_djh", u"ls_xsrq", u"a_name", u"g_name", u"ls_sl", u"ls_zje"});
    for (const HeldReceipt &held : heldReceipts(session(), m_settings))
        list.add(
            {held.number, held.time, held.operatorName, held.firstGoods, held.lines, held.total});
    Rows rows = list.take();
    if (rows.empty()) {
        say(QStringLiteral("没有挂单！"), true);
        return;
    }
    TF_GridMsg choice(context(), QStringLiteral("TF_Posxs_Jg"), QStringLiteral("解挂"),
                      {text(u"gl_djh", u"单号", 140), text(u"ls_xsrq", u"时间", 170),
                       text(u"a_name", u"操作员", 90), text(u"g_name", u"商品", 200),
                       column(u"ls_sl", u"行数", ValueKind::integer, 60),
                       column(u"ls_zje", u"金额", ValueKind::amount, 100)},
                      std::move(rows), this);
    if (choice.choose() &&
        show(recallReceipt(session(), prompter(), choice.chosen().front()->text(u"gl_djh"),
                           m_receipt))) {
        m_line = 0;
        refresh();
    }
}

void TF_Posxs::btnLockClick() {
    lockCounter(context(), this);
}

void TF_Posxs::btnGiftClick() {
    if (ReceiptLine *line = currentLine(); line != nullptr) {
        line->isGift = !line->isGift;
        changed();
    }
}

void TF_Posxs::btnReturnClick() {
    const QString who = allowedBy(2, QStringLiteral("退货！"));
    if (who.isEmpty())
        return;
    TF_Posth form(context(), m_members, this);
    form.start(m_settings, m_receipt.clerk, who);
    if (form.runModal()) {
        m_printing->printAfterPaying(form.number());
        say(QStringLiteral("已退货：%1").arg(form.number()), false);
    }
    m_input->setFocus();
}

void TF_Posxs::btnReprintClick() {
    const QString number = lastReceiptOf(session(), session().currentOperatorName);
    if (number.isEmpty())
        say(QStringLiteral("今天还没有小票！"), true);
    else
        m_printing->print(number, true);
}

/// Who buys restricted goods is asked once for all of them.
bool TF_Posxs::registerBuyers() {
    BuyerRecord buyer;
    for (ReceiptLine &line : m_receipt.lines) {
        if (!line.restricted || !line.buyer.isEmpty())
            continue;
        if (buyer.name.isEmpty()) {
            const auto asked =
                askBuyer(context(), line.name,
                         lastBuyerOf(session(), m_receipt.customer).value_or(BuyerRecord{}), this);
            if (!asked)
                return false;
            buyer = *asked;
        }
        line.buyer = buyer.name;
        line.identityNo = buyer.identityNo;
        line.mobile = buyer.mobile;
        line.address = buyer.address;
        line.use = buyer.use;
    }
    return true;
}

/// A receipt that was put aside does not remember who allowed what.
bool TF_Posxs::allowDiscounts() {
    const std::vector<size_t> lines = linesToAllow(session(), m_settings, m_receipt);
    if (lines.empty())
        return true;
    const QString who = allowedBy(7, QStringLiteral("低于最低折扣的销售！"));
    for (const size_t line : lines)
        m_receipt.lines[line].authorisedBy = who;
    return !who.isEmpty();
}

void TF_Posxs::btnPayClick() {
    if (m_receipt.lines.empty()) {
        say(QStringLiteral("请先录入商品！"), true);
        return;
    }
    if (!registerBuyers() || !allowDiscounts())
        return;
    m_printing->showAmount(m_receipt.total(m_settings.amountDecimals), DisplayLight::total);
    TF_Posfk pay(context(), m_settings, m_receipt, m_member, this);
    if (!pay.runModal() || !post(pay.tender()))
        m_receipt.customer = walkInCustomer;
    m_input->setFocus();
}

bool TF_Posxs::post(const Tender &tender) {
    m_keep->stop();
    PostedReceipt posted;
    if (!show(postReceipt(session(), prompter(), m_receipt, tender, &posted)))
        return false;
    const Formats formats(session().parameters);
    const TenderOutcome &o = posted.outcome;
    m_last->setText(QStringLiteral("上单 %1\n应付 %2\n实收 %3\n找零 %4")
                        .arg(posted.number, formats.money(o.due), formats.money(o.tendered),
                             formats.money(o.change)));
    startAnew();
    refresh();
    say(QStringLiteral("已结账，找零 %1").arg(formats.money(o.change)), false);
    m_printing->showAmount(o.change, DisplayLight::change);
    m_printing->printAfterPaying(posted.number);
    return true;
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
    m_grid->setRows(lineRows(m_receipt, m_settings.amountDecimals));
    if (line >= 0)
        m_grid->goToLine(line);
    m_line = m_receipt.lines.empty() ? -1 : std::max(0, line);
    const Formats formats(session().parameters);
    m_total->setText(formats.money(m_receipt.total(m_settings.amountDecimals)));
    m_pieces->setText(QStringLiteral("共 %1 行，%2 件")
                          .arg(m_receipt.lines.size())
                          .arg(formats.text(ValueKind::quantity, m_receipt.pieces())));
    m_title->setText(m_receipt.number.isEmpty()
                         ? QStringLiteral("收银台")
                         : QStringLiteral("收银台　单号 ") + m_receipt.number);
    if (m_member)
        m_memberName->setText(QStringLiteral("会员 %1 %2\n余额 %3　积分 %4")
                                  .arg(m_member->number, m_member->name,
                                       formats.money(m_member->balance),
                                       formats.text(ValueKind::integer, m_member->points)));
    else
        m_memberName->clear();
}

void TF_Posxs::say(const QString &text, bool isFault) {
    m_message->setText(text);
    m_message->setProperty("danger", isFault);
    m_message->setStyleSheet(m_message->styleSheet()); // looks at the property anew
}

} // namespace jxc
