// Goods with all that belongs to them, lists from files, and the settings of the system.
#include "core/session.h"
#include "master/forms/class_tree.h"
#include "master/forms/goods_picture.h"
#include "master/forms/tf_spxxgl.h"
#include "master/forms/tf_spxxgl_add.h"
#include "master/forms/tf_spxxgl_plxg.h"
#include "master/goods_details.h"
#include "master_forms/stage.h"
#include "services/forms/tf_import.h"
#include "services/forms/tf_xtcs.h"
#include "ui/document_editor.h"
#include "ui/document_list.h"
#include "ui/field_tabs.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/pick_field.h"
#include "ui/record_table.h"

#include <QCheckBox>
#include <QComboBox>
#include <QInputDialog>
#include <QRadioButton>

using namespace jxc;
using namespace jxc::test;

namespace {

TF_Spxxgl_Add *beginGoods(TF_Spxxgl *form, const QString &name) {
    press(Qt::Key_Insert);
    auto *editor = qobject_cast<TF_Spxxgl_Add *>(form->editor());
    if (editor == nullptr) qFatal("the goods editor did not open");
    editor->input(u"dw_name")->focusTarget()->setFocus();
    type(QStringLiteral("瓶"));
    press(Qt::Key_Return);
    retype(editor->input(u"g_name")->line(), name);
    return editor;
}

/// Fills a row of a grid cell by cell, as one types it.
void typeRow(RecordTable *table, const QStringList &cells) {
    table->startNewRow();
    for (const QString &cell : cells) {
        if (!cell.isEmpty()) type(cell);
        press(Qt::Key_Return);
    }
}

void answerName(const QString &name) {
    whenOpen<QInputDialog>([name](QInputDialog *dialog) {
        dialog->setTextValue(name);
        dialog->accept();
    });
}

QString writeCsv(Stage &stage, const QString &text) {
    QFile file(stage.shop.place.folder() + QStringLiteral("/list.csv"));
    if (!file.open(QIODevice::WriteOnly)) qFatal("unwritable");
    file.write(text.toUtf8());
    return file.fileName();
}

} // namespace

class TestGoodsForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void unitsAndBarcodes_data() { addEngineRows(); }
    void unitsAndBarcodes();
    void copyAndBulk_data() { addEngineRows(); }
    void copyAndBulk();
    void classes_data() { addEngineRows(); }
    void classes();
    void picture_data() { addEngineRows(); }
    void picture();
    void secrets_data() { addEngineRows(); }
    void secrets();
    void documentsAdd_data() { addEngineRows(); }
    void documentsAdd();
    void import_data() { addEngineRows(); }
    void import();
    void settings_data() { addEngineRows(); }
    void settings();
};

void TestGoodsForms::unitsAndBarcodes() {
    Stage stage;
    auto *form = stage.open<TF_Spxxgl>(QStringLiteral("TF_Spxxgl"));
    TF_Spxxgl_Add *editor = beginGoods(form, QStringLiteral("吡虫啉10%可湿性粉剂"));
    const QString code = editor->input(u"g_sn")->text();
    retype(editor->input(u"g_sptm")->line(), QStringLiteral("6901234567892"));
    editor->tabs().setCurrentIndex(2);
    RecordTable *units = editor->table(u"jxc_goodsdw");
    typeRow(units, {QStringLiteral("瓶"), QStringLiteral("20")});
    RecordTable *barcodes = editor->table(u"jxc_goodstm");
    typeRow(barcodes, {QStringLiteral("6901234567892")});
    editor->tabs().setCurrentIndex(0);
    // The base unit is a unit too: the refusal opens that page with that cell.
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QStringLiteral("单位不能重复！"));
    QCOMPARE(editor->tabs().currentIndex(), 2);
    QVERIFY(units->isEditing());
    static_cast<QLineEdit *>(QApplication::focusWidget())->selectAll();
    type(QStringLiteral("件"));
    press(Qt::Key_Return);
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QStringLiteral("商品条码不能重复！"));
    barcodes->edit(0, 0);
    static_cast<QLineEdit *>(QApplication::focusWidget())->selectAll();
    type(QStringLiteral("6900000000001"));
    press(Qt::Key_F5); // also takes the cell that is still open
    QCOMPARE(stage.takeTold(), QString());
    QCOMPARE(stage.shop.texts(QStringLiteral("select dw_name from jxc_goodsdw where g_sn=?"), {code}),
             QStringList(QStringLiteral("件")));
    QCOMPARE(stage.shop.figures(QStringLiteral("select g_zhxs from jxc_goodsdw where g_sn=?"), {code}), QStringLiteral("20"));
    // Ctrl+Del takes the row away, and saving does so in the books.
    form->grid().goTo(u"g_sn", code);
    press(Qt::Key_F4);
    editor = qobject_cast<TF_Spxxgl_Add *>(form->editor());
    editor->tabs().setCurrentIndex(2);
    editor->table(u"jxc_goodsdw")->setFocus();
    editor->table(u"jxc_goodsdw")->setCurrentIndex(editor->table(u"jxc_goodsdw")->model()->index(0, 0));
    press(Qt::Key_Delete, Qt::ControlModifier);
    press(Qt::Key_F5);
    QVERIFY(!stage.shop.db.exists(QStringLiteral("select id from jxc_goodsdw where g_sn=?"), {code}));
}

