#include "core/employees.h"
#include "core/log_viewer.h"
#include "core/login.h"
#include "core/operation_log.h"
#include "core/operators.h"
#include "core/rights.h"
#include "core/roles.h"
#include "core/session.h"
#include "support/recording_prompter.h"
#include "support/test_database.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const FixedClock noon(QDateTime({2026, 3, 20}, {12, 0}));

struct Shop {
    TestDatabase place{currentEngine()};
    Database &db = place.db();
    Session session{db, noon};
    RecordingPrompter yes{true};

    Shop() {
        if (!authenticate(session, u"admin"_qs, {}))
            qFatal("the administrator cannot log in");
        loadGlobals(session);
    }
    /// An operator of a new role, logged in in a session of his own.
    Session clerk(const GrantedRights &rights) {
        addRole(session, yes, u"店员"_qs, rights);
        addOperator(session, yes, {u"小王"_qs, {}, {}, u"100002"_qs, {}});
        Session own(db, noon);
        if (!authenticate(own, u"小王"_qs, {}))
            qFatal("the clerk cannot log in");
        return own;
    }
    QString flags(const QString &group) {
        return db.scalar(QStringLiteral("select %1 from jxc_role where r_sn='100002'").arg(group));
    }
};

size_t groupIndex(QStringView column) {
    for (size_t i = 0; i < rightsTree().size(); ++i)
        if (rightsTree()[i].column == column)
            return i;
    qFatal("no such group");
}

GrantedRights only(QStringView group, const QString &right) {
    GrantedRights rights = noRights();
    const size_t index = groupIndex(group);
    rights[index][static_cast<size_t>(rightsTree()[index].rights.indexOf(right))] = true;
    return rights;
}

QStringList names(const std::vector<Employee> &employees) {
    QStringList list;
    for (const Employee &employee : employees)
        list << employee.name;
    return list;
}

} // namespace

class TestAdmin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void rightsStandWhereChecksRead_data() { addEngineRows(); }
    void rightsStandWhereChecksRead();
    void roleRefusals_data() { addEngineRows(); }
    void roleRefusals();
    void warehouseRestriction_data() { addEngineRows(); }
    void warehouseRestriction();
    void passwords_data() { addEngineRows(); }
    void passwords();
    void operatorsAreKept_data() { addEngineRows(); }
    void operatorsAreKept();
    void operatorRefusals_data() { addEngineRows(); }
    void operatorRefusals();
    void employees_data() { addEngineRows(); }
    void employees();
    void logViewer_data() { addEngineRows(); }
    void logViewer();
};

void TestAdmin::rightsStandWhereChecksRead() {
    // The main window's checks name these numbers; the dialog names these words.
    struct Check {
        QStringView group;
        QString right;
        int position;
    };
    const std::vector<Check> checks = {{u"xsgl", u"销售退货查询"_qs, 4},
                                       {u"xsgl", u"商品出库审核"_qs, 9},
                                       {u"xsgl", u"允许修改销售成本价"_qs, 14},
                                       {u"xsgl", u"允许删除商品销售待审核单据"_qs, 19},
                                       {u"cggl", u"允许删除采购进货待审核单据"_qs, 17},
                                       {u"kcgl", u"修改商品均价"_qs, 18},
                                       {u"wlzk", u"销售发票审核"_qs, 15},
                                       {u"tjgl", u"销售台账"_qs, 21},
                                       {u"rcgl", u"报价管理"_qs, 14},
                                       {u"gspgl", u"员工培训记录"_qs, 13},
                                       {u"qtcz", u"备份/恢复数据库"_qs, 13},
                                       {u"qtcz", u"帐套管理"_qs, 19}};
    Shop shop;
    const Session clerk = shop.clerk(noRights());
    const qint64 id = listRoles(shop.session).back().id;
    for (const Check &check : checks) {
        const Outcome outcome =
            modifyRole(shop.session, shop.yes, id, u"店员"_qs, only(check.group, check.right));
        QVERIFY2(outcome.isDone(), qPrintable(outcome.text));
        for (int position = 1; position <= 25; ++position)
            QCOMPARE(hasRight(clerk, check.group, position), position == check.position);
        QCOMPARE(hasRight(clerk, check.group == u"qtcz" ? u"cggl" : u"qtcz", 1), false);
        QVERIFY(listRoles(shop.session).back().rights == only(check.group, check.right));
    }

    // A string of an older release is short, one of a newer release long: neither loses anything.
    shop.db.execute(
        u"update jxc_role set cggl='01',rcgl='111111111111111010' where r_sn='100002'"_qs);
    QVERIFY(
        modifyRole(shop.session, shop.yes, id, u"店员"_qs, only(u"cggl", u"采购订单"_qs)).isDone());
    QCOMPARE(shop.flags(u"cggl"_qs), u"00000000000010000"_qs);
    QCOMPARE(shop.flags(u"rcgl"_qs), u"000000000000001010"_qs);
}

