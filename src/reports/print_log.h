#pragma once

#include <QString>

namespace jxc {

/// Which documents this installation has printed, kept in Layout/printed.ini under the home folder:
/// a second print of a document bears a mark, so that nobody is handed goods twice for one sale.
class PrintLog {
public:
    explicit PrintLog(const QString &home);

    [[nodiscard]] bool holds(const QString &number) const;
    /// A file that cannot be written only costs the mark.
    void add(const QString &number, const QString &timeStamp) const;

private:
    QString m_file;
};

} // namespace jxc
