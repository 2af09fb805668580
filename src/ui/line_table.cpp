#include "ui/line_table.h"

#include "core/prompter.h"
#include "core/session.h"
#include "ui/layout_store.h"
#include "ui/line_delegate.h"
#include "ui/sums_row.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSettings>

namespace jxc {

namespace {

constexpr int lineHeight = 32;

int widthOf(const ColumnSpec &spec) {
    return spec.width > 0 ? spec.width : 92;
}

} // namespace

LineTable::LineTable(const FormContext &context, const QString &name, DocumentLines *lines,
                     QWidget *parent)
    : QTableView(parent)
    , m_context(context)
    , m_lines(lines)
    , m_name(name) {
    setObjectName(name);
    setModel(lines);
    setItemDelegate(new LineDelegate(this));
    setSelectionBehavior(SelectItems);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | SelectedClicked | AnyKeyPressed);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setFixedWidth(40);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    m_sums = new SumsRow(horizontalHeader(), parent);
    connect(horizontalHeader(), &QHeaderView::customContextMenuRequested, this,
            &LineTable::openMenu);
    connect(lines, &DocumentLines::edited, this, &LineTable::refreshSums);
    connect(lines, &QAbstractItemModel::modelReset, this, &LineTable::refreshSums);
    restoreLayout();
}

QWidget *LineTable::sumsRow() const {
    return m_sums;
}

void LineTable::refreshSums() {
    const Formats formats(m_context.session.parameters);
    QHash<int, QString> sums;
    if (const int c = m_lines->columnOf(LineField::quantity); c >= 0)
        sums[c] = formats.text(ValueKind::quantity, m_lines->quantity());
    if (const int c = m_lines->columnOf(LineField::total); c >= 0)
        sums[c] = formats.text(ValueKind::amount, m_lines->total());
    m_sums->setContents(QStringLiteral("共 %1 行").arg(m_lines->count()),
                        [sums](int column) { return sums.value(column); });
}

void LineTable::commitEditor() {
    if (state() != EditingState)
        return;
    QWidget *editor = indexWidget(currentIndex());
    if (editor == nullptr)
        editor = qobject_cast<QWidget *>(viewport()->focusWidget());
    if (editor == nullptr)
        return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    setFocus();
}

void LineTable::edit(int row, LineField field) {
    const int column = m_lines->columnOf(field);
    if (column < 0)
        return;
    setFocus();
    setCurrentIndex(m_lines->index(row, column));
    scrollTo(currentIndex());
    if (m_lines->flags(currentIndex()) & Qt::ItemIsEditable)
        edit(currentIndex());
}

void LineTable::startNextLine() {
    if (const int row = m_lines->blankRow(); row >= 0)
        edit(row, LineField::goods);
}

bool LineTable::isStop(int column) const {
    return m_stops[static_cast<size_t>(column)] && !isColumnHidden(column);
}

void LineTable::advance() {
    step(1);
}

void LineTable::retreat() {
    step(-1);
}

/// From cell to cell in the order shown, over the stops that can be typed in.
void LineTable::step(int direction) {
    const QHeaderView *header = horizontalHeader();
    int row = currentIndex().isValid() ? currentIndex().row() : 0;
    int place = currentIndex().isValid() ? header->visualIndex(currentIndex().column()) : -1;
    for (;;) {
        place += direction;
        if (place < 0 || place >= header->count()) {
            row += direction;
            if (row < 0 || row >= m_lines->rowCount()) {
                if (direction > 0)
                    Q_EMIT finished();
                return;
            }
            place = direction > 0 ? 0 : header->count() - 1;
        }
        const int column = header->logicalIndex(place);
        const QModelIndex index = m_lines->index(row, column);
        if (!isStop(column) || !(m_lines->flags(index) & Qt::ItemIsEditable))
            continue;
        setFocus();
        setCurrentIndex(index);
        scrollTo(index);
        edit(index);
        return;
    }
}

void LineTable::moveRow(int by) {
    const int row = qBound(0, currentRow() + by, m_lines->rowCount() - 1);
    int column = currentIndex().column();
    if (m_lines->isBlank(row))
        column = qMax(0, m_lines->columnOf(LineField::goods));
    const QModelIndex index = m_lines->index(row, column);
    setFocus();
    setCurrentIndex(index);
    scrollTo(index);
    if (m_lines->flags(index) & Qt::ItemIsEditable)
        edit(index);
}

