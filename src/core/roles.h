#pragma once

#include "core/action.h"

namespace jxc {

class Session;

/// One group of rights: its column of jxc_role and, in the order of its positions, what the rights
/// are called. The right at index i is the one that checks read at position i + 1.
struct RightsGroup {
    QString column;
    QString caption;
    QStringList rights;
};

/// The tree that the role dialog shows. A child stands for every position that some check reads.
const std::vector<RightsGroup> &rightsTree();

/// What a role may do: per group of the tree, per right.
using GrantedRights = std::vector<std::vector<bool>>;

struct Role {
    qint64 id = 0;
    QString number;
    QString name;
    GrantedRights rights;
};

[[nodiscard]] std::vector<Role> listRoles(const Session &session);

/// No right at all, in the shape of the tree.
[[nodiscard]] GrantedRights noRights();

// Each of these is a user action; the outcome's text is for the user.

/// Adds a role under the next number. The name is required and unique.
Outcome addRole(const Session &session, Prompter &prompter, const QString &name,
                const GrantedRights &rights);
/// Refuses the administrator's role. Positions beyond the tree stay as they were.
Outcome modifyRole(const Session &session, Prompter &prompter, qint64 id, const QString &name,
                   const GrantedRights &rights);
/// Refuses the administrator's role and one that an operator has; asks first.
Outcome deleteRole(const Session &session, Prompter &prompter, const QString &number);

} // namespace jxc
