#pragma once

#include <QPointF>
#include <QString>

namespace jxc {

/// What this workstation remembers of its printers, in Layout/printers.ini: which one prints a kind
/// of document, with which template, and by how much each printer has to be moved so that the print
/// meets the pre-printed or perforated paper.
class PrinterMemory {
public:
    explicit PrinterMemory(const QString &home);

    /// The printer last used for a kind ("XS"), or the system's; empty when there is none now.
    [[nodiscard]] QString printerFor(const QString &kind) const;
    [[nodiscard]] QString templateFor(const QString &kind) const;
    void remember(const QString &kind, const QString &printer, const QString &templateFile) const;

    /// Millimetres to the right and down.
    [[nodiscard]] QPointF offset(const QString &printer) const;
    void setOffset(const QString &printer, QPointF offset) const;

private:
    [[nodiscard]] QString value(const QString &key) const;
    void setValue(const QString &key, const QString &value) const;

    QString m_file;
};

} // namespace jxc
