// What is done with a member's card: money on and off it, points for gifts, transfers, the
// counter's day.
#include "master/master_kind.h"
#include "master/member_number.h"
#include "master/record.h"
#include "retail/day_end.h"
#include "retail/member_card.h"
#include "retail/member_figures.h"
#include "retail/member_opening.h"
#include "retail/member_receipt.h"
#include "retail/member_search.h"
#include "retail/member_shop.h"
#include "retail/points_exchange.h"
#include "retail/till_cash.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

class CounterShop : public MemberShop {
public:
    RechargeReceipt recharge(Decimal amount) {
        RechargeReceipt receipt;
        demand(rechargeMember(session, user, {.member = member, .amount = amount, .cash = amount},
                              &receipt));
        return receipt;
    }
    QString refusal(const Recharge &recharge) {
        RechargeReceipt receipt;
        return rechargeMember(session, user, recharge, &receipt).text;
    }
    QString cash(const QString &account = QStringLiteral("现金")) {
        return figures(
            QStringLiteral("select coalesce(sum(xj_je),0) from jxc_xjyh where xj_kmmc=?"),
            {account});
    }
    void offer(const QString &key, int kind, const QString &figures) {
        db.execute(QStringLiteral("delete from jxc_hyyh where hh_sn=?"), {key});
        db.insertRow(QStringLiteral("jxc_hyyh"),
                     {{QStringLiteral("hh_sn"), key},
                      {QStringLiteral("hh_name"), key},
                      {QStringLiteral("hh_zl"), kind},
                      {QStringLiteral("hh_yh1"), Decimal::fromText(figures)},
                      {QStringLiteral("hh_yh2"), 0},
                      {QStringLiteral("hh_yh3"), 0}});
        db.execute(QStringLiteral("update jxc_hyxx set hh_sn=? where hy_sn=?"), {key, member});
    }
};

} // namespace

class TestMembers : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void recharges_data() { addEngineRows(); }
    void recharges();
    void payouts_data() { addEngineRows(); }
    void payouts();
    void finds_data() { addEngineRows(); }
    void finds();
    void notices_data() { addEngineRows(); }
    void notices();
    void corrections_data() { addEngineRows(); }
    void corrections();
    void cards_data() { addEngineRows(); }
    void cards();
    void transfers_data() { addEngineRows(); }
    void transfers();
    void newMembers_data() { addEngineRows(); }
    void newMembers();
    void levelsAndOffers_data() { addEngineRows(); }
    void levelsAndOffers();
    void gifts_data() { addEngineRows(); }
    void gifts();
    void receiptsOfOthers_data() { addEngineRows(); }
    void receiptsOfOthers();
    void dayEnd_data() { addEngineRows(); }
    void dayEnd();
    void till_data() { addEngineRows(); }
    void till();
};

