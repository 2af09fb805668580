#include "ui/grid.h"

#include "core/prompter.h"
#include "core/session.h"
#include "ui/grid_export.h"
#include "ui/grid_print.h"
#include "ui/layout_store.h"
#include "ui/piece_reader.h"
#include "ui/sums_row.h"
#include "ui/theme.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QTimer>
#include <algorithm>

namespace jxc {

namespace {

constexpr int rowHeight = 30;

int usualWidth(const ColumnSpec &column) {
    if (column.width > 0)
        return column.width;
    switch (column.kind) {
    case ValueKind::text:
    case ValueKind::choice:
        return 120;
    case ValueKind::date:
        return 104;
    case ValueKind::quantity:
    case ValueKind::price:
        return 92;
    case ValueKind::amount:
        return 112;
    case ValueKind::integer:
    case ValueKind::factor:
    case ValueKind::percent:
        return 80;
    case ValueKind::flag:
        return 64;
    case ValueKind::status:
        return 76;
    }
    return 100;
}

bool maySee(const ColumnSpec &column, const CachedRights &rights) {
    return (column.secrecy != Secrecy::cost || rights.showCostPrice) &&
           (column.secrecy != Secrecy::selling || rights.showSellingPrice);
}

} // namespace

Grid::Grid(const FormContext &context, const QString &name, ColumnSpecs columns, QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_name(name)
    , m_model(new RowsModel({}, Formats(context.session.parameters), this))
    , m_view(new QTableView(this))
    , m_filter(new QLineEdit(this))
    , m_pieces(new PieceReader(*this)) {
    m_view->setObjectName(name);
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setAlternatingRowColors(true);
    m_view->setShowGrid(false);
    m_view->setWordWrap(false);
    m_view->setTabKeyNavigation(false);
    m_view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_view->verticalHeader()->hide();
    m_view->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);
    QHeaderView *header = m_view->horizontalHeader();
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    m_sums = new SumsRow(header, this);
    m_filter->setPlaceholderText(QStringLiteral("筛选：输入要找的文字，Esc 取消"));
    m_filter->installEventFilter(this);
    m_filter->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_filter);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_sums);
    setFocusProxy(m_view);

    connect(header, &QHeaderView::customContextMenuRequested, this, &Grid::openHeaderMenu);
    connect(header, &QHeaderView::sectionClicked, this, &Grid::sortBy);
    connect(m_view, &QTableView::customContextMenuRequested, this, &Grid::openBodyMenu);
    connect(m_view, &QTableView::doubleClicked, this, &Grid::activated);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_model->setFilter(text);
        goToLine(0);
    });
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &Grid::currentChanged);
    connect(m_model, &QAbstractItemModel::modelReset, this, &Grid::refreshFooter);
    setColumns(std::move(columns));
}

void Grid::setColumns(ColumnSpecs columns) {
    std::erase_if(columns, [this](const ColumnSpec &column) {
        return !maySee(column, m_context.session.rights);
    });
    m_model->setFormats(Formats(m_context.session.parameters));
    m_model->setColumns(std::move(columns));
    m_layoutKept = false;
    restoreLayout();
}

void Grid::setRows(Rows rows) {
    m_pieces->stop();
    m_model->setFormats(Formats(m_context.session.parameters));
    m_model->setRows(std::move(rows));
    if (!m_view->currentIndex().isValid() && m_model->rowCount() > 0)
        goToLine(0);
    Q_EMIT currentChanged();
}

void Grid::appendRows(Rows rows) {
    m_model->appendRows(std::move(rows));
    m_sums->setContents(QStringLiteral("正在读取：%1").arg(m_model->rows().size()), {});
}

void Grid::finishRows() {
    if (m_model->isArranged())
        goToLine(m_model->rearrange(m_view->currentIndex().row()));
    refreshFooter();
}

