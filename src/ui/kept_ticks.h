#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>

namespace jxc {

class Grid;

/// The ticks of a list that outlast reading it anew: one searches for a row, ticks it, searches for
/// the next. Rows are known by a field.
class KeptTicks : public QObject {
    Q_OBJECT
public:
    KeptTicks(Grid &grid, QString field);

    [[nodiscard]] bool contains(const QString &key) const { return m_ticked.contains(key); }
    [[nodiscard]] int count() const { return static_cast<int>(m_ticked.size()); }
    /// Also of rows that a search hides.
    [[nodiscard]] QStringList keys() const;
    void set(const QStringList &keys);
    void clear() { set({}); }

Q_SIGNALS:
    void changed();

private:
    void take();
    void restore();

    Grid &m_grid;
    QString m_field;
    QSet<QString> m_ticked;
};

} // namespace jxc
