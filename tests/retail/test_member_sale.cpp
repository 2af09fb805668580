// What a receipt does to its member: every rule alone and together with others, worked by hand.
#include "db/transaction.h"
#include "retail/member_sale.h"
#include "retail/member_shop.h"
#include "retail/points_settings.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString receipt = QStringLiteral("XS260310"
                                       "10001");

void post(MemberShop &shop, MemberMode mode, const QString &number = receipt) {
    Transaction transaction(shop.db);
    PostMemberSale(shop.session, number, shop.member, mode);
    transaction.commit();
}

/// A receipt of 10 March 2026 and what it makes of a member who has 5 points of 80 ever earned,
/// has spent 803 in 7 visits and holds 50 on the card.
struct Case {
    const char *name;
    const char *settings, *member;
    const char *due, *storedValue;
    /// points, all points, spending, visits, stored value, remainder, level
    const char *after;
    const char *receipt; ///< points, points after it, rebate
};

const Case cases[] = {
    {"no points at all", "", "", "25", "0", "5 80 828 8 50 0 100001", "0 5 0"},
    {"a point for ten", "jf_mfje=10", "", "29.99", "0", "7 82 832.99 8 50 0 100001", "2 7 0"},
    {"below a point", "jf_mfje=10", "", "9.99", "0", "5 80 812.99 8 50 0 100001", "0 5 0"},
    {"below one yuan is no visit", "jf_mfje=10", "", "0.99", "0", "5 80 803 7 50 0 100001",
     "0 0 0"},
    {"stored value earns", "jf_mfje=10", "", "40", "30", "9 84 843 8 20 0 100001", "4 9 0"},
    {"stored value does not earn", "jf_mfje=10 jf_jfgz=0", "", "40", "15", "7 82 843 8 35 0 100001",
     "2 7 0"},
    {"all from the card: a visit", "jf_mfje=10 jf_jfgz=0", "", "40", "40", "5 80 843 8 10 0 100001",
     "0 0 0"},
    {"a fraction of a point", "jf_mfje=2.5", "", "9", "0", "8 83 812 8 50 0 100001", "3 8 0"},
    {"remainder carried", "jf_mfje=10 jf_yelj=1", "hy_ye=3", "27", "0", "8 83 830 8 50 0 100001",
     "3 8 0"},
    {"remainder off", "jf_mfje=10", "hy_ye=3", "27", "0", "7 82 830 8 50 3 100001", "2 7 0"},
    {"remainder of all spending", "jf_mfje=10 jf_yelj=1", "", "18.9", "0",
     "6 81 821.9 8 50 1 100001", "1 6 0"},
    {"birthday", "jf_mfje=10 jf_srjfbs=3", "hy_sr=1980-03-10", "25", "0", "11 86 828 8 50 0 100001",
     "6 11 0"},
    {"the day after", "jf_mfje=10 jf_srjfbs=3", "hy_sr=1980-03-09", "25", "0",
     "7 82 828 8 50 0 100001", "2 7 0"},
    {"days around it", "jf_mfje=10 jf_srjfbs=3 jf_srjflx=1 jf_srjfts=2", "hy_sr=1980-03-12", "25",
     "0", "11 86 828 8 50 0 100001", "6 11 0"},
    {"too many days", "jf_mfje=10 jf_srjfbs=3 jf_srjflx=1 jf_srjfts=2", "hy_sr=1980-03-13", "25",
     "0", "7 82 828 8 50 0 100001", "2 7 0"},
    {"promotion", "jf_mfje=10 jf_dbjf=2 jf_dbrq1=2026-03-10 jf_dbrq2=2026-03-10", "", "25", "0",
     "9 84 828 8 50 0 100001", "4 9 0"},
    {"promotion is over", "jf_mfje=10 jf_dbjf=2 jf_dbrq1=2026-03-01 jf_dbrq2=2026-03-09", "", "25",
     "0", "7 82 828 8 50 0 100001", "2 7 0"},
    {"birthday and promotion",
     "jf_mfje=10 jf_srjfbs=3 jf_dbjf=5 jf_dbrq1=2026-03-01 jf_dbrq2=2026-03-31", "hy_sr=1980-03-10",
     "25", "0", "11 86 828 8 50 0 100001", "6 11 0"},
    {"level rises", "jf_mfje=10", "", "205", "0", "25 100 1008 8 50 0 100002", "20 25 0"},
    {"level stays by wish", "jf_mfje=10", "hy_sj=0", "205", "0", "25 100 1008 8 50 0 100001",
     "20 25 0"},
    {"above every level", "jf_mfje=1", "", "500", "0", "505 580 1303 8 50 0 100001", "500 505 0"},
    {"rebate", "", "hh_sn=A1", "399", "0", "5 80 1202 8 65 0 100001", "0 5 15"},
    {"rebate of what earns", "jf_mfje=10 jf_jfgz=0", "hh_sn=A1", "210", "20",
     "24 99 1013 8 35 0 100001", "19 24 5"},
    {"rebate with remainder", "jf_mfje=10 jf_yelj=1", "hh_sn=A1 hy_ye=5", "95.5", "0",
     "15 90 898.5 8 55 8 100001", "10 15 5"},
    {"points are whole", "jf_mfje=10", "hy_jf=5.7 hy_zjf=99.9", "25", "0",
     "7.7 101.9 828 8 50 0 100002", "2 7 0"},
};

} // namespace

