// The look-up windows by real keys: what filters find, where a row leads, what is kept from whom.
#include "core/rights.h"
#include "services/forms/tf_kchd.h"
#include "stock/forms/movement_panel.h"
#include "stock/forms/stock_panel.h"
#include "stock/forms/tf_djcx.h"
#include "stock/forms/tf_jthcx.h"
#include "stock/forms/tf_kccx.h"
#include "stock/forms/tf_xsdjcx.h"
#include "support/windows.h"
#include "ui/cost_story_window.h"
#include "ui/goods_chooser.h"
#include "ui/goods_class_tree.h"
#include "ui/grid.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

using namespace jxc;
using namespace jxc::test;

namespace {

const QString g1 = QStringLiteral("G1");
const QString g2 = QStringLiteral("G2");
const QString farStore = QStringLiteral("100002");

DraftLine line(const QString &goods, Decimal quantity, Decimal price, const QString &batch = {}) {
    DraftLine l{.goods = goods};
    l.quantity = quantity;
    l.price = price;
    l.batch = {batch, {}, {}};
    return l;
}

/// A month's trade in two goods; the numbers of its documents by their day.
struct TradingDesk : Desk {
    TradingDesk() {
        addGoods(g1, {{u"g_jm"_qs, u"CGL"}, {u"gc_sn"_qs, u"10001001"}});
        addGoods(g2, {{u"gc_sn"_qs, u"1000"}});
        numbers[1] = post(u"CJ"_qs, day(1), {line(g1, 2, 3_d, u"B1"_qs)});
        numbers[5] = post(u"CJ"_qs, day(5), {line(g1, 10, 3.3_d, u"B2"_qs)}, onAccount);
        numbers[6] = post(u"CJ"_qs, day(6), {line(g1, 4, 4_d)}, [](Draft &d) { d.warehouse = farStore; });
        numbers[7] = post(u"XS"_qs, day(7), {line(g1, 3, 5_d, u"B2"_qs)});
        numbers[8] = post(u"XS"_qs, day(8), {line(g2, 1, 6_d)});
        user.takeAsked();
    }
    QHash<int, QString> numbers;
};

QString shown(Grid &grid, const QString &caption) {
    QStringList texts;
    const ColumnSpecs &columns = grid.model().columns();
    for (size_t c = 0; c < columns.size(); ++c)
        if (columns[c].caption == caption)
            for (int row = 0; row < grid.model().rowCount(); ++row)
                texts << grid.model().cellText(row, static_cast<int>(c));
    return texts.join(u' ');
}

QStringList captions(const Grid &grid) {
    QStringList texts;
    for (const ColumnSpec &column : grid.model().columns())
        texts << column.caption;
    return texts;
}

QString footer(Grid &grid, const QString &caption) {
    return grid.footerText(static_cast<int>(captions(grid).indexOf(caption)));
}

/// As long as a form waits before it searches, and a little more.
void letSearch() {
    QTest::qWait(200);
}

} // namespace

class TestLookupForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void stockByKeys_data() { addEngineRows(); }
    void stockByKeys();
    void movementsLeadToDocuments_data() { addEngineRows(); }
    void movementsLeadToDocuments();
    void whyThisCost_data() { addEngineRows(); }
    void whyThisCost();
    void costsStayHidden_data() { addEngineRows(); }
    void costsStayHidden();
    void documentsByWhatIsKnown_data() { addEngineRows(); }
    void documentsByWhatIsKnown();
    void tradeIsNetOfReturns_data() { addEngineRows(); }
    void tradeIsNetOfReturns();
    void stockIsCheckedAndRepaired_data() { addEngineRows(); }
    void stockIsCheckedAndRepaired();
    void goodsByTicksAndQuantities_data() { addEngineRows(); }
    void goodsByTicksAndQuantities();
    void layoutsAreKept_data() { addEngineRows(); }
    void layoutsAreKept();
};

