#pragma once

#include <QString>

struct sqlite3;
struct sqlite3_backup;

namespace jxc {

/// A bare connection to a file of the embedded engine, for copying and checking whole files.
/// Unlike Database it sets nothing on the file. Failures are DatabaseError.
class SqliteFile {
public:
    enum class Use {
        shared, ///< others may be working in it
        atRest, ///< nobody is, so that it can be read from where nothing can be written
        fresh   ///< a new file
    };
    SqliteFile(const QString &path, Use use);
    ~SqliteFile();
    SqliteFile(const SqliteFile &) = delete;
    SqliteFile &operator=(const SqliteFile &) = delete;

    [[nodiscard]] sqlite3 *handle() const { return m_handle; }
    /// The first field of the statement's first row; empty when there is none.
    [[nodiscard]] QString text(const QString &sql) const;
    /// Makes it one file that needs no log beside it.
    void seal() const;

private:
    sqlite3 *m_handle = nullptr;
};

/// Seals a file that nobody has open.
void sealFile(const QString &path);

/// Copies a whole file into another, page by page in one go, through the engine's own interface:
/// complete while others write to the source, and wholly or not at all in the target.
class PageCopy {
public:
    PageCopy(sqlite3 *from, sqlite3 *to);
    ~PageCopy();
    PageCopy(const PageCopy &) = delete;
    PageCopy &operator=(const PageCopy &) = delete;

    /// Keeps others from writing to the target until finish().
    void lockTarget();
    void finish();

private:
    sqlite3 *m_to;
    sqlite3_backup *m_copy;
};

} // namespace jxc