void TestGoodsForms::copyAndBulk() {
    Stage stage;
    auto *form = stage.open<TF_Spxxgl>(QStringLiteral("TF_Spxxgl"));
    TF_Spxxgl_Add *editor = beginGoods(form, QStringLiteral("青山甲"));
    retype(editor->input(u"g_lsj")->line(), QStringLiteral("8.5"));
    press(Qt::Key_F5);
    press(Qt::Key_Insert, Qt::ControlModifier);
    QVERIFY(form->editor() != nullptr);
    retype(form->editor()->input(u"g_name")->line(), QStringLiteral("青山乙"));
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QString());
    QCOMPARE(stage.shop.texts(QStringLiteral("select g_sn from jxc_goods where g_lsj=8.5 order by id")).size(), 2);
    form->grid().view().selectAll();
    press(Qt::Key_M, Qt::ControlModifier);
    auto *bulk = form->findChild<TF_Spxxgl_Plxg *>();
    QVERIFY(bulk != nullptr);
    auto *disabled = bulk->findChild<QComboBox *>(QStringLiteral("g_jy"));
    disabled->setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QString());
    QCOMPARE(stage.shop.texts(QStringLiteral("select g_sn from jxc_goods where g_jy<>0 and g_lsj=8.5")).size(), 2);
    // Disabled goods are shown only when asked for.
    QCOMPARE(form->grid().model().rowCount(), 0);
    form->findChild<QCheckBox *>(QStringLiteral("chkDisabled"))->click();
    QCOMPARE(form->grid().model().rowCount(), 2);
}

void TestGoodsForms::classes() {
    Stage stage;
    auto *form = stage.open<TF_Spxxgl>(QStringLiteral("TF_Spxxgl"));
    QTreeWidget &tree = form->classes().tree();
    tree.setFocus();
    tree.setCurrentItem(tree.topLevelItem(0));
    answerName(QStringLiteral("农药"));
    press(Qt::Key_Insert);
    QCOMPARE(tree.currentItem()->text(0), QStringLiteral("农药"));
    answerName(QStringLiteral("杀虫剂"));
    press(Qt::Key_Insert); // below the one just made
    QCOMPARE(tree.currentItem()->parent()->text(0), QStringLiteral("农药"));
    // A new goods begins in the class that is chosen, and its code follows.
    const qint64 number = form->classes().classNumber();
    form->grid().setFocus();
    TF_Spxxgl_Add *editor = beginGoods(form, QStringLiteral("吡虫啉"));
    QCOMPARE(editor->input(u"gc_cid")->pick()->name(), QStringLiteral("杀虫剂"));
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QString());
    QCOMPARE(stage.shop.figures(QStringLiteral("select gc_cid from jxc_goods where g_name='吡虫啉'")), QString::number(number));
    QCOMPARE(form->grid().model().rowCount(), 1);
    tree.setFocus();
    press(Qt::Key_Delete);
    QCOMPARE(stage.takeTold(), QStringLiteral("该类别下还有商品，不能删除！"));
    answerName(QStringLiteral("杀菌剂"));
    press(Qt::Key_F2);
    QCOMPARE(tree.currentItem()->text(0), QStringLiteral("杀菌剂"));
    tree.setCurrentItem(tree.currentItem()->parent());
    QCOMPARE(form->grid().model().rowCount(), 1); // the branch
    press(Qt::Key_Delete);
    QCOMPARE(stage.takeTold(), QStringLiteral("该类别下还有子类别，不能删除！"));
}

