#pragma once

#include "db/database.h"

#include <QTemporaryDir>
#include <memory>

namespace jxc::test {

/// The engines that logic is tried on: the embedded one always, PostgreSQL when JXC_TEST_POSTGRES
/// names a server (scripts/with_postgres starts one).
[[nodiscard]] std::vector<Engine> engines();
[[nodiscard]] QString engineName(Engine engine);
/// Adds a row per engine to a data-driven test: column "engine".
void addEngineRows();
/// For programs that are no tests: the engine of everything that follows.
void useEngine(Engine engine);
/// The engine of the running row.
[[nodiscard]] Engine currentEngine();

/// A place for one account set that vanishes with the object.
class TestDatabase {
public:
    enum class Content {
        accountSet, ///< all tables and default rows
        nothing     ///< an empty file or database
    };
    explicit TestDatabase(Engine engine, Content content = Content::accountSet);
    ~TestDatabase();
    TestDatabase(const TestDatabase &) = delete;
    TestDatabase &operator=(const TestDatabase &) = delete;

    [[nodiscard]] const Location &location() const { return m_location; }
    /// The path or URL as the command line takes it.
    [[nodiscard]] QString url() const;
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] Database &db() { return *m_db; }
    /// Another connection, as a second workstation has it.
    [[nodiscard]] std::unique_ptr<Database> connect() const;
    /// Closes the connection of db() and opens it anew.
    void reopen();

private:
    QTemporaryDir m_folder;
    Location m_location;
    std::unique_ptr<Database> m_db;
};

} // namespace jxc::test
