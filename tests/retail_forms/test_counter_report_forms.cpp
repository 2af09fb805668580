// The counter's reports and the change of shift, by keys.
#include "retail/forms/counter_printing.h"
#include "retail/forms/tf_posxs_crk.h"
#include "retail/forms/tf_posxs_jb.h"
#include "retail/forms/tf_posxs_jbgl.h"
#include "retail/forms/tf_posxs_ph.h"
#include "retail/forms/tf_posxs_rj.h"
#include "retail/forms/tf_posxs_rjmx.h"
#include "retail/forms/tf_posxs_sytj.h"
#include "retail/forms/tf_posxs_tj.h"
#include "retail/forms/tf_posxs_tjmx.h"
#include "retail/receipt_posting.h"
#include "retail/till_cash.h"
#include "support/windows.h"
#include "ui/list_page.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

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
    void totalsLeadToLines_data() { addEngineRows(); }
    void totalsLeadToLines();
    void tillCashIsRecorded_data() { addEngineRows(); }
    void tillCashIsRecorded();
    void dayIsSettled_data() { addEngineRows(); }
    void dayIsSettled();
    void takingsAndShifts_data() { addEngineRows(); }
    void takingsAndShifts();
};

namespace {

/// The window that a form opened over itself.
template<class Window>
Window *opened(QWidget &over) {
    const auto all = over.findChildren<Window *>();
    if (all.isEmpty())
        qFatal("nothing was opened");
    bringUp(all.last());
    return all.last();
}

} // namespace

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

/// Enter on a goods, a member or a cashier shows the lines behind it, and Enter there its document.
void TestCounterReportForms::totalsLeadToLines() {
    ReportDesk desk;
    TF_Posxs_Tj totals(desk.context);
    totals.showModal();
    bringUp(&totals);
    QCOMPARE(totals.grid().model().rowCount(), 2);
    press(Qt::Key_F4);
    const QPointer<TF_Posxs_Tjmx> lines = opened<TF_Posxs_Tjmx>(totals);
    QCOMPARE(lines->grid().model().rowCount(), 1);
    QCOMPARE(lines->grid().current()->decimal(u"pos_zje"), 19.8_d);
    press(Qt::Key_F4);
    QCOMPARE(desk.stage.opened.size(), 1);
    press(Qt::Key_Escape);
    QVERIFY(lines == nullptr || !lines->isVisible());

    TF_Posxs_Ph ranking(desk.context);
    ranking.showModal();
    bringUp(&ranking);
    QCOMPARE(ranking.grid().current()->text(u"code"), u"10000001"_qs);
    child<QComboBox>(ranking, u"group"_qs)->setCurrentText(u"会员"_qs);
    QCOMPARE(ranking.grid().model().rowCount(), 1);
    ranking.grid().setFocus();
    press(Qt::Key_F4);
    QCOMPARE(opened<TF_Posxs_Tjmx>(ranking)->grid().model().rowCount(), 2);
    press(Qt::Key_Escape);
    child<QComboBox>(ranking, u"cashier"_qs)->setCurrentText(u"admin"_qs);
    press(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(ranking.grid().model().rowCount(), 1);
    press(Qt::Key_4, Qt::AltModifier); // last month
    QCOMPARE(ranking.grid().model().rowCount(), 0);
}

void TestCounterReportForms::tillCashIsRecorded() {
    ReportDesk desk;
    TF_Posxs_Crk form(desk.context);
    form.showModal();
    bringUp(&form);
    QCOMPARE(form.grid().model().rowCount(), 1);
    atNextDialog([&](QWidget *editor) {
        QCOMPARE(editor->windowTitle(), u"出款"_qs);
        type(u"0"_qs);
        press(Qt::Key_F5);
        QCOMPARE(desk.user.told, QStringList{u"金额必须大于零！"_qs});
        child<QLineEdit>(*editor, u"crk_je"_qs)->selectAll();
        enter(u"12.5"_qs);
        type(u"买水"_qs);
        press(Qt::Key_F5);
    });
    press(Qt::Key_F6);
    QTRY_COMPARE(form.grid().model().rowCount(), 2);
    QCOMPARE(desk.user.takeAsked(), QStringList{u"您确认生成出款单 12.5 吗？"_qs});
    QCOMPARE(form.grid().current()->text(u"gl_djh"), u"CK26033110001"_qs);
    QCOMPARE(form.grid().current()->text(u"crk_note"), u"买水"_qs);
    press(Qt::Key_4, Qt::AltModifier);
    QCOMPARE(form.grid().model().rowCount(), 0);
    press(Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(form.grid().model().rowCount(), 2);
}

void TestCounterReportForms::dayIsSettled() {
    ReportDesk desk;
    TF_Posxs_Rj form(desk.context);
    form.showModal();
    bringUp(&form);
    const auto *open = child<QLabel>(form, u"unsettled"_qs);
    QCOMPARE(open->text(), u"未日结：2 张，金额 23.13"_qs);
    desk.user.answers = {false, true};
    press(Qt::Key_F8);
    QCOMPARE(form.grid().model().rowCount(), 0);
    press(Qt::Key_F8);
    QCOMPARE(desk.user.takeAsked().last(),
             u"即将生成日结单：\r\n\r\nRJ26033110001\r\n\r\n确定日结吗？"_qs);
    QCOMPARE(form.grid().current()->decimal(u"rj_je"), 23.13_d);
    QCOMPARE(open->text(), u"没有未日结的小票"_qs);
    press(Qt::Key_F8);
    QCOMPARE(desk.user.told, QStringList{u"没有需要日结的单据！"_qs});
    press(Qt::Key_F4);
    auto *detail = opened<TF_Posxs_Rjmx>(form);
    QCOMPARE(detail->lines().grid().model().rowCount(), 2);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(detail->receipts().grid().model().rowCount(), 2);
    QList<QByteArray> printed;
    detail->printing().setSender(
        [&](const QString &, const QByteArray &bytes) { printed << bytes; });
    press(Qt::Key_F5);
    QCOMPARE(printed.size(), 1);
    press(Qt::Key_Escape);
    QVERIFY(!detail->isVisible());
}

void TestCounterReportForms::takingsAndShifts() {
    ReportDesk desk;
    {
        TF_Posxs_Jb shift(desk.context);
        shift.printing().setSender([](const QString &, const QByteArray &) {});
        shift.showModal();
        bringUp(&shift);
        press(Qt::Key_F5);
    }
    TF_Posxs_Sytj form(desk.context);
    form.showModal();
    bringUp(&form);
    QCOMPARE(form.grid().model().rowCount(), 1);
    QCOMPARE(form.grid().current()->decimal(u"due"), 123.13_d);
    press(Qt::Key_F9);
    auto *shifts = opened<TF_Posxs_Jbgl>(form);
    QCOMPARE(shifts->grid().model().rowCount(), 1);
    QCOMPARE(shifts->grid().current()->decimal(u"difference"), Decimal());
    press(Qt::Key_F5); // no printer
    QVERIFY(desk.user.told.join(QString()).contains(u"可以重打"_qs));
    press(Qt::Key_Escape);
}

JXC_GUI_MAIN(TestCounterReportForms, QApplication)
#include "test_counter_report_forms.moc"
