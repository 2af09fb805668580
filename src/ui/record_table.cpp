#include "ui/record_table.h"

#include "core/prompter.h"
#include "ui/layout_store.h"
#include "ui/record_delegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>

namespace jxc {

namespace {

constexpr int lineHeight = 30;

int usualWidth(const MasterField &field, bool onlyOne) {
    if (field.kind == ValueKind::flag)
        return 84;
    if (isNumber(field.kind))
        return 96;
    if (field.kind == ValueKind::date)
        return 116;
    return onlyOne ? 240 : 144;
}

} // namespace

RecordTable::RecordTable(const FormContext &context, const QString &name, const QString &table,
                         RecordRows *rows, QWidget *parent)
    : QTableView(parent)
    , m_context(context)
    , m_name(name)
    , m_table(table)
    , m_rows(rows) {
    setObjectName(name);
    setModel(rows);
    setItemDelegate(new RecordDelegate(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed | SelectedClicked);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setMinimumWidth(36);
    setCornerButtonEnabled(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsMovable(true);
    horizontalHeader()->setStretchLastSection(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
    restoreLayout();
}

std::optional<PickSource> RecordTable::pickSource(const QString &column) const {
    const auto found = m_sources.constFind(column);
    return found == m_sources.constEnd() ? std::nullopt : std::optional(*found);
}

bool RecordTable::commitEditor() {
    if (!isEditing())
        return true;
    QWidget *editor = indexWidget(currentIndex());
    auto *delegate = static_cast<RecordDelegate *>(itemDelegate());
    return editor == nullptr || delegate->finish(editor);
}

void RecordTable::edit(int row, int column) {
    if (row < 0 || row >= m_rows->rowCount())
        return;
    const QModelIndex cell = m_rows->index(row, column);
    setCurrentIndex(cell);
    scrollTo(cell);
    setFocus();
    // Whoever hears that a row was left may have sent the cursor back.
    if (currentIndex() == cell && (m_rows->flags(cell) & Qt::ItemIsEditable))
        edit(cell);
}

int RecordTable::nextCell(int row, int column, int direction) const {
    const QHeaderView *header = horizontalHeader();
    for (int place = header->visualIndex(column) + direction; place >= 0 && place < header->count();
         place += direction) {
        const int next = header->logicalIndex(place);
        if (!header->isSectionHidden(next) && m_rows->isEditable(row, next))
            return next;
    }
    return -1;
}

void RecordTable::startNewRow() {
    const int row = m_rows->rowCount() - 1;
    for (int place = 0; place < m_rows->columnCount(); ++place)
        if (const int column = horizontalHeader()->logicalIndex(place);
            !isColumnHidden(column) && m_rows->isEditable(row, column)) {
            edit(row, column);
            return;
        }
}

void RecordTable::advance(int direction) {
    const QModelIndex cell = currentIndex();
    if (!cell.isValid()) {
        startNewRow();
        return;
    }
    if (direction > 0 && m_rows->isBlank(cell.row())) {
        Q_EMIT finished();
        return;
    }
    int row = cell.row();
    int column = nextCell(row, cell.column(), direction);
    if (column < 0) {
        row += direction;
        const QHeaderView *header = horizontalHeader();
        const int edge = header->logicalIndex(direction > 0 ? 0 : header->count() - 1);
        column = m_rows->isEditable(row, edge) ? edge : nextCell(row, edge, direction);
    }
    if (column >= 0)
        edit(row, column);
}

void RecordTable::keyPressEvent(QKeyEvent *event) {
    const QModelIndex cell = currentIndex();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (cell.isValid() && !isEditing() && (m_rows->flags(cell) & Qt::ItemIsEditable))
            edit(cell);
        else
            advance();
        return;
    case Qt::Key_Delete:
        if (!m_deletable || event->modifiers() != Qt::ControlModifier)
            break;
        m_rows->removeRecord(cell.row());
        return;
    case Qt::Key_Escape:
        event->ignore(); // the form knows what there is to undo
        return;
    default:
        break;
    }
    // A function key is the form's, not the beginning of a word.
    if (event->key() >= Qt::Key_F3 && event->key() <= Qt::Key_F35) {
        event->ignore();
        return;
    }
    QTableView::keyPressEvent(event);
}

void RecordTable::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QTableView::currentChanged(current, previous);
    if (previous.isValid() && current.row() != previous.row())
        Q_EMIT rowLeft(previous.row());
}

void RecordTable::saveLayout() {
    std::vector<ColumnLayout> columns;
    const QHeaderView *header = horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        columns.push_back({m_rows->field(column).column, header->sectionSize(column), true});
    }
    const bool kept = LayoutStore(m_context.home, m_name).save(columns);
    m_context.prompter.inform(kept ? QStringLiteral("布局调整成功！")
                                   : QStringLiteral("布局不能保存，请检查文件夹是否可写！"),
                              informCaption);
}

void RecordTable::restoreLayout() {
    QHeaderView *header = horizontalHeader();
    for (int i = 0; i < m_rows->columnCount(); ++i)
        header->resizeSection(i, usualWidth(m_rows->field(i), m_rows->columnCount() <= 3));
    int place = 0;
    for (const ColumnLayout &kept : LayoutStore(m_context.home, m_name).load()) {
        const int column = m_rows->columnOf(kept.field);
        if (column < 0)
            continue;
        header->moveSection(header->visualIndex(column), place++);
        if (kept.width > 0)
            header->resizeSection(column, kept.width);
    }
}

void RecordTable::resetLayout() {
    LayoutStore(m_context.home, m_name).forget();
    QHeaderView *header = horizontalHeader();
    for (int i = 0; i < header->count(); ++i)
        header->moveSection(header->visualIndex(i), i);
    restoreLayout();
}

GridPicture RecordTable::picture(const QString &title) const {
    GridPicture picture{title, {}, {}, {}, {}, {}};
    const QHeaderView *header = horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        const MasterField &field = m_rows->field(column);
        picture.columns.push_back(
            {field.column, field.caption, field.kind, header->sectionSize(column)});
    }
    for (int row = 0; !m_rows->isBlank(row); ++row) {
        QStringList texts;
        std::vector<Decimal> values;
        for (const ColumnSpec &spec : picture.columns) {
            const int column = m_rows->columnOf(spec.field);
            const QString text = m_rows->record(row).text(spec.field);
            texts << m_rows->cellText(row, column);
            values.push_back(isNumber(spec.kind) && !text.isEmpty() ? Decimal::fromText(text)
                                                                    : Decimal());
        }
        picture.rows.push_back(texts);
        picture.values.push_back(std::move(values));
    }
    return picture;
}

} // namespace jxc