const Row *Grid::current() const {
    const QModelIndex index = m_view->currentIndex();
    return index.isValid() ? &m_model->at(index.row()) : nullptr;
}

QString Grid::currentText(QStringView field) const {
    const Row *row = current();
    return row != nullptr ? row->text(field) : QString();
}

std::vector<const Row *> Grid::selected() const {
    std::vector<const Row *> rows;
    QModelIndexList indexes = m_view->selectionModel()->selectedRows();
    std::sort(indexes.begin(), indexes.end());
    for (const QModelIndex &index : indexes)
        rows.push_back(&m_model->at(index.row()));
    return rows;
}

void Grid::goTo(QStringView field, const QString &text) {
    goToLine(qMax(0, text.isEmpty() ? 0 : m_model->find(field, text)));
}

void Grid::goToLine(int line) {
    if (line < 0 || line >= m_model->rowCount())
        return;
    const std::vector<int> visible = visibleColumns();
    const QModelIndex index = m_model->index(line, visible.empty() ? 0 : visible.front());
    // The view's own way would heed a Ctrl that is held for another reason, and select nothing.
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                         QItemSelectionModel::Rows);
    m_view->scrollTo(index);
}

QString Grid::footerText(int column) const {
    return m_sums->text(column);
}

void Grid::refreshFooter() {
    std::vector<QString> sums;
    const Formats formats(m_context.session.parameters);
    for (int i = 0; i < m_model->columnCount(); ++i) {
        const std::optional<Decimal> sum = m_model->sum(i);
        sums.push_back(sum ? formats.text(m_model->columns()[static_cast<size_t>(i)].kind, *sum)
                           : QString());
    }
    m_sums->setContents(QStringLiteral("记录数：%1").arg(m_model->rowCount()),
                        [sums = std::move(sums)](int column) {
                            const auto c = static_cast<size_t>(column);
                            return c < sums.size() ? sums[c] : QString();
                        });
}

std::vector<int> Grid::visibleColumns() const {
    const QHeaderView *header = m_view->horizontalHeader();
    std::vector<int> columns;
    for (int place = 0; place < header->count(); ++place)
        if (const int column = header->logicalIndex(place); !header->isSectionHidden(column))
            columns.push_back(column);
    return columns;
}

GridPicture Grid::picture() const {
    GridPicture picture{m_title, m_notes, {}, {}, {}, {}};
    const std::vector<int> columns = visibleColumns();
    bool anySum = false;
    for (const int column : columns) {
        ColumnSpec spec = m_model->columns()[static_cast<size_t>(column)];
        spec.width = m_view->columnWidth(column);
        picture.columns.push_back(spec);
        picture.sums << footerText(column);
        anySum = anySum || spec.sum;
    }
    if (!anySum)
        picture.sums.clear();
    for (int line = 0; line < m_model->rowCount(); ++line) {
        QStringList texts;
        std::vector<Decimal> values;
        const Row &row = m_model->at(line);
        for (size_t i = 0; i < columns.size(); ++i) {
            texts << m_model->cellText(line, columns[i]);
            values.push_back(isNumber(picture.columns[i].kind)
                                 ? row.decimal(picture.columns[i].field)
                                 : Decimal());
        }
        picture.rows.push_back(texts);
        picture.values.push_back(std::move(values));
    }
    return picture;
}

/// One row: the cell under the cursor; several: a table with its header, as spreadsheets take it.
void Grid::copySelection() const {
    QModelIndexList lines = m_view->selectionModel()->selectedRows();
    if (lines.isEmpty())
        return;
    if (lines.size() == 1) {
        QApplication::clipboard()->setText(m_view->currentIndex().data().toString());
        return;
    }
    std::sort(lines.begin(), lines.end());
    const std::vector<int> columns = visibleColumns();
    QStringList text, line;
    for (const int column : columns)
        line << m_model->columns()[static_cast<size_t>(column)].caption;
    text << line.join(u'\t');
    for (const QModelIndex &index : lines) {
        line.clear();
        for (const int column : columns)
            line << m_model->cellText(index.row(), column);
        text << line.join(u'\t');
    }
    QApplication::clipboard()->setText(text.join(u'\n'));
}