void TestMembers::recharges() {
    CounterShop shop;
    shop.settings(u"jf_mfje=10"_qs);
    shop.db.insertRow(u"jxc_hyczzs"_qs,
                      {{u"hs_sn"_qs, u"1"}, {u"hs_czje"_qs, 500}, {u"hs_zsje"_qs, 60}});
    // Under rule 1 money onto the card earns nothing.
    const RechargeReceipt first = shop.recharge(100);
    QCOMPARE(first.number, u"XF26033110001"_qs);
    QCOMPARE(shop.now(), u"0 0 0 0 100 0 100001"_qs);
    QCOMPARE(shop.texts(u"select xf_zt,xf_rq from jxc_hyxf"_qs),
             QStringList{u"储值卡续费|2026-03-31 09:00:00"_qs});
    // Under rule 0 it does, and the level follows.
    shop.settings(u"jf_jfgz=0"_qs);
    shop.offer(u"K2"_qs, 2, u"0"_qs);
    QCOMPARE(shop.recharge(499).bonus, Decimal());
    QCOMPARE(shop.recharge(500).bonus, Decimal(60));
    QCOMPARE(shop.now(), u"99 99 0 0 1159 0 100001"_qs);
    shop.offer(u"K0"_qs, 0, u"1.055"_qs);
    const RechargeReceipt last = shop.recharge(11);
    QCOMPARE(last.bonus, 0.61_d); // 11.605 is 11.61
    QCOMPARE(last.points, Decimal(1));
    QCOMPARE(shop.now(), u"100 100 0 0 1170.61 0 100002"_qs);
    QCOMPARE(shop.cash(), u"1110"_qs);

    // Card and wallets go where such money is; what cannot is kept in cash.
    RechargeReceipt receipt;
    Recharge split{.member = shop.member, .amount = 100, .cash = 30};
    split.other.bankCard = 50;
    split.other.weChat = 25;
    shop.demand(rechargeMember(shop.session, shop.user, split, &receipt));
    QCOMPARE(receipt.change, Decimal(5));
    QCOMPARE(shop.cash(), u"1160"_qs);
    QCOMPARE(shop.cash(u"工行帐号"_qs), u"50"_qs);
    QCOMPARE(
        shop.figures(
            u"select xf_je,xf_yhje,xf_xj,xf_xyk,xf_wxje,xf_zlje from jxc_hyxf where gl_djh=?"_qs,
            {receipt.number}),
        u"100 5.5 30 50 25 5"_qs);
    QCOMPARE(shop.refusal({.member = shop.member, .amount = 100, .cash = 99}),
             u"付款金额不足！"_qs);
    split.other.bankCard = 81;
    QCOMPARE(shop.refusal(split), u"找零金额不能大于现金！"_qs);
    shop.alter(u"hy_status=1"_qs);
    QCOMPARE(shop.refusal({.member = shop.member, .amount = 1, .cash = 1}), u"该会员卡已挂失！"_qs);
    shop.alter(u"hy_status=0 hy_qx=1 hy_dqrq=2026-03-30"_qs);
    QCOMPARE(shop.refusal({.member = shop.member, .amount = 1, .cash = 1}), u"该会员卡已过期！"_qs);
    shop.alter(u"hy_dqrq=2026-03-31"_qs);
    QCOMPARE(shop.refusal({.member = shop.member, .amount = 1, .cash = 1}), QString());
    const QStringList before = shop.everything();
    QVERIFY(rechargeMember(shop.session, shop.user, {.member = shop.member}, &receipt).isDone());
    QCOMPARE(shop.everything(), before);
}

void TestMembers::payouts() {
    CounterShop shop;
    shop.settings(u"jf_mfje=10 jf_jfgz=0"_qs);
    shop.offer(u"K0"_qs, 0, u"1.25"_qs);
    shop.recharge(400);
    // 200 of 500 are spent: of the 300 left, 240 were paid in.
    shop.alter(u"hy_zhje=300"_qs);
    QCOMPARE(shop.refusal({.member = shop.member, .amount = -241, .cash = -241}),
             u"卡内金额不足！"_qs);
    shop.db.execute(u"update jxc_hyxx set hy_mm='77'"_qs);
    QCOMPARE(shop.refusal({.member = shop.member, .amount = -40, .cash = -40}),
             u"会员密码不正确！"_qs);
    RechargeReceipt receipt;
    shop.demand(rechargeMember(
        shop.session, shop.user,
        {.member = shop.member, .amount = -40, .cash = -40, .password = u"77"_qs}, &receipt));
    QCOMPARE(receipt.bonus, Decimal(-10));
    QCOMPARE(shop.now(), u"36 36 0 0 250 0 100001"_qs);
    QCOMPARE(shop.cash(), u"360"_qs);
    shop.demand(rechargeMember(
        shop.session, shop.user,
        {.member = shop.member, .amount = -200, .cash = -200, .password = u"77"_qs}, &receipt));
    QCOMPARE(shop.now(), u"16 16 0 0 0 0 100001"_qs);
}

