// The counter's reports and the change of shift, by keys.
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_posxs_jb.h"
#include "retail/receipt_posting.h"
#include "retail/till_cash.h"
#include "support/windows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace jxc;
using namespace jxc::test;

namespace {

/// A counter with two receipts of the day, 19.80 and 3.33 in cash, and 100 put into the till.
class ReportDesk : public Desk {
public:
    ReportDesk() {
        sell(u"10000001"_qs, 9.9_d, 2);
        sell(u"10000002"_qs, 3.33_d, 1);
        QString number;
        demand(recordTillCash(session, user, {.amount = 100}, &number));
        user.takeAsked();
        db.execute(u"update jxc_posprint set pp_dyfs=1"_qs);
    }

private:
    void sell(const QString &goods, Decimal price, Decimal quantity) {
        addGoods(goods, {{u"g_lsj"_qs, price}});
        DraftLine line{.goods = goods};
        line.quantity = 100;
        line.price = 2;
        post(u"CJ"_qs, day(1), {line});
        Receipt r;
        r.warehouse = r.clerk = administratorNo;
        ReceiptLine &sold = r.lines.emplace_back();
        sold.goods = goods;
        sold.unit = u"瓶"_qs;
        sold.quantity = quantity;
        sold.price = sold.retailPrice = price;
        PostedReceipt posted;
        demand(postReceipt(session, user, r, {.cash = 50, .other = {}}, &posted));
    }
};

} // namespace

class TestCounterReportForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shiftIsHandedOver_data() { addEngineRows(); }
    void shiftIsHandedOver();
};

/// Counted, part of it left for the next cashier, printed.
void TestCounterReportForms::shiftIsHandedOver() {
    ReportDesk desk;
    desk.clerk(u"xsgl"_qs, {1});
    TF_Posxs_Jb form(desk.context);
    QList<QByteArray> printed;
    form.printing().setSender([&](const QString &, const QByteArray &bytes) { printed << bytes; });
    form.showModal();
    bringUp(&form);
    QVERIFY(child<QLabel>(form, u"figures"_qs)->text().contains(u"123.13"_qs));
    QCOMPARE(child<QLineEdit>(form, u"jb_sjje"_qs)->text(), u"123.13"_qs);
    enter(); // all of it, as proposed
    type(u"100"_qs);
    QCOMPARE(child<QLineEdit>(form, u"jb_sjje"_qs)->text(), u"23.13"_qs);
    QCOMPARE(child<QLabel>(form, u"difference"_qs)->text(), u"无"_qs);
    child<QLineEdit>(form, u"jb_sjje"_qs)->setFocus();
    child<QLineEdit>(form, u"jb_sjje"_qs)->selectAll();
    type(u"23"_qs);
    QCOMPARE(child<QLabel>(form, u"difference"_qs)->text(), u"短款 0.13"_qs);
    auto *next = child<QComboBox>(form, u"jb_nextuser"_qs);
    next->setCurrentText(u"小王"_qs);
    desk.user.answers = {false, true};
    press(Qt::Key_F5);
    QVERIFY(form.isVisible());
    QVERIFY(desk.user.takeAsked().first().contains(u"短款：0.13"_qs));
    press(Qt::Key_F5);
    QVERIFY(!form.isVisible());
    QCOMPARE(desk.figures(u"select jb_xjje,jb_zlje,jb_rkje,jb_xsje,jb_yjje,jb_sjje,jb_xfje from "
                          "jxc_poshb"_qs),
             u"100 76.87 100 23.13 123.13 23 100"_qs);
    QCOMPARE(desk.texts(u"select jb_curruser,jb_nextuser from jxc_jbgl"_qs),
             QStringList{u"admin|小王"_qs});
    QCOMPARE(printed.size(), 1);
    QVERIFY(printed.front().contains("123.13"));
    QCOMPARE(desk.user.told, QStringList());
}

JXC_GUI_MAIN(TestCounterReportForms, QApplication)
#include "test_counter_report_forms.moc"
