#include "core/operators.h"

#include "base/sanitize.h"
#include "core/numbering.h"
#include "core/rights.h"
#include "core/session.h"

namespace jxc {

namespace {

const QString operatorTable = QStringLiteral("jxc_admin");
constexpr int longestPassword = 32;

bool isAdministrator(const Session &session) {
    return session.currentRoleNo == administratorNo;
}

void requireFitting(const QString &password) {
    if (password.size() > longestPassword)
        throw Refusal(QStringLiteral("密码最多%1个字！").arg(longestPassword));
}

void requireUnique(Database &db, const QString &name, qint64 ownId) {
    if (db.exists(QStringLiteral("select a_name from jxc_admin where a_name=? and id<>?"),
                  {name, ownId}))
        throw Refusal(QStringLiteral("用户名称不能重复！"));
}

/// The row as it may be written: checked in the order of the dialog's fields.
Assignments checkedRow(const Session &session, const OperatorInput &input, qint64 ownId) {
    const QString name = sanitizeSqlTextLight(input.name.trimmed());
    if (name.isEmpty())
        throw Refusal(QStringLiteral("用户名称必须填写！"));
    if (input.password != input.confirmation)
        throw Refusal(QStringLiteral("两次密码输入不一致！"));
    requireUnique(session.db(), name, ownId);
    const QString password = sanitizeSqlTextLight(input.password.trimmed());
    requireFitting(password);
    const QString role = isAdministrator(session) ? input.roleNo : session.currentRoleNo;
    if (!session.db().exists(QStringLiteral("select r_sn from jxc_role where r_sn=?"), {role}))
        throw Refusal(QStringLiteral("所属角色不存在！"));
    return {{QStringLiteral("a_name"), name},
            {QStringLiteral("a_pwd"), password},
            {QStringLiteral("r_sn"), role},
            {QStringLiteral("a_zreoje"), input.roundingLimit}};
}

void insertOperator(Database &db, Assignments row) {
    row.push_back(
        {QStringLiteral("a_sn"), nextSerialNumber(db, operatorTable, QStringLiteral("a_sn"))});
    row.push_back({QStringLiteral("a_fdmc"), u""});
    db.insertRow(operatorTable, row);
}

/// Parts of longer names are replaced too, deliberately: the lists are searched for a part of their
/// text.
void renameInWarehouseLists(Database &db, const QString &before, const QString &after) {
    for (const Row &row : db.rows(QStringLiteral("select id,ck_aname from jxc_ckxx"))) {
        QString names = row.text(u"ck_aname");
        if (!names.contains(QString(before + u',')))
            continue;
        names.replace(before, after);
        db.updateRows(QStringLiteral("jxc_ckxx"), {{QStringLiteral("ck_aname"), names}},
                      QStringLiteral("id=?"), {row.integer(u"id")});
    }
}

Row existing(Database &db, const QString &column, const Value &value) {
    auto row = db.row(QStringLiteral("select * from jxc_admin where %1=? order by id").arg(column),
                      {value});
    if (!row)
        throw Refusal(QStringLiteral("该记录已被其他操作员修改，请刷新后重试！"));
    return *std::move(row);
}

void requireOwnOrAdministrator(const Session &session, const QString &number) {
    if (!isAdministrator(session) && number != session.currentOperatorNo)
        throw Refusal(noRightMessage(QStringLiteral("操作员设置！")));
}

void refuseNamedOnDocuments(Database &db, const QString &name) {
    for (const QString &table : {QStringLiteral("jxc_jhd"), QStringLiteral("jxc_lsxsd")})
        if (db.exists(QStringLiteral("select a_name from %1 where a_name=? limit 1").arg(table),
                      {name}))
            throw Refusal(QStringLiteral("该操作员已有业务单据，不能删除！"));
}

} // namespace

std::vector<Operator> listOperators(const Session &session) {
    QString sql = QStringLiteral("select a.id,a.a_sn,a.a_name,a.r_sn,a.a_zreoje,"
                                 "(select max(r.r_name) from jxc_role r where r.r_sn=a.r_sn) as "
                                 "r_name from jxc_admin a");
    Values values;
    if (!isAdministrator(session)) {
        sql += QStringLiteral(" where a.a_sn=?");
        values.emplace_back(session.currentOperatorNo);
    }
    std::vector<Operator> operators;
    for (const Row &row : session.db().rows(sql + QStringLiteral(" order by a.id"), values))
        operators.push_back({row.integer(u"id"), row.text(u"a_sn"), row.text(u"a_name"),
                             row.text(u"r_sn"), row.text(u"r_name"), row.decimal(u"a_zreoje")});
    return operators;
}

std::optional<OperatorInput> readOperator(const Session &session, qint64 id) {
    const auto row = session.db().row(QStringLiteral("select * from jxc_admin where id=?"), {id});
    if (!row)
        return std::nullopt;
    const QString password = row->text(u"a_pwd");
    return OperatorInput{row->text(u"a_name"), password, password, row->text(u"r_sn"),
                         row->decimal(u"a_zreoje")};
}

Outcome addOperator(const Session &session, Prompter &prompter, const OperatorInput &input) {
    return runAction(session.db(), prompter, [&](Answers &) {
        insertOperator(session.db(), checkedRow(session, input, 0));
    });
}

Outcome modifyOperator(Session &session, Prompter &prompter, qint64 id,
                       const OperatorInput &input) {
    Database &db = session.db();
    QString number;
    QString name;
    Outcome outcome = runAction(db, prompter, [&](Answers &) {
        const Row before = existing(db, QStringLiteral("id"), id);
        number = before.text(u"a_sn");
        requireOwnOrAdministrator(session, number);
        const Assignments row = checkedRow(session, input, id);
        name = *row.front().value.text();
        db.updateRows(operatorTable, row, QStringLiteral("id=?"), {id});
        if (name != before.text(u"a_name"))
            renameInWarehouseLists(db, before.text(u"a_name"), name);
    });
    if (outcome.isDone() && number == session.currentOperatorNo)
        session.currentOperatorName = name;
    return outcome;
}

Outcome pasteOperator(const Session &session, Prompter &prompter, const OperatorInput &copied) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &) {
        const QString name = QStringLiteral("复制 ") + copied.name;
        requireUnique(db, name, 0);
        insertOperator(db, {{QStringLiteral("a_name"), name},
                            {QStringLiteral("a_pwd"), copied.password},
                            {QStringLiteral("r_sn"),
                             isAdministrator(session) ? copied.roleNo : session.currentRoleNo},
                            {QStringLiteral("a_zreoje"), copied.roundingLimit}});
    });
}