void TestMembers::finds() {
    CounterShop shop;
    shop.addMember(u"100003"_qs, u"王长顺"_qs);
    shop.addMember(u"1000021"_qs, u"王小二"_qs);
    shop.alter(u"hy_mobile=13800000002 hy_jm=LL hy_cs=9"_qs);
    shop.db.execute(u"update jxc_hyxx set hy_jm='WXE',hy_tele='100003',hy_status=1 where "
                    "hy_sn='1000021'"_qs);
    shop.db.execute(u"update jxc_hyxx set hy_mobile='13900000003' where hy_sn='100003'"_qs);
    const auto found = [&shop](const QString &typed, int most = 50) {
        QStringList numbers;
        for (const Row &row : findMembers(shop.session, typed, most))
            numbers << row.text(u"hy_bh");
        return numbers.join(u' ');
    };
    QCOMPARE(found(u" 100002 "_qs), u"100002"_qs); // though another number begins with it
    QCOMPARE(found(u"10000"_qs), u"100002 100003 1000021"_qs);
    QCOMPARE(found(u"13800000002"_qs), u"100002"_qs);
    QCOMPARE(found(u"139"_qs), u"100003"_qs);
    QCOMPARE(found(u"王"_qs), u"100003 1000021"_qs);
    QCOMPARE(found(u"王小二"_qs), u"1000021"_qs); // a lost card is found too
    QCOMPARE(found(u"wxe"_qs), u"1000021"_qs);
    QCOMPARE(found(u"WCS"_qs), u"100003"_qs); // nobody typed initials for him
    QCOMPARE(found(u"WZS"_qs), u"100003"_qs); // 长 read otherwise
    QCOMPARE(found(u"%"_qs), QString());
    QCOMPARE(found(u"'"_qs), QString());
    QCOMPARE(found(u"无卡"_qs), QString());
    QCOMPARE(found({}, 1), u"100002"_qs); // who buys most often
    QCOMPARE(memberRow(shop.session, u"100003"_qs)->text(u"hy_name"), u"王长顺"_qs);
    QVERIFY(!memberRow(shop.session, u"9"_qs));
}

void TestMembers::notices() {
    CounterShop shop;
    shop.db.execute(u"delete from jxc_smscs"_qs);
    shop.db.insertRow(
        u"jxc_smscs"_qs,
        {{u"sms_sign"_qs, u"丰收店"},
         {u"sms_cznote"_qs, u"{hyname}({hybh})充值{czje}得{bcjf}分，余额{czkje}，积分{zjf}"}});
    shop.settings(u"jf_mfje=10 jf_jfgz=0"_qs);
    shop.db.execute(u"update jxc_hyxx set hy_mobile='13800000000' where hy_sn='100002'"_qs);
    shop.recharge(55);
    QCOMPARE(shop.texts(u"select sms_note from jxc_smshy"_qs), QStringList());
    shop.set(u"cs_sms"_qs, 1);
    const QString number = shop.recharge(55).number;
    QCOMPARE(shop.texts(u"select gl_djh,hy_mobile,sms_note from jxc_smshy"_qs),
             QStringList{number +
                         u"|13800000000|老李(100002)充值55得5分，余额110，积分10【丰收店】"_qs});
}

void TestMembers::corrections() {
    CounterShop shop;
    shop.demand(correctPoints(shop.session, shop.user, shop.member, 150));
    QCOMPARE(shop.now(), u"150 150 0 0 0 0 100002"_qs);
    QCOMPARE(shop.lastLog(), u"修改会员积分‘100002，老李’，原积分：0，增加积分：150"_qs);
    shop.demand(correctPoints(shop.session, shop.user, shop.member, -100));
    QCOMPARE(shop.now(), u"50 50 0 0 0 0 100001"_qs);
    shop.demand(correctPoints(shop.session, shop.user, shop.member, 900)); // above every level
    QCOMPARE(shop.now(), u"950 950 0 0 0 0 100001"_qs);
    shop.demand(correctSpending(shop.session, shop.user, shop.member, -12.5_d));
    QCOMPARE(shop.now(), u"950 950 -12.5 0 0 0 100001"_qs);
    QCOMPARE(shop.lastLog(),
             u"修改会员消费金额‘100002，老李’，原消费金额：0，增加消费金额：-12.5"_qs);
}

void TestMembers::cards() {
    CounterShop shop;
    shop.addMember(u"100003"_qs, u"老王"_qs);
    const auto said = [](const Outcome &outcome) { return outcome.text; };
    QCOMPARE(said(setMemberPassword(shop.session, shop.user, shop.member, u"1"_qs, u"2"_qs)),
             u"两次密码输入不一致！"_qs);
    shop.demand(setMemberPassword(shop.session, shop.user, shop.member, u"88"_qs, u"88"_qs));
    QCOMPARE(shop.lastLog(), u"密码：100002"_qs);
    shop.demand(setMemberLost(shop.session, shop.user, shop.member, true));
    QCOMPARE(shop.lastLog(), u"挂失：100002"_qs);
    QCOMPARE(said(changeMemberCard(shop.session, shop.user, shop.member, u"100003"_qs, u"88"_qs)),
             u"会员卡号不能重复！"_qs);
    QCOMPARE(said(changeMemberCard(shop.session, shop.user, shop.member, u"A7"_qs, u"89"_qs)),
             u"会员密码不正确！"_qs);
    shop.demand(changeMemberCard(shop.session, shop.user, shop.member, u"A7"_qs, u"88"_qs));
    QCOMPARE(shop.lastLog(), u"会员换卡：100002→A7"_qs);
    const Member member = loadMember(shop.db, shop.member);
    QVERIFY(member.number == u"A7"_qs && !member.lost && member.password == u"88"_qs);

    // Only six digits count for the next number.
    for (const char16_t *number : {u"99999", u"2000000", u"9999A9", u"ABCDEF"})
        shop.addMember(QString::fromUtf16(number), u"某"_qs);
    QCOMPARE(NextMemberNumber(shop.db), u"100004"_qs);
    shop.db.execute(u"delete from jxc_hyxx where hy_bh='100003'"_qs);
    QCOMPARE(NextMemberNumber(shop.db), u"100001"_qs);
}

