#include "ui/record_delegate.h"

#include "core/prompter.h"
#include "ui/field_input.h"
#include "ui/line_delegate.h"
#include "ui/pick_field.h"
#include "ui/record_table.h"

#include <QKeyEvent>

namespace jxc {

namespace {

FieldInput *inputOf(QWidget *editor) {
    return editor->findChild<FieldInput *>();
}

} // namespace

RecordDelegate::RecordDelegate(RecordTable *table)
    : QStyledItemDelegate(table)
    , m_table(table) {}

QWidget *RecordDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                      const QModelIndex &index) const {
    const MasterField &field = m_table->rows().field(index.column());
    auto *input = new FieldInput(m_table->context(), m_table->tableName(), field,
                                 FieldInput::Place::cell, parent);
    if (const auto source = m_table->pickSource(field.column))
        input->pick()->setSource(*source);
    QWidget *editor = input->widget();
    input->setParent(editor); // they go together
    editor->setStyleSheet(QStringLiteral("border-radius: 0; min-height: 0; padding: 0 7px;"));
    return editor;
}

void RecordDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
    FieldInput *input = inputOf(editor);
    // A row that changes while its field is open must not take the typed text away.
    if (input->isTouched())
        return;
    input->fill(m_table->rows().record(index.row()));
    if (QLineEdit *line = input->line())
        line->selectAll();
}

void RecordDelegate::setModelData(QWidget *editor, QAbstractItemModel *,
                                  const QModelIndex &index) const {
    const FieldInput *input = inputOf(editor);
    if (!input->isTouched())
        return;
    Record record = m_table->rows().record(index.row());
    input->collect(record);
    const Pick &pick = input->field().pick;
    if (!pick.shownAs.isEmpty())
        record.set(pick.shownAs, input->pick()->name());
    m_table->rows().setRecord(index.row(), record);
}

bool RecordDelegate::finish(QWidget *editor) {
    FieldInput *input = inputOf(editor);
    if (!input->commit()) {
        m_table->context().prompter.inform(input->field().caption + QStringLiteral("不存在！"),
                                           informCaption);
        return false;
    }
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, NoHint);
    return true;
}

bool RecordDelegate::eventFilter(QObject *watched, QEvent *event) {
    auto *editor = qobject_cast<QWidget *>(watched);
    if (editor != nullptr && isBehindDialog(*editor, *event))
        return false;
    if (editor == nullptr || event->type() != QEvent::KeyPress || inputOf(editor) == nullptr)
        return QStyledItemDelegate::eventFilter(watched, event);
    const PickField *pick = inputOf(editor)->pick();
    const bool listOpen = pick != nullptr && pick->isListOpen();
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        if (finish(editor))
            m_table->advance();
        return true;
    case Qt::Key_Backtab:
        if (finish(editor))
            m_table->advance(-1);
        return true;
    case Qt::Key_Escape:
        if (listOpen)
            return false;
        Q_EMIT closeEditor(editor, RevertModelCache);
        m_table->setFocus();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        // A choice is changed by these keys, and so is an open list; elsewhere they leave the row.
        if (listOpen || pick != nullptr || inputOf(editor)->line() == nullptr)
            return false;
        if (finish(editor)) {
            const QModelIndex cell = m_table->currentIndex();
            const int by = static_cast<QKeyEvent *>(event)->key() == Qt::Key_Up ? -1 : 1;
            m_table->edit(cell.row() + by, cell.column());
        }
        return true;
    default:
        return QStyledItemDelegate::eventFilter(watched, event);
    }
}

} // namespace jxc
