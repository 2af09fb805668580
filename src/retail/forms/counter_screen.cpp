#include "retail/forms/counter_screen.h"

#include "core/employees.h"
#include "core/session.h"
#include "retail/tender.h"
#include "ui/formats.h"
#include "ui/grid.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/row_list.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

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

} // namespace

CounterScreen::CounterScreen(const FormContext &context, QWidget *parent)
    : QWidget(parent)
    , m_context(context) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(12);
    column->addWidget(makeHead());
    m_grid = new Grid(context, QStringLiteral("TF_Posxs"), lineColumns(), this);
    m_grid->view().setFocusPolicy(Qt::NoFocus);
    m_grid->view().setStyleSheet(QStringLiteral("font-size: 16px;"));
    connect(m_grid, &Grid::currentChanged, this, [this] {
        const Row *row = m_grid->current();
        Q_EMIT lineChosen(row != nullptr ? static_cast<int>(row->integer(u"no")) - 1 : -1);
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
    column->addWidget(m_input);
    m_hints = new QLabel(this);
    m_hints->setProperty("quiet", true);
    m_hints->setWordWrap(true);
    column->addWidget(m_hints);
    setFocusProxy(m_input);
}

QWidget *CounterScreen::makeHead() {
    auto *head = new QWidget(this);
    auto *row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    m_title = new QLabel(head);
    m_title->setProperty("title", true);
    m_message = new QLabel(head);
    m_message->setObjectName(QStringLiteral("message"));
    m_clerk = new PickField(employeeSource(m_context, EmployeeDuty::sale, walkInCustomer),
                            Formats(m_context.session.parameters), head);
    m_clerk->setObjectName(QStringLiteral("u_sn"));
    m_clerk->setFixedWidth(140);
    m_clerk->setFocusPolicy(Qt::ClickFocus);
    row->addWidget(m_title);
    row->addWidget(m_message, 1);
    row->addWidget(new QLabel(QStringLiteral("收银员：") + m_context.session.currentOperatorName));
    row->addWidget(new QLabel(QStringLiteral("营业员 Ctrl+Y")));
    row->addWidget(m_clerk);
    return head;
}

QWidget *CounterScreen::makeSide() {
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
    m_member = add(QStringLiteral("member"), 16, false);
    m_member->setTextFormat(Qt::PlainText); // a name may hold anything
    column->addStretch(1);
    m_last = add(QStringLiteral("last"), 18, false);
    return side;
}

void CounterScreen::showReceipt(const Receipt &receipt, int decimals, int line) {
    m_grid->setRows(lineRows(receipt, decimals));
    if (line >= 0)
        goToLine(line);
    const Formats formats(m_context.session.parameters);
    m_total->setText(formats.money(receipt.total(decimals)));
    m_pieces->setText(QStringLiteral("共 %1 行，%2 件")
                          .arg(receipt.lines.size())
                          .arg(formats.text(ValueKind::quantity, receipt.pieces())));
    m_title->setText(receipt.number.isEmpty() ? QStringLiteral("收银台")
                                              : QStringLiteral("收银台　单号 ") + receipt.number);
}

void CounterScreen::showMember(const std::optional<CounterMember> &member) {
    if (!member) {
        m_member->clear();
        return;
    }
    const Formats formats(m_context.session.parameters);
    m_member->setText(QStringLiteral("会员 %1 %2\n余额 %3　积分 %4")
                          .arg(member->number, member->name, formats.money(member->balance),
                               formats.text(ValueKind::integer, member->points)));
}

void CounterScreen::showLast(const QString &number, const TenderOutcome &outcome) {
    const Formats formats(m_context.session.parameters);
    m_last->setText(QStringLiteral("上单 %1\n应付 %2\n实收 %3\n找零 %4")
                        .arg(number, formats.money(outcome.due), formats.money(outcome.tendered),
                             formats.money(outcome.change)));
}

void CounterScreen::setHints(const QStringList &hints) {
    m_hints->setText(hints.join(QStringLiteral("　")));
}

void CounterScreen::say(const QString &text, bool isFault) {
    m_message->setText(text);
    m_message->setProperty("danger", isFault);
    m_message->setStyleSheet(m_message->styleSheet()); // looks at the property anew
}

void CounterScreen::goToLine(int line) {
    m_grid->goToLine(line);
}

} // namespace jxc
