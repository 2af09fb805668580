#pragma once

#include "model/reference.h"

#include <random>

namespace jxc {
class Database;
}

namespace jxc::test {

/// Randomness that a seed repeats on every machine.
class Chance {
public:
    explicit Chance(quint32 seed)
        : m_engine(seed) {}
    /// 0 .. count-1
    [[nodiscard]] int below(int count) {
        return static_cast<int>(m_engine() % static_cast<quint32>(count));
    }
    [[nodiscard]] bool percent(int share) { return below(100) < share; }
    template<typename List>
    [[nodiscard]] auto oneOf(const List &list) {
        return *(std::begin(list) + below(static_cast<int>(std::size(list))));
    }
    /// Above 0 and at most `limit`, half of them whole.
    [[nodiscard]] Decimal figure(int limit, int places);

private:
    std::mt19937 m_engine;
};

/// A document that the account set holds: its number and whether it is approved.
struct KnownDocument {
    QString number;
    bool approved = false;
};

/// Types documents as the forms leave them, into the account set and the reference alike: every
/// column filled, texts '' and figures 0.
class Drafts {
public:
    Drafts(Database &db, ReferenceBooks &books, Chance &chance)
        : m_db(db)
        , m_books(books)
        , m_chance(chance) {}

    bool separateGoodsIn = false, separateGoodsOut = false;

    /// A purchase, a sale or a return ("CJ", "XS", "CT", "XT"); answers its number.
    QString trade(const QString &code);
    /// Goods-in ("RK") or goods-out ("CK") of what an approved document left open, also of too much
    /// or in the wrong warehouse now and then; empty when there is no such document.
    QString againstSource(const QString &code);
    /// A receipt, a payment, or an amount owed ("SK", "FK", "YS", "YF").
    QString settlement(const QString &code);
    void remove(const QString &number);
    [[nodiscard]] std::vector<KnownDocument> documents(const QStringList &codes);
    /// Inserts the row into both.
    qint64 insert(const QString &table, const Cells &cells);

    [[nodiscard]] QString randomDate();
    [[nodiscard]] const QStringList &goods() const { return m_goods; }
    [[nodiscard]] const QStringList &warehouses() const { return m_warehouses; }
    [[nodiscard]] const QStringList &partners() const { return m_partners; }

private:
    [[nodiscard]] QString newNumber(const QString &table, const QString &column,
                                    const QString &code, const QString &date);
    [[nodiscard]] Cells tradeLine(const QString &code, const QString &warehouse,
                                  const QString &date);
    void addBatch(Cells &line);
    void addDiscountLine(Cells &line, const QString &prefix);
    [[nodiscard]] Cells tradeHeader(const QString &code, const QString &warehouse,
                                    const QString &date, Decimal total);

    Database &m_db;
    ReferenceBooks &m_books;
    Chance &m_chance;
    QStringList m_goods{QStringLiteral("N001"), QStringLiteral("F002"), QStringLiteral("Z003"),
                        QStringLiteral("N004")};
    QStringList m_warehouses{QStringLiteral("100001"), QStringLiteral("100002")};
    QStringList m_partners{QStringLiteral("100001"), QStringLiteral("100002")};
};

/// How a document's tables and columns are called, for typing it.
struct DraftNames {
    QString header, lines, number, date, headerPrefix, linePrefix, partner;
};
[[nodiscard]] const DraftNames &draftNames(const QString &number);

} // namespace jxc::test
