// The counter: what is typed becomes a line, a receipt becomes a sale with its money and stock, and
// goods come back.
#include "master/barcodes.h"
#include "master/goods_search.h"
#include "money/cash_journal.h"
#include "retail/counter_goods.h"
#include "retail/escpos_bytes.h"
#include "retail/escpos_receipt.h"
#include "retail/receipt_hold.h"
#include "retail/receipt_posting.h"
#include "retail/receipt_return.h"
#include "services/verify.h"
#include "support/shop.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

/// A shop that sells: G1 at 9.90 a bottle (12 in a case), G2 at 3.33, both in stock.
class CounterShop : public Shop {
public:
    CounterShop() {
        addGoods(u"G1"_qs, {{u"g_lsj"_qs, 9.9_d}, {u"g_jm"_qs, u"CGL"}});
        addGoods(u"G2"_qs, {{u"g_lsj"_qs, 3.33_d}});
        addUnit(u"G1"_qs, u"箱"_qs, 12, {{u"g_sptm"_qs, u"69012"}});
        buy(u"G1"_qs, 100, 5);
        buy(u"G2"_qs, 50, 2);
    }

    void buy(const QString &goods, Decimal quantity, Decimal price, const Batch &batch = {}) {
        DraftLine line{.goods = goods};
        line.quantity = quantity;
        line.price = price;
        line.batch = batch;
        post(u"CJ"_qs, day(1), {line});
    }

    [[nodiscard]] Receipt receipt() const {
        Receipt r;
        r.warehouse = r.clerk = administratorNo;
        return r;
    }
    ReceiptLine line(const QString &typed) {
        const CounterSettings settings = CounterSettings::load(session);
        const CounterFind found = findForCounter(finder, settings, typed);
        if (found.hits.size() != 1)
            qFatal("found %d goods", static_cast<int>(found.hits.size()));
        return counterLine(session, settings, found, found.hits.front(), {});
    }
    Outcome tryPay(const Receipt &r, const Tender &t) {
        return postReceipt(session, user, r, t, &posted);
    }
    QString pay(const Receipt &r, const Tender &t) {
        demand(tryPay(r, t));
        return posted.number;
    }
    QString payBack(const CounterReturn &r, const Tender &t) {
        QString number;
        demand(postReturn(session, user, r, t, &number));
        return number;
    }
    QStringList faults() {
        QStringList all;
        for (const Difference &d : verifyBooks(db))
            all << d.store + u' ' + d.key + u' ' + d.text;
        if (!all.isEmpty())
            qWarning("%s", qPrintable(all.join(u'\n')));
        return all;
    }
    /// As texts(), figures without trailing zeros on every engine.
    QStringList plain(const QString &sql, const Values &values = {}) {
        static const QRegularExpression zeros(u"\\.?0+(?=\\||$)"_qs);
        static const QRegularExpression figure(u"^-?\\d+\\.\\d+$"_qs);
        QStringList lines;
        for (const QString &line : texts(sql, values)) {
            QStringList cells = line.split(u'|');
            for (QString &cell : cells)
                if (figure.match(cell).hasMatch())
                    cell.remove(zeros);
            lines << cells.join(u'|');
        }
        return lines;
    }
    /// Every account's last balance.
    QStringList accounts() {
        QStringList all;
        for (const QString &name :
             texts(u"select distinct xj_kmmc from jxc_xjyh order by xj_kmmc"_qs))
            all << name + u'=' + AccountBalance(db, name).toText();
        return all;
    }

    GoodsFinder finder{db};
    PostedReceipt posted;
};

Tender cash(Decimal amount) {
    return {.cash = amount, .other = {}};
}

} // namespace