void TestMembers::transfers() {
    CounterShop shop;
    shop.addMember(u"100003"_qs, u"老王"_qs);
    shop.alter(u"hy_zhje=100 hy_jf=20 hy_zjf=20"_qs);
    const Transfer all{shop.member, u"100003"_qs, 100};
    QCOMPARE(transferValue(shop.session, shop.user, {shop.member, shop.member, 1}).text,
             u"转出会员与转入会员不能相同！"_qs);
    QCOMPARE(transferValue(shop.session, shop.user, {shop.member, u"100003"_qs, 101}).text,
             u"卡内金额不足！"_qs);
    QCOMPARE(transferPoints(shop.session, shop.user, {shop.member, u"100003"_qs, 21}).text,
             u"会员积分不足！"_qs);
    shop.demand(transferValue(shop.session, shop.user, all));
    QCOMPARE(shop.lastLog(), u"转账：100002→100003，100"_qs);
    QCOMPARE(shop.texts(u"select hy_sn,hy_bz from jxc_czxf order by id"_qs),
             (QStringList{u"100002|转出至100003"_qs, u"100003|转入自100002"_qs}));
    shop.demand(transferPoints(shop.session, shop.user, {shop.member, u"100003"_qs, 15}));
    QCOMPARE(shop.now(), u"5 20 0 0 0 0 100001"_qs);
    QCOMPARE(shop.figuresOf(u"100003"_qs), u"15 0 0 0 100 0 100001"_qs);
    QCOMPARE(shop.figures(u"select sum(jf_xfjf) from jxc_jfdh where hy_sn='100002'"_qs), u"15"_qs);
}

void TestMembers::newMembers() {
    CounterShop shop;
    const MasterKind &kind = masterKind(u"jxc_hyxx");
    Record record = newRecord(shop.session, kind);
    QCOMPARE(record.text(u"hy_bh"), u"100003"_qs);
    QCOMPARE(record.text(u"hy_jrrq"), u"2026-03-31"_qs);
    QString field;
    RechargeReceipt receipt;
    const Recharge first{.amount = 50, .cash = 40};
    QVERIFY(!openMember(shop.session, shop.user, record, first, &field, &receipt).isDone());
    QCOMPARE(field, u"hy_name"_qs);
    record.set(u"hy_name"_qs, u"新会员"_qs);
    QCOMPARE(openMember(shop.session, shop.user, record, first, &field, &receipt).text,
             u"付款金额不足！"_qs);
    QVERIFY(!findMemberByNumber(shop.db, u"100003"_qs)); // neither without the other
    shop.demand(
        openMember(shop.session, shop.user, record, {.amount = 50, .cash = 50}, &field, &receipt));
    QCOMPARE(shop.texts(u"select xf_zt from jxc_hyxf"_qs), QStringList{u"会员开户时充值"_qs});
    QCOMPARE(shop.figuresOf(record.text(u"hy_sn")), u"0 0 0 0 50 0 100001"_qs);
    QCOMPARE(deleteRecord(shop.session, shop.user, kind, record.id).text,
             u"该会员卡内还有金额，不能删除！"_qs);
    // Figures are never written by the editor, and a second card of one number is refused.
    Record again = newRecord(shop.session, kind);
    again.set(u"hy_name"_qs, u"另一个"_qs);
    again.set(u"hy_bh"_qs, u"100003"_qs);
    QCOMPARE(saveRecord(shop.session, shop.user, kind, again).text, u"会员卡号不能重复！"_qs);
}

