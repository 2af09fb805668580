#include "ui/scan_catcher.h"

#include "ui/pick_field.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace jxc {

namespace {

constexpr quint64 longestGap = 40; // milliseconds; nobody types a dozen keys at that pace
constexpr qsizetype shortestScan = 8;

} // namespace

ScanCatcher::ScanCatcher(QWidget *window)
    : QObject(window)
    , m_window(window) {
    qApp->installEventFilter(this);
}

void ScanCatcher::begin() {
    m_burst.clear();
    m_field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    m_before = m_field ? m_field->text() : QString();
}

/// By the time at which the key was pressed, not by that at which a busy program hears of it.
bool ScanCatcher::isQuick(const QKeyEvent &key) {
    const quint64 last = std::exchange(m_lastKey, key.timestamp());
    const bool timed = last != 0 && key.timestamp() != 0;
    const bool quick = timed ? key.timestamp() - last <= longestGap
                             : m_sinceLast.isValid() && m_sinceLast.elapsed() <= qint64(longestGap);
    m_sinceLast.start();
    return quick;
}

bool ScanCatcher::eventFilter(QObject *watched, QEvent *event) {
    auto *widget = qobject_cast<QWidget *>(watched);
    // A key reaches the focus widget first; its journey through the parents is no new key.
    if (event->type() != QEvent::KeyPress || widget == nullptr ||
        widget != QApplication::focusWidget() || widget->window() != m_window)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const bool quick = isQuick(*key);
    if (!quick && !enter)
        begin();
    if (!enter) {
        const QString text = key->text();
        if (text.size() == 1 && text.front().isLetterOrNumber() && text.front().unicode() < 128)
            m_burst += text;
        else
            m_burst.clear();
        return false;
    }
    const QString burst = std::exchange(m_burst, {});
    // The goods cell knows itself what to do with a barcode.
    if (!quick || burst.size() < shortestScan || qobject_cast<PickField *>(widget) != nullptr ||
        !m_knows || !m_knows(burst))
        return false;
    if (m_field)
        m_field->setText(m_before);
    Q_EMIT scanned(burst);
    return true;
}

} // namespace jxc