void TestAdmin::roleRefusals() {
    Shop shop;
    const auto refusal = [](const Outcome &outcome) {
        return outcome.kind == Outcome::Kind::refused ? outcome.text : u"(not refused)"_qs;
    };
    QCOMPARE(refusal(addRole(shop.session, shop.yes, u" 系统管理员 "_qs, noRights())),
             u"角色名称不能重复！"_qs);
    QCOMPARE(refusal(addRole(shop.session, shop.yes, u" "_qs, noRights())),
             u"角色名称必须填写！"_qs);
    const Role administrator = listRoles(shop.session).front();
    QCOMPARE(refusal(modifyRole(shop.session, shop.yes, administrator.id, u"老板"_qs, noRights())),
             u"系统管理员角色不能修改或删除！"_qs);
    QCOMPARE(refusal(deleteRole(shop.session, shop.yes, u"100001"_qs)),
             u"系统管理员角色不能修改或删除！"_qs);
    const Session clerk = shop.clerk(noRights());
    QCOMPARE(refusal(deleteRole(shop.session, shop.yes, u"100002"_qs)),
             u"该角色已被操作员使用，不能删除！"_qs);
    QCOMPARE(listRoles(shop.session).size(), size_t{2});

    QVERIFY(addRole(shop.session, shop.yes, u"库管"_qs, noRights()).isDone());
    RecordingPrompter no(false);
    QCOMPARE(deleteRole(shop.session, no, u"100003"_qs).kind, Outcome::Kind::declined);
    QCOMPARE(listRoles(shop.session).size(), size_t{3});
    QVERIFY(deleteRole(shop.session, shop.yes, u"100003"_qs).isDone());
    QCOMPARE(shop.yes.asked.last(), u"您的操作将删除角色：库管，确认吗？"_qs);
    QCOMPARE(listRoles(shop.session).size(), size_t{2});
}

void TestAdmin::warehouseRestriction() {
    Shop shop;
    const Session clerk = shop.clerk(only(u"qtcz", u"显示商品成本价"_qs));
    QVERIFY(hasRight(clerk, u"qtcz", 7));
    shop.db.execute(u"update jxc_xtcs set cs_cs002=1"_qs);
    QVERIFY(!hasRight(clerk, u"qtcz", 7)); // in no warehouse's list
    QVERIFY(hasRight(shop.session, u"qtcz", 7));
    QVERIFY(userHasRight(shop.session, u"小王"_qs, u"qtcz", 7)); // authorising counts no lists
    // The clerk's number is part of a longer one; that lets him in.
    shop.db.execute(u"update jxc_ckxx set ck_asn='1000021,'"_qs);
    QVERIFY(hasRight(clerk, u"qtcz", 7));

    shop.db.execute(
        u"insert into jxc_user (u_sn,u_name,u_jy,u_xs,ck_sn) values ('100002','甲',0,0,'-1')"_qs);
    shop.db.execute(
        u"insert into jxc_user (u_sn,u_name,u_jy,u_xs,ck_sn) values ('100003','乙',0,0,'100001')"_qs);
    shop.db.execute(
        u"insert into jxc_user (u_sn,u_name,u_jy,u_xs,ck_sn) values ('100004','丙',0,0,'100009')"_qs);
    shop.db.execute(u"delete from jxc_user where u_sn='100001'"_qs);
    QCOMPARE(names(listEmployees(clerk)), (QStringList{u"甲"_qs, u"乙"_qs}));
    QCOMPARE(names(listEmployees(shop.session)), (QStringList{u"甲"_qs, u"乙"_qs, u"丙"_qs}));
}