void Grid::exportTo(const QString &file) {
    m_pieces->finish();
    exportAndTell(picture(), m_context, file);
}

void Grid::chooseExport() {
    m_pieces->finish();
    chooseExportFile(picture(), m_context, m_title.isEmpty() ? m_name : m_title, this);
}

void Grid::print() {
    m_pieces->finish();
    previewGrid(picture(), m_context, this);
}

void Grid::saveLayout() {
    const QHeaderView *header = m_view->horizontalHeader();
    std::vector<ColumnLayout> columns;
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        const bool visible = !header->isSectionHidden(column);
        columns.push_back({m_model->columns()[static_cast<size_t>(column)].field,
                           visible ? header->sectionSize(column) : 0, visible});
    }
    m_layoutKept = LayoutStore(m_context.home, m_name).save(columns);
    m_context.prompter.inform(m_layoutKept ? QStringLiteral("布局调整成功！")
                                           : QStringLiteral("布局不能保存，请检查文件夹是否可写！"),
                              informCaption);
}

void Grid::restoreLayout() {
    QHeaderView *header = m_view->horizontalHeader();
    const ColumnSpecs &columns = m_model->columns();
    for (int i = 0; i < header->count(); ++i) {
        const ColumnSpec &column = columns[static_cast<size_t>(i)];
        header->setSectionHidden(i, column.hidden);
        header->resizeSection(i, usualWidth(column));
    }
    int place = 0;
    for (const ColumnLayout &kept : LayoutStore(m_context.home, m_name).load()) {
        m_layoutKept = true;
        const auto found = std::find_if(columns.begin(), columns.end(),
                                        [&](const ColumnSpec &c) { return c.field == kept.field; });
        if (found == columns.end())
            continue;
        const int column = static_cast<int>(found - columns.begin());
        header->moveSection(header->visualIndex(column), place++);
        header->setSectionHidden(column, !kept.visible);
        if (kept.width > 0)
            header->resizeSection(column, kept.width);
    }
    if (!m_layoutKept)
        fitWidths();
}

void Grid::resetLayout() {
    LayoutStore(m_context.home, m_name).forget();
    m_layoutKept = false;
    QHeaderView *header = m_view->horizontalHeader();
    for (int i = 0; i < header->count(); ++i)
        header->moveSection(header->visualIndex(i), i);
    restoreLayout();
}

/// Without a kept layout the columns share what room is left over; they never shrink.
void Grid::fitWidths() {
    QHeaderView *header = m_view->horizontalHeader();
    int needed = 0, elastic = 0;
    for (const int column : visibleColumns()) {
        const ColumnSpec &spec = m_model->columns()[static_cast<size_t>(column)];
        needed += usualWidth(spec);
        if (spec.kind == ValueKind::text)
            elastic += usualWidth(spec);
    }
    const int spare = m_view->viewport()->width() - needed;
    for (const int column : visibleColumns()) {
        const ColumnSpec &spec = m_model->columns()[static_cast<size_t>(column)];
        const int width = usualWidth(spec);
        const bool grows = spare > 0 && elastic > 0 && spec.kind == ValueKind::text;
        header->resizeSection(column, grows ? width + spare * width / elastic : width);
    }
}

void Grid::sortBy(int column) {
    QHeaderView *header = m_view->horizontalHeader();
    const bool same = header->isSortIndicatorShown() && header->sortIndicatorSection() == column;
    // Up, down, and back to the order in which the rows came.
    if (same && header->sortIndicatorOrder() == Qt::DescendingOrder) {
        header->setSortIndicatorShown(false);
        header->setSortIndicator(-1, Qt::AscendingOrder);
        m_model->sort(-1, Qt::AscendingOrder);
    } else {
        const Qt::SortOrder order = same ? Qt::DescendingOrder : Qt::AscendingOrder;
        header->setSortIndicatorShown(true);
        header->setSortIndicator(column, order);
        m_model->sort(column, order);
    }
    goToLine(0);
}

