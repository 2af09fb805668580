#pragma once

#include "db/database.h"

#include <memory>

namespace jxc::bench {

/// A statement as the program ran it.
struct Recorded {
    QString sql;
    Values values;
};
using Recording = std::vector<Recorded>;

/// The yardstick: the engine's own C interface running the very statements of the program, prepared
/// once each, reading every column of every row, with nothing in between.
class BareEngine {
public:
    virtual ~BareEngine() = default;
    virtual void run(const Recorded &statement) = 0;

    static std::unique_ptr<BareEngine> open(const Location &location);
};

} // namespace jxc::bench