class TestReceipts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void inputIsTakenApart();
    void labelsOfTheScale_data() { addEngineRows(); }
    void labelsOfTheScale();
    void prices_data() { addEngineRows(); }
    void prices();
    void tenderRules();
    void saleIsBookedWhole_data() { addEngineRows(); }
    void saleIsBookedWhole();
    void cancelledSaleLeavesNothing_data() { addEngineRows(); }
    void cancelledSaleLeavesNothing();
    void refusalWritesNothing_data() { addEngineRows(); }
    void refusalWritesNothing();
    void taxAndGifts_data() { addEngineRows(); }
    void taxAndGifts();
    void batchesThatExpireFirst_data() { addEngineRows(); }
    void batchesThatExpireFirst();
    void onAccount_data() { addEngineRows(); }
    void onAccount();
    void lowDiscountNeedsSomeone_data() { addEngineRows(); }
    void lowDiscountNeedsSomeone();
    void heldAndRecalled_data() { addEngineRows(); }
    void heldAndRecalled();
    void returnsGiveBackToTheCent_data() { addEngineRows(); }
    void returnsGiveBackToTheCent();
    void freeReturn_data() { addEngineRows(); }
    void freeReturn();
    void randomReceiptsAgainstPlainSums_data() { addEngineRows(); }
    void randomReceiptsAgainstPlainSums();
    void paperOfAReceiptPrinter();
};

void TestReceipts::inputIsTakenApart() {
    CounterSettings s;
    s.weightPrefix = u"24"_qs;
    s.countPrefix = u"25"_qs;
    const CounterInput three = parseCounterInput(s, u" ３＊ 6901 "_qs);
    QCOMPARE(three.quantity->toText(), u"3"_qs);
    QCOMPARE(three.code, u"6901"_qs);
    QVERIFY(parseCounterInput(s, u"2.5*"_qs).code.isEmpty());
    QCOMPARE(parseCounterInput(s, u"a*b"_qs).code, u"a*b"_qs);
    QVERIFY(!parseCounterInput(s, u"-3*G1"_qs).quantity);

    QString label = u"240000101250"_qs;
    label += ean13CheckDigit(label);
    QCOMPARE(parseCounterInput(s, label).label->goods, u"00001"_qs);
    QCOMPARE(parseCounterInput(s, label).label->quantity->toText(), u"1.25"_qs);
    s.scaleCarriesAmount = true;
    QCOMPARE(parseCounterInput(s, label).label->amount->toText(), u"12.5"_qs);
    label.back() = label.back() == u'0' ? u'1' : u'0';
    QVERIFY(!parseCounterInput(s, label).label);
}

void TestReceipts::labelsOfTheScale() {
    CounterShop shop;
    shop.addGoods(u"00001"_qs, {{u"g_lsj"_qs, 4_d}});
    QString label = u"240000101250"_qs;
    label += ean13CheckDigit(label);
    QCOMPARE(shop.line(label).total(2), 5_d);
    shop.db.execute(u"update jxc_poscs set pos_tmlx=1"_qs);
    const ReceiptLine byAmount = shop.line(label);
    QCOMPARE(byAmount.total(2), 12.5_d);
    QCOMPARE(byAmount.quantity, 3.125_d);
    // A goods that bears the very code goes before the label.
    shop.addGoods(u"G9"_qs);
    shop.db.execute(u"update jxc_goods set g_sptm=? where g_sn='G9'"_qs, {label});
    QCOMPARE(shop.line(label).goods, u"G9"_qs);
    QCOMPARE(shop.line(u"3*CGL"_qs).quantity, 3_d);
    QCOMPARE(shop.line(u"69012"_qs).unit, u"箱"_qs);
    QCOMPARE(shop.line(u"69012"_qs).price, 118.8_d);
}

