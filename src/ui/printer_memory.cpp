#include "ui/printer_memory.h"

#include <QDir>
#include <QPrinterInfo>
#include <QSettings>

namespace jxc {

PrinterMemory::PrinterMemory(const QString &home)
    : m_file(QDir(home).filePath(QStringLiteral("Layout/printers.ini"))) {}

QString PrinterMemory::value(const QString &key) const {
    return QFile::exists(m_file) ? QSettings(m_file, QSettings::IniFormat).value(key).toString()
                                 : QString();
}

void PrinterMemory::setValue(const QString &key, const QString &value) const {
    if (QDir().mkpath(QFileInfo(m_file).path()))
        QSettings(m_file, QSettings::IniFormat).setValue(key, value);
}

QString PrinterMemory::printerFor(const QString &kind) const {
    const QStringList present = QPrinterInfo::availablePrinterNames();
    const QString used = value(QStringLiteral("printer/") + kind);
    if (present.contains(used))
        return used;
    const QString systems = QPrinterInfo::defaultPrinterName();
    return present.contains(systems) ? systems : present.value(0);
}

QString PrinterMemory::templateFor(const QString &kind) const {
    return value(QStringLiteral("template/") + kind);
}

void PrinterMemory::remember(const QString &kind, const QString &printer,
                             const QString &templateFile) const {
    setValue(QStringLiteral("printer/") + kind, printer);
    setValue(QStringLiteral("template/") + kind, templateFile);
}

QPointF PrinterMemory::offset(const QString &printer) const {
    const QStringList written = value(QStringLiteral("offset/") + printer).split(u';');
    bool hasRight = false, hasDown = false;
    const QPointF read(written.value(0).toDouble(&hasRight), written.value(1).toDouble(&hasDown));
    return hasRight && hasDown ? read : QPointF();
}

void PrinterMemory::setOffset(const QString &printer, QPointF offset) const {
    setValue(QStringLiteral("offset/") + printer,
             QStringLiteral("%1;%2").arg(offset.x()).arg(offset.y()));
}

} // namespace jxc
