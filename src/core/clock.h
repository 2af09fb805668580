#pragma once

#include <QDateTime>

namespace jxc {

/// The one place that the time is asked, so that date rules are tried without waiting for the day.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual QDateTime now() const = 0;
};

class SystemClock : public Clock {
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }
};

/// A clock that stands until it is set.
class FixedClock : public Clock {
public:
    explicit FixedClock(QDateTime time)
        : m_time(std::move(time)) {}
    void set(const QDateTime &time) { m_time = time; }
    [[nodiscard]] QDateTime now() const override { return m_time; }

private:
    QDateTime m_time;
};

} // namespace jxc
