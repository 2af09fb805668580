#include "money/forms/settlement_parts.h"

#include "ui/number_field.h"
#include "ui/theme.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace jxc {

namespace {

enum Place { number, kind, date, days, total, open, part, placeCount };

} // namespace

SettlementParts::SettlementParts(const Formats &formats, QWidget *parent)
    : QTableWidget(0, placeCount, parent)
    , m_formats(formats) {
    setObjectName(QStringLiteral("parts"));
    const QStringList captions = {QStringLiteral("单据号"),   QStringLiteral("类型"),
                                  QStringLiteral("日期"),     QStringLiteral("天数"),
                                  QStringLiteral("单据金额"), QStringLiteral("未结金额"),
                                  QStringLiteral("本次结算")};
    const std::array<int, placeCount> widths = {128, 92, 96, 48, 88, 88, 92};
    for (int place = 0; place < placeCount; ++place) {
        auto *caption = new QTableWidgetItem(captions[place]);
        caption->setTextAlignment((place >= days ? Qt::AlignRight : Qt::AlignLeft) |
                                  Qt::AlignVCenter);
        setHorizontalHeaderItem(place, caption);
        setColumnWidth(place, widths[static_cast<size_t>(place)]);
    }
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectItems);
    setEditTriggers(AnyKeyPressed | DoubleClicked | EditKeyPressed);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(28);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    connect(this, &QTableWidget::itemChanged, this, &SettlementParts::typed);
}

void SettlementParts::setItems(const std::vector<OpenItem> &items,
                               const std::vector<Allocation> &parts) {
    m_items = items;
    for (const Allocation &gone : parts)
        if (std::none_of(items.begin(), items.end(),
                         [&](const OpenItem &item) { return item.number == gone.number; })) {
            OpenItem item;
            item.number = gone.number;
            m_items.push_back(item);
        }
    m_parts.assign(m_items.size(), Decimal());
    m_filling = true;
    setRowCount(static_cast<int>(m_items.size()));
    for (int row = 0; row < rowCount(); ++row) {
        const OpenItem &item = m_items[static_cast<size_t>(row)];
        const auto amount = [&](Decimal value) { return m_formats.text(ValueKind::amount, value); };
        const bool isKnown = !item.kind.isEmpty();
        const QStringList texts = {item.number,
                                   item.kind,
                                   item.date,
                                   isKnown ? QString::number(item.days) : QString(),
                                   isKnown ? amount(item.total) : QString(),
                                   amount(item.open),
                                   QString()};
        for (int place = 0; place < placeCount; ++place) {
            auto *cell = new QTableWidgetItem(texts[place]);
            cell->setTextAlignment((place >= days ? Qt::AlignRight : Qt::AlignLeft) |
                                   Qt::AlignVCenter);
            cell->setFlags(place == part
                               ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable
                               : Qt::ItemFlags(Qt::ItemIsEnabled));
            setItem(row, place, cell);
        }
    }
    m_filling = false;
    setParts(parts);
    if (rowCount() > 0)
        setCurrentCell(0, part);
}

void SettlementParts::setPart(int row, Decimal amount) {
    m_parts[static_cast<size_t>(row)] = amount;
    m_filling = true;
    item(row, part)->setText(amount.isZero() ? QString()
                                             : m_formats.text(ValueKind::amount, amount));
    m_filling = false;
}

void SettlementParts::setParts(const std::vector<Allocation> &parts) {
    for (int row = 0; row < rowCount(); ++row) {
        Decimal amount;
        for (const Allocation &part : parts)
            if (part.number == m_items[static_cast<size_t>(row)].number)
                amount += part.amount;
        setPart(row, amount);
    }
    Q_EMIT partsChanged();
}

void SettlementParts::setReadOnly() {
    m_readOnly = true;
    setEditTriggers(NoEditTriggers);
}

std::vector<Allocation> SettlementParts::parts() const {
    std::vector<Allocation> all;
    for (size_t i = 0; i < m_items.size(); ++i)
        if (!m_parts[i].isZero())
            all.push_back({m_items[i].number, m_parts[i]});
    return all;
}

Decimal SettlementParts::sum() const {
    Decimal sum;
    for (const Decimal amount : m_parts)
        sum += amount;
    return sum;
}

/// A return or an advance is settled with its own sign, and nothing beyond what is open.
void SettlementParts::typed(QTableWidgetItem *cell) {
    if (m_filling || cell->column() != part)
        return;
    const OpenItem &item = m_items[static_cast<size_t>(cell->row())];
    const int decimals = m_formats.decimals(ValueKind::amount);
    Decimal amount = typedNumber(tidyNumber(cell->text(), decimals, true)).abs();
    amount = std::min(amount, item.open.abs());
    setPart(cell->row(), item.open.isNegative() ? -amount : amount);
    Q_EMIT partsChanged();
}

void SettlementParts::keyPressEvent(QKeyEvent *event) {
    const int row = currentRow();
    switch (event->key()) {
    case Qt::Key_Space:
        if (row >= 0 && !m_readOnly) {
            const bool isSet = !m_parts[static_cast<size_t>(row)].isZero();
            setPart(row, isSet ? Decimal() : m_items[static_cast<size_t>(row)].open);
            Q_EMIT partsChanged();
        }
        return;
    case Qt::Key_Delete:
        if (row >= 0 && !m_readOnly) {
            setPart(row, {});
            Q_EMIT partsChanged();
        }
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (state() == EditingState)
            return; // the cell is closing, and goes down by itself
        if (row >= 0 && row + 1 < rowCount())
            setCurrentCell(row + 1, part);
        else
            event->ignore(); // the editor goes on
        return;
    case Qt::Key_Escape:
        event->ignore();
        return;
    default:
        QTableWidget::keyPressEvent(event);
        // Keys of the whole editor are none that a cell takes.
        if (event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F35 && event->key() != Qt::Key_F2)
            event->ignore();
    }
}

void SettlementParts::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) {
    QTableWidget::closeEditor(editor, hint);
    if (hint == QAbstractItemDelegate::SubmitModelCache && currentRow() + 1 < rowCount())
        setCurrentCell(currentRow() + 1, part);
}

/// Where there is little room, what can be missed gives way.
void SettlementParts::resizeEvent(QResizeEvent *event) {
    constexpr int roomForTotal = 624, roomForKind = 532;
    setColumnHidden(total, width() < roomForTotal);
    setColumnHidden(kind, width() < roomForKind);
    QTableWidget::resizeEvent(event);
}

void SettlementParts::focusInEvent(QFocusEvent *event) {
    QTableWidget::focusInEvent(event);
    if (rowCount() > 0 && currentColumn() != part)
        setCurrentCell(qMax(0, currentRow()), part);
}

} // namespace jxc
