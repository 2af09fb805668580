#pragma once

#include "db/row.h"

#include <QString>
#include <vector>

namespace jxc {

class Database;

/// What goods are found by, held in memory so that a key costs no scan of the table.
///
/// Every change of goods is logged with its code, on whichever workstation it is made. So one look
/// at the newest lines of the log tells which goods are to be read anew; counters of use may be
/// older.
class GoodsIndex {
public:
    explicit GoodsIndex(Database &db)
        : m_db(db) {}

    /// A goods that was found, by its row.
    struct Match {
        qint64 id = 0;
        bool exact = false;
        qint64 purchases = 0, sales = 0;
    };

    /// Reads the next few thousand goods; false when nothing is missing.
    bool readMore();
    /// All goods that match, in the order of entry.
    [[nodiscard]] std::vector<Match> find(const QString &typed);

private:
    struct Entry {
        qint64 id = 0;
        QString code;     ///< small letters
        QString mnemonic; ///< capitals
        QString name;     ///< small letters
        QString others;   ///< generic name, maker, registration number; small letters
        /// The letters that each character of the name may be read with, parted by blanks; empty
        /// when there is but one reading.
        QString readings;
        qint64 purchases = 0, sales = 0;
    };

    class Wanted;

    static Entry entryOf(const Row &row);
    void readAll();
    void readRows(const Rows &rows);
    void readAgain(qint64 id);
    void follow();
    void followNote(const QString &note);
    void startAnew();

    Database &m_db;
    std::vector<Entry> m_entries; ///< by id
    bool m_complete = false;
    qint64 m_lastGoods = 0; ///< greatest id read
    qint64 m_lastLog = -1;  ///< newest line of the log that was looked at; -1: none yet
};

} // namespace jxc