void TestReceipts::prices() {
    CounterShop shop;
    const auto price = [&](const QString &unit, Decimal factor, const PriceBuyer &buyer = {}) {
        return counterPrice(shop.db, u"G1"_qs, unit, factor, buyer, day(31), 2);
    };
    const auto set = [&](const QString &what) {
        shop.db.execute(u"update jxc_goods set %1 where g_sn='G1'"_qs.arg(what));
    };
    QCOMPARE(price(u"瓶"_qs, 1), 9.9_d);
    set(u"g_dzll=0.9"_qs);
    QCOMPARE(price(u"瓶"_qs, 1), 8.91_d);
    shop.db.execute(u"update jxc_goodsdw set g_lsj=110"_qs);
    QCOMPARE(price(u"箱"_qs, 12), 99_d);
    const PriceBuyer member{.level = u"100002"_qs};
    shop.db.execute(u"update jxc_hyfl set hl_zk=0.8 where hl_sn='100002'"_qs);
    QCOMPARE(price(u"瓶"_qs, 1, member), 7.13_d); // 9.90 × 0.9 × 0.8
    QCOMPARE(price(u"瓶"_qs, 1, {u"100002"_qs, 0.5_d}), 4.46_d);
    QCOMPARE(price(u"瓶"_qs, 1, {u"100002"_qs, 0.95_d}), 7.13_d);
    set(u"g_dxdz=1"_qs);
    QCOMPARE(price(u"瓶"_qs, 1, member), 9.9_d); // no row for the class: no discount
    shop.db.insertRow(u"jxc_dxdz"_qs,
                      {{u"g_sn"_qs, u"G1"}, {u"hl_sn"_qs, u"100002"}, {u"hl_dxzk"_qs, 0.7_d}});
    QCOMPARE(price(u"瓶"_qs, 1, member), 6.93_d);
    set(u"g_hyj=6"_qs);
    QCOMPARE(price(u"箱"_qs, 12, member), 72_d);
    set(u"g_tjsp=1,g_tj=5,g_tjqx=1,g_ks='2026-03-01',g_js='2026-03-30'"_qs);
    QCOMPARE(price(u"瓶"_qs, 1, member), 6_d);
    set(u"g_js='2026-03-31'"_qs);
    QCOMPARE(price(u"箱"_qs, 12, member), 60_d);
}

void TestReceipts::tenderRules() {
    CounterSettings s;
    s.dueDecimals = 1;
    s.mostRounding = 0.5_d;
    Receipt r;
    ReceiptLine line;
    line.price = 10.06_d;
    r.lines = {line};
    const auto refusal = [&](const Tender &t) {
        try {
            [[maybe_unused]] const TenderOutcome o = checkTender(s, r, t);
        } catch (const Refusal &no) {
            return no.text();
        }
        return QString();
    };
    // 10.06 is rounded to 10.10: the shop gains four cents, outside the limit of rounding.
    const TenderOutcome o = checkTender(s, r, cash(20));
    QCOMPARE(o.due, 10.1_d);
    QCOMPARE(o.rounding, Decimal(0) - 0.04_d);
    QCOMPARE(o.change, 9.9_d);
    QCOMPARE(refusal(cash(10)), u"付款金额不足！"_qs);
    QCOMPARE(refusal({.cash = 20, .other = {}, .rounding = 0.6_d}), u"抹零金额不能大于0.5元！"_qs);
    QCOMPARE(refusal({.cash = 1, .other = {.bankCard = 20}}), u"找零金额不能大于现金金额！"_qs);
    QCOMPARE(refusal({.cash = 0, .other = {.storedValue = 11}}), u"请先刷会员卡！"_qs);
    QCOMPARE(refusal({.cash = -1, .other = {.bankCard = 20}}), u"付款金额不能小于零！"_qs);
    QCOMPARE(refusal({.cash = 0, .other = {}, .discount = 11}), u"优惠后的金额不能小于零！"_qs);
    r.member = u"100009"_qs;
    QCOMPARE(refusal({.cash = 0, .other = {.storedValue = 10.1_d}, .memberBalance = 10}),
             u"储值卡余额不足！"_qs);
    r.member.clear();
    s.memberRequired = true;
    QCOMPARE(refusal(cash(20)), u"请先刷会员卡！"_qs);
    QCOMPARE(tenderMethod({.cash = 0, .other = {.aliPay = 1}}), 5);
    QCOMPARE(tenderMethod({.cash = 1, .other = {.bankCard = 1}}), 6);
}

