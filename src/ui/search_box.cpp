#include "ui/search_box.h"

#include <QAction>
#include <QTimer>

namespace jxc {

namespace {

/// Longer than a gap between two keys of a typist, shorter than a wait.
constexpr int searchDelay = 120;

} // namespace

SearchBox::SearchBox(QWidget *parent)
    : QLineEdit(parent) {
    setFixedWidth(240);
    setClearButtonEnabled(true);
    setMaxLength(100);
    auto *find = new QAction(parent);
    find->setShortcut(Qt::Key_F3);
    parent->addAction(find);
    connect(find, &QAction::triggered, this, [this] {
        setFocus();
        selectAll();
    });
    auto *delay = new QTimer(this);
    delay->setSingleShot(true);
    delay->setInterval(searchDelay);
    connect(this, &QLineEdit::textEdited, delay, qOverload<>(&QTimer::start));
    connect(delay, &QTimer::timeout, this, &SearchBox::searched);
    connect(this, &QLineEdit::textChanged, this, [this, delay](const QString &text) {
        if (text.isEmpty() && !delay->isActive())
            Q_EMIT searched();
    });
    connect(this, &QLineEdit::returnPressed, this, [this, delay] {
        delay->stop();
        Q_EMIT searched();
        Q_EMIT confirmed();
    });
}

} // namespace jxc
