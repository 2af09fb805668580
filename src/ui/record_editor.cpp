#include "ui/record_editor.h"

#include "base/pinyin.h"
#include "core/prompter.h"
#include "core/session.h"
#include "db/fitted.h"
#include "db/schema.h"
#include "money/partner_opening.h"
#include "ui/pick_field.h"

#include <QKeyEvent>
#include <QPushButton>

namespace jxc {

namespace {

bool isPartner(const MasterKind &kind) {
    return kind.table == QLatin1String("jxc_ghsxx") || kind.table == QLatin1String("jxc_khxx");
}

} // namespace

RecordEditor::RecordEditor(const FormContext &context, const MasterKind &kind, QWidget *parent)
    : Form(context, kind.form + QStringLiteral("_Add"), kind.noun, parent)
    , m_kind(kind)
    , m_tabs(new FieldTabs(context, this))
    , m_ok(new QPushButton(QStringLiteral("确定 F5"), this)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(12);
    column->addWidget(m_tabs, 1);
    for (const MasterField &field : kind.fields)
        m_tabs->add(kind.table, field);
    m_tabs->finish();
    addButtons(column);
    if (FieldInput *name = input(kind.nameColumn); name != nullptr)
        connect(name, &FieldInput::edited, this, &RecordEditor::followName);
    if (FieldInput *mnemonic = input(kind.mnemonicColumn); mnemonic != nullptr)
        connect(mnemonic, &FieldInput::edited, this, [this] { m_mnemonicFollows = false; });
    resize(760, sizeHint().height());
}

void RecordEditor::addButtons(QBoxLayout *column) {
    auto *more = new QPushButton(QStringLiteral("确定并继续 F6"), this);
    auto *cancel = new QPushButton(QStringLiteral("取消 Esc"), this);
    m_ok->setObjectName(QStringLiteral("btnOK"));
    more->setObjectName(QStringLiteral("btnContinue"));
    cancel->setObjectName(QStringLiteral("btnCancel"));
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &RecordEditor::accept);
    connect(more, &QPushButton::clicked, this, &RecordEditor::saveAndContinue);
    connect(cancel, &QPushButton::clicked, this, &RecordEditor::reject);
    auto *row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *button : {m_ok, more, cancel})
        row->addWidget(button);
    column->addLayout(row);
}

void RecordEditor::makeNew() {
    m_record = newRecord(session(), m_kind);
}

bool RecordEditor::load(qint64 id) {
    const auto found =
        isPartner(m_kind) ? loadPartner(session(), m_kind, id) : loadRecord(session(), m_kind, id);
    if (found)
        m_record = *found;
    return found.has_value();
}

bool RecordEditor::loadCopy(qint64 id) {
    const auto found = loadRecord(session(), m_kind, id);
    if (found)
        m_record = copiedRecord(session(), m_kind, *found);
    return found.has_value();
}

Outcome RecordEditor::store(QString *field) {
    return isPartner(m_kind) ? savePartner(session(), prompter(), m_kind, m_record, field)
                             : saveRecord(session(), prompter(), m_kind, m_record, field);
}

void RecordEditor::startNew() {
    makeNew();
    fill();
}

bool RecordEditor::startStored(qint64 id) {
    const bool there = load(id);
    if (there)
        fill();
    else
        prompter().inform(recordChangedMeanwhile().text(), informCaption);
    return there;
}

bool RecordEditor::startCopy(qint64 id) {
    const bool there = loadCopy(id);
    if (there)
        fill();
    else
        prompter().inform(recordChangedMeanwhile().text(), informCaption);
    return there;
}

bool RecordEditor::isFixed(const MasterField &field) const {
    const Record &now = const_cast<RecordEditor *>(this)->record(); // NOLINT
    if (field.readOnly)
        return true;
    if (field.fixedOnceStored && !now.isNew())
        return true;
    return field.keptByLedger && !now.isNew() && !openingIsOpen(db(), openingPartner(m_kind, now));
}

