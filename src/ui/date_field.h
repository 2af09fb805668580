#pragma once

#include <QLineEdit>

namespace jxc {

/// A date, always "yyyy-MM-dd" whatever the system's locale. What clerks type short is completed:
/// "5" the fifth of this month, "0305" the fifth of March, "260305" with the year. ↑ ↓ move by a
/// day, F2 opens a calendar.
class DateField : public QLineEdit {
    Q_OBJECT
public:
    /// `today` completes what is typed short.
    DateField(const QString &today, QWidget *parent = nullptr);
    void setToday(const QString &today) { m_today = today; }

    /// Empty for no date.
    [[nodiscard]] QString date() const;
    void setDate(const QString &date);
    [[nodiscard]] bool isValid() const;

Q_SIGNALS:
    void dateChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void complete();
    void openCalendar();

    QString m_today;
};

/// What a short entry means; as typed when it means no date.
[[nodiscard]] QString completedDate(const QString &typed, const QString &today);

} // namespace jxc