void TestLookupForms::stockByKeys() {
    TradingDesk desk;
    TF_Kccx form(desk.context);
    form.setCaption(QStringLiteral("当前库存查询"));
    form.showModal();
    bringUp(&form);
    Grid &grid = form.stock().grid();
    QCOMPARE(shown(grid, u"商品编号"_qs), u"G1 G2"_qs);
    QCOMPARE(shown(grid, u"库存数量"_qs), u"13.00 -1.00"_qs);
    QCOMPARE(footer(grid, u"库存数量"_qs), u"12.00"_qs);

    press(Qt::Key_F3);
    type(u"cg"_qs);
    letSearch();
    QCOMPARE(shown(grid, u"商品编号"_qs), g1);
    press(Qt::Key_Return);
    QVERIFY(grid.view().hasFocus());
    QCOMPARE(form.stock().currentKey().goods, g1);
    QTest::qWait(60);
    auto *batches = child<QTableView>(form, QStringLiteral("TF_Kccx_Batch"));
    QCOMPARE(batches->model()->rowCount(), 3); // B1, what is left of B2, and the far store's

    press(Qt::Key_F3);
    press(Qt::Key_Delete);
    press(Qt::Key_Tab); // to the warehouse
    enter(u"100002"_qs);
    QCOMPARE(shown(grid, u"库存数量"_qs), u"4.00 0.00"_qs);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_Return); // all warehouses again
    QCOMPARE(shown(grid, u"库存数量"_qs), u"13.00 -1.00"_qs);
    press(Qt::Key_Tab);
    press(Qt::Key_Space); // a row for each warehouse
    QCOMPARE(shown(grid, u"库存数量"_qs), u"9.00 4.00 -1.00"_qs);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    press(Qt::Key_End); // negative stock alone
    QCOMPARE(shown(grid, u"商品编号"_qs), g2);
    press(Qt::Key_Home);
    child<GoodsClassTree>(form, QStringLiteral("goodsClasses"))->chooseClass(QStringLiteral("1000"));
    QCOMPARE(shown(grid, u"商品编号"_qs), u"G1 G2"_qs); // a class and all below it
}