class TestMemberSale : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sales_data();
    void sales();
    void specialPrices_data() { addEngineRows(); }
    void specialPrices();
    void returns_data() { addEngineRows(); }
    void returns();
    void undone_data() { addEngineRows(); }
    void undone();
    void settingsAreKept_data() { addEngineRows(); }
    void settingsAreKept();
    void documents_data() { addEngineRows(); }
    void documents();
    void paidFromTheCard_data() { addEngineRows(); }
    void paidFromTheCard();
};

void TestMemberSale::sales_data() {
    addEngineRows();
}

/// One shop for all cases: a new one takes longer than all of them.
void TestMemberSale::sales() {
    MemberShop shop;
    shop.db.insertRow(u"jxc_hyyh"_qs, {{u"hh_sn"_qs, u"A1"},
                                       {u"hh_name"_qs, u"返现"},
                                       {u"hh_zl"_qs, 1},
                                       {u"hh_yh2"_qs, 100},
                                       {u"hh_yh3"_qs, 5}});
    for (const Case &c : cases) {
        shop.settings(
            u"jf_jfgz=1 jf_mfje=0 jf_yelj=0 jf_srjfbs=0 jf_srjflx=0 jf_srjfts=0 jf_dbjf=0"_qs);
        shop.settings(QString::fromUtf8(c.settings));
        shop.alter(
            u"hy_jf=5 hy_zjf=80 hy_zje=803 hy_cs=7 hy_zhje=50 hy_ye=0 hl_sn=L hh_sn=N hy_sj=1 hy_sr=1970-06-15"_qs);
        shop.db.execute(u"update jxc_hyxx set hl_sn='100001'"_qs);
        shop.alter(QString::fromUtf8(c.member));
        shop.db.execute(u"delete from jxc_posxsd"_qs);
        shop.addReceipt(receipt, day(10), Decimal::fromText(QString::fromUtf8(c.due)),
                        Decimal::fromText(QString::fromUtf8(c.storedValue)));
        post(shop, MemberMode::sale);
        const auto case_ = [&](const QString &figures) {
            return QString::fromUtf8(c.name) + u": "_qs + figures;
        };
        QCOMPARE(case_(shop.now()), case_(QString::fromUtf8(c.after)));
        QCOMPARE(case_(shop.posted(receipt)), case_(QString::fromUtf8(c.receipt)));
    }
}