void TestGoodsForms::picture() {
    Stage stage;
    const QString home = stage.shop.place.folder();
    QPixmap red(40, 30);
    red.fill(Qt::red);
    QVERIFY(red.save(home + QStringLiteral("/red.png")));
    auto *form = stage.open<TF_Spxxgl>(QStringLiteral("TF_Spxxgl"));
    TF_Spxxgl_Add *editor = beginGoods(form, QStringLiteral("青山甲"));
    editor->picture().take(writeCsv(stage, QStringLiteral("no picture")));
    QCOMPARE(stage.takeTold(), QStringLiteral("图片格式不正确！"));
    editor->picture().take(home + QStringLiteral("/red.png"));
    press(Qt::Key_F5);
    const QString code = form->grid().currentText(u"g_sn");
    QVERIFY(!goodsPicture(home, code).isEmpty());
    press(Qt::Key_Delete);
    QVERIFY(goodsPicture(home, code).isEmpty());
}

/// Who may not see costs sees them in no column, no field and no export.
void TestGoodsForms::secrets() {
    Stage stage;
    stage.shop.addGoods(QStringLiteral("02000001"));
    stage.shop.session.rights.showCostPrice = false;
    auto *form = stage.open<TF_Spxxgl>(QStringLiteral("TF_Spxxgl"));
    for (const ColumnSpec &column : form->grid().model().columns())
        QVERIFY(column.secrecy != Secrecy::cost);
    press(Qt::Key_F4);
    auto *editor = qobject_cast<TF_Spxxgl_Add *>(form->editor());
    QVERIFY(editor != nullptr && editor->input(u"g_jj") == nullptr && editor->input(u"g_lsj") != nullptr);
    QCOMPARE(editor->table(u"jxc_goodsdw")->rows().columnOf(u"g_jj"), -1);
    // A unit that the shop lacks is added where it is typed.
    editor->input(u"dw_name")->focusTarget()->setFocus();
    type(QStringLiteral("桶"));
    press(Qt::Key_Return);
    QCOMPARE(stage.shop.user.takeAsked(), QStringList(QStringLiteral("单位“桶”不存在，现在增加吗？")));
    press(Qt::Key_F5);
    QCOMPARE(stage.shop.texts(QStringLiteral("select dw_name from jxc_goods where g_sn='02000001'")),
             QStringList(QStringLiteral("桶")));
}

