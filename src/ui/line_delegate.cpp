#include "ui/line_delegate.h"

#include "core/session.h"
#include "ui/date_field.h"
#include "ui/line_table.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"

#include <QApplication>
#include <QKeyEvent>

namespace jxc {

bool isBehindDialog(const QWidget &editor, const QEvent &event) {
    const QWidget *modal = QApplication::activeModalWidget();
    return event.type() == QEvent::FocusOut && modal != nullptr && modal != editor.window();
}

LineDelegate::LineDelegate(LineTable *table)
    : QStyledItemDelegate(table)
    , m_table(table) {}

QWidget *LineDelegate::goodsEditor(QWidget *parent, int row) const {
    auto *field =
        new PickField(m_table->goodsSource(), Formats(m_table->lines().formatsOf()), parent);
    connect(field, &PickField::chosen, m_table, [this, field, row](const Row &goods) {
        Q_EMIT m_table->goodsPicked(row, goods, field->typedText());
    });
    connect(field, &PickField::notFound, m_table, &LineTable::goodsNotFound);
    return field;
}

/// The units of the goods, to choose from by name.
QWidget *LineDelegate::unitEditor(QWidget *parent, int row) const {
    const std::vector<UnitChoice> units = m_table->lines().at(row).info.units;
    const auto columns = std::make_shared<const Columns>(
        std::vector<QString>{QStringLiteral("dw_name"), QStringLiteral("g_zhxs")});
    const auto rowsFor = [units, columns](const QString &typed) {
        Rows rows;
        for (const UnitChoice &unit : units)
            if (unit.name.contains(typed))
                rows.emplace_back(columns, std::vector<Cell>{unit.name, unit.factor});
        return rows;
    };
    PickSource source;
    source.columns = {text(u"dw_name", u"单位", 72),
                      column(u"g_zhxs", u"换算系数", ValueKind::factor, 88)};
    source.codeField = source.nameField = QStringLiteral("dw_name");
    source.search = rowsFor;
    source.find = [rowsFor](const QString &name) -> std::optional<Row> {
        const Rows rows = rowsFor(name);
        return rows.empty() ? std::nullopt : std::optional<Row>(rows.front());
    };
    return new PickField(source, Formats(m_table->lines().formatsOf()), parent);
}

QWidget *LineDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &index) const {
    const LineColumn &column = m_table->lines().columnAt(index.column());
    QWidget *editor = nullptr;
    if (column.field == LineField::goods) {
        editor = goodsEditor(parent, index.row());
    } else if (column.field == LineField::unit) {
        editor = unitEditor(parent, index.row());
    } else if (isNumber(column.spec.kind)) {
        editor = new NumberField(column.spec.kind, Formats(m_table->lines().formatsOf()), parent);
    } else if (column.spec.kind == ValueKind::date) {
        editor = new DateField(m_table->lines().today(), parent);
    } else {
        auto *line = new QLineEdit(parent);
        line->setMaxLength(column.field == LineField::batch ? 30 : 100);
        editor = line;
    }
    // By its class, or the list that drops down from it would look so too.
    editor->setStyleSheet(
        QStringLiteral("QLineEdit { border-radius: 0; min-height: 0; padding: 0 8px; }"));
    return editor;
}

/// The whole cell: the view would leave out the padding of its texts.
void LineDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex &) const {
    editor->setGeometry(option.rect);
}

void LineDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
    const QString text = m_table->lines().data(index, Qt::EditRole).toString();
    if (auto *pick = qobject_cast<PickField *>(editor)) {
        pick->setChoice(text, text);
    } else if (auto *number = qobject_cast<NumberField *>(editor)) {
        if (const Decimal value = typedNumber(text); !value.isZero())
            number->setValue(value);
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(text);
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->selectAll();
}

void LineDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                const QModelIndex &index) const {
    const LineField field = m_table->lines().columnAt(index.column()).field;
    if (field == LineField::goods)
        return; // taken when it was picked
    QString text = static_cast<QLineEdit *>(editor)->text();
    if (auto *pick = qobject_cast<PickField *>(editor))
        text = pick->code();
    if (auto *date = qobject_cast<DateField *>(editor))
        text = date->date();
    if (model->setData(index, text, Qt::EditRole))
        Q_EMIT m_table->cellDone(index.row(), field);
}

/// Takes what was typed; false when it means nothing and the cell stays open.
bool LineDelegate::take(QWidget *editor) {
    if (auto *pick = qobject_cast<PickField *>(editor)) {
        if (pick->isTyped() && !pick->commitTyped())
            return false;
    }
    // Picking a goods may have opened a dialog, or the next line: this editor is closed then.
    if (isOpen(editor))
        Q_EMIT commitData(editor);
    return true;
}

bool LineDelegate::isOpen(QWidget *editor) const {
    return m_table->isEditing() && m_table->indexWidget(m_table->currentIndex()) == editor;
}

void LineDelegate::leave(QWidget *editor) {
    Q_EMIT closeEditor(editor, NoHint);
}

bool LineDelegate::enter(QWidget *editor, int direction) {
    const QModelIndex cell = m_table->currentIndex();
    const bool wasBlank = m_table->lines().isBlank(cell.row());
    if (!take(editor))
        return true;
    const bool stillHere = m_table->currentIndex() == cell;
    if (isOpen(editor))
        leave(editor);
    if (!stillHere || m_table->isEditing())
        return true;
    if (wasBlank && m_table->lines().isBlank(cell.row())) {
        if (direction > 0)
            Q_EMIT m_table->finished();
        else
            m_table->retreat();
        return true;
    }
    if (direction > 0)
        m_table->advance();
    else
        m_table->retreat();
    return true;
}

bool LineDelegate::eventFilter(QObject *watched, QEvent *event) {
    auto *editor = qobject_cast<QLineEdit *>(watched);
    if (editor != nullptr && isBehindDialog(*editor, *event))
        return false;
    if (editor == nullptr || event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    auto *pick = qobject_cast<PickField *>(editor);
    const bool listOpen = pick != nullptr && pick->isListOpen();
    const bool untouched = editor->hasSelectedText() && editor->selectedText() == editor->text();
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return enter(editor, 1);
    case Qt::Key_Tab:
        return enter(editor, 1);
    case Qt::Key_Backtab:
        return enter(editor, -1);
    case Qt::Key_Escape:
        if (listOpen)
            return false;
        Q_EMIT closeEditor(editor, RevertModelCache);
        m_table->setFocus();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (listOpen || key->modifiers() != Qt::NoModifier)
            return false;
        if (!take(editor))
            return true;
        leave(editor);
        m_table->moveRow(key->key() == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (listOpen || (!untouched && !editor->text().isEmpty()))
            return false;
        return enter(editor, key->key() == Qt::Key_Right ? 1 : -1);
    default:
        return QStyledItemDelegate::eventFilter(watched, event);
    }
}

} // namespace jxc