void TestMemberSale::specialPrices() {
    MemberShop shop;
    shop.settings(u"jf_mfje=10 jf_yelj=1"_qs);
    shop.set(u"cs_tjcyjf"_qs, 0);
    // Only goods at a special price: no line counts, and nothing is a visit.
    shop.addReceipt(receipt, day(10), 95, {}, u"G2"_qs);
    post(shop, MemberMode::sale);
    QCOMPARE(shop.now(), u"0 0 0 0 0 0 100001"_qs);
    // 30 of 125 at ordinary prices.
    shop.addReceipt(u"R2"_qs, day(10), 125, {}, u"G2"_qs);
    shop.db.execute(u"update jxc_posxssp set pos_zje=95 where gl_djh='R2'"_qs);
    shop.db.insertRow(u"jxc_posxssp"_qs,
                      {{u"gl_djh"_qs, u"R2"}, {u"g_sn"_qs, u"G1"}, {u"pos_zje"_qs, 30}});
    post(shop, MemberMode::sale, u"R2"_qs);
    QCOMPARE(shop.now(), u"3 3 125 1 0 5 100001"_qs);
    // Stored value comes off before: 20 of 125 are left of 30.
    shop.settings(u"jf_jfgz=0 jf_yelj=0"_qs);
    shop.db.execute(u"update jxc_posxsd set pos_czk=105 where gl_djh='R2'"_qs);
    post(shop, MemberMode::sale, u"R2"_qs);
    QCOMPARE(shop.now(), u"5 5 250 2 -105 5 100001"_qs);
    shop.set(u"cs_tjcyjf"_qs, 1);
    post(shop, MemberMode::sale);
    QCOMPARE(shop.now(), u"14 14 345 3 -105 5 100001"_qs);
}

void TestMemberSale::returns() {
    MemberShop shop;
    shop.settings(u"jf_mfje=10"_qs);
    shop.alter(u"hy_jf=50 hy_zjf=101 hy_zje=1010 hy_cs=7 hy_zhje=50"_qs);
    shop.db.execute(u"update jxc_hyxx set hl_sn='100002'"_qs);
    // A sale of 25 would give 2 points; giving it back takes 3.
    shop.addReceipt(u"XT1"_qs, day(10), -25);
    post(shop, MemberMode::saleReturn, u"XT1"_qs);
    QCOMPARE(shop.now(), u"47 98 985 6 50 0 100001"_qs);
    QCOMPARE(shop.posted(u"XT1"_qs), u"-3 47 0"_qs);
    post(shop, MemberMode::undoReturn, u"XT1"_qs);
    QCOMPARE(shop.now(), u"50 101 1010 7 50 0 100002"_qs);
    // The remainder plays no part, 4.9 yuan round to no point; the rebate is taken back.
    shop.db.insertRow(u"jxc_hyyh"_qs, {{u"hh_sn"_qs, u"A1"},
                                       {u"hh_name"_qs, u"返现"},
                                       {u"hh_zl"_qs, 1},
                                       {u"hh_yh2"_qs, 2},
                                       {u"hh_yh3"_qs, u"0.5"_qs}});
    shop.settings(u"jf_yelj=1"_qs);
    shop.alter(u"hh_sn=A1 hy_ye=9"_qs);
    shop.addReceipt(u"XT2"_qs, day(10), Decimal::fromText(u"-4.9"));
    post(shop, MemberMode::saleReturn, u"XT2"_qs);
    QCOMPARE(shop.now(), u"50 101 1005.1 6 49 5 100002"_qs);
    QCOMPARE(shop.posted(u"XT2"_qs), u"0 50 -1"_qs);
    post(shop, MemberMode::undoReturn, u"XT2"_qs);
    QCOMPARE(shop.now(), u"50 101 1010 7 50 0 100002"_qs);
}

void TestMemberSale::undone() {
    MemberShop shop;
    shop.settings(u"jf_mfje=10 jf_yelj=1"_qs);
    shop.alter(u"hy_zhje=100 hy_zje=7 hy_ye=7"_qs);
    shop.addReceipt(receipt, day(10), 1025, 40);
    post(shop, MemberMode::sale);
    QCOMPARE(shop.now(), u"103 103 1032 1 60 2 100002"_qs);
    // The level of the undone points, though the level does not follow: and no points at all keep
    // it.
    shop.alter(u"hy_sj=0"_qs);
    post(shop, MemberMode::undoSale);
    QCOMPARE(shop.now(), u"0 0 7 0 100 7 100002"_qs);
    // Outside every level a sale keeps the level, an undo falls back to the first.
    shop.addReceipt(u"R2"_qs, day(10), 10);
    shop.alter(u"hy_zjf=999"_qs);
    post(shop, MemberMode::sale, u"R2"_qs);
    QCOMPARE(shop.now(), u"1 1000 17 1 100 7 100002"_qs);
    post(shop, MemberMode::undoSale, u"R2"_qs);
    QCOMPARE(shop.now(), u"0 999 7 0 100 7 100001"_qs);
}

