#include "ui/field_input.h"

#include "core/prompter.h"
#include "core/session.h"
#include "master/record.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/master_picks.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/several_field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QToolButton>

namespace jxc {

namespace {

Decimal figureOf(const QString &text) {
    return text.isEmpty() ? Decimal() : Decimal::fromText(text);
}

} // namespace

FieldInput::FieldInput(const FormContext &context, const QString &table, const MasterField &field,
                       Place place, QWidget *parent)
    : QObject(parent)
    , m_context(context)
    , m_table(table)
    , m_field(field)
    , m_place(place) {
    make(parent);
    m_target->setObjectName(field.column);
    if (m_widget == nullptr)
        m_widget = m_target;
    if (auto *typed = line(); typed != nullptr)
        connect(typed, &QLineEdit::textEdited, this, &FieldInput::edited);
    if (field.readOnly)
        setReadOnly(true);
}

void FieldInput::make(QWidget *parent) {
    if (m_field.readOnly)
        makeShown(parent);
    else if (!m_field.pick.table.isEmpty() && m_field.pick.several)
        makeSeveral(parent);
    else if (!m_field.pick.table.isEmpty())
        makePick(parent);
    else if (m_field.kind == ValueKind::choice)
        makeChoice(parent);
    else if (!m_field.choices.empty())
        makeProposals(parent);
    else if (m_field.kind == ValueKind::flag)
        makeFlag(parent);
    else if (m_field.kind == ValueKind::date)
        makeDate(parent);
    else if (isNumber(m_field.kind))
        makeNumber(parent);
    else
        makeText(parent);
}

QLineEdit *FieldInput::line() const {
    if (auto *box = qobject_cast<QComboBox *>(m_target))
        return box->lineEdit();
    return qobject_cast<QLineEdit *>(m_target);
}

void FieldInput::makeText(QWidget *parent) {
    auto *field = new QLineEdit(parent);
    m_target = field;
    m_read = [field] { return field->text(); };
    m_show = [this, field](const Record &record) {
        field->setText(record.text(m_field.column));
        field->setCursorPosition(0);
    };
}

/// Written by the program, so shown as lists show it.
void FieldInput::makeShown(QWidget *parent) {
    auto *field = new QLineEdit(parent);
    m_target = field;
    if (isNumber(m_field.kind))
        field->setAlignment(Qt::AlignRight);
    m_read = [field] { return field->text(); };
    m_show = [this, field](const Record &record) {
        QString text = record.text(m_field.column);
        for (const Choice &choice : m_field.choices)
            if (m_field.kind == ValueKind::choice && choice.value == text) {
                text = choice.caption;
                break;
            }
        const Formats formats(m_context.session.parameters);
        field->setText(isNumber(m_field.kind) ? formats.text(m_field.kind, figureOf(text)) : text);
    };
}

void FieldInput::makeNumber(QWidget *parent) {
    auto *field = new NumberField(m_field.kind, Formats(m_context.session.parameters), parent);
    field->setNegativeAllowed(!m_field.notNegative && !m_field.positive);
    m_target = field;
    m_read = [field] { return field->value().toText(); };
    m_show = [this, field](const Record &record) {
        const Decimal value = figureOf(record.text(m_field.column));
        if (m_place == Place::cell && value.isZero())
            field->clear();
        else
            field->setValue(value);
    };
}

void FieldInput::makeDate(QWidget *parent) {
    auto *field = new DateField(m_context.session.today(), parent);
    m_target = field;
    m_read = [field] { return field->date(); };
    m_show = [this, field](const Record &record) { field->setDate(record.text(m_field.column)); };
}

void FieldInput::makeFlag(QWidget *parent) {
    auto *box = new QCheckBox(m_place == Place::dialog ? m_field.caption : QString(), parent);
    m_target = box;
    m_read = [box] { return box->isChecked() ? QStringLiteral("1") : QStringLiteral("0"); };
    m_show = [this, box](const Record &record) { box->setChecked(record.flag(m_field.column)); };
    connect(box, &QCheckBox::clicked, this, &FieldInput::edited);
}

void FieldInput::makeChoice(QWidget *parent) {
    auto *box = new QComboBox(parent);
    for (const Choice &choice : m_field.choices)
        box->addItem(choice.caption, choice.value);
    m_target = box;
    m_read = [box] { return box->currentData().toString(); };
    m_show = [this, box](const Record &record) {
        const QString text = record.text(m_field.column);
        // What an older make of the program stored stays choosable as long as it stands there.
        if (box->findData(text) < 0 && !text.isEmpty())
            box->addItem(text, text);
        box->setCurrentIndex(box->findData(text));
    };
    connect(box, &QComboBox::activated, this, &FieldInput::edited);
}

void FieldInput::makeProposals(QWidget *parent) {
    auto *box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    for (const Choice &choice : m_field.choices)
        box->addItem(choice.caption);
    m_target = box;
    m_read = [box] { return box->currentText(); };
    m_show = [this, box](const Record &record) {
        box->setCurrentIndex(-1);
        box->setEditText(record.text(m_field.column));
    };
    connect(box, &QComboBox::activated, this, &FieldInput::edited);
}

void FieldInput::makePick(QWidget *parent) {
    m_pick = new PickField(masterPickSource(m_context, m_field.pick),
                           Formats(m_context.session.parameters), parent);
    m_pick->setClearable(!m_field.required);
    m_target = m_pick;
    m_read = [this] { return m_pick->code(); };
    m_show = [this](const Record &record) {
        const Pick &pick = m_field.pick;
        const QString code = record.text(m_field.column);
        m_pick->setChoice(code,
                          record.text(pick.shownAs.isEmpty() ? m_field.column : pick.shownAs));
        if (!code.isEmpty() && m_pick->text().isEmpty())
            m_pick->setCode(code);
    };
    connect(m_pick, &PickField::chosen, this, &FieldInput::edited);
    connect(m_pick, &PickField::cleared, this, &FieldInput::edited);
    connect(m_pick, &PickField::notFound, this, &FieldInput::offerToAdd);
    if (m_place == Place::dialog && findMasterKind(m_field.pick.table) != nullptr)
        addListButton(parent, m_pick);
}

void FieldInput::makeSeveral(QWidget *parent) {
    auto *field = new SeveralField(m_context, m_field, parent);
    m_target = field;
    m_read = [field] { return field->codes(); };
    m_show = [this, field](const Record &record) {
        field->setChoice(record.text(m_field.column), record.text(m_field.pick.shownAs));
    };
    connect(field, &SeveralField::changed, this, &FieldInput::edited);
}

void FieldInput::addListButton(QWidget *parent, QWidget *field) {
    m_widget = new QWidget(parent);
    auto *row = new QHBoxLayout(m_widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    auto *button = new QToolButton(m_widget);
    button->setText(QStringLiteral("…"));
    button->setToolTip(QStringLiteral("打开列表，增加或选择 (Ctrl+Ins)"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setStyleSheet(QStringLiteral("padding: 0 4px;"));
    button->setFixedHeight(field->sizeHint().height());
    row->addWidget(field, 1);
    row->addWidget(button);
    connect(button, &QToolButton::clicked, this, &FieldInput::openList);
}

void FieldInput::openList() {
    if (m_readOnly)
        return;
    m_pick->setFocus();
    const QString code =
        addMasterRecord(m_context, m_field.pick.table, m_field.pick.valueColumn, m_pick);
    if (code.isEmpty())
        return;
    m_pick->setCode(code);
    Q_EMIT edited();
}

/// A new unit or specification is typed where it is needed; what is more than a name is added by
/// its editor.
void FieldInput::offerToAdd(const QString &typed) {
    const MasterKind *list = findMasterKind(m_field.pick.table);
    if (typed.isEmpty() || list == nullptr || !list->isSmallList ||
        !m_context.prompter.confirm(
            QStringLiteral("%1“%2”不存在，现在增加吗？").arg(list->noun, typed), confirmCaption))
        return;
    Record record = newRecord(m_context.session, *list);
    record.set(list->nameColumn, typed);
    const Outcome outcome = saveRecord(m_context.session, m_context.prompter, *list, record);
    if (!outcome.isDone()) {
        m_context.prompter.inform(outcome.text, informCaption);
        return;
    }
    m_pick->setChoice(record.text(m_field.pick.valueColumn), record.text(list->nameColumn));
    Q_EMIT edited();
}

void FieldInput::fill(const Record &record) {
    m_stored = record.text(m_field.column);
    m_show(record);
    m_shown = m_read();
    m_filled = true;
}

void FieldInput::collect(Record &record) const {
    record.set(m_field.column, isTouched() ? m_read() : m_stored);
}

bool FieldInput::commit() {
    if (m_pick == nullptr || m_readOnly || !m_pick->isTyped())
        return true;
    return m_pick->commitTyped() || !m_pick->isTyped(); // it may have been added just now
}

void FieldInput::setReadOnly(bool on) {
    m_readOnly = on;
    if (auto *typed = qobject_cast<QLineEdit *>(m_target);
        typed != nullptr && !m_field.pick.several) {
        typed->setReadOnly(on);
        typed->setFocusPolicy(on ? Qt::ClickFocus : Qt::StrongFocus);
    } else {
        m_target->setEnabled(!on);
    }
}

} // namespace jxc