void TestMembers::levelsAndOffers() {
    CounterShop shop;
    const auto tried = [&](const QString &table, const QHash<QString, QString> &texts) {
        Record record = newRecord(shop.session, masterKind(table));
        for (auto it = texts.begin(); it != texts.end(); ++it)
            record.set(it.key(), it.value());
        return saveRecord(shop.session, shop.user, masterKind(table), record).text;
    };
    const QString level = u"jxc_hyfl"_qs;
    const QString name = u"hl_name"_qs, from = u"hl_jfxx"_qs, to = u"hl_jfsx"_qs;
    QCOMPARE(tried(level, {{name, u"金"_qs}, {from, u"400"_qs}, {to, u"300"_qs}}),
             u"积分下限不能大于积分上限！"_qs);
    QCOMPARE(tried(level, {{name, u"金"_qs}, {from, u"299"_qs}, {to, u"400"_qs}}),
             u"积分范围与其他级别重叠！"_qs);
    QCOMPARE(tried(level, {{name, u"金"_qs}, {from, u"300"_qs}, {to, u"400"_qs}}), QString());
    const QString offer = u"jxc_hyyh"_qs;
    const QString title = u"hh_name"_qs, kind = u"hh_zl"_qs;
    QCOMPARE(tried(offer, {{title, u"返"_qs}, {kind, u"1"_qs}, {u"hh_yh2"_qs, u"100"_qs}}),
             u"转换现金必须大于零！"_qs);
    QCOMPARE(tried(offer, {{title, u"返"_qs},
                           {kind, u"1"_qs},
                           {u"hh_yh2"_qs, u"100"_qs},
                           {u"hh_yh3"_qs, u"5"_qs}}),
             QString());
    QCOMPARE(tried(offer, {{title, u"送"_qs}, {kind, u"2"_qs}}), QString());
    QCOMPARE(tried(offer, {{title, u"送2"_qs}, {kind, u"2"_qs}}), u"已有充值赠送的优惠方式！"_qs);
    QCOMPARE(tried(offer, {{title, u"送"_qs}, {kind, u"0"_qs}}), u"优惠方式不能重复！"_qs);
    QCOMPARE(
        shop.texts(u"select hh_zlname,hh_note from jxc_hyyh order by id"_qs).mid(1),
        (QStringList{u"消费返现|累计消费 100 元，转换现金 5 元"_qs, u"充值赠送|充值赠送金额"_qs}));
    // The note follows what is changed later.
    const QString first = shop.db.scalar(u"select id from jxc_hyyh order by id limit 1"_qs);
    Record stored = *loadRecord(shop.session, masterKind(offer), first.toLongLong());
    stored.set(u"hh_yh1"_qs, u"1.1"_qs);
    shop.demand(saveRecord(shop.session, shop.user, masterKind(offer), stored));
    QCOMPARE(shop.texts(u"select hh_note from jxc_hyyh order by id"_qs).first(),
             u"实际款=所付存款*1.1"_qs);
}

