#pragma once

#include "base/decimal.h"

#include <QString>
#include <map>
#include <tuple>

namespace jxc {

class Answers;
class Database;
struct DocumentKind;
struct Parameters;

/// What tells the batches of a goods apart, compared as exact text. Stock without a batch number is
/// one bucket per goods and warehouse (and production date): its expiry is "0000-00".
struct Batch {
    QString number;   ///< t_ph
    QString expiry;   ///< t_yxq
    QString produced; ///< t_scrq
    friend bool operator==(const Batch &, const Batch &) = default;
    friend bool operator<(const Batch &a, const Batch &b) {
        return std::tie(a.number, a.expiry, a.produced) < std::tie(b.number, b.expiry, b.produced);
    }

    /// As it is kept in the batch stock.
    [[nodiscard]] Batch normalised() const;
};

/// A change of batch stock that is still to be written.
class BatchChanges {
public:
    void add(const QString &goods, const QString &warehouse, const Batch &batch, Decimal quantity);
    /// Writes the sums; a batch that is missing gets a row, also a negative one.
    void write(Database &db) const;

private:
    struct Key {
        QString goods, warehouse;
        Batch batch;
        friend bool operator<(const Key &a, const Key &b) {
            return std::tie(a.goods, a.warehouse, a.batch) <
                   std::tie(b.goods, b.warehouse, b.batch);
        }
    };
    struct Held {
        qint64 id;
        Decimal quantity;
    };
    [[nodiscard]] std::map<Key, Held> readHeld(Database &db) const;

    std::map<Key, Decimal> m_changes;
};

/// Quantity of a batch; 0 when there is none.
[[nodiscard]] Decimal getTkcSl(Database &db, const QString &goods, const QString &warehouse,
                               const Batch &batch);
/// Raises (lowers) a batch's stock by a quantity in base units.
void addTkc(Database &db, const QString &goods, const QString &warehouse, Decimal quantity,
            const Batch &batch);
void subTkc(Database &db, const QString &goods, const QString &warehouse, Decimal quantity,
            const Batch &batch);

/// Before an outbound approval: asks whether to go on (or refuses, while negative stock is not
/// allowed) when the document takes more from a batch than it holds. Only batches that exist with a
/// positive quantity are compared, by exact text.
void checkTkcEnough(Database &db, const Parameters &parameters, Answers &answers,
                    const DocumentKind &kind, const QString &number, const QString &warehouse);

} // namespace jxc
