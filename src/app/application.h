#pragma once

#include <QApplication>
#include <exception>
#include <functional>

namespace jxc {

class Prompter;

/// The program's event loop. Nothing thrown anywhere ends the program in silence: it is caught
/// here, told, and work goes on, unless the account set itself cannot be read.
class Application : public QApplication {
    Q_OBJECT
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;

    /// Who tells; until one is set, faults are told on the terminal.
    void setPrompter(Prompter *prompter) { m_prompter = prompter; }
    /// Called after a lost connection was told, to open it anew.
    void setReconnect(std::function<void()> reconnect) { m_reconnect = std::move(reconnect); }

    /// Tells the user what was thrown.
    void tell(const std::exception_ptr &fault);

Q_SIGNALS:
    /// The account set cannot be read: the program ends.
    void accountSetUnreadable();

private:
    void inform(const QString &text);
    void lost(const QString &text);

    Prompter *m_prompter = nullptr;
    std::function<void()> m_reconnect;
    bool m_telling = false;
};

} // namespace jxc
