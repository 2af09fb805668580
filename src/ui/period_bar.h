#pragma once

#include <QWidget>

class QButtonGroup;

namespace jxc {

class DateField;

/// A span of days, both included, "yyyy-MM-dd".
struct Period {
    QString from, to;
    friend bool operator==(const Period &, const Period &) = default;
};

enum class PeriodChoice { today, thisWeek, thisMonth, lastMonth, thisYear, allTime };

/// The days of a choice, seen from a day. Weeks begin on Monday; all time is 2000-01-01 to
/// 9999-12-31.
[[nodiscard]] Period periodOf(PeriodChoice choice, const QString &today);

/// 今天 本周 本月 上月 本年 全部, by Alt+1 to Alt+6 too, and the two dates.
class PeriodBar : public QWidget {
    Q_OBJECT
public:
    PeriodBar(const QString &today, PeriodChoice first, QWidget *parent = nullptr);

    [[nodiscard]] Period period() const;
    void choose(PeriodChoice choice);
    void setPeriod(const Period &period);
    /// A window that outlives midnight: a named span is that of the new day, without a word; two
    /// dates that were typed stay.
    void setToday(const QString &today);

Q_SIGNALS:
    void periodChanged();

private:
    void typed();

    QString m_today;
    QButtonGroup *m_buttons;
    DateField *m_from, *m_to;
    Period m_last;
};

} // namespace jxc
