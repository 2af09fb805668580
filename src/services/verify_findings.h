#pragma once

#include "base/decimal.h"
#include "services/verify.h"

#include <QStringList>
#include <map>
#include <tuple>

namespace jxc::verify {

/// Where in time a wrong row stands; the earliest one is named.
struct Place {
    QString date;
    qint64 id = 0;
    friend bool operator<(const Place &a, const Place &b) {
        return std::tie(a.date, a.id) < std::tie(b.date, b.id);
    }
};

/// Gathers differences, one for each store and key: the first by place.
class Findings {
public:
    void add(const QString &store, const QString &key, const QString &text,
             const Place &place = {});
    void inform(const QString &store, const QString &key, const QString &text);

    /// Stores in the order in which they were first met, keys in theirs; information last.
    [[nodiscard]] std::vector<Difference> take() const;

private:
    struct Finding {
        Place place;
        QString text;
    };
    using ByKey = std::map<std::pair<qsizetype, QString>, Finding>; // by store and key

    static void put(ByKey &where, const std::pair<qsizetype, QString> &key, const Finding &finding);
    qsizetype rankOf(const QString &store);

    QStringList m_stores;
    ByKey m_differences, m_information;
};

/// "数量为 5，应为 6", or nothing when both are equal.
[[nodiscard]] QString compared(const QString &caption, Decimal found, Decimal due);
[[nodiscard]] QString compared(const QString &caption, const QString &found, const QString &due);

} // namespace jxc::verify
