#pragma once

#include "db/database.h"

namespace jxc {

/// Holds the account set's write lock from construction on, and undoes everything unless it was
/// committed. One inside another is part of it: only the outermost commits.
class Transaction {
public:
    explicit Transaction(Database &db)
        : m_db(db) {
        m_db.begin();
    }
    ~Transaction() {
        if (!m_done)
            m_db.rollback();
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit() {
        m_db.commit();
        m_done = true;
    }

private:
    Database &m_db;
    bool m_done = false;
};

} // namespace jxc