void TestAdmin::passwords() {
    Shop shop;
    const auto stored = [&] {
        return shop.db.scalar(u"select a_pwd from jxc_admin where a_name='小王'"_qs);
    };
    Session clerk = shop.clerk(noRights());
    const qint64 id = listOperators(shop.session).back().id;
    const auto set = [&](const QString &password) {
        return modifyOperator(shop.session, shop.yes, id,
                              {u"小王"_qs, password, password, u"100002"_qs, {}});
    };
    const auto logsIn = [&](const QString &password) {
        Session attempt(shop.db, noon);
        return authenticate(attempt, u"小王"_qs, password);
    };
    QVERIFY(set(u"a.b"_qs).isDone());
    QCOMPARE(stored(), u"a.b"_qs); // kept as typed, and useless at the login
    QVERIFY(!logsIn(u"a.b"_qs));
    QVERIFY(set(u"it's 100%"_qs).isDone());
    QCOMPARE(stored(), u"it‘s 100％"_qs);
    QVERIFY(logsIn(u"it's 100%"_qs));

    const auto change = [&](const char16_t *current, const char16_t *wanted,
                            const char16_t *again) {
        return changePassword(clerk, shop.yes, QString::fromUtf16(current),
                              QString::fromUtf16(wanted), QString::fromUtf16(again));
    };
    QCOMPARE(change(u"wrong", u"1", u"2").text, u"两次密码输入不一致，不能修改密码！"_qs);
    QCOMPARE(change(u"it's 100%", u"1", u"1").text, u"当前密码错误，不能修改密码！"_qs);
    const Outcome changed = change(u" it‘s 100％ ", u" x'y ", u"x'y");
    QVERIFY(changed.isDone());
    QCOMPARE(changed.text, u"密码修改成功！"_qs);
    QCOMPARE(stored(), u"x'y"_qs);
    QVERIFY(!logsIn(u"x'y"_qs));
    QVERIFY(change(u"x'y", u"", u"").isDone());
    QVERIFY(hasEmptyPassword(shop.session, u"小王"_qs));
    QVERIFY(logsIn({}));
    QVERIFY(!change(u"", u"123456789012345678901234567890123", u"123456789012345678901234567890123")
                 .isDone());
    QVERIFY(!shop.db.exists(
        u"select id from jxc_log where log_note like '%x%' or log_note like '%100％%'"_qs));
}