void TestMembers::gifts() {
    CounterShop shop;
    shop.addGoods(u"Z1"_qs, {{u"g_iszp"_qs, 1}, {u"g_zpjf"_qs, 30}});
    DraftLine old{.goods = u"Z1"_qs, .quantity = 2, .price = 4_d};
    old.batch = {u"B2"_qs, u"2027-06"_qs, {}};
    DraftLine soon = old;
    soon.batch = {u"B1"_qs, u"2026-12"_qs, {}};
    shop.post(u"CJ"_qs, day(2), {old, soon});
    shop.alter(u"hy_jf=100 hy_zjf=140"_qs);
    const QStringList before = shop.texts(u"select g_sn,t_ph,t_yxq from jxc_tkc order by id"_qs);
    const QString stock = shop.stock(u"Z1"_qs);
    PointsExchange wanted{day(20), shop.member, administratorNo};
    wanted.lines = {{u"Z1"_qs, 4}};
    QString number;
    QCOMPARE(exchangePoints(shop.session, shop.user, wanted, &number).text, u"会员积分不足！"_qs);
    wanted.lines = {{u"G1"_qs, 1}};
    QCOMPARE(exchangePoints(shop.session, shop.user, wanted, &number).text,
             u"商品“农药G1”不是赠品，不能兑换！"_qs);
    shop.set(u"cs_kc"_qs, 0);
    wanted.lines = {{u"Z1"_qs, 3}, {u"Z1"_qs, 2}};
    QCOMPARE(exchangePoints(shop.session, shop.user, wanted, &number).text,
             u"赠品“农药Z1”库存不足！"_qs);
    shop.set(u"cs_kc"_qs, 1);
    wanted.lines = {{u"Z1"_qs, 2}};
    shop.demand(exchangePoints(shop.session, shop.user, wanted, &number));
    QCOMPARE(number, u"DH26032010001"_qs);
    QCOMPARE(shop.now(), u"40 140 0 0 0 0 100001"_qs);
    QCOMPARE(shop.stock(u"Z1"_qs), u"2 2 0 4"_qs);
    QCOMPARE(shop.figures(u"select t_sl from jxc_tkc where t_ph='B1'"_qs), u"0"_qs);
    QCOMPARE(
        shop.figures(
            u"select gl_sl,gl_dj,gl_zje,gl_cbj,gl_zcb,gl_lr,gl_kc,gl_pjjj from jxc_goodslist where "
            "gl_flag='dh'"_qs),
        u"2 0 0 4 0 0 2 4"_qs);
    shop.demand(undoPointsExchange(shop.session, shop.user, number));
    QCOMPARE(shop.now(), u"100 140 0 0 0 0 100001"_qs);
    QCOMPARE(shop.stock(u"Z1"_qs), stock);
    QCOMPARE(shop.texts(u"select g_sn,t_ph,t_yxq from jxc_tkc order by id"_qs), before);
    QCOMPARE(shop.figures(u"select count(*) from jxc_jfdh"_qs), u"0"_qs);
    QCOMPARE(shop.figures(u"select count(*) from jxc_dhzp"_qs), u"0"_qs);
}

void TestMembers::receiptsOfOthers() {
    CounterShop shop;
    shop.settings(u"jf_mfje=10"_qs);
    shop.alter(u"hy_zhje=50"_qs);
    const auto tried = [&](const QString &number) {
        return postReceipt(shop.session, shop.user, number).text;
    };
    shop.addReceipt(u"XS26031010001"_qs, day(10), 45, 5);
    QCOMPARE(tried(u"XS26031010001"_qs), QString());
    QCOMPARE(shop.now(), u"4 4 45 1 45 0 100001"_qs);
    QCOMPARE(tried(u"XS26031010001"_qs), u"单据XS26031010001的会员积分已经过账！"_qs);
    QCOMPARE(tried(u"XS26031019999"_qs), u"没有找到POS单据：XS26031019999！"_qs);
    // A return that stands among the counter's returns alone.
    shop.db.insertRow(u"jxc_posthd"_qs, {{u"gl_djh"_qs, u"XT26031110001"},
                                         {u"hy_sn"_qs, shop.member},
                                         {u"pos_xsrq"_qs, u"2026-03-11 08:00:00"},
                                         {u"pos_yfje"_qs, 15},
                                         {u"pos_sfje"_qs, 15},
                                         {u"pos_czk"_qs, 5},
                                         {u"pos_xj"_qs, 10},
                                         {u"pos_rjid"_qs, u""}});
    shop.db.insertRow(u"jxc_posthsp"_qs, {{u"gl_djh"_qs, u"XT26031110001"},
                                          {u"g_sn"_qs, u"G1"},
                                          {u"pos_dj"_qs, 15},
                                          {u"pos_sl"_qs, 1},
                                          {u"pos_zje"_qs, 15}});
    QCOMPARE(tried(u"XT26031110001"_qs), QString());
    QCOMPARE(shop.now(), u"2 2 30 0 50 0 100001"_qs);
    QCOMPARE(shop.texts(u"select pos_rjid from jxc_posxsd where gl_djh='XT26031110001'"_qs),
             QStringList{u"-"_qs});
    QCOMPARE(tried(u"XT26031110001"_qs), u"单据XT26031110001的会员积分已经过账！"_qs);
    // What an approval has posted is not posted again.
    const QString sale =
        shop.post(u"XS"_qs, day(12), {{.goods = u"G1"_qs, .quantity = 1, .price = 9_d}},
                  [&](Draft &d) { d.member = shop.member; });
    QCOMPARE(tried(sale), u"单据%1的会员积分已经过账！"_qs.arg(sale));
}