/// 3 × 9.90 + 2 × 3.33 × 0.9 = 29.70 + 5.99; 0.60 off and 0.09 let go; 20 by card, 20 in cash.
void TestReceipts::saleIsBookedWhole() {
    CounterShop shop;
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"2*690G1"_qs));
    addLine(r, shop.line(u"690G1"_qs));
    addLine(r, shop.line(u"2*690G2"_qs));
    QCOMPARE(r.lines.size(), size_t{2});
    r.lines[1].discount = 0.9_d;
    const QString number =
        shop.pay(r, {.cash = 20, .other = {.bankCard = 20}, .discount = 0.6_d, .rounding = 0.09_d});
    QVERIFY(number.startsWith(u"XS260331"_qs));
    QCOMPARE(shop.figures(u"select pos_yfje,pos_sfje,pos_zlje,pos_yhje,pos_mlje,pos_xj,pos_yhk,"
                          "pos_zffs,pos_yhzkje from jxc_posxsd where gl_djh=?"_qs,
                          {number}),
             u"35 40 5 0.6 0.09 20 20 6 1.36"_qs);
    QCOMPARE(shop.figures(u"select ls_yfje,ls_sfje,ls_status,ls_qk from jxc_lsxsd"_qs),
             u"35 35 1 0"_qs);
    QCOMPARE(shop.plain(u"select g_sn,pos_dj,pos_sl,pos_dzl,pos_zje,pos_cbj,g_zhxs from "
                        "jxc_posxssp order by id"_qs),
             (QStringList{u"G1|9.9|3|1|29.7|5|1"_qs, u"G2|3.33|2|0.9|5.99|2|1"_qs,
                          u"00000000|0|0|1|-0.69|0|1"_qs}));
    QCOMPARE(shop.plain(u"select xj_kmmc,xj_dlx,xj_je from jxc_xjyh where gl_djh=? order by id"_qs,
                        {number}),
             (QStringList{u"现金|商品销售|35"_qs, u"现金|POS银行卡|-20"_qs,
                          u"工行帐号|POS银行卡|20"_qs}));
    QCOMPARE(shop.stock(u"G1"_qs), u"97 97 3 5"_qs);
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::cancelledSaleLeavesNothing() {
    CounterShop shop;
    shop.db.insertRow(u"jxc_yhzh"_qs, {{u"yh_name"_qs, u"微信收款"}});
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"690G1"_qs));
    const QString number = shop.pay(r, {.cash = 0, .other = {.weChat = 9.9_d}});
    QVERIFY(shop.accounts().contains(u"微信收款=9.9"_qs));
    shop.db.execute(u"update jxc_posxsd set pos_rjid='RJ1'"_qs);
    QCOMPARE(shop.tryCancel(number).text, u"该单据已日结，不能取消审核，请做退货！"_qs);
    shop.db.execute(u"update jxc_posxsd set pos_rjid=''"_qs);
    shop.cancel(number);
    QCOMPARE(
        shop.texts(u"select gl_djh from jxc_posxsd union all select gl_djh from jxc_posxssp"_qs),
        QStringList());
    QVERIFY(shop.texts(u"select xj_je from jxc_xjyh where gl_djh=?"_qs, {number}).isEmpty());
    QCOMPARE(shop.stock(u"G1"_qs), u"100 100 0 5"_qs);
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::refusalWritesNothing() {
    CounterShop shop;
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"690G1"_qs));
    shop.db.execute(u"update jxc_goods set g_xzsl=1 where g_sn='G1'"_qs);
    r.lines[0].quantity = 2;
    const QStringList before = shop.everything();
    QVERIFY(shop.tryPay(r, cash(50)).text.contains(u"每次最多销售数量为"_qs));
    shop.db.execute(u"update jxc_goods set g_xzsl=0,g_iscf=1 where g_sn='G1'"_qs);
    QVERIFY(shop.tryPay(r, cash(50)).text.contains(u"必须登记购买人"_qs));
    shop.db.execute(u"update jxc_goods set g_xzsl=1,g_iscf=0 where g_sn='G1'"_qs);
    // Taking more than is there asks; No leaves nothing behind.
    r.lines[0].quantity = 101;
    shop.user.answers = {false};
    QCOMPARE(shop.tryPay(r, cash(2000)).kind == Outcome::Kind::done, false);
    QCOMPARE(shop.tryPay(shop.receipt(), cash(50)).text, u"请先录入商品！"_qs);
    Session clerk = shop.clerk(u"xsgl"_qs, {2});
    QVERIFY(postReceipt(clerk, shop.user, r, cash(50), &shop.posted).text.contains(u"没有权限"_qs));
    clerk = shop.clerk(u"xsgl"_qs, {1});
    r.lines[0].quantity = 1;
    shop.db.execute(u"update jxc_goods set g_xzsl=0"_qs);
    Shop::demand(postReceipt(clerk, shop.user, r, cash(50), &shop.posted));
    QVERIFY(before != shop.everything());
    QCOMPARE(shop.texts(u"select gl_djh from jxc_lsxsd"_qs), QStringList{shop.posted.number});
}