void TestAdmin::operatorsAreKept() {
    Shop shop;
    Session clerk = shop.clerk(noRights());
    QCOMPARE(listOperators(shop.session).size(), size_t{2});
    const auto own = listOperators(clerk);
    QCOMPARE(own.size(), size_t{1});
    QCOMPARE(own[0].number, u"100002"_qs);
    QCOMPARE(own[0].roleName, u"店员"_qs);

    // A new name goes into the warehouses' lists, and into the running session.
    shop.db.execute(u"update jxc_ckxx set ck_aname='admin,小王,'"_qs);
    shop.db.execute(u"insert into jxc_ckxx (ck_sn,ck_aname) values ('100002','小王子')"_qs);
    QVERIFY(modifyOperator(
                clerk, shop.yes, own[0].id,
                {u"王芳(店长)"_qs, u"1"_qs, u"1"_qs, u"100001"_qs, Decimal::fromText(u"0.5")})
                .isDone());
    QCOMPARE(shop.db.scalar(u"select ck_aname from jxc_ckxx where ck_sn='100001'"_qs),
             u"admin,王芳(店长),"_qs);
    QCOMPARE(shop.db.scalar(u"select ck_aname from jxc_ckxx where ck_sn='100002'"_qs),
             u"小王子"_qs);
    QCOMPARE(clerk.currentOperatorName, u"王芳(店长)"_qs);
    // He cannot make himself an administrator.
    QCOMPARE(listOperators(clerk)[0].roleNo, u"100002"_qs);
    QCOMPARE(listOperators(clerk)[0].roundingLimit, Decimal::fromText(u"0.5"));
    const qint64 administrator = listOperators(shop.session).front().id;
    QCOMPARE(
        modifyOperator(clerk, shop.yes, administrator, {u"x"_qs, {}, {}, u"100002"_qs, {}}).kind,
        Outcome::Kind::refused);

    const auto copied = readOperator(shop.session, own[0].id);
    QVERIFY(copied.has_value());
    QVERIFY(pasteOperator(shop.session, shop.yes, *copied).isDone());
    const Operator pasted = listOperators(shop.session).back();
    QCOMPARE(pasted.name, u"复制 王芳(店长)"_qs);
    QCOMPARE(pasted.number, u"100003"_qs);
    QCOMPARE(pasted.roleNo, u"100002"_qs);
    QCOMPARE(pasted.roundingLimit, Decimal::fromText(u"0.5"));
    QCOMPARE(readOperator(shop.session, pasted.id)->password, u"1"_qs);
    QCOMPARE(pasteOperator(shop.session, shop.yes, *copied).text, u"用户名称不能重复！"_qs);
}

void TestAdmin::operatorRefusals() {
    Shop shop;
    const Session clerk = shop.clerk(noRights());
    const auto add = [&](const char16_t *name, const char16_t *again) {
        return addOperator(
                   shop.session, shop.yes,
                   {QString::fromUtf16(name), u"1"_qs, QString::fromUtf16(again), u"100002"_qs, {}})
            .text;
    };
    QCOMPARE(add(u" ", u"2"), u"用户名称必须填写！"_qs);
    QCOMPARE(add(u"小王", u"2"), u"两次密码输入不一致！"_qs);
    QCOMPARE(add(u"小王", u"1"), u"用户名称不能重复！"_qs);
    const qint64 id = listOperators(shop.session).back().id;
    QCOMPARE(
        modifyOperator(shop.session, shop.yes, id, {u"admin"_qs, {}, {}, u"100002"_qs, {}}).text,
        u"用户名称不能重复！"_qs);

    const auto remove = [&](const Session &by, const QString &number) {
        return deleteOperator(by, shop.yes, number);
    };
    QCOMPARE(remove(clerk, u"100001"_qs).text, u"系统默认数据，不能删除！"_qs);
    QCOMPARE(remove(clerk, u"100002"_qs).text, u"不能删除当前操作员！"_qs);
    for (const QString &table : {u"jxc_jhd"_qs, u"jxc_lsxsd"_qs}) {
        shop.db.execute(QStringLiteral("insert into %1 (a_name) values ('小王')").arg(table));
        QCOMPARE(remove(shop.session, u"100002"_qs).text, u"该操作员已有业务单据，不能删除！"_qs);
        shop.db.execute(QStringLiteral("delete from ") + table);
    }
    QVERIFY(remove(shop.session, u"100002"_qs).isDone());
    QCOMPARE(listOperators(shop.session).size(), size_t{1});
    QCOMPARE(shop.yes.asked.last(), u"您的操作将删除操作员：小王，确认吗？"_qs);
}

