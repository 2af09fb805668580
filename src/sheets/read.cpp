#include "sheets/read.h"

#include "sheets/csv.h"
#include "sheets/faults.h"
#include "sheets/xls_reader.h"
#include "sheets/xlsx_reader.h"

#include <QFile>
#include <QFileInfo>

namespace jxc {

namespace {

constexpr qint64 mostBytes = 100LL * 1024 * 1024;

/// An .xlsx with a password is a container of the older kind that holds one stream of this name.
bool holdsEncryptedPackage(const QByteArray &bytes) {
    static constexpr char16_t name[] = u"EncryptedPackage";
    return bytes.contains(
        QByteArray(reinterpret_cast<const char *>(name), sizeof(name) - sizeof(char16_t)));
}

/// Shops' platforms hand out web pages and markup under the name of a spreadsheet.
bool isMarkup(const QByteArray &bytes) {
    const QByteArray start = bytes.left(200).trimmed().toLower();
    const QByteArray plain = start.startsWith("\xef\xbb\xbf") ? start.mid(3).trimmed() : start;
    return plain.startsWith("<html") || plain.startsWith("<!doctype") ||
           plain.startsWith("<?xml") || plain.startsWith("<table") || plain.startsWith("<meta");
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    if (!QFileInfo(path).isFile())
        throw SheetError(QStringLiteral("文件不存在：%1").arg(path));
    if (!file.open(QIODevice::ReadOnly))
        throw SheetError(QStringLiteral("文件不能打开，可能正被其他程序使用：%1").arg(path));
    if (file.size() > mostBytes)
        throw tooLargeFile();
    QByteArray bytes = file.readAll();
    if (bytes.trimmed().isEmpty())
        throw SheetError(QStringLiteral("文件是空的！"));
    return bytes;
}

std::vector<Sheet> sheetsOf(const QString &path) {
    const QByteArray bytes = contentOf(path);
    if (bytes.startsWith("PK\x03\x04"))
        return readXlsx(path);
    if (bytes.startsWith("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1")) {
        if (holdsEncryptedPackage(bytes))
            throw encryptedFile();
        return readXls(path);
    }
    if (isMarkup(bytes))
        throw SheetError(
            QStringLiteral("文件的内容是网页，请用表格软件打开并另存为 xlsx 格式后再试！"));
    return {{QFileInfo(path).completeBaseName(), readCsv(bytes)}};
}

} // namespace

std::vector<Sheet> readSheets(const QString &path) {
    std::vector<Sheet> sheets = sheetsOf(path);
    std::erase_if(sheets, [](const Sheet &sheet) { return sheet.rows.empty(); });
    if (sheets.empty())
        throw SheetError(QStringLiteral("文件里没有数据！"));
    return sheets;
}

} // namespace jxc
