#pragma once

#include <QLineEdit>

namespace jxc {

/// The box in which one looks for rows. F3 anywhere in its parent goes to it.
class SearchBox : public QLineEdit {
    Q_OBJECT
public:
    explicit SearchBox(QWidget *parent);

Q_SIGNALS:
    /// The text has stood for a moment, or was cleared: a long list is not read at every key.
    void searched();
    /// Enter: what is found is to be worked with.
    void confirmed();
};

} // namespace jxc