void TestMemberSale::settingsAreKept() {
    Shop shop;
    PointsSettings s = PointsSettings::load(shop.db);
    QVERIFY(s.storedValueEarns);
    s.storedValueEarns = false;
    s.amountPerPoint = 12.5_d;
    s.birthdayFactor = 3;
    s.memberDay = MemberDay::weekly;
    s.memberDayFrom = u"6"_qs;
    s.memberDayTo = u"7"_qs;
    s.memberDayDiscount = 0.9_d;
    shop.demand(savePointsSettings(shop.session, shop.user, s));
    QCOMPARE(shop.lastLog(), u"修改会员设置"_qs);
    s = PointsSettings::load(shop.db);
    QVERIFY(!s.storedValueEarns);
    QCOMPARE(s.amountPerPoint, 12.5_d);
    QCOMPARE(s.discountOn(u"2026-03-06"), Decimal(1)); // Friday
    QCOMPARE(s.discountOn(u"2026-03-07"), 0.9_d);
    s.memberDay = MemberDay::monthly;
    QCOMPARE(s.discountOn(u"2026-03-06"), 0.9_d);
    s.memberDay = MemberDay::period;
    s.periodFrom = u"2026-03-05"_qs;
    s.periodTo = u"2026-03-06"_qs;
    QCOMPARE(s.discountOn(u"2026-03-06"), 0.9_d);
    QCOMPARE(s.discountOn(u"2026-03-07"), Decimal(1));
    s.promotionFrom = u"2026-02-30"_qs;
    QCOMPARE(savePointsSettings(shop.session, shop.user, s).text,
             u"促销期间的日期“2026-02-30”不正确！"_qs);
}

/// Approvals and cancellings of documents, with the copies among the receipts.
void TestMemberSale::documents() {
    MemberShop shop;
    shop.settings(u"jf_mfje=10"_qs);
    const DraftLine line{.goods = u"G1"_qs, .quantity = 4, .price = 25_d};
    shop.post(u"CJ"_qs, day(2), {line});
    const auto named = [&](Draft &d) { d.member = shop.member; };
    const QStringList before = shop.texts(u"select * from jxc_posxsd"_qs);
    const QString plain =
        shop.post(u"XS"_qs, day(3), {{.goods = u"G1"_qs, .quantity = 1, .price = 25_d}});
    QCOMPARE(shop.texts(u"select * from jxc_posxsd"_qs), before);
    shop.cancel(plain);

    const QString sale =
        shop.post(u"XS"_qs, day(10), {{.goods = u"G1"_qs, .quantity = 3, .price = 25_d}}, named);
    QCOMPARE(shop.now(), u"7 7 75 1 0 0 100001"_qs);
    QCOMPARE(
        shop.figures(
            u"select pos_yfje,pos_sfje,pos_xj,pos_bcjf,pos_zjf from jxc_posxsd where gl_djh=?"_qs,
            {sale}),
        u"75 75 75 7 7"_qs);
    QCOMPARE(
        shop.figures(u"select pos_dj,pos_sl,pos_zsl,pos_zje from jxc_posxssp where gl_djh=?"_qs,
                     {sale}),
        u"25 3 3 75"_qs);
    const QString back =
        shop.post(u"XT"_qs, day(11), {{.goods = u"G1"_qs, .quantity = 1, .price = 25_d}}, named);
    QCOMPARE(shop.now(), u"4 4 50 0 0 0 100001"_qs);
    QCOMPARE(
        shop.figures(u"select pos_yfje,pos_bcjf,pos_zjf from jxc_posxsd where gl_djh=?"_qs, {back}),
        u"-25 -3 4"_qs);
    QCOMPARE(
        shop.figures(u"select pos_sl,pos_zsl,pos_zje from jxc_posxssp where gl_djh=?"_qs, {back}),
        u"-1 -1 -25"_qs);
    shop.cancel(back);
    shop.cancel(sale);
    QCOMPARE(shop.now(), u"0 0 0 0 0 0 100001"_qs);
    QCOMPARE(shop.figures(u"select count(*) from jxc_posxsd"_qs), u"0"_qs);
    QCOMPARE(shop.figures(u"select count(*) from jxc_posxssp"_qs), u"0"_qs);

    shop.approve(sale);
    shop.db.execute(u"update jxc_posxsd set pos_rjid='RJ1'"_qs);
    QCOMPARE(shop.tryCancel(sale).text, u"该单据已日结，不能取消审核，请做退货！"_qs);
    const QString stranger =
        shop.save(u"XS"_qs, day(10), {{.goods = u"G1"_qs, .quantity = 1, .price = 25_d}},
                  [](Draft &d) { d.member = u"M9"_qs; });
    QCOMPARE(shop.tryApprove(stranger).text, u"会员“M9”不存在！"_qs);
}

