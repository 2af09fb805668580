#include "ui/pick_field.h"

#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

namespace jxc {

PickField::PickField(PickSource source, const Formats &formats, QWidget *parent)
    : QLineEdit(parent)
    , m_source(std::move(source))
    , m_formats(formats)
    , m_pending(new QTimer(this)) {
    setMaxLength(100);
    // Waits for the keys that are already queued, so that a newer one takes the older one's place.
    m_pending->setSingleShot(true);
    m_pending->setInterval(0);
    connect(m_pending, &QTimer::timeout, this, [this] { search(text()); });
    connect(this, &QLineEdit::textEdited, this, [this] {
        m_dirty = true;
        m_pending->start();
    });
}

PickField::~PickField() = default;

void PickField::setSource(PickSource source) {
    m_source = std::move(source);
    delete m_list;
    m_list = nullptr;
}

void PickField::setCode(const QString &code) {
    const std::optional<Row> row = code.isEmpty() ? std::nullopt : m_source.find(code);
    setChoice(code, row ? row->text(m_source.nameField) : QString());
}

void PickField::setChoice(const QString &code, const QString &name) {
    m_code = code;
    m_name = name;
    restoreName();
}

void PickField::restoreName() {
    m_dirty = false;
    m_pending->stop();
    if (m_list != nullptr)
        m_list->hide();
    if (text() != m_name)
        setText(m_name);
    setCursorPosition(0);
}

void PickField::ensureList() {
    if (m_list != nullptr)
        return;
    m_list = new PickList(m_source, m_formats, this);
    connect(m_list, &PickList::taken, this, [this] {
        if (const Row *row = m_list->current())
            take(Row(*row));
    });
}

bool PickField::isListOpen() const {
    return m_list != nullptr && m_list->isVisible();
}

void PickField::openList() {
    search(m_dirty ? text() : QString());
}

void PickField::search(const QString &typed) {
    m_pending->stop();
    ensureList();
    m_list->popUp(m_source.search(typed.trimmed()), QRect(mapToGlobal(QPoint(0, 0)), size()));
}

/// The row is the list's and goes with it: callers hand over a copy.
void PickField::take(const Row &row) {
    m_typed = m_dirty ? text().trimmed() : QString();
    setChoice(row.text(m_source.codeField), row.text(m_source.nameField));
    Q_EMIT chosen(row);
}

bool PickField::commitTyped() {
    if (!m_dirty && !isListOpen())
        return !m_code.isEmpty();
    const QString typed = text().trimmed();
    if (m_dirty && typed.isEmpty() && m_clearable) {
        setChoice({}, {});
        Q_EMIT cleared();
        return true;
    }
    // Enter before the list has come takes its first.
    if (m_pending->isActive() || !isListOpen())
        search(typed);
    if (const Row *row = m_list->current(); row != nullptr && m_list->isVisible()) {
        take(Row(*row));
        return true;
    }
    Q_EMIT notFound(typed);
    return false;
}

void PickField::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    if (isReadOnly()) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (key == Qt::Key_Insert && event->modifiers() == Qt::ControlModifier && m_source.addNew) {
        if (m_list != nullptr)
            m_list->hide();
        // While another form was open the cell of this field may have gone.
        const QPointer<PickField> self(this);
        const QString code = m_source.addNew(this);
        if (self == nullptr || code.isEmpty())
            return;
        if (const std::optional<Row> row = m_source.find(code))
            take(*row);
        return;
    }
    if (key == Qt::Key_F2 || (key == Qt::Key_Down && !isListOpen())) {
        openList();
        return;
    }
    if (isListOpen()) {
        switch (key) {
        case Qt::Key_Down:
            m_list->move(1);
            return;
        case Qt::Key_Up:
            m_list->move(-1);
            return;
        case Qt::Key_PageDown:
            m_list->page(1);
            return;
        case Qt::Key_PageUp:
            m_list->page(-1);
            return;
        case Qt::Key_Escape:
            restoreName();
            selectAll();
            return;
        default:
            break;
        }
    }
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && (m_dirty || isListOpen()) &&
        !commitTyped())
        return;
    QLineEdit::keyPressEvent(event);
}

void PickField::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    selectAll();
}

void PickField::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    // Tab takes a single clear match; anything else goes back to what it was.
    if (m_dirty) {
        if (m_clearable && text().trimmed().isEmpty()) {
            setChoice({}, {});
            Q_EMIT cleared();
        } else if (event->reason() == Qt::TabFocusReason ||
                   event->reason() == Qt::BacktabFocusReason) {
            if (!commitTyped())
                restoreName();
        } else {
            restoreName();
        }
    }
    if (m_list != nullptr)
        m_list->hide();
}

} // namespace jxc
