#include "retail/forms/counter_printing.h"

#include "core/action.h"
#include "core/session.h"
#include "retail/escpos_bytes.h"
#include "retail/shift_paper.h"
#include "ui/receipt_print.h"

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QPrinterInfo>
#include <QProcess>
#include <QThreadPool>

namespace jxc {

namespace {

/// "COM1" as shops know it is the first serial line here; other names are devices.
QString deviceOf(const QString &port) {
    if (port.startsWith(QLatin1String("COM"), Qt::CaseInsensitive))
        return QStringLiteral("/dev/ttyS%1").arg(port.mid(3).toInt() - 1);
    return port.startsWith(u'/') ? port : QStringLiteral("/dev/") + port;
}

} // namespace

CounterPrinting::CounterPrinting(const FormContext &context, QWidget *window)
    : QObject(window)
    , m_context(context)
    , m_window(window)
    , m_sender(
          [this](const QString &printer, const QByteArray &bytes) { sendRaw(printer, bytes); }) {}

QString CounterPrinting::printerOf(const PrintSettings &settings) const {
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (settings.printer >= 0 && settings.printer < names.size())
        return names[settings.printer];
    return QPrinterInfo::defaultPrinterName();
}

void CounterPrinting::printWith(const std::function<void(const PrintSettings &)> &print) {
    try {
        print(PrintSettings::load(m_context.session.db()));
    } catch (const std::runtime_error &error) { // refusals and broken templates speak for users
        Q_EMIT failed(QString::fromUtf8(error.what()));
    }
}

void CounterPrinting::print(const QString &number, bool again) {
    printWith([&](const PrintSettings &settings) {
        const ReceiptPaper paper = readReceiptPaper(m_context.session, number);
        if (settings.usesEscPos)
            m_sender(printerOf(settings),
                     escPosReceipt(settings, paper, again).repeated(settings.copies));
        else
            tellFault(printReceiptByTemplate(m_context, settings, paper, printerOf(settings), again,
                                             m_window));
    });
}

void CounterPrinting::printShift(qint64 id, bool again) {
    printWith([&](const PrintSettings &settings) {
        const EndedShift ended = readShift(m_context.session, id);
        if (settings.usesEscPos)
            m_sender(printerOf(settings), escPosShift(settings, ended, again));
        else
            tellFault(printShiftByTemplate(m_context, settings, ended, printerOf(settings), again,
                                           m_window));
    });
}

void CounterPrinting::printRecharge(const QString &number, bool again) {
    printWith([&](const PrintSettings &settings) {
        const RechargePaper paper = readRechargePaper(m_context.session, number);
        if (settings.usesEscPos)
            m_sender(printerOf(settings),
                     escPosRecharge(settings, paper, again).repeated(settings.copies));
        else
            tellFault(printRechargeByTemplate(m_context, settings, paper, printerOf(settings),
                                              again, m_window));
    });
}

void CounterPrinting::tellFault(const QString &text) {
    if (!text.isEmpty())
        Q_EMIT failed(text);
}

void CounterPrinting::printAfterPaying(const QString &number) {
    const PrintSettings settings = PrintSettings::load(m_context.session.db());
    if (settings.printsAfterPaying)
        print(number, false);
    if (settings.opensDrawer || CounterSettings::load(m_context.session).opensDrawer)
        openDrawer();
}

void CounterPrinting::openDrawer() {
    const CounterSettings counter = CounterSettings::load(m_context.session);
    const PrintSettings settings = PrintSettings::load(m_context.session.db());
    if (counter.drawerOnPort && !counter.port.isEmpty())
        sendToPort(counter.port, drawerPulse());
    else if (settings.usesEscPos)
        m_sender(printerOf(settings), drawerPulse());
}

void CounterPrinting::showAmount(Decimal shown, DisplayLight light) {
    const CounterSettings counter = CounterSettings::load(m_context.session);
    if (counter.customerDisplay && !counter.port.isEmpty())
        sendToPort(counter.port, displayBytes(shown, light));
}

/// The spooler of the system takes the bytes as they are, and waits for the printer in our place.
void CounterPrinting::sendRaw(const QString &printer, const QByteArray &bytes) {
    if (printer.isEmpty()) {
        Q_EMIT failed(QStringLiteral("没有找到打印机，小票没有打印，可以重打！"));
        return;
    }
    // A window that closes does not take what it sent off the printer.
    auto *spooler = new QProcess(qApp);
    const QString text =
        QStringLiteral("打印机“%1”不能打印，小票没有打印，可以重打！").arg(printer);
    connect(spooler, &QProcess::finished, this, [this, text](int code) {
        if (code != 0)
            Q_EMIT failed(text);
    });
    connect(spooler, &QProcess::errorOccurred, this, [this, text](QProcess::ProcessError e) {
        if (e == QProcess::FailedToStart)
            Q_EMIT failed(text);
    });
    connect(spooler, &QProcess::finished, spooler, &QObject::deleteLater);
    connect(spooler, &QProcess::errorOccurred, spooler, [spooler](QProcess::ProcessError e) {
        if (e == QProcess::FailedToStart)
            spooler->deleteLater();
    });
    spooler->start(QStringLiteral("lp"), {QStringLiteral("-s"), QStringLiteral("-d"), printer,
                                          QStringLiteral("-o"), QStringLiteral("raw")});
    spooler->write(bytes);
    spooler->closeWriteChannel();
}

/// Elsewhere than where keys are heard: a line without a device may take long to open.
void CounterPrinting::sendToPort(const QString &port, const QByteArray &bytes) {
    const QPointer<CounterPrinting> self(this);
    QThreadPool::globalInstance()->start([self, port, bytes] {
        QFile line(deviceOf(port));
        const bool sent = line.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                          line.write(bytes) == bytes.size();
        if (sent)
            return;
        QMetaObject::invokeMethod(
            qApp,
            [self, port] {
                if (self)
                    Q_EMIT self->failed(QStringLiteral("端口“%1”没有反应！").arg(port));
            },
            Qt::QueuedConnection);
    });
}

} // namespace jxc
