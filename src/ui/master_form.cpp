#include "ui/master_form.h"

#include <QAction>
#include <QCheckBox>
#include <QMenu>
#include <QSet>
#include <QToolButton>

namespace jxc {

namespace {

const auto idField = QStringLiteral("id");

QString titleOf(const MasterKind &kind) {
    return kind.noun + (kind.table == QLatin1String("jxc_goods") ? QStringLiteral("管理")
                                                                 : QStringLiteral("设置"));
}

/// Names want room; codes do not; of ticks the caption is the wider part.
int widthOf(const MasterKind &kind, const MasterColumn &column) {
    if (column.kind == ValueKind::flag)
        return 24 + 14 * static_cast<int>(column.caption.size());
    if (column.kind != ValueKind::text)
        return 0;
    if (column.column == kind.nameColumn)
        return 196;
    if (column.column == kind.codeColumn || column.column == kind.mnemonicColumn)
        return 92;
    if (column.column == QLatin1String("dw_name"))
        return 64;
    if (column.column == QLatin1String("g_sptm"))
        return 136; // an EAN-13 in full
    return 0;
}

} // namespace

ColumnSpecs masterColumns(const MasterKind &kind) {
    ColumnSpecs columns;
    for (const MasterColumn &listed : kind.columns) {
        ColumnSpec spec{listed.column,         listed.caption, listed.kind,
                        widthOf(kind, listed), listed.sum,     listed.secrecy};
        if (const MasterField *field = kind.field(listed.column);
            field != nullptr && field->kind == ValueKind::choice)
            for (const Choice &choice : field->choices)
                spec.words.insert(choice.value, choice.caption);
        columns.push_back(spec);
    }
    return columns;
}

MasterForm::MasterForm(const FormContext &context, const MasterKind &kind, QWidget *parent)
    : ListForm(context, kind.form, titleOf(kind), parent)
    , m_kind(kind) {
    showKindColumns();
    grid().model().setTone([](const Row &row, const ColumnSpec &) {
        return row.flag(u"disabled") ? Tone::quiet : Tone::plain;
    });
    connect(&grid(), &Grid::activated, this, &MasterForm::btnModiClick);
}

void MasterForm::showKindColumns() {
    setColumns(masterColumns(m_kind), idField);
}

void MasterForm::addRowActions() {
    addAction(QStringLiteral("btnAdd"), QStringLiteral("增加"), Qt::Key_Insert,
              [this] { btnAddClick(); });
    addAction(QStringLiteral("btnModi"), QStringLiteral("修改"), Qt::Key_F4,
              [this] { btnModiClick(); });
    addAction(QStringLiteral("btnDele"), QStringLiteral("删除"), Qt::Key_Delete,
              [this] { btnDeleClick(); });
    addAction(QStringLiteral("btnFind"), QStringLiteral("查询"), Qt::Key_F5, [this] { refresh(); });
}

void MasterForm::addListActions() {
    if (context().stage.isKnown(m_kind.form + QStringLiteral("_Import")))
        addAction(QStringLiteral("btnImport"), QStringLiteral("导入"), {},
                  [this] { btnImportClick(); });
    addCommonActions();
    addDisabledBox();
    addSmallLists();
}

void MasterForm::addDisabledBox() {
    if (m_kind.disabledColumn.isEmpty())
        return;
    m_disabled = new QCheckBox(QStringLiteral("显示禁用(&D)"), this);
    m_disabled->setObjectName(QStringLiteral("chkDisabled"));
    m_disabled->setFocusPolicy(Qt::NoFocus);
    connect(m_disabled, &QCheckBox::toggled, this, &MasterForm::refresh);
    addFilter(m_disabled);
}

/// The lists that the fields are picked from.
void MasterForm::addSmallLists() {
    QSet<QString> seen;
    for (const MasterField &field : m_kind.fields) {
        const MasterKind *list = findMasterKind(field.pick.table);
        if (list == nullptr || !list->isSmallList || seen.contains(list->table))
            continue;
        seen.insert(list->table);
        addToLists(list->noun, list->form);
    }
}

void MasterForm::addToLists(const QString &caption, const QString &form) {
    if (m_lists == nullptr)
        addListsButton();
    QAction *action =
        m_lists->addAction(caption, this, [this, form] { context().stage.openForm(form, {}); });
    action->setEnabled(context().stage.isKnown(form));
}

void MasterForm::addListsButton() {
    m_lists = new QMenu(this);
    auto *button = new QToolButton(this);
    button->setObjectName(QStringLiteral("btnLists"));
    button->setText(QStringLiteral("基础资料 Alt+B ▾"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setShortcut(QKeySequence(QStringLiteral("Alt+B")));
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(m_lists);
    addFilter(button);
}

QAction *MasterForm::addLink(const char16_t *name, const QString &caption, const QKeySequence &key,
                             const QString &form) {
    QAction *action = addAction(QString::fromUtf16(name), caption, key,
                                [this, form] { context().stage.openForm(form, {}); });
    if (!context().stage.isKnown(form)) {
        action->setEnabled(false);
        action->setToolTip(QStringLiteral("尚未提供"));
    }
    return action;
}

/// Filters stand at the left of their line, and it ends behind the last of them.
void MasterForm::addFilter(QWidget *filter) {
    QBoxLayout *line = filterLine();
    if (line->count() == 0)
        line->addStretch(1);
    line->insertWidget(line->count() - 1, filter);
}

Rows MasterForm::read(const QString &search) {
    ListRequest request;
    request.search = search;
    request.showDisabled = m_disabled != nullptr && m_disabled->isChecked();
    request.filters = filters();
    return listRecords(session(), m_kind, request);
}

qint64 MasterForm::currentId() const {
    const Row *row = const_cast<MasterForm *>(this)->grid().current(); // NOLINT
    return row != nullptr ? row->integer(u"id") : 0;
}

void MasterForm::openEditor(RecordEditor *editor) {
    m_editor = editor;
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &RecordEditor::stored, this, [this](qint64 id) {
        goToAfterRefresh(QString::number(id));
        refresh();
    });
    connect(editor, &QDialog::finished, this, [this] { grid().setFocus(); });
    editor->showModal();
}

void MasterForm::prepareNew(RecordEditor &editor) {
    editor.startNew();
}

void MasterForm::btnAddClick() {
    RecordEditor *editor = makeRecordEditor(context(), m_kind, this);
    prepareNew(*editor);
    openEditor(editor);
}

void MasterForm::btnModiClick() {
    const qint64 id = currentId();
    if (id == 0) {
        tellNoRow(prompter());
        return;
    }
    RecordEditor *editor = makeRecordEditor(context(), m_kind, this);
    if (editor->startStored(id)) {
        openEditor(editor);
    } else {
        delete editor;
        refresh();
    }
}

void MasterForm::btnDeleClick() {
    const qint64 id = currentId();
    if (id == 0) {
        tellNoRow(prompter());
        return;
    }
    const QString code =
        m_kind.codeColumn.isEmpty() ? QString() : grid().currentText(m_kind.codeColumn);
    if (!show(deleteRecord(session(), prompter(), m_kind, id)))
        return;
    deleted(code);
    const int line = grid().view().currentIndex().row();
    refresh();
    grid().goToLine(qMin(line, grid().model().rowCount() - 1));
}

void MasterForm::btnImportClick() {
    Form *import = context().stage.openForm(m_kind.form + QStringLiteral("_Import"), {});
    if (import != nullptr)
        connect(import, &QDialog::finished, this, &MasterForm::refresh, Qt::UniqueConnection);
}

PlainMasterForm::PlainMasterForm(const FormContext &context, const MasterKind &kind,
                                 QWidget *parent)
    : MasterForm(context, kind, parent) {
    addRowActions();
    addListActions();
}

} // namespace jxc
