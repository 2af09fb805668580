// The document windows, driven by keys as a clerk drives them.
#include "stock/forms/tf_cgjh.h"
#include "stock/forms/tf_cgrk.h"
#include "stock/forms/tf_cgth.h"
#include "stock/forms/tf_spck.h"
#include "stock/forms/tf_spxs.h"
#include "stock/forms/tf_xsth.h"
#include "support/windows.h"
#include "ui/document_editor.h"
#include "ui/header_panel.h"
#include "ui/layout_store.h"
#include "ui/line_table.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

using namespace jxc;
using namespace jxc::test;

class TestDocumentForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void receiptFromTheKeyboard_data() { addEngineRows(); }
    void receiptFromTheKeyboard();
    void saleOnAccountWithBatches_data() { addEngineRows(); }
    void saleOnAccountWithBatches();
    void restrictedGoodsNeedABuyer_data() { addEngineRows(); }
    void restrictedGoodsNeedABuyer();
    void returnsNameTheirSource_data() { addEngineRows(); }
    void returnsNameTheirSource();
    void goodsInAndOut_data() { addEngineRows(); }
    void goodsInAndOut();
    void typedWorkSurvivesACrash_data() { addEngineRows(); }
    void typedWorkSurvivesACrash();
    void leavingAsksAndRefusalsShowTheField_data() { addEngineRows(); }
    void leavingAsksAndRefusalsShowTheField();
    void scansAddUp_data() { addEngineRows(); }
    void scansAddUp();
    void wholeDocumentDiscount_data() { addEngineRows(); }
    void wholeDocumentDiscount();
    void unitsAndGifts_data() { addEngineRows(); }
    void unitsAndGifts();
    void twoWorkstations_data() { addEngineRows(); }
    void twoWorkstations();
    void rightsAreAsked_data() { addEngineRows(); }
    void rightsAreAsked();
    void aFailingDatabaseLosesNothing_data() { addEngineRows(); }
    void aFailingDatabaseLosesNothing();
    void aLostServerLosesNothing_data() { addEngineRows(); }
    void aLostServerLosesNothing();
    void entryOrderCanBeSet_data() { addEngineRows(); }
    void entryOrderCanBeSet();
    void membersPayAndArePaidBack_data() { addEngineRows(); }
    void membersPayAndArePaidBack();
    void hostileTexts_data() { addEngineRows(); }
    void hostileTexts();

private:
    /// A goods that needs nothing but a quantity, with stock in one batch.
    static void stockUp(Desk &desk, const QString &goods, Decimal quantity, const Batch &batch = {}) {
        desk.post(QStringLiteral("CJ"), day(1), {{.goods = goods, .quantity = quantity, .price = 4_d, .batch = batch}});
    }
    static DocumentEditor &openNew(DocumentList &list) {
        list.showModal();
        press(Qt::Key_Insert);
        if (list.editor() == nullptr) qFatal("no editor came");
        return *list.editor();
    }
    /// Enter through the header, whatever stands there, until the lines begin.
    static void throughHeader(DocumentEditor &editor) {
        for (int i = 0; i < 30 && !editor.table().isEditing(); ++i)
            enter();
        QVERIFY(editor.table().isEditing());
    }
};

