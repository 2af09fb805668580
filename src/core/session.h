#pragma once

#include "core/clock.h"
#include "core/parameters.h"

#include <QString>

namespace jxc {

class Database;
class DocumentMembers;

/// The company's own row.
struct Company {
    QString name, shortName, telephone, address;
};

/// How and where backups are made (jxc_backup).
struct BackupSettings {
    QString folder;
    bool automatic = false;
    bool onExit = false;
    int intervalHours = 0;
    int keepDays = 0; ///< 0 keeps all
};

/// Rights that grids and documents ask so often that they are read once at login.
struct CachedRights {
    bool showCostPrice = false;    ///< qtcz 7
    bool changeDate = false;       ///< qtcz 8
    bool showSellingPrice = false; ///< qtcz 9
    bool changeSaleCost = false;   ///< xsgl 14
};

/// Who works on which account set, and what was loaded at login. Passed by reference; there is no
/// global. The clock is asked through it.
class Session {
public:
    Session(Database &db, const Clock &clock)
        : m_db(&db)
        , m_clock(&clock) {}

    [[nodiscard]] Database &db() const { return *m_db; }

    [[nodiscard]] QDateTime now() const { return m_clock->now(); }
    /// "yyyy-MM-dd"
    [[nodiscard]] QString today() const;
    /// "yyyy-MM-dd hh:mm:ss"
    [[nodiscard]] QString timeStamp() const;

    // Set by the login.
    QString currentOperatorName;
    QString currentOperatorNo;
    QString currentRoleNo;
    QString currentLocalIp;
    QString currentDatabaseFile;
    bool loginOk = false;

    // Set by loadGlobals.
    Company company;
    Parameters parameters;
    BackupSettings backup;
    CachedRights rights;

    /// Who keeps the members that documents name (stock/document_members.h); set where the program
    /// is put together.
    const DocumentMembers *members = nullptr;

private:
    Database *m_db;
    const Clock *m_clock;
};

/// The operator and role numbers that may do everything.
inline const QString administratorNo = QStringLiteral("100001");

/// Reads company, parameters, backup settings and the cached rights into the session.
void loadGlobals(Session &session);

} // namespace jxc
