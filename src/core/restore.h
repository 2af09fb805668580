#pragma once

#include "core/action.h"
#include "db/upgrade.h"

namespace jxc {

class Session;

struct RestoreRequest {
    QString file; ///< the backup
    /// Where the replaced set is kept; empty: beside the account set's own file.
    QString keepFolder;
    /// What an upgrade needs of the rooms above, for a backup of an older release.
    UpgradeHooks hooks;
};

struct RestoreOutcome {
    Outcome outcome;  ///< its text is for the user, also when it is done
    QString keptFile; ///< the replaced set, a backup like any other
};

/// Replaces everything in the open account set by a backup's content, after asking. The file is
/// checked first, and one that is not ours or damaged is refused; a backup of an older release is
/// upgraded on the way. Others may go on working: they see the old set or the new one, whole. What
/// was loaded at login is not loaded anew.
RestoreOutcome restoreDatabase(const Session &session, Prompter &prompter,
                               const RestoreRequest &request);

} // namespace jxc
