#include "ui/sums_row.h"

#include "ui/theme.h"

#include <QPainter>

namespace jxc {

namespace {

/// Where the figures of the cells above end.
constexpr int cellMargin = 11;

} // namespace

SumsRow::SumsRow(QHeaderView *columns, QWidget *parent)
    : QWidget(parent)
    , m_columns(columns) {
    setFixedHeight(28);
    const auto again = [this] { update(); };
    connect(columns, &QHeaderView::sectionResized, this, again);
    connect(columns, &QHeaderView::sectionMoved, this, again);
    connect(columns, &QHeaderView::geometriesChanged, this, again);
}

void SumsRow::setContents(const QString &label, std::function<QString(int)> textOf) {
    m_label = label;
    m_textOf = std::move(textOf);
    update();
}

QString SumsRow::text(int column) const {
    return m_textOf ? m_textOf(column) : QString();
}

QSize SumsRow::sizeHint() const {
    return {200, 28};
}

void SumsRow::paintEvent(QPaintEvent *) {
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.surfaceAlt);
    painter.setPen(theme.line);
    painter.drawRect(rect().adjusted(0, -1, -1, -1));
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    const int origin = m_columns->mapTo(parentWidget(), QPoint(0, 0)).x() - x();
    int labelEnd = width();
    painter.setPen(theme.text);
    for (int i = 0; i < m_columns->count(); ++i) {
        const QString sum = m_columns->isSectionHidden(i) ? QString() : text(i);
        if (sum.isEmpty())
            continue;
        const int left = origin + m_columns->sectionViewportPosition(i);
        // A sum may be wider than its column; it grows to the left, where text columns are.
        const int wanted = painter.fontMetrics().horizontalAdvance(sum) + 16;
        const int size = m_columns->sectionSize(i);
        const QRect place(left - qMax(0, wanted - size), 0, qMax(size, wanted), height());
        painter.drawText(place.adjusted(8, 0, -cellMargin, 0), int(Qt::AlignRight | Qt::AlignVCenter), sum);
        labelEnd = qMin(labelEnd, place.left());
    }
    painter.setFont(font());
    painter.setPen(theme.textQuiet);
    painter.drawText(QRect(8, 0, labelEnd - 16, height()), int(Qt::AlignLeft | Qt::AlignVCenter),
                     m_label);
}

} // namespace jxc