void TestMembers::dayEnd() {
    CounterShop shop;
    shop.db.execute(u"delete from jxc_posxsd"_qs);
    QString number;
    QCOMPARE(settleCounter(shop.session, shop.user, &number).text, u"没有需要日结的单据！"_qs);
    shop.addReceipt(u"XS1"_qs, day(10), 45);
    shop.addReceipt(u"XS2"_qs, day(10), 5);
    shop.addReceipt(u"XS3"_qs, day(11), 7, {}, u"G2"_qs);
    shop.db.insertRow(u"jxc_posthd"_qs,
                      {{u"gl_djh"_qs, u"XT1"}, {u"pos_xsrq"_qs, u"2026-03-10 08:00:00"}});
    shop.db.insertRow(
        u"jxc_posthsp"_qs,
        {{u"gl_djh"_qs, u"XT1"}, {u"g_sn"_qs, u"G1"}, {u"pos_sl"_qs, 3}, {u"pos_zje"_qs, 20}});
    shop.user.answers = {false};
    QCOMPARE(settleCounter(shop.session, shop.user, &number).kind, Outcome::Kind::declined);
    QCOMPARE(shop.user.takeAsked(),
             QStringList{u"即将生成日结单：\r\n\r\nRJ26033110001\r\n\r\n确定日结吗？"_qs});
    shop.demand(settleCounter(shop.session, shop.user, &number));
    QCOMPARE(shop.lastLog(), u"POS日结：RJ26033110001"_qs);
    // Quantities of returns are added, their amounts come off.
    QCOMPARE(shop.texts(u"select rj_xsrq,g_sn from jxc_rjsp order by id"_qs),
             (QStringList{u"2026-03-10|G1"_qs, u"2026-03-11|G2"_qs}));
    QCOMPARE(shop.figures(u"select rj_sl,rj_je from jxc_rjsp order by id limit 1"_qs), u"5 30"_qs);
    QCOMPARE(shop.figures(u"select rj_sl,rj_je from jxc_rjd"_qs), u"6 37"_qs);
    QCOMPARE(
        shop.texts(
            u"select distinct pos_rjid from jxc_posxsd union select pos_rjid from jxc_posthd"_qs),
        QStringList{number});
    QCOMPARE(settleCounter(shop.session, shop.user, &number).text, u"没有需要日结的单据！"_qs);
    Session clerk = shop.clerk(u"tjgl"_qs, {19});
    QVERIFY(settleCounter(clerk, shop.user, &number).text.contains(u"POS日结！"_qs));
    // The sales of the numbers are marked too.
    const QString sale =
        shop.post(u"XS"_qs, day(12), {{.goods = u"G1"_qs, .quantity = 1, .price = 9_d}},
                  [&](Draft &d) { d.member = shop.member; });
    shop.demand(settleCounter(shop.session, shop.user, &number));
    QCOMPARE(shop.texts(u"select pos_rjid from jxc_lsxsd where gl_djh=?"_qs, {sale}),
             QStringList{number});
}

void TestMembers::till() {
    CounterShop shop;
    QString in, out;
    shop.demand(
        recordTillCash(shop.session, shop.user, {TillDirection::in, 200, u"备用金"_qs}, &in));
    shop.demand(recordTillCash(shop.session, shop.user, {TillDirection::out, 12.5_d}, &out));
    QCOMPARE(shop.user.takeAsked(),
             (QStringList{u"您确认生成入款单吗 200？"_qs, u"您确认生成出款单 12.5 吗？"_qs}));
    QCOMPARE(in, u"RK26033110001"_qs);
    QCOMPARE(out, u"CK26033110001"_qs);
    QCOMPARE(recordTillCash(shop.session, shop.user, {TillDirection::out, 0}, &out).text,
             u"金额必须大于零！"_qs);
    const auto rows = listTillCash(shop.session, day(31), day(31), everyCashier);
    QCOMPARE(rows.size(), size_t{2});
    QCOMPARE(rows[0].kind, u"POS 出款"_qs);
    QCOMPARE(rows[0].out, 12.5_d);
    QCOMPARE(rows[1].in, Decimal(200));
    QVERIFY(listTillCash(shop.session, day(31), day(31), u"小"_qs).empty());
    QVERIFY(listTillCash(shop.session, day(1), day(30), {}).empty());
}

QTEST_GUILESS_MAIN(TestMembers)
#include "test_members.moc"
