// What the counter's keys do to the lines of the running receipt.
#include "master/goods_details.h"
#include "retail/forms/counter_choices.h"
#include "retail/forms/counter_dialogs.h"
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_posxs.h"

#include <QLineEdit>

namespace jxc {

namespace {

/// A discount as it is spoken: 0.9, 9 (折) and 90 (percent) are one.
Decimal discountFactor(Decimal typed) {
    if (typed <= Decimal(1))
        return typed;
    return (typed / (typed <= Decimal(10) ? Decimal(10) : Decimal(100))).rounded(4);
}

} // namespace

void TF_Posxs::enterInput() {
    const QString typed = m_input.text().trimmed();
    if (typed.isEmpty()) {
        btnPayClick();
        return;
    }
    m_input.clear();
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
    if (found.hits.size() > 1 && !chooseGoods(context(), found, this))
        return;
    takeLine(found, found.hits.front());
}

void TF_Posxs::takeLine(const CounterFind &found, const GoodsHit &hit) {
    ReceiptLine line = counterLine(session(), m_settings, found, hit, buyer());
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
        const QString who = allowedBy(context(), 7, QStringLiteral("低于最低折扣的销售！"), this);
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
    if (!m_settings.pricesEditable &&
        allowedBy(context(), 7, QStringLiteral("修改单价！"), this).isEmpty())
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

/// What the customer asks for may lie in the store room.
void TF_Posxs::btnPictureClick() {
    const ReceiptLine *line = currentLine();
    if (line == nullptr)
        return;
    const QString file = goodsPicture(context().home, line->goods);
    if (file.isEmpty())
        say(QStringLiteral("商品“%1”没有图片！").arg(line->name), true);
    else
        showPicture(line->name, file, this);
}

void TF_Posxs::btnGiftClick() {
    if (ReceiptLine *line = currentLine(); line != nullptr) {
        line->isGift = !line->isGift;
        changed();
    }
}

} // namespace jxc