void Grid::addColumnActions(QMenu &menu) {
    QMenu *columns = menu.addMenu(QStringLiteral("显示列"));
    QHeaderView *header = m_view->horizontalHeader();
    for (int i = 0; i < header->count(); ++i) {
        QAction *action = columns->addAction(m_model->columns()[static_cast<size_t>(i)].caption);
        action->setCheckable(true);
        action->setChecked(!header->isSectionHidden(i));
        connect(action, &QAction::toggled, header, [this, header, i](bool on) {
            if (!on && visibleColumns().size() <= 1)
                return;
            header->setSectionHidden(i, !on);
            m_sums->update();
        });
    }
    menu.addAction(QStringLiteral("保存布局"), this, &Grid::saveLayout);
    menu.addAction(QStringLiteral("恢复默认布局"), this, &Grid::resetLayout);
}

void Grid::openHeaderMenu(const QPoint &at) {
    QMenu menu(this);
    addColumnActions(menu);
    menu.exec(m_view->horizontalHeader()->mapToGlobal(at));
}

void Grid::openBodyMenu(const QPoint &at) {
    QMenu menu(this);
    for (QAction *action : std::as_const(m_ownActions))
        if (!action->text().isEmpty()) // some are there for their key alone
            menu.addAction(action);
    if (!menu.isEmpty())
        menu.addSeparator();
    menu.addAction(QStringLiteral("复制\tCtrl+C"), this, &Grid::copySelection);
    menu.addAction(QStringLiteral("筛选\tCtrl+F"), this, [this] { startFilter(); });
    menu.addAction(QStringLiteral("导出…"), this, &Grid::chooseExport);
    menu.addAction(QStringLiteral("打印…"), this, &Grid::print);
    QMenu *layout = menu.addMenu(QStringLiteral("布局"));
    addColumnActions(*layout);
    menu.exec(m_view->viewport()->mapToGlobal(at));
}

void Grid::startFilter(const QString &firstKeys) {
    m_filter->show();
    m_filter->setFocus();
    if (!firstKeys.isEmpty())
        m_filter->setText(firstKeys);
    else
        m_filter->selectAll();
}

bool Grid::filterKey(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        m_filter->clear();
        m_filter->hide();
        m_view->setFocus();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        m_view->setFocus();
        return true;
    default:
        return false;
    }
}

bool Grid::eventFilter(QObject *watched, QEvent *event) {
    // Also when a scroll bar comes or goes.
    if (event->type() == QEvent::Resize && watched == m_view->viewport() && !m_layoutKept)
        QTimer::singleShot(0, this, [this] {
            if (!m_layoutKept)
                fitWidths();
        });
    if (event->type() != QEvent::KeyPress || watched == m_view->viewport())
        return QWidget::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (watched == m_filter)
        return filterKey(key);
    if (key->matches(QKeySequence::Copy)) {
        copySelection();
        return true;
    }
    if (key->matches(QKeySequence::Find)) {
        startFilter();
        return true;
    }
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        if (current() != nullptr)
            Q_EMIT activated();
        return true;
    }
    if (key->key() == Qt::Key_Escape && m_filter->isVisible())
        return filterKey(key);
    if (key->key() == Qt::Key_Space && m_model->isTickable()) {
        for (const QModelIndex &index : m_view->selectionModel()->selectedRows())
            m_model->tick(index.row(), !m_model->isTicked(index.row()));
        return true;
    }
    // Any letter begins the filter.
    if (!key->text().isEmpty() && key->text().front().isPrint() &&
        key->text() != QLatin1String(" ") &&
        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        startFilter(key->text());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace jxc
