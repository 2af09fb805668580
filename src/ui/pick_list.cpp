#include "ui/pick_list.h"

#include <QHeaderView>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

namespace jxc {

namespace {

constexpr int rowHeight = 28;
constexpr int mostRows = 12;

} // namespace

PickList::PickList(const PickSource &source, const Formats &formats, QWidget *field)
    : QFrame(field, Qt::ToolTip | Qt::FramelessWindowHint)
    , m_model(new RowsModel(source.columns, formats, this))
    , m_view(new QTableView(this)) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setAlternatingRowColors(true);
    m_view->setShowGrid(false);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_view->horizontalHeader()->setHighlightSections(false);
    m_view->horizontalHeader()->setStretchLastSection(true);
    for (size_t i = 0; i < source.columns.size(); ++i) {
        const int width = source.columns[i].width > 0 ? source.columns[i].width : 100;
        m_view->setColumnWidth(static_cast<int>(i), width);
        m_width += width;
    }
    if (source.width > 0)
        m_width = source.width;
    m_width += 20; // frame and scroll bar
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    connect(m_view, &QTableView::clicked, this, &PickList::taken);
}

void PickList::popUp(Rows rows, const QRect &fieldOnScreen) {
    m_model->setRows(std::move(rows));
    if (m_model->rowCount() == 0) {
        hide();
        return;
    }
    m_view->setCurrentIndex(m_model->index(0, 0));
    const int lines = qMin(mostRows, m_model->rowCount());
    const int height = lines * rowHeight + m_view->horizontalHeader()->sizeHint().height() + 4;
    const int width = qMax(m_width, fieldOnScreen.width());
    const QRect screen = parentWidget()->screen()->availableGeometry();
    QRect place(fieldOnScreen.left(), fieldOnScreen.bottom() + 1, qMin(width, screen.width()),
                height);
    if (place.bottom() > screen.bottom())
        place.moveBottom(fieldOnScreen.top() - 1);
    if (place.right() > screen.right())
        place.moveRight(screen.right());
    if (place.top() < screen.top())
        place.moveTop(screen.top());
    setGeometry(place);
    QFrame::show();
    raise();
}

const Row *PickList::current() const {
    const QModelIndex index = m_view->currentIndex();
    return index.isValid() ? &m_model->at(index.row()) : nullptr;
}

void PickList::move(int lines) {
    const int last = m_model->rowCount() - 1;
    if (last < 0)
        return;
    const int line = qBound(0, m_view->currentIndex().row() + lines, last);
    m_view->setCurrentIndex(m_model->index(line, 0));
    m_view->scrollTo(m_model->index(line, 0));
}

void PickList::page(int pages) {
    move(pages * (mostRows - 1));
}

} // namespace jxc
