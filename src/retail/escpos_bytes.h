#pragma once

#include <QByteArray>
#include <QString>

namespace jxc {

/// The bytes that a receipt printer understands, put together line by line. Texts go as GB18030, in
/// which a Chinese sign is as wide as two plain ones.
class EscPosBytes {
public:
    explicit EscPosBytes(int columns);

    /// A line, broken where it is too long.
    void line(const QString &text = {});
    void centred(const QString &text);
    /// A text in double height and width, centred.
    void large(const QString &text);
    /// One text at the left edge, one at the right; the left one gives way.
    void pair(const QString &left, const QString &right);
    void rule();
    void feed(int lines);
    void cut();
    /// Opens the drawer that hangs at the printer.
    void openDrawer();

    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

private:
    int m_columns;
    QByteArray m_bytes;
};

/// How many columns a text takes on such paper.
[[nodiscard]] int columnsOf(const QString &text);
[[nodiscard]] QByteArray gb18030(const QString &text);
/// The drawer alone.
[[nodiscard]] QByteArray drawerPulse();

} // namespace jxc
