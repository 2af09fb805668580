// The opening balance of partners, typed in their master data and kept in the ledger.
#include "master/master_kind.h"
#include "money/partner_opening.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString ledger = u"select k_type,k_ghskh,k_rq,k_djlx,k_djtxt,a_name from jxc_ysyfk"_qs;

const MasterKind &customers() {
    return masterKind(u"jxc_khxx");
}

} // namespace

class TestPartnerOpening : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void followsTheEditor_data() { addEngineRows(); }
    void followsTheEditor();
    void staysOnceThereIsBusiness_data() { addEngineRows(); }
    void staysOnceThereIsBusiness();
    void olderBooks_data() { addEngineRows(); }
    void olderBooks();
};

void TestPartnerOpening::followsTheEditor() {
    Shop shop;
    const auto save = [&](const MasterKind &kind, Record &record) {
        QString field;
        const Outcome outcome = savePartner(shop.session, shop.user, kind, record, &field);
        return outcome.isDone() ? field : field + u':' + outcome.text;
    };
    Record record = newRecord(shop.session, customers());
    record.set(u"kh_name"_qs, u"王家庄"_qs);
    record.set(u"kh_lwje"_qs, u"一百"_qs);
    QCOMPARE(save(customers(), record), u"kh_lwje:期初应收格式不正确！"_qs);
    record.set(u"kh_lwje"_qs, u"100.555"_qs);
    QCOMPARE(save(customers(), record), QString());
    QCOMPARE(shop.texts(ledger), QStringList{u"kh|100002|2026-03-31|QC|期初数|admin"_qs});
    const QString balances =
        u"select l.k_qcje,l.k_ljje,k.kh_lwje from jxc_ysyfk l,jxc_khxx k where "
        "k.kh_sn=l.k_ghskh"_qs;
    QCOMPARE(shop.figures(balances), u"100.56 100.56 100.56"_qs);

    // Replaced under the day on which it was first entered.
    shop.clock.set(QDateTime(QDate(2026, 4, 2), QTime(9, 0)));
    record = *loadPartner(shop.session, customers(), record.id);
    record.set(u"kh_lwje"_qs, u"-20"_qs);
    QCOMPARE(save(customers(), record), QString());
    QCOMPARE(shop.texts(ledger), QStringList{u"kh|100002|2026-03-31|QC|期初数|admin"_qs});
    QCOMPARE(shop.figures(balances), u"-20 -20 -20"_qs);

    record.set(u"kh_lwje"_qs, {});
    QCOMPARE(save(customers(), record), QString());
    QCOMPARE(shop.texts(ledger), QStringList());
    QCOMPARE(shop.figures(u"select kh_lwje from jxc_khxx where id=?"_qs, {record.id}), u"0"_qs);

    Record supplier = newRecord(shop.session, masterKind(u"jxc_ghsxx"));
    supplier.set(u"ghs_name"_qs, u"县农资公司"_qs);
    supplier.set(u"ghs_lwje"_qs, u"7"_qs);
    QCOMPARE(save(masterKind(u"jxc_ghsxx"), supplier), QString());
    QCOMPARE(shop.texts(ledger), QStringList{u"ghs|100002|2026-04-02|QC|期初数|admin"_qs});
}

void TestPartnerOpening::staysOnceThereIsBusiness() {
    Shop shop;
    Record record = newRecord(shop.session, customers());
    record.set(u"kh_name"_qs, u"王家庄"_qs);
    record.set(u"kh_lwje"_qs, u"100"_qs);
    Shop::demand(savePartner(shop.session, shop.user, customers(), record));
    const QString number = record.text(u"kh_sn");
    QVERIFY(openingIsOpen(shop.db, {Partner::Kind::customer, number}));
    shop.addGoods(u"10000001"_qs);
    DraftLine line;
    line.goods = u"10000001"_qs;
    line.quantity = 2;
    line.price = 5;
    shop.post(u"XS"_qs, day(31), {line}, [&](Draft &d) {
        d.partner = number;
        d.paid = Decimal();
        d.laterInOut = true;
    });
    QVERIFY(!openingIsOpen(shop.db, {Partner::Kind::customer, number}));
    record = *loadPartner(shop.session, customers(), record.id);
    QCOMPARE(record.text(u"kh_lwje"), u"100"_qs); // the opening, not the balance
    record.set(u"kh_tele"_qs, u"110"_qs);
    Shop::demand(savePartner(shop.session, shop.user, customers(), record));
    QCOMPARE(shop.figures(u"select kh_lwje from jxc_khxx where id=?"_qs, {record.id}), u"110"_qs);
    record.set(u"kh_lwje"_qs, u"50"_qs);
    const QStringList before = shop.everything();
    QCOMPARE(savePartner(shop.session, shop.user, customers(), record).text,
             u"该客户已有业务发生，不能修改期初应收！"_qs);
    QCOMPARE(shop.everything(), before);
}

void TestPartnerOpening::olderBooks() {
    Shop shop;
    shop.db.execute(u"update jxc_khxx set kh_lwje=30 where kh_sn='100001'"_qs);
    auto record = *loadPartner(
        shop.session, customers(),
        shop.db.row(u"select id from jxc_khxx where kh_sn='100001'"_qs)->integer(u"id"));
    QCOMPARE(record.text(u"kh_lwje"), u"30"_qs);
    record.set(u"kh_tele"_qs, u"110"_qs);
    Shop::demand(savePartner(shop.session, shop.user, customers(), record));
    QCOMPARE(shop.texts(ledger), QStringList());
    record.set(u"kh_lwje"_qs, u"40"_qs);
    Shop::demand(savePartner(shop.session, shop.user, customers(), record));
    QCOMPARE(shop.figures(u"select k_ljje from jxc_ysyfk"_qs), u"40"_qs);
}

QTEST_APPLESS_MAIN(TestPartnerOpening)
#include "test_partner_opening.moc"
