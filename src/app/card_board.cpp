#include "app/card_board.h"

#include <QKeyEvent>
#include <algorithm>

namespace jxc {

namespace {
constexpr int padding = 24;
constexpr int widestCard = 264;
} // namespace

CardBoard::CardBoard(QWidget *parent)
    : QScrollArea(parent)
    , m_sheet(new QWidget) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    m_sheet->setAutoFillBackground(false);
    setWidget(m_sheet);
}

void CardBoard::setItems(const std::vector<Item> &items) {
    for (FunctionCard *card : m_cards) {
        card->hide();
        card->deleteLater(); // it may be the very one that was pressed
    }
    m_cards.clear();
    for (const Item &item : items) {
        auto *card = new FunctionCard(*item.button, item.note, item.key, m_sheet);
        card->setEnabled(item.isKnown);
        if (!item.isKnown)
            card->setToolTip(QStringLiteral("尚未提供"));
        connect(card, &QAbstractButton::clicked, this,
                [this, card] { Q_EMIT pressed(card->button()); });
        m_cards.push_back(card);
        card->show();
    }
    setBtnPosition();
}

int CardBoard::columnCount() const {
    const int width = viewport()->width() - 2 * padding + FunctionCard::gap;
    return std::max(1, width / (FunctionCard::leastWidth + FunctionCard::gap));
}

void CardBoard::setBtnPosition() {
    const int columns = columnCount();
    const int width =
        std::min(widestCard,
                 (viewport()->width() - 2 * padding - (columns - 1) * FunctionCard::gap) / columns);
    int index = 0;
    for (FunctionCard *card : m_cards) {
        card->setGeometry(padding + index % columns * (width + FunctionCard::gap),
                          4 + index / columns * (FunctionCard::cardHeight + FunctionCard::gap),
                          width, FunctionCard::cardHeight);
        ++index;
    }
    const int rows = (index + columns - 1) / columns;
    m_sheet->resize(viewport()->width(), rows * (FunctionCard::cardHeight + FunctionCard::gap) + 8);
}

FunctionCard *CardBoard::cardOfKey(const QString &key) const {
    const auto found = std::ranges::find_if(
        m_cards, [&](FunctionCard *card) { return card->isEnabled() && card->key() == key; });
    return found == m_cards.end() ? nullptr : *found;
}

FunctionCard *CardBoard::firstCard() const {
    const auto found =
        std::ranges::find_if(m_cards, [](FunctionCard *card) { return card->isEnabled(); });
    return found == m_cards.end() ? nullptr : *found;
}

void CardBoard::focusFirst() {
    if (FunctionCard *card = firstCard())
        card->setFocus(Qt::ShortcutFocusReason);
    else
        setFocus();
}

void CardBoard::moveFocus(int by) {
    const auto now =
        std::ranges::find_if(m_cards, [](FunctionCard *card) { return card->hasFocus(); });
    if (now == m_cards.end()) {
        focusFirst();
        return;
    }
    const auto count = static_cast<int>(m_cards.size());
    // What cannot be pressed is stepped over.
    for (int next = static_cast<int>(now - m_cards.begin()) + by; next >= 0 && next < count;
         next += by) {
        FunctionCard *card = m_cards[static_cast<size_t>(next)];
        if (!card->isEnabled())
            continue;
        card->setFocus(Qt::OtherFocusReason);
        ensureWidgetVisible(card, 0, FunctionCard::gap);
        return;
    }
}

void CardBoard::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    setBtnPosition();
}

void CardBoard::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Left:
        moveFocus(-1);
        break;
    case Qt::Key_Right:
        moveFocus(1);
        break;
    case Qt::Key_Up:
        moveFocus(-columnCount());
        break;
    case Qt::Key_Down:
        moveFocus(columnCount());
        break;
    default:
        event->ignore(); // the window's: letters, F-keys
    }
}

bool CardBoard::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next); // the area's own would scroll
}

} // namespace jxc
