#pragma once

#include <QString>
#include <QStringList>
#include <vector>

class QHeaderView;

namespace jxc {

/// One column of a kept layout.
struct ColumnLayout {
    QString field;
    int width = 0;
    bool visible = true;
};

/// The layouts of the grids, one file "Layout/<name>.ini" each. Columns are kept by field, so that
/// a layout of an earlier release still fits what has columns added or taken away.
class LayoutStore {
public:
    LayoutStore(const QString &home, const QString &name);

    /// In the order shown; empty when nothing was kept.
    [[nodiscard]] std::vector<ColumnLayout> load() const;
    /// Makes the folder when it is missing. False when the file could not be written.
    [[nodiscard]] bool save(const std::vector<ColumnLayout> &columns) const;
    void forget() const;

    // Further lists of the same layout, for example at which cells Enter stops.
    [[nodiscard]] QStringList list(const QString &key) const;
    [[nodiscard]] bool saveList(const QString &key, const QStringList &values) const;

private:
    QString m_file;
};

} // namespace jxc
