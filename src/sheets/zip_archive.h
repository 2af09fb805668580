#pragma once

#include <QByteArray>
#include <QString>

struct zip;

namespace jxc {

/// The parts inside a zipped file, for reading. Sizes that the file claims are not believed: what
/// is really unpacked counts against limits, part by part and together.
class ZipArchive {
public:
    /// Throws SheetError when the file is no whole archive.
    explicit ZipArchive(const QString &path);
    ~ZipArchive();
    ZipArchive(const ZipArchive &) = delete;
    ZipArchive &operator=(const ZipArchive &) = delete;

    [[nodiscard]] bool has(const QString &part) const;
    /// Empty when there is no such part. Throws SheetError when it is damaged, encrypted or too
    /// large.
    [[nodiscard]] QByteArray read(const QString &part);

private:
    ::zip *m_zip = nullptr;
    qint64 m_unpacked = 0;
};

} // namespace jxc