void TestDocumentForms::receiptFromTheKeyboard() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000001"), {{QStringLiteral("g_jm"), u"CGL"}, {QStringLiteral("g_bzq"), 24}});
    TF_Cgjh list(desk.context);
    DocumentEditor &editor = openNew(list);
    enter(QStringLiteral("普通")); // the supplier, by a part of the name
    QCOMPARE(editor.header().partner(), QStringLiteral("100001"));
    throughHeader(editor);
    enter(QStringLiteral("cgl"));     // the goods, by initials
    enter(QStringLiteral("10"));      // quantity
    enter(QStringLiteral("3.50"));    // price
    enter(QStringLiteral("A1"));      // batch
    enter(QStringLiteral("20260101")); // produced
    QCOMPARE(editor.table().lines().at(0).typed.batch.expiry, QStringLiteral("2028-01-01"));
    enter(); // expiry, as proposed
    QCOMPARE(editor.draft().lines.size(), size_t(1));
    QVERIFY(editor.table().isEditing());
    enter(); // the blank line: to the money
    enter(QStringLiteral("20"));
    press(Qt::Key_F8);
    QCOMPARE(desk.user.takeAsked().size(), 1); // that 15 stay owed with the walk-in supplier
    QCOMPARE(desk.figures(QStringLiteral("select j_status,j_yfje,j_sfje,j_qk from jxc_jhd")), QStringLiteral("1 35 20 1"));
    QCOMPARE(desk.stock(QStringLiteral("10000001")), QStringLiteral("10 10 0 3.5"));
    QCOMPARE(desk.texts(QStringLiteral("select t_ph,t_scrq,t_yxq from jxc_tkc")), QStringList{QStringLiteral("A1|2026-01-01|2028-01-01")});

    list.showApproved(true);
    QCOMPARE(list.grid().model().rowCount(), 1);
    QTest::qWait(60); // the lines follow when the selection rests
    QCOMPARE(list.lineGrid().model().rowCount(), 1);
    list.grid().setFocus();
    press(Qt::Key_F9);
    QCOMPARE(desk.user.takeAsked().size(), 1);
    QCOMPARE(desk.figures(QStringLiteral("select j_status from jxc_jhd")), QStringLiteral("0"));
    list.showApproved(false);
    list.grid().setFocus();
    press(Qt::Key_F8);
    QCOMPARE(desk.figures(QStringLiteral("select j_status from jxc_jhd")), QStringLiteral("1"));
}

void TestDocumentForms::saleOnAccountWithBatches() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000002"), {{QStringLiteral("g_sj"), 6}});
    stockUp(desk, QStringLiteral("10000002"), 5_d, {QStringLiteral("B2"), QStringLiteral("2027-12-31"), {}});
    stockUp(desk, QStringLiteral("10000002"), 3_d, {QStringLiteral("B1"), QStringLiteral("2026-12-31"), {}});
    TF_Spxs list(desk.context);
    DocumentEditor &editor = openNew(list);
    throughHeader(editor);
    bool chosen = false;
    atNextDialog([&](QWidget *dialog) { // two batches: the list opens by itself, first to expire first
        chosen = dialog->objectName() == u"TF_BatchSele";
        press(Qt::Key_Return);
    });
    enter(QStringLiteral("10000002"));
    QVERIFY(chosen);
    QCOMPARE(editor.table().lines().at(0).typed.batch.number, QStringLiteral("B1"));
    enter(QStringLiteral("4"));
    QCOMPARE(desk.user.takeAsked(), QStringList{QStringLiteral("该批号库存不足，是否按有效期先后自动拆分到多个批号？")});
    QCOMPARE(editor.draft().lines.size(), size_t(2));
    QCOMPARE(editor.draft().lines[1].batch.number, QStringLiteral("B2"));
    QCOMPARE(editor.draft().lines[1].quantity, 1_d);
    press(Qt::Key_F8);
    QCOMPARE(desk.figures(QStringLiteral("select t_sl from jxc_tkc where t_ph='B1'")), QStringLiteral("0"));
    QCOMPARE(desk.figures(QStringLiteral("select t_sl from jxc_tkc where t_ph='B2'")), QStringLiteral("4"));
    QCOMPARE(desk.figures(QStringLiteral("select ls_status,ls_yfje,ls_sfje from jxc_lsxsd")), QStringLiteral("1 24 24"));
}

