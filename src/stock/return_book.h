#pragma once

#include "stock/return_ties.h"

#include <map>

namespace jxc {

class Database;

/// The tables and columns of purchases or sales and of their returns.
struct ReturnSide {
    QString sourceHeader, sourceLines, number, status, date, partner; ///< jxc_jhd, jxc_jhsp, j_sn …
    QString prefix;                                                   ///< "jh" or "ls"
    QString done;                                                     ///< what really came or went
    QString returnHeader, returnLines;
    bool isSale = false;
};
/// By the code of the return, CT or XT.
[[nodiscard]] const ReturnSide &returnSide(const QString &returnCode);

/// What a partner's returns have taken back, by the ties in their notes, one return not counted.
[[nodiscard]] std::map<ReturnKey, Decimal> returnedByPartner(Database &db, const ReturnSide &side,
                                                             const QString &partner,
                                                             const QString &exceptReturn);

/// What named documents of a partner still have to give.
class ReturnBook {
public:
    ReturnBook(Database &db, const ReturnSide &side, QString partner, QString exceptReturn)
        : m_db(db)
        , m_side(side)
        , m_partner(std::move(partner))
        , m_exceptReturn(std::move(exceptReturn)) {}

    /// In the unit of the key; 0 for what the document does not have, or is not this partner's.
    [[nodiscard]] Decimal returnable(const ReturnKey &key);

private:
    void readDocument(const QString &number);
    void readReturned(const QString &number);

    Database &m_db;
    const ReturnSide &m_side;
    QString m_partner, m_exceptReturn;
    std::map<QString, std::map<ReturnKey, Decimal>> m_documents;
    std::map<ReturnKey, Decimal> m_returned;
};

} // namespace jxc
