#pragma once

#include "db/database.h"

namespace jxc {

/// Reads the account set as it stood at one moment, while others go on writing: every statement of
/// this connection sees the same state until the object ends. Nothing can be written meanwhile.
/// Inside a transaction, which holds the write lock, it changes nothing.
class ReadSnapshot {
public:
    explicit ReadSnapshot(Database &db)
        : m_db(db)
        , m_own(!db.inTransaction()) {
        if (m_own)
            m_db.beginReading();
    }
    ~ReadSnapshot() {
        if (m_own)
            m_db.rollback();
    }
    ReadSnapshot(const ReadSnapshot &) = delete;
    ReadSnapshot &operator=(const ReadSnapshot &) = delete;

private:
    Database &m_db;
    bool m_own;
};

} // namespace jxc
