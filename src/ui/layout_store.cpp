#include "ui/layout_store.h"

#include <QSettings>

namespace jxc {

LayoutStore::LayoutStore(const QString &home, const QString &name)
    : m_file(QDir(home).filePath(QStringLiteral("Layout/%1.ini").arg(name))) {}

std::vector<ColumnLayout> LayoutStore::load() const {
    std::vector<ColumnLayout> columns;
    if (!QFile::exists(m_file))
        return columns;
    QSettings file(m_file, QSettings::IniFormat);
    const int count = file.beginReadArray(QStringLiteral("columns"));
    for (int i = 0; i < count; ++i) {
        file.setArrayIndex(i);
        columns.push_back({file.value(QStringLiteral("field")).toString(),
                           file.value(QStringLiteral("width")).toInt(),
                           file.value(QStringLiteral("visible"), true).toBool()});
    }
    return columns;
}

bool LayoutStore::save(const std::vector<ColumnLayout> &columns) const {
    if (!QDir().mkpath(QFileInfo(m_file).path()))
        return false;
    QSettings file(m_file, QSettings::IniFormat);
    file.clear();
    file.beginWriteArray(QStringLiteral("columns"), static_cast<int>(columns.size()));
    for (size_t i = 0; i < columns.size(); ++i) {
        file.setArrayIndex(static_cast<int>(i));
        file.setValue(QStringLiteral("field"), columns[i].field);
        file.setValue(QStringLiteral("width"), columns[i].width);
        file.setValue(QStringLiteral("visible"), columns[i].visible);
    }
    file.endArray();
    file.sync();
    return file.status() == QSettings::NoError;
}

QStringList LayoutStore::list(const QString &key) const {
    if (!QFile::exists(m_file))
        return {};
    return QSettings(m_file, QSettings::IniFormat).value(key).toStringList();
}

bool LayoutStore::saveList(const QString &key, const QStringList &values) const {
    if (!QDir().mkpath(QFileInfo(m_file).path()))
        return false;
    QSettings file(m_file, QSettings::IniFormat);
    file.setValue(key, values);
    file.sync();
    return file.status() == QSettings::NoError;
}

void LayoutStore::forget() const {
    QFile::remove(m_file);
}

} // namespace jxc
