#include "ui/kept_ticks.h"

#include "ui/grid.h"

namespace jxc {

KeptTicks::KeptTicks(Grid &grid, QString field)
    : QObject(&grid)
    , m_grid(grid)
    , m_field(std::move(field)) {
    RowsModel &model = grid.model();
    model.setTickable(true);
    connect(&model, &RowsModel::ticksChanged, this, &KeptTicks::take);
    connect(&model, &QAbstractItemModel::modelReset, this, &KeptTicks::restore);
}

QStringList KeptTicks::keys() const {
    QStringList keys(m_ticked.begin(), m_ticked.end());
    keys.sort(); // the same ones in the same order, each time
    return keys;
}

void KeptTicks::set(const QStringList &keys) {
    m_ticked = QSet<QString>(keys.begin(), keys.end());
    restore();
    m_grid.view().viewport()->update();
    Q_EMIT changed();
}

void KeptTicks::take() {
    const RowsModel &model = m_grid.model();
    for (int line = 0; line < model.rowCount(); ++line) {
        const QString key = model.at(line).text(m_field);
        if (model.isTicked(line))
            m_ticked.insert(key);
        else
            m_ticked.remove(key);
    }
    Q_EMIT changed();
}

void KeptTicks::restore() {
    RowsModel &model = m_grid.model();
    const QSignalBlocker quiet(model); // the view paints anew by itself
    for (int line = 0; line < model.rowCount(); ++line)
        model.tick(line, m_ticked.contains(model.at(line).text(m_field)));
}

} // namespace jxc
