#include "sheets/xls_reader.h"

#include "sheets/faults.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QProcess>

namespace jxc {

namespace {

constexpr int longestMs = 60'000;

std::vector<Sheet> sheetsFrom(const QByteArray &answer) {
    QDataStream stream(answer);
    stream.setVersion(QDataStream::Qt_6_4);
    QString fault;
    stream >> fault;
    if (!fault.isEmpty())
        throw SheetError(fault);
    quint32 count = 0;
    stream >> count;
    std::vector<Sheet> sheets;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString name;
        QList<QStringList> rows;
        stream >> name >> rows;
        sheets.push_back({name, {rows.begin(), rows.end()}});
    }
    if (stream.status() != QDataStream::Ok)
        throw damagedFile();
    return sheets;
}

} // namespace

std::vector<Sheet> readXls(const QString &path) {
    QProcess helper;
    helper.setStandardErrorFile(QProcess::nullDevice());
    helper.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("jxcxls")),
                 {path}, QIODevice::ReadOnly);
    if (!helper.waitForStarted())
        throw SheetError(
            QStringLiteral("程序文件 jxcxls 不存在，请重新安装，或另存为 xlsx 格式！"));
    if (!helper.waitForFinished(longestMs) || helper.exitStatus() != QProcess::NormalExit ||
        helper.exitCode() != 0)
        throw damagedFile();
    return sheetsFrom(helper.readAllStandardOutput());
}

} // namespace jxc