void RecordEditor::fill() {
    m_tabs->fill(record());
    for (FieldInput *input : m_tabs->inputs())
        input->setReadOnly(isFixed(input->field()));
    const Record &now = record();
    const QString mnemonic = now.text(m_kind.mnemonicColumn);
    m_mnemonicFollows =
        !m_kind.mnemonicColumn.isEmpty() &&
        (mnemonic.isEmpty() || mnemonic == fitted(m_kind.table, m_kind.mnemonicColumn,
                                                  pinyinInitials(now.text(m_kind.nameColumn))));
    showTitle();
}

void RecordEditor::showTitle() {
    const QString what = record().isNew() ? QStringLiteral("增加") : QStringLiteral("修改");
    setWindowTitle(what + m_kind.noun);
}

/// The mnemonic code follows the name until somebody types one.
void RecordEditor::followName() {
    FieldInput *mnemonic = input(m_kind.mnemonicColumn);
    if (mnemonic == nullptr || !m_mnemonicFollows)
        return;
    mnemonic->line()->setText(fitted(m_kind.table, m_kind.mnemonicColumn,
                                     pinyinInitials(input(m_kind.nameColumn)->text())));
}

bool RecordEditor::collect() {
    if (const FieldInput *unknown = m_tabs->commit()) {
        prompter().inform(unknown->field().caption + QStringLiteral("不存在！"), informCaption);
        m_tabs->focus(*unknown);
        return false;
    }
    m_tabs->collect(record());
    return true;
}

bool RecordEditor::mayLeave() {
    // A picker that is left with half a word has said nothing yet.
    m_tabs->collect(record());
    return !isChanged() ||
           prompter().confirm(QStringLiteral("内容已修改，确认放弃吗？"), confirmCaption);
}

/// The first text that its column cannot hold; the refusal names it, and the cursor goes there.
QString RecordEditor::tooLongColumn() {
    for (const FieldInput *input : m_tabs->inputs()) {
        const Column *description = column(m_kind.table, input->field().column);
        if (description != nullptr && description->length > 0 &&
            input->text().toUcs4().size() > description->length)
            return input->field().column;
    }
    return {};
}

bool RecordEditor::save() {
    if (!collect())
        return false;
    QString field;
    const Outcome outcome = store(&field);
    if (!show(outcome)) {
        focusRefused(field.isEmpty() ? tooLongColumn() : field);
        return false;
    }
    m_saved = record();
    Q_EMIT stored(m_saved.id);
    return true;
}

void RecordEditor::accept() {
    if (save())
        Form::accept();
}

void RecordEditor::saveAndContinue() {
    if (!save())
        return;
    startNew();
    focusFirst();
}

void RecordEditor::focusRefused(const QString &column) {
    if (const FieldInput *refused = input(column))
        m_tabs->focus(*refused);
}

/// Typing begins at the name, or where something is missing before it.
void RecordEditor::focusFirst() {
    for (const FieldInput *input : m_tabs->inputs()) {
        const MasterField &field = input->field();
        if (input->isReadOnly() || (!field.required && field.column != m_kind.nameColumn))
            continue;
        if (input->text().isEmpty() || field.column == m_kind.nameColumn) {
            m_tabs->focus(*input);
            return;
        }
    }
}

void RecordEditor::FormActivate() {
    if (m_saved.text(m_kind.nameColumn).isEmpty() && record().text(m_kind.nameColumn).isEmpty() &&
        !record().isChanged())
        startNew();
    focusFirst();
}

void RecordEditor::nextField() {
    if (m_tabs->focusNext())
        return;
    if (m_tabs->inputs().empty() || focusWidget() == m_tabs->inputs().back()->focusTarget())
        m_ok->setFocus();
    else
        focusNextChild();
}

void RecordEditor::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_F5:
        accept();
        break;
    case Qt::Key_F6:
        saveAndContinue();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        nextField();
        break;
    default:
        Form::keyPressEvent(event);
    }
}

RecordEditor *makeRecordEditor(const FormContext &context, const MasterKind &kind,
                               QWidget *parent) {
    const QString own = kind.form + QStringLiteral("_Add");
    if (context.stage.isKnown(own))
        if (auto *editor = qobject_cast<RecordEditor *>(context.stage.makeForm(own, parent)))
            return editor;
    return new RecordEditor(context, kind, parent);
}

} // namespace jxc