void TestDocumentForms::restrictedGoodsNeedABuyer() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000003"), {{QStringLiteral("g_sj"), 6}, {QStringLiteral("g_iscf"), 1}});
    stockUp(desk, QStringLiteral("10000003"), 5_d);
    TF_Spxs list(desk.context);
    DocumentEditor &editor = openNew(list);
    throughHeader(editor);
    atNextDialog([&](QWidget *dialog) {
        enter(QStringLiteral("张三"));
        enter(QStringLiteral("110101199003070000")); // the check digit is wrong
        for (const char *more : {"13800000000", "", "", ""})
            enter(QString::fromLatin1(more));
        QCOMPARE(desk.user.told.last(), QStringLiteral("身份证号不正确！"));
        auto *identity = dialog->findChild<QLineEdit *>(QStringLiteral("身份证号"));
        QCOMPARE(QApplication::focusWidget(), identity);
        identity->selectAll();
        type(QStringLiteral("11010519491231002X"));
        press(Qt::Key_F5);
    });
    enter(QStringLiteral("10000003"));
    enter(QStringLiteral("1"));
    press(Qt::Key_F8);
    QCOMPARE(desk.texts(QStringLiteral("select ls_xm,ls_cardno,t_mobile from jxc_lsxssp")), QStringList{QStringLiteral("张三|11010519491231002X|13800000000")});
}

void TestDocumentForms::returnsNameTheirSource() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000004"), {{QStringLiteral("g_sj"), 6}});
    stockUp(desk, QStringLiteral("10000004"), 5_d);
    desk.post(QStringLiteral("XS"), day(2), {{.goods = QStringLiteral("10000004"), .quantity = 2_d, .price = 6_d}});
    const struct {
        DocumentList *list;
        QString table, column;
    } kinds[] = {{new TF_Cgth(desk.context), QStringLiteral("jxc_thsp"), QStringLiteral("gl_djh")},
                 {new TF_Xsth(desk.context), QStringLiteral("jxc_xsthsp"), QStringLiteral("gl_djh")}};
    for (const auto &kind : kinds) {
        DocumentEditor &editor = openNew(*kind.list);
        enter(QStringLiteral("普通"));
        atNextDialog([](QWidget *) { press(Qt::Key_Return); });
        press(Qt::Key_F9);
        QCOMPARE(editor.draft().lines.size(), size_t(1));
        type(QStringLiteral("1"));
        press(Qt::Key_Return);
        press(Qt::Key_F8);
        QVERIFY(desk.texts(QStringLiteral("select th_bz from %1").arg(kind.table)).value(0).startsWith(QStringLiteral("原单")));
        delete kind.list;
    }
    QCOMPARE(desk.stock(QStringLiteral("10000004")).section(u' ', 0, 1), QStringLiteral("3 3"));
}

void TestDocumentForms::goodsInAndOut() {
    Desk desk;
    desk.set(QStringLiteral("cs_sprk"), 1);
    desk.set(QStringLiteral("cs_spck"), 1);
    desk.addGoods(QStringLiteral("10000005"), {{QStringLiteral("g_sj"), 6}});
    const QString receipt = desk.post(QStringLiteral("CJ"), day(1), {{.goods = QStringLiteral("10000005"), .quantity = 10_d, .price = 4_d}}, laterOnAccount);
    TF_Cgrk goodsIn(desk.context);
    goodsIn.showModal();
    QCOMPARE(goodsIn.grid().model().rowCount(), 1); // waits to be taken in
    QCOMPARE(goodsIn.grid().currentText(u"open"), QStringLiteral("10"));
    enter(); // opens a document with what is open
    QVERIFY(goodsIn.editor() != nullptr);
    type(QStringLiteral("6"));
    press(Qt::Key_F8);
    QCOMPARE(desk.stock(QStringLiteral("10000005")).section(u' ', 0, 1), QStringLiteral("6 10"));
    goodsIn.grid().setFocus();
    desk.user.takeAsked();
    press(Qt::Key_F7); // the rest will never come
    QCOMPARE(desk.user.takeAsked().size(), 1);
    QCOMPARE(desk.stock(QStringLiteral("10000005")).section(u' ', 0, 1), QStringLiteral("6 6"));
    QCOMPARE(goodsIn.grid().model().rowCount(), 0);
    goodsIn.close();

    const QString sale = desk.post(QStringLiteral("XS"), day(2), {{.goods = QStringLiteral("10000005"), .quantity = 2_d, .price = 6_d}}, laterOnAccount);
    TF_Spck goodsOut(desk.context);
    goodsOut.showModal();
    QCOMPARE(goodsOut.grid().currentText(u"number"), sale);
    press(Qt::Key_F6); // all that is open becomes a document
    QVERIFY(!goodsOut.showsApproved());
    QCOMPARE(goodsOut.grid().model().rowCount(), 1);
    press(Qt::Key_F8, Qt::ShiftModifier);
    QCOMPARE(desk.stock(QStringLiteral("10000005")).section(u' ', 0, 1), QStringLiteral("4 4"));
}

