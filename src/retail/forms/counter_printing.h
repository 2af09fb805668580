#pragma once

#include "retail/counter_settings.h"
#include "retail/escpos_receipt.h"
#include "ui/form.h"

#include <QObject>

namespace jxc {

/// The devices of a counter: receipt printer, drawer, customer display. None of them ever stops a
/// sale: what does not work is told, and the receipt can be printed again.
class CounterPrinting : public QObject {
    Q_OBJECT
public:
    CounterPrinting(const FormContext &context, QWidget *window);

    /// Prints a receipt on the device that the settings name; `again` marks the paper.
    void print(const QString &number, bool again);
    /// Prints the slip of a change of shift by its id.
    void printShift(qint64 id, bool again);
    /// Prints a recharge of a member's card (XF…) likewise.
    void printRecharge(const QString &number, bool again);
    /// After paying: prints, if the shop wants it, and opens the drawer.
    void printAfterPaying(const QString &number);
    void openDrawer();
    /// Shows an amount to the customer, where there is a display.
    void showAmount(Decimal amount, DisplayLight light);

    /// Takes the bytes for a printer by its name; tests look at them.
    using Sender = std::function<void(const QString &printer, const QByteArray &bytes)>;
    void setSender(Sender sender) { m_sender = std::move(sender); }

Q_SIGNALS:
    void failed(const QString &text);

private:
    /// Prints on the device that the settings name; what went wrong is told.
    void printWith(const std::function<void(const PrintSettings &settings)> &print);
    void tellFault(const QString &text);
    void sendRaw(const QString &printer, const QByteArray &bytes);
    void sendToPort(const QString &port, const QByteArray &bytes);
    [[nodiscard]] QString printerOf(const PrintSettings &settings) const;

    FormContext m_context;
    QWidget *m_window;
    Sender m_sender;
};

} // namespace jxc