void TestReceipts::taxAndGifts() {
    CounterShop shop;
    shop.set(u"cs_tax"_qs, 9);
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"3*690G2"_qs));
    ReceiptLine gift = shop.line(u"690G1"_qs);
    gift.isGift = true;
    addLine(r, gift);
    const QString number = shop.pay(r, cash(9.99_d));
    QCOMPARE(shop.plain(u"select g_sn,pos_dj,pos_zje,t_zp from jxc_posxssp order by id"_qs),
             (QStringList{u"G2|3.33|9.99|"_qs, u"G1|0|0|(赠品)"_qs}));
    QCOMPARE(shop.figures(u"select ls_zje,ls_je,ls_taxje from jxc_lsxssp where g_sn='G2'"_qs),
             u"9.99 9.17 0.82"_qs);
    QCOMPARE(shop.stock(u"G1"_qs), u"99 99 1 5"_qs);
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::batchesThatExpireFirst() {
    CounterShop shop;
    shop.addGoods(u"G3"_qs, {{u"g_lsj"_qs, 3.33_d}});
    shop.buy(u"G3"_qs, 2, 1, {u"old"_qs, u"2026-02-01"_qs, {}});
    shop.buy(u"G3"_qs, 5, 1, {u"late"_qs, u"2028-01-01"_qs, {}});
    shop.buy(u"G3"_qs, 1, 1, {u"soon"_qs, u"2026-06-01"_qs, {}});
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"3*690G3"_qs));
    r.lines[0].discount = 0.9_d;
    shop.pay(r, cash(8.99_d));
    QCOMPARE(shop.plain(u"select t_ph,pos_sl,pos_zje from jxc_posxssp order by id"_qs),
             (QStringList{u"soon|1|3"_qs, u"late|2|5.99"_qs}));
    r.lines[0].quantity = 4; // three good ones are left
    QVERIFY(shop.tryPay(r, cash(50)).text.contains(u"已过有效期"_qs));
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::onAccount() {
    CounterShop shop;
    shop.addCustomer(u"100007"_qs, u"张三"_qs, {});
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"10*690G1"_qs));
    r.customer = u"100007"_qs;
    const QString number = shop.pay(r, cash(40));
    QCOMPARE(shop.figures(u"select ls_yfje,ls_sfje,ls_qk,ls_jsfs from jxc_lsxsd"_qs),
             u"99 40 1 1"_qs);
    QCOMPARE(shop.figures(u"select pos_yfje,pos_sfje,pos_zlje from jxc_posxsd"_qs), u"99 40 0"_qs);
    QCOMPARE(shop.figures(u"select kh_lwje from jxc_khxx where kh_sn='100007'"_qs), u"59"_qs);
    // What comes back lowers the debt, as far as nothing is paid back.
    CounterReturn back = returnOf(shop.session, number);
    back.lines[0].line.quantity = 4;
    shop.payBack(back, {});
    QCOMPARE(shop.figures(u"select kh_lwje from jxc_khxx where kh_sn='100007'"_qs), u"19.4"_qs);
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::lowDiscountNeedsSomeone() {
    CounterShop shop;
    shop.set(u"cs_zdzk"_qs, 0.8_d);
    Session clerk = shop.clerk(u"xsgl"_qs, {1});
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"690G1"_qs));
    r.lines[0].discount = 0.7_d;
    QCOMPARE(postReceipt(clerk, shop.user, r, cash(50), &shop.posted).text,
             u"折扣不能低于0.8！"_qs);
    r.lines[0].authorisedBy = u"小王"_qs;
    QVERIFY(!postReceipt(clerk, shop.user, r, cash(50), &shop.posted).isDone());
    r.lines[0].authorisedBy = u"admin"_qs;
    Shop::demand(postReceipt(clerk, shop.user, r, cash(50), &shop.posted));
    QCOMPARE(shop.posted.outcome.due, 6.93_d);
}