void TestDocumentForms::typedWorkSurvivesACrash() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000006"));
    {
        TF_Cgjh list(desk.context);
        DocumentEditor &editor = openNew(list);
        throughHeader(editor);
        enter(QStringLiteral("10000006"));
        enter(QStringLiteral("7"));
        // The power goes: nothing is closed in order.
    }
    TF_Cgjh list(desk.context);
    DocumentEditor &editor = openNew(list);
    QCOMPARE(desk.user.takeAsked(), QStringList{QStringLiteral("上次有未保存的单据，是否继续录入？")});
    QCOMPARE(editor.draft().lines.size(), size_t(1));
    QCOMPARE(editor.draft().lines[0].quantity, 7_d);
    press(Qt::Key_F5);
    desk.user.takeAsked();
    openNew(list);
    QVERIFY(desk.user.takeAsked().isEmpty()); // saved: nothing left to go on with
}

void TestDocumentForms::leavingAsksAndRefusalsShowTheField() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000007"));
    TF_Cgjh list(desk.context);
    DocumentEditor &editor = openNew(list);
    editor.header().fillPartner({});
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), QStringLiteral("供货商必须填写！"));
    QCOMPARE(QApplication::focusWidget(), editor.header().widget(HeaderField::partner));
    enter(QStringLiteral("普通"));
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), QStringLiteral("单据没有明细，不能保存！"));
    throughHeader(editor);
    enter(QStringLiteral("no such goods"));
    QCOMPARE(desk.user.told.last(), QStringLiteral("没有找到该商品，请检查！"));
    press(Qt::Key_Escape);
    editor.table().startNextLine();
    enter(QStringLiteral("10000007"));
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), QStringLiteral("第1行：数量必须大于零！"));
    QVERIFY(editor.table().isEditing());
    type(QStringLiteral("2"));
    desk.user.answers = {false}; // stays
    editor.close();
    QCOMPARE(desk.user.takeAsked(), QStringList{QStringLiteral("单据尚未保存，确认放弃吗？")});
    QVERIFY(editor.isVisible());
    QCOMPARE(editor.draft().lines[0].quantity, 2_d);
    desk.user.answers = {true};
    editor.close();
    QVERIFY(!editor.isVisible());
    QCOMPARE(desk.figures(QStringLiteral("select count(*) from jxc_jhd")), QStringLiteral("0"));
}

