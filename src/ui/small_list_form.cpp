#include "ui/small_list_form.h"

#include "core/prompter.h"
#include "core/session.h"
#include "master/record_list.h"
#include "ui/grid_export.h"
#include "ui/grid_print.h"
#include "ui/list_form.h"
#include "ui/record_table.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>

namespace jxc {

SmallListForm::SmallListForm(const FormContext &context, const MasterKind &kind, QWidget *parent)
    : Form(context, kind.form, kind.noun, parent)
    , m_kind(kind)
    , m_rows(new RecordRows(
          kind.fields, Formats(context.session.parameters),
          [this] { return newRecord(session(), m_kind); }, this))
    , m_table(new RecordTable(context, kind.form, kind.table, m_rows, this))
    , m_bar(new ActionBar(this))
    , m_search(new QLineEdit(this)) {
    addActions(*m_bar);
    addRelated();
    m_search->setPlaceholderText(QStringLiteral("查找 F3"));
    m_search->setClearButtonEnabled(true);
    m_search->setFixedWidth(160);
    m_search->setMaxLength(100);
    m_bar->addRight(m_search);
    auto *hint = new QLabel(
        QStringLiteral("直接在表格中录入：最后一行增加，离开该行即保存，Esc 撤消该行。"), this);
    hint->setProperty("quiet", true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(12, 8, 12, 12);
    column->setSpacing(8);
    column->addWidget(m_bar);
    column->addWidget(m_table, 1);
    column->addWidget(hint);
    // What has expired may not be sold by.
    m_rows->setDanger([this](const Record &record, const MasterField &field) {
        const QString date = record.text(field.column);
        return field.kind == ValueKind::date && !date.isEmpty() && date < session().today();
    });
    m_table->setDeletable(false);
    connect(m_table, &RecordTable::rowLeft, this, [this](int row) { saveRow(row); });
    connect(m_table, &QWidget::customContextMenuRequested, this, &SmallListForm::openMenu);
    connect(m_search, &QLineEdit::textChanged, this, [this] {
        if (saveCurrent())
            refresh();
    });
    resize(760, 520);
}

void SmallListForm::addActions(ActionBar &bar) {
    const auto add = [&](const char16_t *name, const char16_t *caption, const QKeySequence &key,
                         std::function<void()> run) {
        m_actions << bar.add(QString::fromUtf16(name), QString::fromUtf16(caption), key,
                             std::move(run));
    };
    add(u"btnAdd", u"增加", Qt::Key_Insert, [this] { btnAddClick(); });
    add(u"btnModi", u"修改", Qt::Key_F4, [this] { btnModiClick(); });
    add(u"btnDele", u"删除", Qt::Key_Delete, [this] { btnDeleClick(); });
    add(u"btnFind", u"查询", Qt::Key_F5, [this] { btnFindClick(); });
    add(u"btnPrint", u"打印", Qt::Key_F12,
        [this] { previewGrid(m_table->picture(windowTitle()), context(), this); });
    add(u"btnExport", u"导出", QKeySequence(QStringLiteral("Ctrl+E")),
        [this] { btnExportClick(); });
    add(u"btnExit", u"退出", {}, [this] { reject(); });
    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    QWidget::addAction(find);
    connect(find, &QAction::triggered, m_search, qOverload<>(&QWidget::setFocus));
}

/// The watched kinds of goods are kept together with the other lists that the papers speak of.
void SmallListForm::addRelated() {
    if (m_kind.table != QLatin1String("jxc_gspcs"))
        return;
    for (const char16_t *table : {u"jxc_yjlx", u"jxc_tym", u"jxc_color", u"jxc_hjxx"}) {
        const MasterKind &list = masterKind(QString::fromUtf16(table));
        m_bar->add(list.form, list.noun, {},
                   [this, &list] { context().stage.openForm(list.form, {}); });
    }
}

void SmallListForm::openMenu(const QPoint &at) {
    QMenu menu(this);
    menu.addActions(m_actions);
    menu.addSeparator();
    QMenu *layout = menu.addMenu(QStringLiteral("布局"));
    layout->addAction(QStringLiteral("保存布局"), m_table, &RecordTable::saveLayout);
    layout->addAction(QStringLiteral("恢复默认布局"), m_table, &RecordTable::resetLayout);
    menu.exec(m_table->viewport()->mapToGlobal(at));
}

std::vector<Record> SmallListForm::read() const {
    ListRequest request;
    request.search = m_search->text().trimmed();
    request.showDisabled = true;
    std::vector<Record> records;
    for (const Row &row : listRecords(session(), m_kind, request)) {
        Record record;
        record.id = row.integer(u"id");
        for (const MasterField &field : m_kind.fields)
            record.set(field.column, isNumber(field.kind) ? row.decimal(field.column).toText()
                                     : field.kind == ValueKind::flag
                                         ? QString::number(row.flag(field.column) ? 1 : 0)
                                         : row.text(field.column));
        record.settle();
        records.push_back(record);
    }
    return records;
}

void SmallListForm::refresh() {
    m_busy = true;
    m_rows->setRecords(read());
    m_busy = false;
}

void SmallListForm::FormActivate() {
    m_chosen = {};
    refresh();
    if (m_choosing) {
        m_table->startNewRow();
        return;
    }
    m_table->setCurrentIndex(m_rows->index(0, m_rows->columnOf(m_kind.nameColumn)));
    m_table->setFocus();
}

void SmallListForm::startChoosing() {
    m_choosing = true;
    m_actions << m_bar->add(QStringLiteral("btnChoose"), QStringLiteral("选择"), Qt::Key_F6,
                            [this] { choose(); });
}

bool SmallListForm::saveRow(int row) {
    if (m_busy || m_rows->isBlank(row) || !m_rows->records()[static_cast<size_t>(row)].isChanged())
        return true;
    m_busy = true;
    Record record = m_rows->record(row);
    QString field;
    const bool added = record.isNew();
    const Outcome outcome = saveRecord(session(), prompter(), m_kind, record, &field);
    const bool saved = show(outcome);
    if (saved) {
        m_rows->setRecord(row, record);
        clearOtherDefaults(row);
        if (added)
            m_chosen = record;
    } else {
        // The cursor goes back when Qt is done with moving it.
        const int column = qMax(0, m_rows->columnOf(field));
        QTimer::singleShot(0, this, [this, row, column] {
            const bool before = std::exchange(m_busy, true);
            m_table->edit(row, column);
            m_busy = before;
        });
    }
    m_busy = false;
    return saved;
}

/// Saving a default row has taken the flag off the others; so it goes here.
void SmallListForm::clearOtherDefaults(int row) {
    if (m_kind.defaultColumn.isEmpty() || !m_rows->record(row).flag(m_kind.defaultColumn))
        return;
    for (int other = 0; !m_rows->isBlank(other); ++other) {
        Record record = m_rows->record(other);
        if (other == row || !record.flag(m_kind.defaultColumn))
            continue;
        record.set(m_kind.defaultColumn, QStringLiteral("0"));
        record.settle();
        m_rows->setRecord(other, record);
    }
}

bool SmallListForm::saveCurrent() {
    return m_table->commitEditor() && saveRow(m_table->currentIndex().row());
}

void SmallListForm::undo() {
    const int row = m_table->currentIndex().row();
    if (m_rows->isBlank(row))
        return;
    m_busy = true;
    if (m_rows->record(row).isNew()) {
        m_rows->removeRecord(row);
    } else if (const auto stored = loadRecord(session(), m_kind, m_rows->record(row).id)) {
        m_rows->setRecord(row, *stored);
    }
    m_busy = false;
}

/// Esc takes back what was typed in the row, and closes when there is nothing to take back.
void SmallListForm::keyPressEvent(QKeyEvent *event) {
    const int row = m_table->currentIndex().row();
    if (event->key() == Qt::Key_Escape && !m_rows->isBlank(row) && m_rows->record(row).isChanged())
        undo();
    else
        Form::keyPressEvent(event);
}

/// Closing stores what was typed; a refusal keeps the form open.
void SmallListForm::reject() {
    if (!saveCurrent())
        return;
    if (m_choosing && !m_chosen.isNew())
        QDialog::accept();
    else
        Form::reject();
}

bool SmallListForm::mayLeave() {
    return saveCurrent();
}

void SmallListForm::choose() {
    if (!m_choosing || !saveCurrent())
        return;
    const int row = m_table->currentIndex().row();
    if (m_rows->isBlank(row) && m_chosen.isNew()) {
        tellNoRow(prompter());
        return;
    }
    if (!m_rows->isBlank(row))
        m_chosen = m_rows->record(row);
    QDialog::accept();
}

void SmallListForm::goTo(qint64 id) {
    for (int row = 0; !m_rows->isBlank(row); ++row)
        if (m_rows->record(row).id == id)
            m_table->setCurrentIndex(m_rows->index(row, m_rows->columnOf(m_kind.nameColumn)));
}

void SmallListForm::btnAddClick() {
    if (saveCurrent())
        m_table->startNewRow();
}

void SmallListForm::btnModiClick() {
    const int row = m_table->currentIndex().row();
    if (m_rows->isBlank(row))
        tellNoRow(prompter());
    else
        m_table->edit(row, m_rows->columnOf(m_kind.nameColumn));
}

void SmallListForm::btnDeleClick() {
    const int row = m_table->currentIndex().row();
    if (m_rows->isBlank(row)) {
        tellNoRow(prompter());
        return;
    }
    const Record record = m_rows->record(row);
    if (record.isNew()) {
        undo();
        return;
    }
    if (!show(deleteRecord(session(), prompter(), m_kind, record.id)))
        return;
    refresh();
    m_table->setCurrentIndex(
        m_rows->index(qMin(row, m_rows->rowCount() - 1), m_rows->columnOf(m_kind.nameColumn)));
}

void SmallListForm::btnFindClick() {
    if (!saveCurrent())
        return;
    const int row = m_table->currentIndex().row();
    const qint64 id = m_rows->isBlank(row) ? 0 : m_rows->record(row).id;
    refresh();
    goTo(id);
    m_table->setFocus();
}

void SmallListForm::btnExportClick() {
    if (saveCurrent())
        chooseExportFile(m_table->picture(windowTitle()), context(), windowTitle(), this);
}

} // namespace jxc
