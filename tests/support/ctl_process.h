#pragma once

#include <QProcess>
#include <QStringList>

namespace jxc::test {

/// What a run of the command-line tool answered.
struct CtlAnswer {
    int exitCode = -1;
    QString out, err;
    [[nodiscard]] QStringList lines() const { return out.split(u'\n', Qt::SkipEmptyParts); }
    /// For the message of a check that fails.
    [[nodiscard]] QString shown() const {
        return QStringLiteral("exit %1\n%2%3").arg(exitCode).arg(out, err);
    }
};

/// Starts the tool on an account set; the caller talks to it.
void startCtl(QProcess &process, const QString &url, const QStringList &arguments);
/// Runs the tool to its end, with `input` as what is typed.
[[nodiscard]] CtlAnswer runCtl(const QStringList &arguments, const QByteArray &input = {});
/// The same on an account set, as admin.
[[nodiscard]] CtlAnswer runCtlOn(const QString &url, const QStringList &arguments,
                                 const QByteArray &input = {});

} // namespace jxc::test
