#include "ctl/console.h"

#include <QRegularExpression>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <termios.h>
#include <unistd.h>
#endif

namespace jxc::ctl {

namespace {

void write(FILE *stream, const QString &line) {
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
}

QString readLine() {
    std::string line;
    for (int c = std::getchar(); c != EOF && c != '\n'; c = std::getchar())
        line.push_back(static_cast<char>(c));
    return QString::fromStdString(line);
}

} // namespace

void say(const QString &line) {
    write(stdout, line);
}

void complain(const QString &line) {
    write(stderr, line);
}

QString oneLine(const QString &text) {
    static const QRegularExpression breaks(QStringLiteral("[\\r\\n]+"));
    return text.trimmed().replace(breaks, QStringLiteral(" / "));
}

void sayOutcome(const QString &number, const Outcome &outcome) {
    say(outcome.isDone() ? number + QStringLiteral(" ok")
                         : QStringLiteral("%1 refused: %2").arg(number, oneLine(outcome.text)));
}

QString askPassword(const QString &prompt) {
#ifdef Q_OS_UNIX
    if (isatty(STDIN_FILENO) == 0)
        return {};
    std::fputs(prompt.toUtf8().constData(), stderr);
    termios shown{};
    tcgetattr(STDIN_FILENO, &shown);
    termios hidden = shown;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
    QString password = readLine();
    tcsetattr(STDIN_FILENO, TCSANOW, &shown);
    std::fputc('\n', stderr);
    return password;
#else
    std::fputs(prompt.toUtf8().constData(), stderr);
    return readLine();
#endif
}

void ConsolePrompter::inform(const QString &text, const QString &) {
    say(oneLine(text));
}

bool ConsolePrompter::confirm(const QString &text, const QString &) {
    complain(oneLine(text) + (m_yes ? QStringLiteral(" —— 是") : QStringLiteral(" —— 否")));
    return m_yes;
}

} // namespace jxc::ctl
