#include "retail/escpos_bytes.h"

#include <QStringEncoder>

#include <algorithm>

namespace jxc {

namespace {

const char esc = '\x1b';
const char gs = '\x1d';

/// Whatever is no plain ASCII takes two bytes in GB18030 and is printed as wide, "×" too.
bool isWideSign(char32_t sign) {
    return sign >= 0x80;
}

/// As much of a text from `start` as fits; at least one sign.
qsizetype endOfLine(const QString &text, qsizetype start, int columns) {
    int used = 0;
    qsizetype at = start;
    while (at < text.size()) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
        const int width = columnsOf(text.mid(at, isPair ? 2 : 1));
        if (used + width > columns && at > start)
            break;
        used += width;
        at += isPair ? 2 : 1;
    }
    return at;
}

} // namespace

int columnsOf(const QString &text) {
    int columns = 0;
    for (const char32_t sign : text.toUcs4())
        columns += isWideSign(sign) ? 2 : 1;
    return columns;
}

QByteArray gb18030(const QString &text) {
    QStringEncoder encoder("GB18030");
    return encoder.encode(text);
}

QByteArray drawerPulse() {
    return QByteArray("\x1bp\x00\x19\xfa", 5);
}

EscPosBytes::EscPosBytes(int columns)
    : m_columns(columns) {
    m_bytes += esc;
    m_bytes += '@'; // as after switching on
    m_bytes += '\x1c';
    m_bytes += '&'; // Chinese signs
}

void EscPosBytes::line(const QString &text) {
    qsizetype start = 0;
    do {
        const qsizetype end = endOfLine(text, start, m_columns);
        m_bytes += gb18030(text.mid(start, end - start));
        m_bytes += '\n';
        start = end;
    } while (start < text.size());
}

void EscPosBytes::centred(const QString &text) {
    if (text.isEmpty())
        return;
    m_bytes += QByteArray("\x1b"
                          "a\x01",
                          3);
    line(text);
    m_bytes += QByteArray("\x1b"
                          "a\x00",
                          3);
}

void EscPosBytes::large(const QString &text) {
    if (text.isEmpty())
        return;
    if (columnsOf(text) * 2 > m_columns) { // it would break in the middle of a name
        centred(text);
        return;
    }
    m_bytes += QByteArray("\x1d!\x11\x1c!\x0c", 6);
    centred(text);
    m_bytes += QByteArray("\x1d!\x00\x1c!\x00", 6);
}

void EscPosBytes::pair(const QString &left, const QString &right) {
    const int room = m_columns - columnsOf(right) - 1;
    if (columnsOf(left) > room) {
        line(left);
        line(QString(std::max(0, m_columns - columnsOf(right)), u' ') + right);
        return;
    }
    line(left + QString(m_columns - columnsOf(left) - columnsOf(right), u' ') + right);
}

void EscPosBytes::rule() {
    line(QString(m_columns, u'-'));
}

void EscPosBytes::feed(int lines) {
    m_bytes += esc;
    m_bytes += 'd';
    m_bytes += static_cast<char>(std::clamp(lines, 0, 255));
}

void EscPosBytes::cut() {
    m_bytes += gs;
    m_bytes += QByteArray("VB\x00", 3); // feeds to the knife, then cuts
}

void EscPosBytes::openDrawer() {
    m_bytes += drawerPulse();
}

} // namespace jxc
