// Reads one .xls file for the program that starts it. The library for that format does not
// withstand every damaged file; here it takes nobody's work down with it.
#include "sheets/xls_helper/xls_file.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QFile>
#include <cstdio>

using namespace jxc;

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    QFile out;
    if (!out.open(stdout, QIODevice::WriteOnly))
        return 1;
    QDataStream stream(&out);
    stream.setVersion(QDataStream::Qt_6_4);
    try {
        const std::vector<Sheet> sheets = readXlsFile(QCoreApplication::arguments().value(1));
        stream << QString() << static_cast<quint32>(sheets.size());
        for (const Sheet &sheet : sheets)
            stream << sheet.name << QList<QStringList>(sheet.rows.begin(), sheet.rows.end());
    } catch (const SheetError &error) {
        stream << error.userText();
    }
    return stream.status() == QDataStream::Ok ? 0 : 1;
}
