#include "core/roles.h"

#include "base/sanitize.h"
#include "core/numbering.h"
#include "core/session.h"

namespace jxc {

namespace {

const QString changedMeanwhile = QStringLiteral("该记录已被其他操作员修改，请刷新后重试！");
const QString isAdministrator = QStringLiteral("系统管理员角色不能修改或删除！");

std::vector<bool> granted(const RightsGroup &group, const QString &flags) {
    std::vector<bool> result;
    for (qsizetype i = 0; i < group.rights.size(); ++i)
        result.push_back(i < flags.size() && flags[i] == u'1');
    return result;
}

/// The group's string with every right of the tree at its position; what lies beyond stays.
QString flagText(QString flags, const RightsGroup &group, const std::vector<bool> &rights) {
    const qsizetype count = group.rights.size();
    if (static_cast<size_t>(count) != rights.size())
        throw std::logic_error("rights in another shape than the tree's");
    flags = flags.leftJustified(count, u'0');
    for (qsizetype i = 0; i < count; ++i)
        flags[i] = rights[static_cast<size_t>(i)] ? u'1' : u'0';
    return flags;
}

QString checkedName(Database &db, const QString &typed, qint64 ownId) {
    QString name = sanitizeSqlText(typed.trimmed());
    if (name.isEmpty())
        throw Refusal(QStringLiteral("角色名称必须填写！"));
    if (db.exists(QStringLiteral("select r_name from jxc_role where r_name=? and id<>?"),
                  {name, ownId}))
        throw Refusal(QStringLiteral("角色名称不能重复！"));
    return name;
}

Assignments assignments(const QString &name, const GrantedRights &rights, const Row *before) {
    Assignments result{{QStringLiteral("r_name"), name}};
    const auto &tree = rightsTree();
    for (size_t i = 0; i < tree.size(); ++i) {
        const QString flags = before == nullptr ? QString() : before->text(tree[i].column);
        result.push_back({tree[i].column, flagText(flags, tree[i], rights.at(i))});
    }
    return result;
}

} // namespace

std::vector<Role> listRoles(const Session &session) {
    std::vector<Role> roles;
    for (const Row &row : session.db().rows(QStringLiteral("select * from jxc_role order by id"))) {
        Role role{row.integer(u"id"), row.text(u"r_sn"), row.text(u"r_name"), {}};
        for (const RightsGroup &group : rightsTree())
            role.rights.push_back(granted(group, row.text(group.column)));
        roles.push_back(std::move(role));
    }
    return roles;
}

GrantedRights noRights() {
    GrantedRights rights;
    for (const RightsGroup &group : rightsTree())
        rights.emplace_back(static_cast<size_t>(group.rights.size()), false);
    return rights;
}

Outcome addRole(const Session &session, Prompter &prompter, const QString &name,
                const GrantedRights &rights) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        Assignments row = assignments(checkedName(db, name, 0), rights, nullptr);
        row.push_back({QStringLiteral("r_sn"),
                       nextSerialNumber(db, QStringLiteral("jxc_role"), QStringLiteral("r_sn"))});
        db.insertRow(QStringLiteral("jxc_role"), row);
    });
}

Outcome modifyRole(const Session &session, Prompter &prompter, qint64 id, const QString &name,
                   const GrantedRights &rights) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        const auto before = db.row(QStringLiteral("select * from jxc_role where id=?"), {id});
        if (!before)
            throw Refusal(changedMeanwhile);
        if (before->text(u"r_sn") == administratorNo)
            throw Refusal(isAdministrator);
        db.updateRows(QStringLiteral("jxc_role"),
                      assignments(checkedName(db, name, id), rights, &*before),
                      QStringLiteral("id=?"), {id});
    });
}

Outcome deleteRole(const Session &session, Prompter &prompter, const QString &number) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &answers) {
        if (number == administratorNo)
            throw Refusal(isAdministrator);
        const auto role =
            db.row(QStringLiteral("select r_name from jxc_role where r_sn=?"), {number});
        if (!role)
            throw Refusal(changedMeanwhile);
        if (db.exists(QStringLiteral("select r_sn from jxc_admin where r_sn=?"), {number}))
            throw Refusal(QStringLiteral("该角色已被操作员使用，不能删除！"));
        answers.require(
            QStringLiteral("您的操作将删除角色：%1，确认吗？").arg(role->text(u"r_name")));
        db.execute(QStringLiteral("delete from jxc_role where r_sn=?"), {number});
    });
}

} // namespace jxc
