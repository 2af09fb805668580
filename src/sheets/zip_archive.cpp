#include "sheets/zip_archive.h"

#include "sheets/faults.h"

#include <QFile>
#include <memory>
#include <zip.h>

namespace jxc {

namespace {

constexpr qint64 mostUnpacked = 300LL * 1024 * 1024;

} // namespace

ZipArchive::ZipArchive(const QString &path)
    : m_zip(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr)) {
    if (m_zip == nullptr)
        throw damagedFile();
}

ZipArchive::~ZipArchive() {
    zip_discard(m_zip);
}

bool ZipArchive::has(const QString &part) const {
    return zip_name_locate(m_zip, part.toUtf8().constData(), ZIP_FL_NOCASE) >= 0;
}

QByteArray ZipArchive::read(const QString &part) {
    const zip_int64_t index = zip_name_locate(m_zip, part.toUtf8().constData(), ZIP_FL_NOCASE);
    if (index < 0)
        return {};
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t *)> file(
        zip_fopen_index(m_zip, static_cast<zip_uint64_t>(index), 0), &zip_fclose);
    if (!file)
        throw zip_error_code_zip(zip_get_error(m_zip)) == ZIP_ER_NOPASSWD ? encryptedFile()
                                                                          : damagedFile();
    QByteArray content;
    QByteArray piece(256 * 1024, Qt::Uninitialized);
    for (;;) {
        const zip_int64_t got =
            zip_fread(file.get(), piece.data(), static_cast<zip_uint64_t>(piece.size()));
        if (got < 0)
            throw damagedFile(); // a checksum or a size that does not hold is found here, too
        if (got == 0)
            return content;
        m_unpacked += got;
        if (m_unpacked > mostUnpacked)
            throw tooLargeFile();
        content.append(piece.constData(), static_cast<qsizetype>(got));
    }
}

} // namespace jxc