/// While a receipt is typed, a new supplier and a new goods are added without leaving it.
void TestGoodsForms::documentsAdd() {
    Stage stage;
    auto *list = stage.open<DocumentList>(QStringLiteral("TF_Cgjh"));
    press(Qt::Key_Insert);
    QVERIFY(list->editor() != nullptr);
    auto *partner = qobject_cast<PickField *>(
        list->editor()->findChild<HeaderPanel *>()->widget(HeaderField::partner));
    partner->setFocus();
    whenOpen<RecordEditor>([](RecordEditor *editor) {
        retype(editor->input(u"ghs_name")->line(), QStringLiteral("云岭农资"));
        press(Qt::Key_F5);
    });
    press(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(partner->name(), QStringLiteral("云岭农资"));
    auto *lines = list->editor()->findChild<LineTable *>();
    lines->startNextLine();
    whenOpen<TF_Spxxgl_Add>([](TF_Spxxgl_Add *editor) {
        retype(editor->input(u"g_name")->line(), QStringLiteral("青山甲"));
        editor->input(u"dw_name")->focusTarget()->setFocus();
        type(QStringLiteral("瓶"));
        press(Qt::Key_F5);
    });
    press(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(stage.takeTold(), QString());
    QCOMPARE(lines->lines().at(0).info.name, QStringLiteral("青山甲"));
    list->editor()->close();
}

void TestGoodsForms::import() {
    Stage stage;
    auto *wizard = stage.open<TF_Import>(QStringLiteral("TF_Spxxgl_Import"));
    wizard->openFile(writeCsv(stage, QStringLiteral("本店商品\n\n品名,单位,零售价,登记证号\n吡虫啉,袋,5.5,PD1\n"
                                                    "草甘膦,桶,abc,PD2\n,瓶,1,\n代森锰锌,桶,9,PD3\n")));
    QCOMPARE(wizard->step(), 1);
    press(Qt::Key_F4); // back, and on again
    QCOMPARE(wizard->step(), 0);
    press(Qt::Key_F5);
    QCOMPARE(wizard->step(), 1);
    QVERIFY(wizard->columnBox(QStringLiteral("g_name"))->currentText() == QStringLiteral("品名"));
    // The name must have a column; back at the mapping with the sheet's own header it has.
    wizard->columnBox(QStringLiteral("g_name"))->setCurrentIndex(0);
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QStringLiteral("“商品名称”必须选择对应的列！"));
    QCOMPARE(wizard->step(), 1);
    wizard->columnBox(QStringLiteral("g_name"))->setCurrentText(QStringLiteral("品名"));
    press(Qt::Key_F5);
    QCOMPARE(wizard->step(), 2);
    RowsModel &rows = wizard->checkList().model();
    QCOMPARE(rows.rowCount(), 4);
    QCOMPARE(rows.at(1).text(u"status"), QStringLiteral("零售价不是数字"));
    QVERIFY(rows.isTicked(0) && !rows.isTicked(1));
    // Space takes a row out.
    wizard->checkList().goToLine(3);
    press(Qt::Key_Space);
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QStringLiteral("导入完成，成功1条，失败2条！"));
    QCOMPARE(stage.shop.texts(QStringLiteral("select g_name from jxc_goods where g_sn<>'00000000'")),
             QStringList(QStringLiteral("吡虫啉")));
    // The result stays, with what was wrong; another F5 takes nothing in twice.
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QString());
    press(Qt::Key_Escape);
    QVERIFY(!wizard->isVisible());
    // What is no spreadsheet is told, and the first step stays.
    wizard = stage.open<TF_Import>(QStringLiteral("TF_Spxxgl_Import"));
    wizard->openFile(stage.shop.place.folder());
    QCOMPARE(wizard->step(), 0);
    QVERIFY(!stage.takeTold().isEmpty());
}

void TestGoodsForms::settings() {
    Stage stage;
    auto *form = stage.open<TF_Xtcs>(QStringLiteral("TF_Xtcs"));
    retype(form->tabs().input(u"c_name")->line(), QStringLiteral("青山农资"));
    // A refusal names the field, brings its page to the front, and nothing of all is stored.
    retype(form->tabs().input(u"cs_jews")->line(), QStringLiteral("9"));
    form->tabs().setCurrentIndex(4);
    form->tabs().input(u"cs_kc")->focusTarget()->setFocus();
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QStringLiteral("小数位数必须在0到6之间！"));
    QCOMPARE(QApplication::focusWidget(), form->tabs().input(u"cs_jews")->focusTarget());
    QVERIFY(stage.shop.session.company.name != QStringLiteral("青山农资"));
    retype(form->tabs().input(u"cs_jews")->line(), QStringLiteral("3"));
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QStringLiteral("保存成功！"));
    QCOMPARE(stage.shop.session.company.name, QStringLiteral("青山农资"));
    QCOMPARE(stage.shop.session.parameters.amountDecimals, 3);
    QCOMPARE(stage.shop.lastLog(), QStringLiteral("修改系统设置：公司名称，金额小数位数"));
    // Once something was booked, other decimals re-cost it all: asked first, and No leaves all.
    stage.shop.addGoods(QStringLiteral("10000001"));
    DraftLine line;
    line.goods = QStringLiteral("10000001");
    line.quantity = Decimal(2);
    line.price = Decimal(5);
    stage.shop.post(QStringLiteral("CJ"), day(2), {line});
    stage.shop.user.takeAsked();
    stage.shop.user.told.clear();
    stage.shop.user.answers = {false, true};
    for (const int decimals : {3, 2}) {
        retype(form->tabs().input(u"cs_jews")->line(), QStringLiteral("2"));
        press(Qt::Key_F5);
        QCOMPARE(stage.shop.user.takeAsked(),
                 QStringList(QStringLiteral("您的操作将修改小数位数，并重新计算所有商品的成本，确认吗？")));
        QCOMPARE(stage.shop.session.parameters.amountDecimals, decimals);
    }
    // Nothing changed: nothing asked.
    press(Qt::Key_Escape);
    QCOMPARE(stage.shop.user.takeAsked(), QStringList());
}

QTEST_MAIN(TestGoodsForms)
#include "test_goods_forms.moc"
