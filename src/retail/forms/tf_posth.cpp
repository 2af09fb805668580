#include "retail/forms/tf_posth.h"

#include "core/prompter.h"
#include "core/session.h"
#include "retail/counter_goods.h"
#include "retail/forms/counter_choices.h"
#include "retail/member.h"
#include "ui/formats.h"
#include "ui/grid_msg.h"
#include "ui/number_field.h"

#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>

namespace jxc {

namespace {

enum LineColumn {
    nameAt,
    specificationAt,
    unitAt,
    batchAt,
    soldAt,
    leftAt,
    quantityAt,
    priceAt,
    totalAt,
    columnCount
};

enum Way { inCash, byCard, byWeChat, byAliPay, ontoMemberCard, onAccount };

Batch batchOf(const Row &row) {
    return {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
}

} // namespace

TF_Posth::TF_Posth(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Posth"), QStringLiteral("收银台退货"), parent) {
    build();
    resize(1000, 560);
}

void TF_Posth::build() {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(8);
    m_input = new QLineEdit(this);
    m_input->setObjectName(QStringLiteral("input"));
    m_input->setPlaceholderText(
        QStringLiteral("小票单号（可只输末5位，今天的）；没有小票时输入商品"));
    connect(m_input, &QLineEdit::returnPressed, this, &TF_Posth::enterInput);
    column->addWidget(m_input);
    m_source = new QLabel(this);
    m_source->setProperty("quiet", true);
    column->addWidget(m_source);
    m_table = new QTableWidget(0, columnCount, this);
    m_table->setObjectName(QStringLiteral("lines"));
    m_table->setHorizontalHeaderLabels(
        {QStringLiteral("商品名称"), QStringLiteral("规格"), QStringLiteral("单位"),
         QStringLiteral("批号"), QStringLiteral("已售"), QStringLiteral("可退"),
         QStringLiteral("退货数量"), QStringLiteral("单价"), QStringLiteral("退款金额")});
    m_table->horizontalHeader()->setSectionResizeMode(nameAt, QHeaderView::Stretch);
    for (const auto &[place, width] :
         {std::pair{unitAt, 60}, {soldAt, 80}, {leftAt, 80}, {quantityAt, 90}, {priceAt, 84}})
        m_table->setColumnWidth(place, width);
    m_table->verticalHeader()->hide();
    m_table->setEditTriggers(QAbstractItemView::AllEditTriggers);
    connect(m_table, &QTableWidget::cellChanged, this, [this](int row, int at) {
        if (!m_filling && at == quantityAt)
            takeQuantity(row);
    });
    column->addWidget(m_table, 1);
    auto *row = new QHBoxLayout;
    auto *caption = new QLabel(QStringLiteral("退款方式(&W)"), this);
    m_way = new QComboBox(this);
    m_way->setObjectName(QStringLiteral("way"));
    caption->setBuddy(m_way);
    m_total = new QLabel(this);
    m_total->setObjectName(QStringLiteral("total"));
    m_total->setProperty("total", true);
    row->addWidget(caption);
    row->addWidget(m_way);
    row->addWidget(m_total, 1);
    const auto button = [&](const QString &text, Qt::Key key, auto run) {
        auto *made = new QPushButton(text, this);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, run);
        if (key != Qt::Key_Escape)
            connect(new QShortcut(key, this), &QShortcut::activated, this, run);
        row->addWidget(made);
    };
    button(QStringLiteral("批号 F4"), Qt::Key_F4, [this] { btnBatchClick(); });
    button(QStringLiteral("全部退货 F8"), Qt::Key_F8, [this] { btnAllClick(); });
    button(QStringLiteral("确定退货 F5"), Qt::Key_F5, [this] { btnOKClick(); });
    button(QStringLiteral("返回 Esc"), Qt::Key_Escape, [this] { reject(); });
    column->addLayout(row);
}

void TF_Posth::start(const CounterSettings &settings, const QString &clerk,
                     const QString &authorisedBy, const QString &member) {
    m_settings = settings;
    m_clerk = clerk;
    m_member = member;
    m_return.authorisedBy = authorisedBy;
    clearLines();
    refresh();
    m_input->setFocus();
}

void TF_Posth::clearLines() {
    const QString who = m_return.authorisedBy;
    m_return = {};
    m_return.authorisedBy = who;
    m_return.clerk = m_clerk;
    m_return.warehouse = m_settings.warehouse;
    m_return.member = m_member;
}

void TF_Posth::enterInput() {
    const QString typed = m_input->text().trimmed();
    if (typed.isEmpty()) {
        m_table->setFocus();
        if (m_table->rowCount() > 0)
            m_table->setCurrentCell(0, quantityAt);
        return;
    }
    m_input->clear();
    if (!takeReceipt(typed))
        takeGoods(typed);
    refresh();
}

/// The last five digits of a number suffice on its day.
bool TF_Posth::takeReceipt(const QString &typed) {
    QString number = typed.toUpper();
    if (number.size() == 5 && number.toInt() > 10'000 &&
        findForCounter(context().goods, m_settings, typed).hits.empty())
        number = QStringLiteral("XS") + session().now().toString(QStringLiteral("yyMMdd")) + number;
    if (!number.startsWith(QLatin1String("XS")) || number.size() < 13)
        return false;
    try {
        CounterReturn found = returnOf(session(), number);
        found.authorisedBy = m_return.authorisedBy;
        m_return = std::move(found);
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
    }
    return true;
}

void TF_Posth::takeGoods(const QString &typed) {
    if (!m_return.receipt.isEmpty())
        clearLines(); // goods without a receipt begin another return
    CounterFind found = findForCounter(context().goods, m_settings, typed);
    if (found.hits.empty()) {
        prompter().inform(QStringLiteral("没有找到商品“%1”！").arg(typed), informCaption);
        return;
    }
    if (found.hits.size() > 1 && !chooseGoods(context(), found, this))
        return;
    ReturnLine line{.line = counterLine(session(), m_settings, found, found.hits.front(), {})};
    const Rows batches = batchesToReturnTo(session(), line.line.goods, m_return.warehouse);
    if (batches.size() == 1)
        line.batch = batchOf(batches.front());
    m_return.lines.push_back(std::move(line));
}

/// Goods without a receipt go back to the batch that stands on the packing.
void TF_Posth::btnBatchClick() {
    const int row = std::max(0, m_table->currentRow());
    if (!m_return.receipt.isEmpty() || row >= m_table->rowCount())
        return;
    ReturnLine &l = m_return.lines[static_cast<size_t>(row)];
    Rows batches = batchesToReturnTo(session(), l.line.goods, m_return.warehouse);
    if (batches.empty()) {
        prompter().inform(QStringLiteral("商品“%1”没有批号！").arg(l.line.name), informCaption);
        return;
    }
    TF_GridMsg choice(context(), QStringLiteral("TF_Posth_Ph"), QStringLiteral("选择批号"),
                      {text(u"t_ph", u"批号", 140), text(u"t_scrq", u"生产日期", 110),
                       text(u"t_yxq", u"有效期至", 110),
                       column(u"t_sl", u"库存", ValueKind::quantity, 90)},
                      std::move(batches), this);
    if (choice.choose()) {
        l.batch = batchOf(*choice.chosen().front());
        refresh();
        m_table->setCurrentCell(row, quantityAt);
    }
}

void TF_Posth::refresh() {
    m_filling = true;
    const Formats formats(session().parameters);
    m_table->setRowCount(static_cast<int>(m_return.lines.size()));
    for (size_t i = 0; i < m_return.lines.size(); ++i) {
        const ReturnLine &l = m_return.lines[i];
        const bool isOfReceipt = l.sold.isPositive();
        const auto put = [&](LineColumn at, const QString &text, bool isFigure) {
            auto *item = new QTableWidgetItem(text);
            if (isFigure)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (at != quantityAt)
                item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            m_table->setItem(static_cast<int>(i), at, item);
        };
        put(nameAt, l.line.name, false);
        put(specificationAt, l.line.specification, false);
        put(unitAt, l.line.unit, false);
        put(batchAt, l.batch.number, false);
        put(soldAt, isOfReceipt ? formats.text(ValueKind::quantity, l.sold) : QString(), true);
        put(leftAt, isOfReceipt ? formats.text(ValueKind::quantity, l.returnable()) : QString(),
            true);
        put(quantityAt, l.line.quantity.toText(), true);
        put(priceAt, formats.text(ValueKind::price, l.line.price), true);
        put(totalAt, formats.text(ValueKind::amount, l.total(m_settings.amountDecimals)), true);
    }
    m_filling = false;
    QString source = m_return.receipt.isEmpty() ? QStringLiteral("没有原单")
                                                : QStringLiteral("原单 ") + m_return.receipt;
    if (const auto member = findMember(db(), m_return.member))
        source += QStringLiteral("　会员 %1 %2").arg(member->number, member->name);
    m_source->setText(source);
    const int way = m_way->currentData().toInt();
    m_way->clear();
    m_way->addItem(QStringLiteral("现金"), inCash);
    m_way->addItem(QStringLiteral("银行卡"), byCard);
    m_way->addItem(QStringLiteral("微信"), byWeChat);
    m_way->addItem(QStringLiteral("支付宝"), byAliPay);
    if (!m_return.member.isEmpty())
        m_way->addItem(QStringLiteral("退回储值卡"), ontoMemberCard);
    if (m_return.customer != walkInCustomer)
        m_way->addItem(QStringLiteral("冲减挂账"), onAccount);
    m_way->setCurrentIndex(std::max(0, m_way->findData(way)));
    refreshTotal();
}

void TF_Posth::refreshTotal() {
    m_total->setText(
        QStringLiteral("应退 ") +
        Formats(session().parameters).money(m_return.total(m_settings.amountDecimals)));
}

void TF_Posth::takeQuantity(int row) {
    ReturnLine &l = m_return.lines[static_cast<size_t>(row)];
    Decimal typed = typedNumber(m_table->item(row, quantityAt)->text());
    if (typed.isNegative())
        typed = 0;
    if (l.sold.isPositive() && typed > l.returnable()) {
        prompter().inform(QStringLiteral("退货数量大于可退数量！"), informCaption);
        typed = l.returnable();
    }
    l.line.quantity = typed;
    m_filling = true;
    const Formats formats(session().parameters);
    m_table->item(row, quantityAt)->setText(typed.toText());
    m_table->item(row, totalAt)
        ->setText(formats.text(ValueKind::amount, l.total(m_settings.amountDecimals)));
    m_filling = false;
    refreshTotal();
}

void TF_Posth::btnAllClick() {
    for (ReturnLine &l : m_return.lines)
        if (l.sold.isPositive())
            l.line.quantity = l.returnable();
    refresh();
}

Tender TF_Posth::refund() const {
    Tender t;
    const Decimal amount = m_return.total(m_settings.amountDecimals);
    switch (m_way->currentData().toInt()) {
    case byCard:
        t.other.bankCard = amount;
        break;
    case byWeChat:
        t.other.weChat = amount;
        break;
    case byAliPay:
        t.other.aliPay = amount;
        break;
    case ontoMemberCard:
        t.other.storedValue = amount;
        break;
    case onAccount:
        break;
    default:
        t.cash = amount;
    }
    return t;
}

void TF_Posth::btnOKClick() {
    m_table->setCurrentCell(-1, -1); // what is being typed counts
    if (show(postReturn(session(), prompter(), m_return, refund(), &m_number)))
        accept();
}

bool TF_Posth::mayLeave() {
    const bool isEmpty = m_return.total(m_settings.amountDecimals).isZero();
    return isEmpty ||
           prompter().confirm(QStringLiteral("退货还没有保存，确定退出吗？"), confirmCaption);
}

} // namespace jxc