void TestDocumentForms::scansAddUp() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000008"), {{QStringLiteral("g_sj"), 6}});
    desk.addUnit(QStringLiteral("10000008"), QStringLiteral("箱"), 12_d, {{QStringLiteral("g_sptm"), u"1690000000008"}});
    desk.finder.readAhead();
    TF_Spxs list(desk.context);
    DocumentEditor &editor = openNew(list);
    throughHeader(editor);
    enter(QStringLiteral("69010000008"));
    enter(QStringLiteral("69010000008"));
    enter(QStringLiteral("1690000000008"));
    const std::vector<DraftLine> lines = editor.draft().lines;
    QCOMPARE(lines.size(), size_t(2));
    QCOMPARE(lines[0].quantity, 2_d);
    QCOMPARE(lines[1].unit, QStringLiteral("箱"));
    QCOMPARE(lines[1].factor, 12_d);
    // A scanner hits a quantity field: the field stays as it was.
    editor.table().edit(0, LineField::quantity);
    QTest::qWait(60);
    scan(QStringLiteral("69010000008"));
    QCOMPARE(editor.draft().lines[0].quantity, 3_d);
}

void TestDocumentForms::wholeDocumentDiscount() {
    for (const int asLine : {0, 1}) {
        Desk desk;
        desk.set(QStringLiteral("cs_xsyh"), asLine);
        desk.addGoods(QStringLiteral("10000009"), {{QStringLiteral("g_sj"), 10}});
        TF_Spxs list(desk.context);
        DocumentEditor &editor = openNew(list);
        throughHeader(editor);
        enter(QStringLiteral("10000009"));
        enter(QStringLiteral("3"));
        atNextDialog([](QWidget *) {
            type(QStringLiteral("27"));
            press(Qt::Key_Return);
        });
        press(Qt::Key_F7);
        QCOMPARE(editor.findChild<QLabel *>(QStringLiteral("due"))->text(), QStringLiteral("￥27.00"));
        press(Qt::Key_F5);
        QCOMPARE(desk.figures(QStringLiteral("select ls_yfje,ls_sfje from jxc_lsxsd")), QStringLiteral("27 27"));
        QCOMPARE(desk.texts(QStringLiteral("select g_sn from jxc_lsxssp order by id")).size(), asLine == 1 ? 2 : 1);
    }
}

void TestDocumentForms::unitsAndGifts() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000010"), {{QStringLiteral("g_sj"), 10}});
    desk.addUnit(QStringLiteral("10000010"), QStringLiteral("箱"), 12_d, {{QStringLiteral("g_sj"), 110}});
    TF_Spxs list(desk.context);
    DocumentEditor &editor = openNew(list);
    throughHeader(editor);
    enter(QStringLiteral("10000010"));
    press(Qt::Key_F11);
    QCOMPARE(editor.draft().lines[0].unit, QStringLiteral("箱"));
    QCOMPARE(editor.draft().lines[0].price, 110_d);
    editor.table().setFocus();
    press(Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(editor.draft().lines[0].gift, QStringLiteral("(赠品)"));
    QVERIFY(editor.draft().lines[0].price.isZero());
    press(Qt::Key_Delete, Qt::ControlModifier);
    QVERIFY(editor.draft().lines.empty());
}

void TestDocumentForms::twoWorkstations() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000011"));
    const QString number = desk.save(QStringLiteral("CJ"), day(3), {{.goods = QStringLiteral("10000011"), .quantity = 1_d, .price = 1_d}});
    TF_Cgjh list(desk.context);
    list.showModal();
    press(Qt::Key_F4);
    QVERIFY(list.editor() != nullptr);
    desk.approve(number); // the other one is quicker
    list.editor()->table().edit(0, LineField::quantity);
    enter(QStringLiteral("2"));
    press(Qt::Key_F5);
    QCOMPARE(desk.user.told.last(), QStringLiteral("单据已被其他操作员修改或审核，请刷新后重试！"));
    QVERIFY(list.editor()->isVisible()); // what was typed is still there
    QCOMPARE(list.editor()->draft().lines[0].quantity, 2_d);
    QCOMPARE(desk.stock(QStringLiteral("10000011")).section(u' ', 0, 0), QStringLiteral("1"));
}