void TestMemberSale::paidFromTheCard() {
    MemberShop shop;
    shop.db.insertRow(u"jxc_yhzh"_qs, {{u"yh_sn"_qs, u"9"}, {u"yh_name"_qs, u"微信收款"}});
    shop.db.insertRow(u"jxc_yhzh"_qs, {{u"yh_sn"_qs, u"10"}, {u"yh_name"_qs, u"农行卡"}});
    const auto bank =
        shop.db.scalar(u"select yh_name from jxc_yhzh where yh_name<>'现金' and yh_name not like "
                       "'%微信%' and yh_name not like '%支付宝%' order by id limit 1"_qs);
    shop.post(u"CJ"_qs, day(2), {{.goods = u"G1"_qs, .quantity = 4, .price = 10_d}});
    const QString before = shop.figures(u"select sum(xj_je) from jxc_xjyh where xj_kmmc='现金'"_qs);
    const auto paying = [&](Draft &d) {
        d.member = shop.member;
        d.tenders.storedValue = 60;
        d.tenders.bankCard = 10;
    };
    const QString sale =
        shop.save(u"XS"_qs, day(10), {{.goods = u"G1"_qs, .quantity = 3, .price = 25_d}}, paying);
    QCOMPARE(shop.tryApprove(sale).text, u"储值卡余额不足！"_qs);
    shop.alter(u"hy_zhje=60.5"_qs);
    shop.alter(u"hy_status=1"_qs);
    QCOMPARE(shop.tryApprove(sale).text, u"该会员卡已挂失！"_qs);
    shop.alter(u"hy_status=0"_qs);
    shop.approve(sale);
    QCOMPARE(shop.now(), u"0 0 75 1 0.5 0 100001"_qs);
    QCOMPARE(
        shop.texts(u"select xj_kmmc,xj_dlx from jxc_xjyh where gl_djh=? order by id"_qs, {sale}),
        (QStringList{u"现金|商品销售"_qs, u"现金|POS银行卡"_qs, bank + u"|POS银行卡"_qs,
                     u"现金|POS储值卡"_qs}));
    const auto cash = [&] {
        return shop.figures(u"select sum(xj_je) from jxc_xjyh where xj_kmmc='现金'"_qs);
    };
    QCOMPARE(Decimal::fromText(cash()), Decimal::fromText(before) + Decimal(5));

    // Part of it goes back onto the card.
    const QString back = shop.post(
        u"XT"_qs, day(11), {{.goods = u"G1"_qs, .quantity = 1, .price = 25_d}}, [&](Draft &d) {
            d.member = shop.member;
            d.tenders.storedValue = 20;
        });
    QCOMPARE(shop.now(), u"0 0 50 0 20.5 0 100001"_qs);
    QCOMPARE(Decimal::fromText(cash()), Decimal::fromText(before));
    shop.cancel(back);
    QCOMPARE(shop.now(), u"0 0 75 1 0.5 0 100001"_qs);
    shop.cancel(sale);
    QCOMPARE(shop.now(), u"0 0 0 0 60.5 0 100001"_qs);
    QCOMPARE(cash(), before);
}

QTEST_GUILESS_MAIN(TestMemberSale)
#include "test_member_sale.moc"