void TestReceipts::heldAndRecalled() {
    CounterShop shop;
    const CounterSettings settings = CounterSettings::load(shop.session);
    Receipt r = shop.receipt();
    QCOMPARE(holdReceipt(shop.session, shop.user, r).text, u"没有商品，不能挂单！"_qs);
    addLine(r, shop.line(u"2*69012"_qs));
    ReceiptLine gift = shop.line(u"690G2"_qs);
    gift.isGift = true;
    addLine(r, gift);
    keepRunningReceipt(shop.session, r);
    QCOMPARE(runningReceipt(shop.session)->total(2), 237.6_d);

    Shop::demand(holdReceipt(shop.session, shop.user, r));
    QVERIFY(!runningReceipt(shop.session));
    const auto held = heldReceipts(shop.session, settings);
    QCOMPARE(held.size(), size_t{1});
    QCOMPARE(held[0].lines, 2);
    QCOMPARE(held[0].total, 237.6_d);

    // Another sale meanwhile does not take its number.
    Receipt other = shop.receipt();
    addLine(other, shop.line(u"690G1"_qs));
    QVERIFY(shop.pay(other, cash(9.9_d)) != held[0].number);

    Receipt recalled = shop.receipt();
    Shop::demand(recallReceipt(shop.session, shop.user, held[0].number, recalled));
    QCOMPARE(recallReceipt(shop.session, shop.user, held[0].number, other).text,
             u"该挂单已被其他收银台取走！"_qs);
    QCOMPARE(recalled.lines[0].unit, u"箱"_qs);
    QVERIFY(recalled.lines[1].isGift);
    QCOMPARE(runningReceipt(shop.session)->number, held[0].number);
    QCOMPARE(shop.pay(recalled, cash(300)), held[0].number);
    QCOMPARE(shop.texts(u"select gl_djh from jxc_lsxssptemp"_qs), QStringList());

    Shop::demand(holdReceipt(shop.session, shop.user, other));
    shop.clock.set(QDateTime(QDate(2026, 4, 1), QTime(9, 0)));
    QVERIFY(heldReceipts(shop.session, settings).empty());
}