void TestDocumentForms::rightsAreAsked() {
    Desk desk;
    Session clerk = desk.clerk(QStringLiteral("xsgl"), {7});
    const FormContext context{clerk, desk.user, desk.stage, desk.finder, desk.home.path()};
    TF_Spxs list(context);
    list.showModal();
    press(Qt::Key_Insert);
    QVERIFY(list.editor() == nullptr);
    QCOMPARE(desk.user.told.last(), QStringLiteral("您没有权限进行商品销售单！\r\n\r\n或者没有可用的仓库。"));
}

/// Whatever statement of the saving fails: clear words, no half document, and the window keeps what
/// was typed.
void TestDocumentForms::aFailingDatabaseLosesNothing() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000013"));
    TF_Cgjh list(desk.context);
    DocumentEditor &editor = openNew(list);
    throughHeader(editor);
    enter(QStringLiteral("10000013"));
    enter(QStringLiteral("2"));
    int saved = 0;
    for (int failing = 1; failing < 200 && saved == 0; failing += 3) {
        int statement = 0;
        desk.db.setStatementObserver([&](const QString &sql, const Values &) {
            if (++statement == failing)
                throw DatabaseError(QStringLiteral("服务器没有应答"), sql, {});
        });
        desk.user.told.clear();
        press(Qt::Key_F8);
        desk.db.setStatementObserver({});
        saved = desk.figures(QStringLiteral("select count(*) from jxc_jhd")).toInt();
        if (saved == 0) {
            QCOMPARE(desk.user.told.size(), 1);
            QVERIFY2(desk.user.told[0].contains(QStringLiteral("服务器没有应答")), qPrintable(desk.user.told[0]));
            QVERIFY(editor.isVisible());
            QCOMPARE(editor.draft().lines.size(), size_t(1));
            QCOMPARE(desk.figures(QStringLiteral("select count(*) from jxc_jhsp")), QStringLiteral("0"));
        }
    }
    QCOMPARE(saved, 1);
}

/// The server ends the connection in the middle of the saving. The document is there once, or it is
/// not and the window still has it: then the next key stores it.
void TestDocumentForms::aLostServerLosesNothing() {
    if (currentEngine() == Engine::Sqlite)
        QSKIP("a file has no server to lose");
    for (const int losing : {2, 6, 11, 17, 24}) {
        Desk desk;
        desk.addGoods(QStringLiteral("10000015"));
        TF_Cgjh list(desk.context);
        DocumentEditor &editor = openNew(list);
        throughHeader(editor);
        enter(QStringLiteral("10000015"));
        enter(QStringLiteral("2"));
        const auto other = desk.place.connect();
        const QString backend = desk.db.scalar(QStringLiteral("select pg_backend_pid()"));
        int statement = 0;
        desk.db.setStatementObserver([&](const QString &, const Values &) {
            if (++statement == losing)
                other->scalar(QStringLiteral("select pg_terminate_backend(%1)").arg(backend));
        });
        press(Qt::Key_F8);
        QVERIFY(statement >= losing);
        desk.db.setStatementObserver({});
        const QString documents = QStringLiteral("select count(*) from jxc_jhd");
        if (other->scalar(documents) == u"0") {
            QVERIFY(!desk.user.told.isEmpty());
            QVERIFY(editor.isVisible());
            QCOMPARE(editor.draft().lines.size(), size_t(1));
            press(Qt::Key_F8);
        }
        QCOMPARE(other->scalar(documents), QStringLiteral("1"));
        QCOMPARE(other->scalar(QStringLiteral("select count(*) from jxc_jhsp")), QStringLiteral("1"));
    }
}

