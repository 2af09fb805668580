#include "ui/header_panel.h"

#include "core/prompter.h"
#include "core/session.h"
#include "db/database.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/header_fields.h"
#include "ui/layout_store.h"
#include "ui/member_label.h"
#include "ui/member_source.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QStyle>

namespace jxc {

namespace {

constexpr int pairsPerLine = 4;

} // namespace

HeaderPanel::HeaderPanel(const FormContext &context, const DocumentFormSpec &spec, QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_spec(spec)
    , m_number(new QLineEdit(this))
    , m_balance(new QLabel(this)) {
    m_number->setReadOnly(true);
    m_number->setFocusPolicy(Qt::ClickFocus);
    m_number->setObjectName(QStringLiteral("number"));
    m_balance->setObjectName(QStringLiteral("balance"));
    build();
    loadStops();
}

QWidget *HeaderPanel::make(HeaderField field) {
    const Formats formats(m_context.session.parameters);
    switch (field) {
    case HeaderField::date: {
        auto *date = new DateField(m_context.session.today(), this);
        date->setReadOnly(!m_context.session.rights.changeDate);
        connect(date, &DateField::dateChanged, this, &HeaderPanel::settingChanged);
        return date;
    }
    case HeaderField::reminder:
        return new DateField(m_context.session.today(), this);
    case HeaderField::partner: {
        auto *partner =
            new PickField(partnerSource(m_context, m_spec.kind->partnerKind), formats, this);
        connect(partner, &PickField::chosen, this, [this] {
            showBalance();
            if (m_spec.isSale())
                pick(HeaderField::clerk)
                    ->setSource(employeeSource(m_context, EmployeeDuty::sale, this->partner()));
            Q_EMIT partnerChanged();
            Q_EMIT settingChanged();
        });
        return partner;
    }
    case HeaderField::warehouse: {
        auto *warehouse = new PickField(warehouseSource(m_context), formats, this);
        connect(warehouse, &PickField::chosen, this, &HeaderPanel::settingChanged);
        return warehouse;
    }
    case HeaderField::member:
        return makeMember();
    case HeaderField::clerk:
        return new PickField(
            employeeSource(m_context, m_spec.isSale() ? EmployeeDuty::sale : EmployeeDuty::purchase,
                           {}),
            formats, this);
    case HeaderField::invoiced:
    case HeaderField::freight:
    case HeaderField::packing:
        return new NumberField(ValueKind::amount, formats, this);
    case HeaderField::freightTerms: {
        auto *terms = new QComboBox(this);
        terms->addItems({QStringLiteral("对方付运费"), QStringLiteral("我方付运费")});
        return terms;
    }
    default: {
        auto *line = new QLineEdit(this);
        line->setMaxLength(lengthOf(field, m_spec));
        if (field == HeaderField::note)
            line->setPlaceholderText(QStringLiteral("F2 常用备注"));
        return line;
    }
    }
}

QWidget *HeaderPanel::makeMember() {
    auto *member =
        new PickField(memberSource(m_context), Formats(m_context.session.parameters), this);
    member->setClearable(true);
    member->setPlaceholderText(QStringLiteral("Ctrl+M 卡号、手机、姓名"));
    m_memberLabel = new MemberLabel(m_context, this);
    const auto changed = [this] {
        m_memberLabel->showMember(this->member());
        Q_EMIT memberChanged();
        Q_EMIT edited();
    };
    connect(member, &PickField::chosen, this, changed);
    connect(member, &PickField::cleared, this, changed);
    connect(member, &PickField::notFound, this,
            [this] { m_context.prompter.inform(QStringLiteral("会员不存在！"), informCaption); });
    return member;
}

void HeaderPanel::build() {
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(12, 8, 12, 8);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    int cell = 0;
    const auto place = [&](const QString &caption, QWidget *widget, int span) {
        if (cell % pairsPerLine + span > pairsPerLine)
            cell += pairsPerLine - cell % pairsPerLine;
        const int line = cell / pairsPerLine, column = cell % pairsPerLine * 2;
        auto *label = new QLabel(caption, this);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setProperty("quiet", true);
        grid->addWidget(label, line, column);
        grid->addWidget(widget, line, column + 1, 1, span * 2 - 1);
        cell += span;
    };
    place(QStringLiteral("单据号"), m_number, 1);
    for (const HeaderField field : m_spec.header) {
        QWidget *widget = make(field);
        widget->setObjectName(captionOf(field, m_spec));
        widget->installEventFilter(this);
        m_widgets.insert(static_cast<int>(field), widget);
        if (isForLater(field)) {
            widget->setEnabled(false);
            widget->setToolTip(QStringLiteral("尚未提供"));
        }
        if (auto *line = qobject_cast<QLineEdit *>(widget))
            connect(line, &QLineEdit::textEdited, this, &HeaderPanel::edited);
        if (auto *box = qobject_cast<QComboBox *>(widget))
            connect(box, &QComboBox::activated, this, &HeaderPanel::edited);
        if (auto *choice = qobject_cast<PickField *>(widget);
            choice != nullptr && field != HeaderField::member)
            connect(choice, &PickField::chosen, this, &HeaderPanel::edited);
        if (field == HeaderField::partner && m_spec.followsSource) {
            widget->setEnabled(false); // the source's
        }
        // The note takes what its line has left, two places at most.
        const int left = pairsPerLine - cell % pairsPerLine;
        place(captionOf(field, m_spec), widget, field == HeaderField::note ? qMin(2, left) : 1);
        if (field == HeaderField::member)
            place(QStringLiteral("会员余额"), m_memberLabel, 1);
        if (field == HeaderField::partner) {
            if (m_spec.hasMoney)
                place(m_spec.isSale() ? QStringLiteral("应收余额") : QStringLiteral("应付余额"),
                      m_balance, 1);
            else
                m_balance->hide();
        }
    }
    for (int i = 0; i < pairsPerLine; ++i)
        grid->setColumnStretch(i * 2 + 1, 1);
}

PickField *HeaderPanel::pick(HeaderField field) const {
    return qobject_cast<PickField *>(widget(field));
}

QString HeaderPanel::partner() const {
    return pick(HeaderField::partner)->code();
}

QString HeaderPanel::member() const {
    return m_memberLabel == nullptr ? QString() : pick(HeaderField::member)->code();
}

QString HeaderPanel::warehouse() const {
    return pick(HeaderField::warehouse)->code();
}

QString HeaderPanel::date() const {
    return static_cast<DateField *>(widget(HeaderField::date))->date();
}

void HeaderPanel::showBalance() {
    if (!m_spec.hasMoney)
        return;
    const Decimal balance =
        partner().isEmpty()
            ? Decimal()
            : CurrentBalance(m_context.session.db(), {m_spec.kind->partnerKind, partner()});
    m_balance->setText(Formats(m_context.session.parameters).money(balance));
    m_balance->setProperty("danger", balance.isPositive());
    m_balance->style()->unpolish(m_balance);
    m_balance->style()->polish(m_balance);
}

void HeaderPanel::fill(const Draft &draft) {
    m_number->setText(draft.number.isEmpty() ? QStringLiteral("自动编号") : draft.number);
    const auto setText = [&](HeaderField field, const QString &text) {
        if (auto *line = qobject_cast<QLineEdit *>(widget(field)))
            line->setText(text);
    };
    const auto setAmount = [&](HeaderField field, Decimal amount) {
        auto *number = qobject_cast<NumberField *>(widget(field));
        if (number == nullptr)
            return;
        number->clear();
        if (!amount.isZero())
            number->setValue(amount);
    };
    const QSignalBlocker quiet(widget(HeaderField::date));
    setText(HeaderField::date, draft.date);
    pick(HeaderField::partner)->setCode(draft.partner);
    pick(HeaderField::warehouse)->setCode(draft.warehouse);
    if (m_spec.isSale())
        pick(HeaderField::clerk)
            ->setSource(employeeSource(m_context, EmployeeDuty::sale, draft.partner));
    pick(HeaderField::clerk)->setCode(draft.clerk);
    setText(HeaderField::supplierNumber, draft.supplierNumber);
    setText(HeaderField::invoiceNo, draft.invoiceNo);
    setAmount(HeaderField::invoiced, draft.invoiced);
    setAmount(HeaderField::freight, draft.freight);
    setAmount(HeaderField::packing, draft.packing);
    if (auto *terms = qobject_cast<QComboBox *>(widget(HeaderField::freightTerms)))
        terms->setCurrentIndex(qMax(0, terms->findText(draft.freightTerms)));
    setText(HeaderField::reminder, draft.reminderDate);
    fillMember(draft.member);
    setText(HeaderField::contract, draft.contract);
    setText(HeaderField::note, draft.note);
    showBalance();
}

void HeaderPanel::fillPartner(const QString &partner) {
    pick(HeaderField::partner)->setCode(partner);
}

void HeaderPanel::fillMember(const QString &member) {
    if (m_memberLabel == nullptr)
        return;
    pick(HeaderField::member)->setCode(member);
    m_memberLabel->showMember(member);
    Q_EMIT memberChanged();
}

void HeaderPanel::lockMember(bool on) {
    if (m_memberLabel != nullptr && !m_isReadOnly)
        widget(HeaderField::member)->setEnabled(!on);
}

void HeaderPanel::fillWarehouse(const QString &warehouse) {
    pick(HeaderField::warehouse)->setCode(warehouse);
    Q_EMIT settingChanged();
}

void HeaderPanel::collect(Draft &draft) const {
    const auto text = [&](HeaderField field, QString &into) {
        if (auto *line = qobject_cast<QLineEdit *>(widget(field)))
            into = line->text().trimmed();
    };
    const auto amount = [&](HeaderField field, Decimal &into) {
        if (auto *number = qobject_cast<NumberField *>(widget(field)))
            into = number->value();
    };
    draft.date = date();
    draft.partner = partner();
    draft.warehouse = warehouse();
    draft.clerk = pick(HeaderField::clerk)->code();
    if (m_memberLabel != nullptr)
        draft.member = member();
    text(HeaderField::supplierNumber, draft.supplierNumber);
    text(HeaderField::invoiceNo, draft.invoiceNo);
    amount(HeaderField::invoiced, draft.invoiced);
    amount(HeaderField::freight, draft.freight);
    amount(HeaderField::packing, draft.packing);
    if (auto *terms = qobject_cast<QComboBox *>(widget(HeaderField::freightTerms)))
        draft.freightTerms = terms->currentText();
    if (auto *day = qobject_cast<DateField *>(widget(HeaderField::reminder)))
        draft.reminderDate = day->date();
    text(HeaderField::note, draft.note);
}

void HeaderPanel::setReadOnly(bool on) {
    m_isReadOnly = on;
    for (QWidget *field : std::as_const(m_widgets))
        field->setEnabled(!on && field->isEnabled());
}

void HeaderPanel::start() {
    for (const HeaderField field :
         {HeaderField::partner, HeaderField::warehouse, HeaderField::clerk})
        if (widget(field)->isEnabled() && pick(field)->code().isEmpty()) {
            focusField(field);
            return;
        }
    focusField(widget(HeaderField::partner)->isEnabled() ? HeaderField::partner
                                                         : HeaderField::warehouse);
}

void HeaderPanel::focusField(HeaderField field) {
    QWidget *target = widget(field);
    if (target == nullptr)
        return;
    target->setFocus(Qt::OtherFocusReason);
    if (auto *line = qobject_cast<QLineEdit *>(target))
        line->selectAll();
}

/// The phrases that are used most come first; a chosen one is put where the cursor is.
void HeaderPanel::openPhrases() {
    auto *note = qobject_cast<QLineEdit *>(widget(HeaderField::note));
    choosePhrase(m_context, note);
}

bool HeaderPanel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_F2 && watched == widget(HeaderField::note)) {
        openPhrases();
        return true;
    }
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    if (auto *choice = qobject_cast<PickField *>(watched);
        choice != nullptr && choice->isTyped() && !choice->commitTyped())
        return true;
    advance(static_cast<QWidget *>(watched));
    return true;
}

