#pragma once

#include "db/row.h"

#include <QObject>
#include <functional>
#include <optional>

class QTimer;

namespace jxc {

class Grid;

/// Fills a grid with a list of any length: the first screenfuls at once, the rest in pieces that no
/// key waits for, the sums at the end.
class PieceReader : public QObject {
    Q_OBJECT
public:
    /// At most so many rows: those that follow the last one read, or the first ones without it.
    using Source = std::function<Rows(int most, const Row *last)>;

    explicit PieceReader(Grid &grid);

    void start(Source source);
    void stop();
    [[nodiscard]] bool isReading() const;
    /// Reads what is still to come, before something is done with all rows.
    void finish();

Q_SIGNALS:
    void whole(); ///< all rows are there

private:
    [[nodiscard]] Rows read(int most);
    void readOn();

    Grid &m_grid;
    QTimer *m_timer; ///< runs while pieces are still to come
    Source m_source;
    std::optional<Row> m_last;
};

} // namespace jxc
