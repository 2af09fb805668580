#include "support/ctl_process.h"

#include <QtGlobal>

namespace jxc::test {

namespace {

constexpr int longest = 60'000; // ms; only a tool that hangs takes it

QStringList on(const QString &url, const QStringList &arguments) {
    return QStringList{QStringLiteral("--database"), url} + arguments;
}

} // namespace

void startCtl(QProcess &process, const QString &url, const QStringList &arguments) {
    process.start(QStringLiteral(JXC_CTL), on(url, arguments));
    if (!process.waitForStarted())
        qFatal("jxcctl does not start: %s", qPrintable(process.errorString()));
}

CtlAnswer runCtl(const QStringList &arguments, const QByteArray &input) {
    QProcess process;
    process.start(QStringLiteral(JXC_CTL), arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(longest))
        return {-1, {}, QStringLiteral("jxcctl did not end: ") + process.errorString()};
    const bool ended = process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -2, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

CtlAnswer runCtlOn(const QString &url, const QStringList &arguments, const QByteArray &input) {
    return runCtl(on(url, arguments), input);
}

} // namespace jxc::test
