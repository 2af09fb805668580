#pragma once

#include <QLineEdit>

namespace jxc {

/// A field that takes the key that is pressed in it, by the number that the counter's keys are kept
/// under. Enter, Esc, Tab, the arrows, F3 and F5 have their meaning at the counter already.
class KeyField : public QLineEdit {
    Q_OBJECT
public:
    explicit KeyField(QWidget *parent = nullptr);

    [[nodiscard]] int virtualKey() const { return m_virtualKey; }
    void setVirtualKey(int code);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    int m_virtualKey = 0;
};

} // namespace jxc
