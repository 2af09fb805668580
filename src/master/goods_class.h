#pragma once

#include "core/action.h"

#include <QString>
#include <vector>

namespace jxc {

class Session;

/// A class of goods in the tree. The code places it: the parent's code and four more digits; the
/// root's is empty. Goods keep the number and the code.
struct GoodsClass {
    qint64 id = 0;
    qint64 key = 0;       ///< gc_key
    qint64 parentKey = 0; ///< gc_pid; 0 of the root
    qint64 number = 0;    ///< gc_cid, never changes
    QString code;         ///< gc_sn
    QString name;
    QString mnemonic;

    [[nodiscard]] bool isRoot() const { return parentKey == 0; }
};

/// The class that every new account set has besides the root.
inline constexpr qint64 defaultClassNumber = 2;

/// All classes, parents before children, siblings by code.
[[nodiscard]] std::vector<GoodsClass> loadGoodsClasses(const Session &session);

// Each of these is one user action, logged. A name is unique among its siblings.

/// Adds a class below another; `added` gets its id.
Outcome addGoodsClass(Session &session, Prompter &prompter, qint64 parentKey, const QString &name,
                      qint64 *added = nullptr);
Outcome renameGoodsClass(Session &session, Prompter &prompter, qint64 id, const QString &name);
/// Hangs a branch below another class; codes of the branch and of its goods follow.
Outcome moveGoodsClass(Session &session, Prompter &prompter, qint64 id, qint64 newParentKey);
/// Refuses the root, the default class, one with classes below it and one with goods.
Outcome deleteGoodsClass(Session &session, Prompter &prompter, qint64 id);

} // namespace jxc