/// 7 × 3.33 = 23.31 paid with 20.00: returned piece by piece, 20.00 come back.
void TestReceipts::returnsGiveBackToTheCent() {
    CounterShop shop;
    const QString stock = shop.stock(u"G2"_qs);
    const QStringList before = shop.accounts();
    Receipt r = shop.receipt();
    addLine(r, shop.line(u"7*690G2"_qs));
    const QString number = shop.pay(r, {.cash = 0, .other = {.bankCard = 20}, .discount = 3.31_d});
    QVERIFY(!(before == shop.accounts()));
    Decimal back;
    QStringList returns;
    for (const int pieces : {2, 4, 1}) {
        CounterReturn part = returnOf(shop.session, number);
        part.lines[0].line.quantity = pieces;
        const Decimal amount = part.total(2);
        back += amount;
        returns << shop.payBack(part, {.cash = 0, .other = {.bankCard = amount}});
    }
    QCOMPARE(back, 20_d);
    QVERIFY_THROWS_EXCEPTION(Refusal, (void)returnOf(shop.session, number));
    QCOMPARE(shop.stock(u"G2"_qs), stock);
    QCOMPARE(AccountBalance(shop.db, u"工行帐号"_qs), 0_d);
    QCOMPARE(shop.figures(u"select pos_sl,pos_xssl,pos_zje from jxc_posthsp order by id"_qs),
             u"2 7 5.71"_qs);
    QCOMPARE(shop.texts(u"select pos_note from jxc_posthd order by id"_qs).front(),
             u"原单"_qs + number);
    QCOMPARE(shop.faults(), QStringList());

    shop.cancel(returns[1]);
    QVERIFY(shop.texts(u"select id from jxc_posthd where gl_djh=? union all select id from "
                       "jxc_posthsp where gl_djh=?"_qs,
                       {returns[1], returns[1]})
                .isEmpty());
    QCOMPARE(AccountBalance(shop.db, u"工行帐号"_qs), 11.43_d);
    shop.db.execute(u"update jxc_posthd set pos_rjid='RJ1'"_qs);
    QCOMPARE(shop.tryCancel(returns[0]).text, u"该单据已日结，不能取消审核！"_qs);
    shop.db.execute(u"update jxc_posthd set pos_rjid=''"_qs);
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::freeReturn() {
    CounterShop shop;
    CounterReturn r;
    r.warehouse = r.clerk = administratorNo;
    r.lines.push_back({.line = shop.line(u"2*690G1"_qs)});
    Session clerk = shop.clerk(u"xsgl"_qs, {1});
    QString number;
    const auto post = [&](const Tender &refund) {
        return postReturn(clerk, shop.user, r, refund, &number);
    };
    QVERIFY(post(cash(19.8_d)).text.contains(u"没有权限"_qs));
    r.authorisedBy = u"admin"_qs;
    QCOMPARE(post(cash(19_d)).text, u"退款金额不足！"_qs);
    QCOMPARE(post(cash(20_d)).text, u"退款金额不能大于应退金额！"_qs);
    Shop::demand(post(cash(19.8_d)));
    QCOMPARE(shop.stock(u"G1"_qs), u"102 102 -2 5"_qs);
    QCOMPARE(shop.figures(u"select pos_yfje,pos_sfje,pos_xj from jxc_posthd"_qs),
             u"19.8 19.8 19.8"_qs);
    QCOMPARE(shop.faults(), QStringList());
}

/// A day of receipts, some cancelled, some returned: sums of plain arithmetic must stand in cash,
/// stock and receipts.
void TestReceipts::randomReceiptsAgainstPlainSums() {
    CounterShop shop;
    QRandomGenerator dice(20260331);
    Decimal till = AccountBalance(shop.db, u"现金"_qs), bank, sold1, sold2, due;
    for (int i = 0; i < 25; ++i) {
        const Decimal n1 = static_cast<int>(dice.bounded(1, 4));
        const Decimal n2 = static_cast<int>(dice.bounded(1, 3));
        const Decimal factor = Decimal::fromMicros(dice.bounded(50, 101) * 10'000);
        Receipt r = shop.receipt();
        addLine(r, shop.line(n1.toText() + u"*690G1"_qs));
        addLine(r, shop.line(n2.toText() + u"*690G2"_qs));
        r.lines[0].discount = factor;
        const Decimal total = roundedProduct(n1, 9.9_d, factor, 2) + (n2 * 3.33_d).rounded(2);
        const Decimal off = Decimal::fromMicros(dice.bounded(0, 100) * 10'000);
        const Decimal card = dice.bounded(2) == 0 ? Decimal() : 1_d;
        const QString number =
            shop.pay(r, {.cash = 100, .other = {.bankCard = card}, .discount = off});
        QCOMPARE(shop.posted.outcome.due, total - off);
        if (dice.bounded(5) == 0) {
            shop.cancel(number);
            continue;
        }
        till += total - off - card;
        bank += card;
        sold1 += n1;
        sold2 += n2;
        due += total - off;
        if (dice.bounded(4) == 0) {
            CounterReturn back = returnOf(shop.session, number);
            for (ReturnLine &line : back.lines)
                line.line.quantity = line.sold;
            QCOMPARE(back.total(2), total - off);
            shop.payBack(back, cash(total - off));
            till -= total - off;
            sold1 -= n1;
            sold2 -= n2;
            due -= total - off;
        }
    }
    QCOMPARE(AccountBalance(shop.db, u"现金"_qs), till);
    QCOMPARE(AccountBalance(shop.db, u"工行帐号"_qs), bank);
    QCOMPARE(shop.stock(u"G1"_qs).section(u' ', 0, 2),
             u"%1 %1 %2"_qs.arg((100_d - sold1).toText(), sold1.toText()));
    QCOMPARE(shop.stock(u"G2"_qs).section(u' ', 0, 2),
             u"%1 %1 %2"_qs.arg((50_d - sold2).toText(), sold2.toText()));
    Decimal lines;
    for (const Row &row : shop.db.rows(u"select pos_zje from jxc_posxssp union all select -pos_zje "
                                       "from jxc_posthsp"_qs))
        lines += row.decimal(size_t{0});
    QCOMPARE(lines, due);
    QCOMPARE(shop.faults(), QStringList());
}

void TestReceipts::paperOfAReceiptPrinter() {
    ReceiptPaper paper;
    paper.number = u"XS26033110001"_qs;
    paper.lines = {
        {u"阿维菌素乳油高效低毒杀虫杀螨剂二百毫升装"_qs, u"瓶"_qs, 9.9_d, 0.9_d, 3_d, 26.73_d}};
    paper.due = 26.73_d;
    paper.tendered = 30;
    paper.change = 3.27_d;
    PrintSettings settings;
    settings.title1 = u"农资店"_qs;
    settings.cuts = true;
    settings.printsCapitals = true;
    for (const bool wide : {false, true}) {
        settings.isWide = wide;
        const QByteArray bytes = escPosReceipt(settings, paper, true);
        // Every line between control sequences fits the paper.
        for (const QByteArray &line : bytes.split('\n'))
            if (!line.contains('\x1b') && !line.contains('\x1d'))
                QVERIFY2(line.size() <= settings.columns(), line.constData());
        QVERIFY(bytes.startsWith("\x1b@"));
        QVERIFY(bytes.endsWith(QByteArray("\x1dVB\x00", 4)));
        QVERIFY(bytes.contains(gb18030(u"贰拾陆元柒角叁分"_qs)));
        QVERIFY(bytes.contains(gb18030(u"POS销售单（重打）"_qs)));
        QVERIFY(bytes.contains("26.73\n"));
    }
    QCOMPARE(gb18030(u"农药"_qs), QByteArray("\xc5\xa9\xd2\xa9"));
    QCOMPARE(drawerPulse(), QByteArray("\x1bp\0\x19\xfa", 5));
    QCOMPARE(displayBytes(12.5_d, DisplayLight::change), QByteArray("\x1bs4\x1bQA12.50\r"));
}

QTEST_GUILESS_MAIN(TestReceipts)
#include "test_receipts.moc"