/// To the next field where Enter stops; after the last one the lines begin.
void HeaderPanel::advance(const QWidget *from) {
    bool passed = false;
    for (const HeaderField field : m_spec.header) {
        QWidget *target = widget(field);
        if (passed && target->isEnabled() && m_stops.contains(target->objectName())) {
            focusField(field);
            return;
        }
        passed = passed || target == from;
    }
    Q_EMIT finished();
}

/// At first Enter asks for what no document goes without; Tab reaches everything.
void HeaderPanel::loadStops() {
    m_stops = LayoutStore(m_context.home, m_spec.formClass + QStringLiteral("_Head"))
                  .list(QStringLiteral("stops"));
    if (!m_stops.isEmpty())
        return;
    for (const HeaderField field : {HeaderField::date, HeaderField::partner, HeaderField::warehouse,
                                    HeaderField::clerk, HeaderField::supplierNumber})
        if (m_spec.header.end() != std::find(m_spec.header.begin(), m_spec.header.end(), field))
            m_stops << captionOf(field, m_spec);
}

void HeaderPanel::contextMenuEvent(QContextMenuEvent *event) {
    QMenu menu(this);
    menu.addSection(QStringLiteral("录入顺序（回车停留）"));
    for (const HeaderField field : m_spec.header) {
        if (isForLater(field))
            continue;
        const QString caption = captionOf(field, m_spec);
        QAction *action = menu.addAction(caption);
        action->setCheckable(true);
        action->setChecked(m_stops.contains(caption));
        connect(action, &QAction::toggled, this, [this, caption](bool on) {
            m_stops.removeAll(caption);
            if (on)
                m_stops << caption;
            const LayoutStore store(m_context.home, m_spec.formClass + QStringLiteral("_Head"));
            if (!store.saveList(QStringLiteral("stops"), m_stops))
                m_context.prompter.inform(QStringLiteral("布局不能保存，请检查文件夹是否可写！"),
                                          informCaption);
        });
    }
    menu.exec(event->globalPos());
}

} // namespace jxc
