#include "ui/piece_reader.h"

#include "ui/grid.h"

#include <QTimer>

namespace jxc {

namespace {

// A piece that fills the screen at once, and such that no key waits for.
constexpr int firstPiece = 1'000;
constexpr int furtherPiece = 4'000;

} // namespace

PieceReader::PieceReader(Grid &grid)
    : QObject(&grid)
    , m_grid(grid)
    , m_timer(new QTimer(this)) {
    m_timer->setInterval(0);
    connect(m_timer, &QTimer::timeout, this, &PieceReader::readOn);
}

void PieceReader::start(Source source) {
    m_source = std::move(source);
    m_last.reset();
    Rows first = read(firstPiece);
    const bool more = first.size() == firstPiece;
    m_grid.setRows(std::move(first)); // which ends what was being read
    if (!more) {
        Q_EMIT whole();
        return;
    }
    m_grid.appendRows({}); // the sums are not whole yet
    m_timer->start();
}

void PieceReader::stop() {
    m_timer->stop();
}

bool PieceReader::isReading() const {
    return m_timer->isActive();
}

void PieceReader::finish() {
    while (isReading())
        readOn();
}

Rows PieceReader::read(int most) {
    Rows rows = m_source(most, m_last ? &*m_last : nullptr);
    if (!rows.empty())
        m_last = rows.back();
    return rows;
}

void PieceReader::readOn() {
    Rows rows = read(furtherPiece);
    const bool more = rows.size() == furtherPiece;
    m_grid.appendRows(std::move(rows));
    if (more)
        return;
    stop();
    m_grid.finishRows();
    Q_EMIT whole();
}

} // namespace jxc