Outcome deleteOperator(const Session &session, Prompter &prompter, const QString &number) {
    Database &db = session.db();
    return runAction(db, prompter, [&](Answers &answers) {
        if (number == administratorNo)
            throw Refusal(QStringLiteral("系统默认数据，不能删除！"));
        if (number == session.currentOperatorNo)
            throw Refusal(QStringLiteral("不能删除当前操作员！"));
        requireOwnOrAdministrator(session, number);
        const QString name = existing(db, QStringLiteral("a_sn"), number).text(u"a_name");
        refuseNamedOnDocuments(db, name);
        answers.require(QStringLiteral("您的操作将删除操作员：%1，确认吗？").arg(name));
        db.execute(QStringLiteral("delete from jxc_admin where a_sn=?"), {number});
    });
}

Outcome changePassword(const Session &session, Prompter &prompter, const QString &current,
                       const QString &wanted, const QString &confirmation) {
    Database &db = session.db();
    const QString password = wanted.trimmed();
    Outcome outcome = runAction(db, prompter, [&](Answers &) {
        if (password != confirmation.trimmed())
            throw Refusal(QStringLiteral("两次密码输入不一致，不能修改密码！"));
        if (!db.exists(QStringLiteral("select a_sn from jxc_admin where a_name=? and "
                                      "coalesce(a_pwd,'')=?"),
                       {session.currentOperatorName, current.trimmed()}))
            throw Refusal(QStringLiteral("当前密码错误，不能修改密码！"));
        requireFitting(password);
        db.execute(QStringLiteral("update jxc_admin set a_pwd=? where a_name=?"),
                   {password, session.currentOperatorName});
    });
    if (outcome.isDone())
        outcome.text = QStringLiteral("密码修改成功！");
    return outcome;
}

} // namespace jxc