void TestDocumentForms::entryOrderCanBeSet() {
    Desk desk;
    QVERIFY(LayoutStore(desk.home.path(), QStringLiteral("TF_Cgjh_Head")).saveList(QStringLiteral("stops"), {QStringLiteral("备注")}));
    QVERIFY(LayoutStore(desk.home.path(), QStringLiteral("TF_Cgjh_Lines")).saveList(QStringLiteral("stops"), {QStringLiteral("g_sn"), QStringLiteral("bz")}));
    desk.addGoods(QStringLiteral("10000014"));
    TF_Cgjh list(desk.context);
    DocumentEditor &editor = openNew(list);
    enter();
    QCOMPARE(QApplication::focusWidget(), editor.header().widget(HeaderField::note));
    enter();
    enter(QStringLiteral("10000014"));
    QCOMPARE(editor.table().lines().columnAt(editor.table().currentIndex().column()).field, LineField::note);
}

/// A member pays a sale from the card, in part; it is taken back, sold again, and a part returned
/// onto the card. The figures are those of the rules, worked by hand.
void TestDocumentForms::membersPayAndArePaidBack() {
    Desk desk;
    desk.db.execute(QStringLiteral("update jxc_jfsz set jf_mfje=10,jf_jfgz=0"));
    desk.addGoods(QStringLiteral("10000020"), {{QStringLiteral("g_sj"), 25}});
    stockUp(desk, QStringLiteral("10000020"), 9_d);
    desk.addCard(QStringLiteral("100002"), QStringLiteral("888001"),
                 {{QStringLiteral("hy_name"), u"老李"}, {QStringLiteral("hy_mobile"), u"13900001111"}, {QStringLiteral("hy_mm"), u"66"}, {QStringLiteral("hy_zhje"), 50}});
    desk.addCard(QStringLiteral("100003"), QStringLiteral("888002"), {{QStringLiteral("hy_name"), u"小赵"}});
    const auto figures = [&] { return desk.figures(QStringLiteral("select hy_jf,hy_zje,hy_cs,hy_zhje from jxc_hyxx where hy_sn='100002'")); };
    TF_Spxs sales(desk.context);
    DocumentEditor &sale = openNew(sales);
    QVERIFY(!child<QWidget>(sale, QStringLiteral("pos_czk"))->isVisible());
    press(Qt::Key_M, Qt::ControlModifier);
    enter(QStringLiteral("888009"));
    QCOMPARE(desk.user.told.takeLast(), QStringLiteral("会员不存在！"));
    sale.header().focusField(HeaderField::member);
    enter(QStringLiteral("13900001111"));
    QCOMPARE(sale.header().member(), QStringLiteral("100002"));
    QCOMPARE(child<QLabel>(sale, QStringLiteral("memberInfo"))->text(), QStringLiteral("￥50.00　积分 0"));
    throughHeader(sale);
    enter(QStringLiteral("10000020"));
    enter(QStringLiteral("3"));
    sale.table().startNextLine();
    enter(); // to the money: paid, account, the member's tenders
    enter();
    enter();
    auto *stored = child<QLineEdit>(sale, QStringLiteral("pos_czk"));
    QVERIFY(stored->hasFocus());
    type(QStringLiteral("60"));
    press(Qt::Key_F8);
    QCOMPARE(desk.user.told.takeLast(), QStringLiteral("储值卡余额不足！"));
    QVERIFY(sale.isVisible() && stored->hasFocus());
    type(QStringLiteral("40"));
    enter();
    type(QStringLiteral("50"));
    QCOMPARE(child<QLabel>(sale, QStringLiteral("pos_xj"))->text(), QStringLiteral("其余 -￥15.00"));
    press(Qt::Key_F8);
    QCOMPARE(desk.user.told.takeLast(), QStringLiteral("储值卡、银行卡和代金券的金额之和不能大于实付金额！"));
    enter();
    type(QStringLiteral("5"));
    atNextDialog([](QWidget *) { press(Qt::Key_Escape); }); // he does not know his password
    press(Qt::Key_F8);
    QVERIFY(sale.isVisible());
    QCOMPARE(desk.figures(QStringLiteral("select count(*) from jxc_lsxsd")), QStringLiteral("0"));
    atNextDialog([](QWidget *) { enter(QStringLiteral("66")); });
    press(Qt::Key_F8);
    QCOMPARE(desk.user.told, QStringList());
    QCOMPARE(desk.figures(QStringLiteral("select ls_status,pos_zffs,pos_xj,pos_czk,pos_yhk,pos_djq from jxc_lsxsd")), QStringLiteral("1 6 30 40 5 0"));
    // 75 spent, 40 of it stored value, which earns nothing: 3 points.
    QCOMPARE(figures(), QStringLiteral("3 75 1 10"));

    sales.showApproved(true);
    sales.grid().setFocus();
    press(Qt::Key_F9);
    QCOMPARE(figures(), QStringLiteral("0 0 0 50"));
    sales.showApproved(false);
    sales.grid().setFocus();
    press(Qt::Key_F4); // what was agreed to needs no password again
    QCOMPARE(child<QLineEdit>(*sales.editor(), QStringLiteral("pos_czk"))->text(), QStringLiteral("40.00"));
    press(Qt::Key_F8);
    QCOMPARE(figures(), QStringLiteral("3 75 1 10"));
    const QString other = desk.post(QStringLiteral("XS"), day(2), {{.goods = QStringLiteral("10000020"), .quantity = 1_d, .price = 25_d}},
                                    [](Draft &d) { d.member = QStringLiteral("100003"); });

    TF_Xsth returns(desk.context);
    DocumentEditor &back = openNew(returns);
    atNextDialog([](QWidget *) { // both sales, but a return is of one member
        press(Qt::Key_Space);
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        press(Qt::Key_Return);
    });
    press(Qt::Key_F9);
    QCOMPARE(desk.user.told.takeLast(), QStringLiteral("所选商品属于不同会员的销售单，请分开退货！"));
    QCOMPARE(back.draft().lines.size(), size_t(1));
    QCOMPARE(back.header().member(), QStringLiteral("100002"));
    QVERIFY(!back.header().widget(HeaderField::member)->isEnabled());
    enter(QStringLiteral("1"));
    child<QLineEdit>(back, QStringLiteral("pos_czk"))->setFocus();
    type(QStringLiteral("20"));
    press(Qt::Key_F8);
    QCOMPARE(desk.user.told, QStringList());
    QCOMPARE(desk.figures(QStringLiteral("select th_status,pos_xj,pos_czk,pos_yhk from jxc_xsthd")), QStringLiteral("1 5 20 0"));
    // 25 less spent, 5 of it not from the card: half a point, rounded up.
    QCOMPARE(figures(), QStringLiteral("2 50 0 30"));
}