void LineTable::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentIndex().isValid() && m_lines->isBlank(currentRow()))
            Q_EMIT finished();
        else
            advance();
        return;
    case Qt::Key_Tab:
        advance();
        return;
    case Qt::Key_Backtab:
        retreat();
        return;
    case Qt::Key_Escape:
        event->ignore();
        return; // the form leaves
    default:
        QTableView::keyPressEvent(event);
    }
}

void LineTable::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QTableView::currentChanged(current, previous);
    if (current.row() != previous.row())
        Q_EMIT currentRowChanged(current.row());
}

void LineTable::restoreLayout() {
    const auto &columns = m_lines->columns();
    m_stops.clear();
    for (size_t i = 0; i < columns.size(); ++i) {
        m_stops.push_back(columns[i].isStop);
        setColumnWidth(static_cast<int>(i), widthOf(columns[i].spec));
        setColumnHidden(static_cast<int>(i), columns[i].spec.hidden);
    }
    int place = 0;
    for (const ColumnLayout &kept : LayoutStore(m_context.home, m_name).load()) {
        for (size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].spec.field != kept.field)
                continue;
            const int column = static_cast<int>(i);
            horizontalHeader()->moveSection(horizontalHeader()->visualIndex(column), place++);
            setColumnHidden(column, !kept.visible);
            if (kept.width > 0)
                setColumnWidth(column, kept.width);
        }
    }
    const QStringList stops = LayoutStore(m_context.home, m_name).list(QStringLiteral("stops"));
    for (size_t i = 0; i < columns.size() && !stops.isEmpty(); ++i)
        m_stops[i] = stops.contains(columns[i].spec.field);
}

void LineTable::saveLayout() {
    std::vector<ColumnLayout> kept;
    QStringList stops;
    for (int place = 0; place < horizontalHeader()->count(); ++place) {
        const int column = horizontalHeader()->logicalIndex(place);
        const QString field = m_lines->columnAt(column).spec.field;
        const bool visible = !isColumnHidden(column);
        kept.push_back({field, visible ? columnWidth(column) : 0, visible});
        if (m_stops[static_cast<size_t>(column)])
            stops << field;
    }
    const LayoutStore store(m_context.home, m_name);
    const bool done = store.save(kept) && store.saveList(QStringLiteral("stops"), stops);
    m_context.prompter.inform(done ? QStringLiteral("布局调整成功！")
                                   : QStringLiteral("布局不能保存，请检查文件夹是否可写！"),
                              informCaption);
}

/// Which columns show, and at which of them Enter stops.
void LineTable::openMenu(const QPoint &at) {
    QMenu menu(this);
    QMenu *shown = menu.addMenu(QStringLiteral("显示列"));
    QMenu *stops = menu.addMenu(QStringLiteral("录入顺序（回车停留）"));
    for (int place = 0; place < horizontalHeader()->count(); ++place) {
        const int column = horizontalHeader()->logicalIndex(place);
        const LineColumn &spec = m_lines->columnAt(column);
        QAction *show = shown->addAction(spec.spec.caption);
        show->setCheckable(true);
        show->setChecked(!isColumnHidden(column));
        connect(show, &QAction::toggled, this,
                [this, column](bool on) { setColumnHidden(column, !on); });
        if (!spec.editable)
            continue;
        QAction *stop = stops->addAction(spec.spec.caption);
        stop->setCheckable(true);
        stop->setChecked(m_stops[static_cast<size_t>(column)]);
        connect(stop, &QAction::toggled, this,
                [this, column](bool on) { m_stops[static_cast<size_t>(column)] = on; });
    }
    menu.addAction(QStringLiteral("保存布局"), this, &LineTable::saveLayout);
    menu.addAction(QStringLiteral("恢复默认布局"), this, [this] {
        LayoutStore(m_context.home, m_name).forget();
        for (int i = 0; i < horizontalHeader()->count(); ++i)
            horizontalHeader()->moveSection(horizontalHeader()->visualIndex(i), i);
        restoreLayout();
    });
    menu.exec(horizontalHeader()->mapToGlobal(at));
}

} // namespace jxc