void TestLookupForms::movementsLeadToDocuments() {
    TradingDesk desk;
    TF_Kccx form(desk.context);
    form.setCaption(QStringLiteral("库存商品变动查询"));
    QVERIFY(form.showsMovements());
    form.showModal();
    bringUp(&form);
    Grid &grid = form.movement().grid();
    enter(u"g1"_qs); // the goods field has the focus as long as none is chosen
    QVERIFY(grid.view().hasFocus());
    QCOMPARE(shown(grid, u"类型"_qs), u"期初 采购进货 采购进货 采购进货 商品销售"_qs);
    QCOMPARE(shown(grid, u"结存数量"_qs), u"0.00 2.00 12.00 16.00 13.00"_qs);
    QCOMPARE(footer(grid, u"入库数量"_qs), u"16.00"_qs);
    press(Qt::Key_F4); // the opening line has no document
    QCOMPARE(desk.stage.opened, QStringList());
    QCOMPARE(desk.user.told.size(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_End);
    grid.goToLine(4);
    press(Qt::Key_F4);
    QCOMPARE(desk.stage.opened, QStringList({desk.numbers[1], desk.numbers[7]}));

    // From the stock to its movements, and from a price to its document.
    form.showTab(0);
    form.stock().grid().goTo(u"g_sn", g2);
    press(Qt::Key_Return);
    QVERIFY(form.showsMovements());
    QCOMPARE(form.movement().goods(), g2);
    press(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(!form.showsMovements());
    form.stock().grid().goTo(u"g_sn", g2);
    desk.stage.opened.clear();
    press(Qt::Key_F10);
    press(Qt::Key_Return);
    QCOMPARE(desk.stage.opened, QStringList{desk.numbers[8]});
}

void TestLookupForms::whyThisCost() {
    TradingDesk desk;
    TF_Kccx form(desk.context);
    form.showModal();
    bringUp(&form);
    // Two warehouses have a cost each: the first one is taken.
    QString conclusion, marked;
    atNextDialog([&](QWidget *chooser) {
        atNextDialog([&](QWidget *window) {
            auto *story = qobject_cast<TF_CostStory *>(window);
            QVERIFY(story != nullptr);
            conclusion = child<QLabel>(*story, QStringLiteral("lblConclusion"))->text();
            marked = story->grid().currentText(u"number");
            QTest::keyClick(&story->grid().view(), Qt::Key_Return);
            story->reject();
        });
        QTest::keyClick(chooser, Qt::Key_Return);
    });
    press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(conclusion, u"3月5日起成本为 3.25。"_qs);
    QCOMPARE(marked, desk.numbers[5]);
    QCOMPARE(desk.stage.opened, QStringList{desk.numbers[5]});

    // As it was on an earlier day, from the movement of that day.
    form.movement().showGoods({g1, administratorNo});
    form.showTab(1);
    form.movement().grid().goTo(u"gl_djh", desk.numbers[1]);
    atNextDialog([&](QWidget *window) {
        conclusion = child<QLabel>(*window, QStringLiteral("lblConclusion"))->text();
        window->close();
    });
    press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(conclusion, u"3月1日起成本为 3.00。"_qs);
}

void TestLookupForms::costsStayHidden() {
    TradingDesk desk;
    const Session clerk = desk.clerk(u"kcgl"_qs, {6});
    Session own = clerk;
    const FormContext context{own, desk.user, desk.stage, desk.finder, desk.home.path()};
    TF_Kccx form(context);
    form.FormActivate();
    for (const auto *secret : {u"成本价", u"库存金额", u"售价", u"零售价"})
        QVERIFY(!captions(form.stock().grid()).contains(QString::fromUtf16(secret)));
    for (const auto *secret : {u"单价", u"成本价", u"结存金额"})
        QVERIFY(!captions(form.movement().grid()).contains(QString::fromUtf16(secret)));
    QCOMPARE(form.findChild<QTabWidget *>()->count(), 1); // batches alone
    QCOMPARE(form.findChild<QAction *>(QStringLiteral("btnCost")), nullptr);
    showCostStory(context, {g1, administratorNo}, {day(31)}, &form);
    QCOMPARE(desk.user.told.takeLast(), noRightMessage(QStringLiteral("查看成本价！")));
    form.btnCheckClick();
    QCOMPARE(desk.user.told.takeLast(), noRightMessage(QStringLiteral("库存核对！")));
    QCOMPARE(desk.stage.opened, QStringList());

    // What the shop pays is a cost too; what customers pay is not.
    TF_Djcx documents(context);
    documents.FormActivate();
    QCOMPARE(shown(documents.grid(), u"金额"_qs), u"6.00 15.00   "_qs);
    documents.grid().goTo(u"number", desk.numbers[5]);
    QTest::qWait(60);
    QCOMPARE(shown(documents.lineGrid(), u"数量"_qs), u"10.00"_qs);
    QCOMPARE(shown(documents.lineGrid(), u"单价"_qs), QString());
    TF_Jthcx purchases(context);
    QVERIFY(!captions(purchases.grid()).contains(u"应付金额"_qs));
}

void TestLookupForms::documentsByWhatIsKnown() {
    TradingDesk desk;
    const QString draft = desk.save(u"XS"_qs, day(9), {line(g2, 1, 7_d)});
    TF_Djcx form(desk.context);
    form.showModal();
    bringUp(&form);
    QCOMPARE(form.grid().model().rowCount(), 6);
    QCOMPARE(form.grid().currentText(u"number"), draft);
    QTest::qWait(60);
    QCOMPARE(shown(form.lineGrid(), u"商品编号"_qs), g2);

    auto *state = child<QComboBox>(form, QStringLiteral("cbbState"));
    state->setFocus();
    press(Qt::Key_End);
    QCOMPARE(form.grid().model().rowCount(), 5);
    press(Qt::Key_Up);
    QCOMPARE(shown(form.grid(), u"单据号"_qs), draft);
    press(Qt::Key_Home);
    auto *kind = child<QComboBox>(form, QStringLiteral("cbbKind"));
    kind->setCurrentIndex(kind->findData(u"CJ"_qs));
    QCOMPARE(form.grid().model().rowCount(), 3);
    kind->setCurrentIndex(0);

    press(Qt::Key_F3);
    type(draft.mid(2));
    letSearch();
    QCOMPARE(shown(form.grid(), u"单据号"_qs), draft);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    child<QLineEdit>(form, QStringLiteral("edtGoods"))->setFocus();
    enter(u"g1"_qs);
    QCOMPARE(form.grid().model().rowCount(), 4);
    press(Qt::Key_Tab);
    enter(u"B2"_qs);
    QCOMPARE(shown(form.grid(), u"单据号"_qs), desk.numbers[7] + u' ' + desk.numbers[5]);
    QVERIFY(form.grid().view().hasFocus());
    press(Qt::Key_Down);
    press(Qt::Key_F4);
    QCOMPARE(desk.stage.opened, QStringList{desk.numbers[5]});

    // The prices of a line's goods; one of them leads to its document.
    QTest::qWait(60);
    QString first;
    atNextDialog([&](QWidget *window) {
        first = window->windowTitle();
        QTest::keyClick(window, Qt::Key_Return);
    });
    press(Qt::Key_F10);
    QVERIFY(first.startsWith(u"历史价格"_qs));
    QCOMPARE(desk.stage.opened.size(), 2);

    // A document has one partner.
    child<QLineEdit>(form, QStringLiteral("edtSupplier"))->setFocus();
    enter(u"100001"_qs);
    child<QLineEdit>(form, QStringLiteral("edtCustomer"))->setFocus();
    enter(u"100001"_qs);
    QCOMPARE(child<QLineEdit>(form, QStringLiteral("edtSupplier"))->text(), QString());
    QCOMPARE(shown(form.grid(), u"单据号"_qs), desk.numbers[7]);
}

void TestLookupForms::tradeIsNetOfReturns() {
    TradingDesk desk;
    desk.post(u"CT"_qs, day(10), {line(g1, 1, 4_d)}, [](Draft &d) { d.warehouse = farStore; });
    TF_Jthcx purchases(desk.context);
    purchases.showModal();
    QCOMPARE(purchases.grid().model().rowCount(), 4);
    QCOMPARE(footer(purchases.grid(), u"应付金额"_qs), u"51.00"_qs); // 6 + 33 + 16 - 4
    QCOMPARE(footer(purchases.grid(), u"未付金额"_qs), u"33.00"_qs);
    purchases.done(0);
    TF_Xsdjcx sales(desk.context);
    sales.showModal();
    QCOMPARE(footer(sales.grid(), u"应收金额"_qs), u"21.00"_qs);
    QTest::qWait(60);
    QCOMPARE(shown(sales.lineGrid(), u"商品编号"_qs), g2);
}

void TestLookupForms::stockIsCheckedAndRepaired() {
    TradingDesk desk;
    TF_Kchd form(desk.context);
    form.showModal();
    bringUp(&form);
    QCOMPARE(form.grid().model().rowCount(), 0);
    desk.db.execute(u"update jxc_kcsp set kc_zsl=kc_zsl+2 where g_sn='G1' and ck_sn='100001'"_qs);
    press(Qt::Key_F5);
    QCOMPARE(shown(form.grid(), u"项目"_qs), u"帐面库存"_qs);
    QCOMPARE(shown(form.grid(), u"差异"_qs), u"2.00"_qs);
    desk.user.answers = {false, true};
    press(Qt::Key_F8);
    QCOMPARE(form.grid().model().rowCount(), 1);
    press(Qt::Key_F8);
    QCOMPARE(desk.user.takeAsked(), QStringList(2, u"您的操作将按已审核的单据重新计算库存，确认吗？"_qs));
    QCOMPARE(form.grid().model().rowCount(), 0);
    QCOMPARE(desk.stock(g1), u"9 9 3 3.25"_qs);
}

void TestLookupForms::goodsByTicksAndQuantities() {
    TradingDesk desk;
    desk.addGoods(u"G3"_qs, {{u"g_jy"_qs, 1}}); // disabled: not to be had
    desk.post(u"CJ"_qs, day(9), {line(g2, 5, 3_d)});
    TF_GoodsSele form(desk.context, true, administratorNo, nullptr);
    form.showModal();
    bringUp(&form);
    QCOMPARE(shown(form.grid(), u"商品编号"_qs), u"G1 G2"_qs);
    QCOMPARE(shown(form.grid(), u"库存数量"_qs), u"9.00 4.00"_qs); // of the document's warehouse
    enter(u"cg"_qs);
    press(Qt::Key_Return); // on the goods: to its quantity
    enter(u"2.5"_qs);
    QVERIFY(child<QLineEdit>(form, QStringLiteral("edtSearch"))->hasFocus());
    press(Qt::Key_Delete);
    letSearch();
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_Space); // one of the second
    QCOMPARE(form.chosen().size(), size_t(2));
    press(Qt::Key_7); // a digit is its quantity
    press(Qt::Key_Return);
    desk.user.answers = {false};
    press(Qt::Key_Escape); // asks before it forgets
    QVERIFY(form.isVisible());
    press(Qt::Key_F5);
    QCOMPARE(form.result(), int(QDialog::Accepted));
    const std::vector<GoodsChoice> chosen = form.chosen();
    QCOMPARE(chosen.size(), size_t(2));
    QCOMPARE(chosen[0].goods, g1);
    QCOMPARE(chosen[0].quantity, 2.5_d);
    QCOMPARE(chosen[1].goods, g2);
    QCOMPARE(chosen[1].quantity, 7_d);
}

void TestLookupForms::layoutsAreKept() {
    TradingDesk desk;
    {
        TF_Kccx form(desk.context);
        QHeaderView *header = form.stock().grid().view().horizontalHeader();
        header->setSectionHidden(1, true);
        header->moveSection(0, 3);
        form.stock().grid().saveLayout();
        QCOMPARE(desk.user.told.takeLast(), u"布局调整成功！"_qs);
    }
    TF_Kccx form(desk.context);
    QHeaderView *header = form.stock().grid().view().horizontalHeader();
    QVERIFY(header->isSectionHidden(1));
    QCOMPARE(header->visualIndex(0), 3);
    QVERIFY(!form.movement().grid().view().horizontalHeader()->isSectionHidden(1));
}

JXC_GUI_MAIN(TestLookupForms, QApplication)
#include "test_lookup_forms.moc"