void TestAdmin::employees() {
    Shop shop;
    const auto add = [&](const char16_t *number, const char16_t *name, int disabled, int sells) {
        shop.db.insertRow(u"jxc_user"_qs, {{u"u_sn"_qs, number},
                                           {u"u_name"_qs, name},
                                           {u"u_jy"_qs, disabled},
                                           {u"u_xs"_qs, sells},
                                           {u"ck_sn"_qs, u"-1"}});
    };
    QCOMPARE(defaultEmployee(shop.session)->number, u"100001"_qs);
    add(u"100003", u"丙", 0, 1);
    add(u"100002", u"乙", 0, 1);
    add(u"100004", u"丁", 1, 1);
    add(u"100005", u"", 0, 0);
    QCOMPARE(defaultEmployee(shop.session)->number, u"100005"_qs);
    QCOMPARE(names(listEmployees(shop.session)),
             (QStringList{u"默认员工"_qs, u"丙"_qs, u"乙"_qs, u""_qs}));
    QCOMPARE(names(listEmployees(shop.session, EmployeeDuty::sale)),
             (QStringList{u"默认员工"_qs, u"丙"_qs, u"乙"_qs}));
    shop.db.execute(u"insert into jxc_khxx (kh_sn,kh_usn) values ('100009','100003,')"_qs);
    QCOMPARE(names(listSalespeople(shop.session, u"100009"_qs)),
             (QStringList{u"丙"_qs, u"默认员工"_qs, u"乙"_qs}));
    countPurchaseChoice(shop.session, u"100003"_qs);
    countSaleChoice(shop.session, u"100003"_qs);
    countSaleChoice(shop.session, u"100003"_qs);
    const Employee chosen = listSalespeople(shop.session, u"100009"_qs).front();
    QCOMPARE(chosen.purchaseCount, 1);
    QCOMPARE(chosen.saleCount, 2);
}

void TestAdmin::logViewer() {
    Shop shop;
    const auto write = [&](const char16_t *time, const char16_t *who, const char16_t *note) {
        shop.db.insertRow(u"jxc_log"_qs,
                          {{u"log_time"_qs, time}, {u"a_name"_qs, who}, {u"log_note"_qs, note}});
    };
    write(u"2026-02-28 23:59:59", u"小王", u"登录系统");
    write(u"2026-03-01 00:00:00", u"小王", u"增加商品：A1");
    write(u"2026-03-20 23:59:59", u"admin", u"小王的角色");
    write(u"2026-03-21 00:00:00", u"admin", u"折扣 5%_\\");
    const auto found = [&](const char16_t *from, const char16_t *to, const char16_t *text) {
        QStringList notes;
        for (const Row &entry : searchLog(shop.session, QString::fromUtf16(from),
                                          QString::fromUtf16(to), QString::fromUtf16(text)))
            notes << entry.text(u"log_note");
        return notes;
    };
    QCOMPARE(found(u"2026-03-01", u"2026-03-20", u"小王"),
             (QStringList{u"小王的角色"_qs, u"增加商品：A1"_qs}));
    QCOMPARE(found(u"2000-01-01", u"9999-12-31", u"").size(), 4);
    QCOMPARE(found(u"2000-01-01", u"9999-12-31", u"a1"), QStringList{u"增加商品：A1"_qs});
    for (const auto *sign : {u"%", u"_", u"\\", u"5%_\\"})
        QCOMPARE(found(u"2000-01-01", u"9999-12-31", sign), QStringList{u"折扣 5%_\\"_qs});

    const Session clerk = shop.clerk(only(u"qtcz", u"查看日志"_qs));
    QVERIFY(!mayClearLog(clerk));
    QCOMPARE(clearLog(clerk, shop.yes).text,
             u"您没有权限进行清除日志！\r\n\r\n或者没有可用的仓库。"_qs);
    RecordingPrompter no(false);
    QCOMPARE(clearLog(shop.session, no).kind, Outcome::Kind::declined);
    QCOMPARE(no.asked, QStringList{u"将清除所有日志，并不能恢复，确认清除吗？"_qs});
    QCOMPARE(found(u"2000-01-01", u"9999-12-31", u"").size(), 4);
    QVERIFY(clearLog(shop.session, shop.yes).isDone());
    QCOMPARE(found(u"2000-01-01", u"9999-12-31", u"").size(), 0);
    shop.yes.asked.clear();
    QVERIFY(clearLog(shop.session, shop.yes).isDone());
    QVERIFY(shop.yes.asked.isEmpty());
}

QTEST_GUILESS_MAIN(TestAdmin)
#include "test_admin.moc"
