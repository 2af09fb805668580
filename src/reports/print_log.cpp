#include "reports/print_log.h"

#include <QDir>
#include <QSettings>

namespace jxc {

namespace {

QString keyOf(const QString &number) {
    return QStringLiteral("printed/") + number;
}

} // namespace

PrintLog::PrintLog(const QString &home)
    : m_file(QDir(home).filePath(QStringLiteral("Layout/printed.ini"))) {}

bool PrintLog::holds(const QString &number) const {
    return QFile::exists(m_file) && QSettings(m_file, QSettings::IniFormat).contains(keyOf(number));
}

void PrintLog::add(const QString &number, const QString &timeStamp) const {
    if (QDir().mkpath(QFileInfo(m_file).path()))
        QSettings(m_file, QSettings::IniFormat).setValue(keyOf(number), timeStamp);
}

} // namespace jxc