void TestDocumentForms::hostileTexts() {
    Desk desk;
    desk.addGoods(QStringLiteral("10000012"));
    TF_Cgjh list(desk.context);
    DocumentEditor &editor = openNew(list);
    enter(QStringLiteral("普通"));
    auto *note = qobject_cast<QLineEdit *>(editor.header().widget(HeaderField::note));
    const QString nasty = QStringLiteral("a'b\"c%d_;drop table jxc_jhd;--😀\\");
    editor.header().focusField(HeaderField::note);
    type(nasty);
    QVERIFY(note->text().startsWith(QStringLiteral("a'b")));
    throughHeader(editor);
    enter(QStringLiteral("10000012"));
    enter(QStringLiteral("1"));
    enter(QStringLiteral("1"));
    type(QStringLiteral("'; delete from jxc_tkc; --"));
    press(Qt::Key_Return);
    editor.header().focusField(HeaderField::supplierNumber);
    type(QString(10000, u'长'));
    press(Qt::Key_F5);
    QCOMPARE(desk.figures(QStringLiteral("select count(*) from jxc_jhd")), QStringLiteral("1"));
    QCOMPARE(desk.texts(QStringLiteral("select t_ph from jxc_jhsp")).size(), 1);
}

JXC_GUI_MAIN(TestDocumentForms, QApplication)
#include "test_document_forms.moc"
