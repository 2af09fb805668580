// Every kind of master data through its windows, by keyboard.
#include "core/session.h"
#include "db/schema.h"
#include "master/record_list.h"
#include "master_forms/stage.h"
#include "sheets/read.h"
#include "ui/grid_msg.h"
#include "ui/pick_field.h"
#include "ui/record_editor.h"
#include "ui/record_table.h"
#include "ui/small_list_form.h"

#include <QHeaderView>

using namespace jxc;
using namespace jxc::test;

namespace {

/// What breaks statements, patterns and files that are put together as text.
const QString hostile = QStringLiteral("🌾x'%_\"\\<b>;drop table jxc_goods;--");

void addKindRows(bool smallLists) {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<QString>("table");
    for (const Engine engine : engines())
        for (const MasterKind &kind : masterKinds())
            // Members, their levels and offers have rules of their own.
            if (kind.isSmallList == smallLists && !kind.table.startsWith(QLatin1String("jxc_hy")))
                QTest::addRow("%s %s", qPrintable(engineName(engine)), qPrintable(kind.table))
                    << engine << kind.table;
}

qint64 count(Stage &stage, const MasterKind &kind) {
    return stage.shop.db.row(QStringLiteral("select count(*) as n from %1").arg(kind.table))->integer(u"n");
}

bool has(Stage &stage, const MasterKind &kind, const QString &name) {
    return stage.shop.db.exists(
        QStringLiteral("select id from %1 where %2=?").arg(kind.table, kind.nameColumn), {name});
}

QStringList exportedNames(Grid &grid, const QString &file) {
    grid.exportTo(file);
    QStringList cells;
    const std::vector<Sheet> sheets = readSheets(file);
    for (const QStringList &row : sheets.front().rows)
        cells << row;
    return cells;
}

/// A new row with everything that must be filled, still unsaved.
RecordEditor *beginNew(MasterForm *form, const QString &name) {
    press(Qt::Key_Insert);
    RecordEditor *editor = form->editor();
    if (editor == nullptr) qFatal("the editor did not open");
    if (FieldInput *unit = editor->input(u"dw_name")) {
        unit->focusTarget()->setFocus();
        type(QStringLiteral("瓶"));
        press(Qt::Key_Return);
    }
    retype(editor->input(form->kind().nameColumn)->line(), name);
    return editor;
}

} // namespace

class TestMasterForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void list_data() { addKindRows(false); }
    void list();
    void layoutStays_data() { addEngineRows(); }
    void layoutStays();
    void smallList_data() { addKindRows(true); }
    void smallList();
    void hostileText_data() { addKindRows(false); }
    void hostileText();
    void pickersAdd_data() { addEngineRows(); }
    void pickersAdd();
    void severalPicks_data() { addEngineRows(); }
    void severalPicks();
    void openingBalance_data() { addEngineRows(); }
    void openingBalance();
};

void TestMasterForms::list() {
    QFETCH(QString, table);
    const MasterKind &kind = masterKind(table);
    Stage stage;
    auto *form = stage.open<MasterForm>(kind.form);
    const qint64 before = count(stage, kind);
    // Nothing filled: the first field that must be, named and in focus; nothing is written.
    press(Qt::Key_Insert);
    retype(form->editor()->input(kind.nameColumn)->line(), {});
    press(Qt::Key_F5);
    QVERIFY(!stage.takeTold().isEmpty());
    QCOMPARE(count(stage, kind), before);
    // Nothing was changed, so Esc asks nothing.
    press(Qt::Key_Escape);
    QCOMPARE(stage.shop.user.takeAsked(), QStringList());
    // F6 stores and begins anew; the mnemonic code came from the name.
    RecordEditor *editor = beginNew(form, QStringLiteral("青山甲"));
    QCOMPARE(editor->input(kind.mnemonicColumn)->text(), QStringLiteral("QSJ"));
    press(Qt::Key_F6);
    QCOMPARE(stage.takeTold(), QString());
    QVERIFY(has(stage, kind, QStringLiteral("青山甲")));
    QCOMPARE(editor->input(kind.nameColumn)->text(), QString());
    press(Qt::Key_Escape);
    QVERIFY(stage.shop.user.takeAsked().isEmpty());
    // What was typed is given up only after asking.
    beginNew(form, QStringLiteral("青山乙"));
    stage.shop.user.answers = {false, true};
    press(Qt::Key_Escape);
    QVERIFY(form->editor() != nullptr && form->editor()->isVisible());
    press(Qt::Key_Escape);
    QCOMPARE(stage.shop.user.takeAsked(), QStringList(2, QStringLiteral("内容已修改，确认放弃吗？")));
    QCOMPARE(count(stage, kind), before + 1);
    // Unique names stay unique, and the editor stays open at the name.
    if (kind.field(kind.nameColumn)->unique) {
        editor = beginNew(form, QStringLiteral("青山甲"));
        press(Qt::Key_F5);
        QCOMPARE(stage.takeTold(), kind.field(kind.nameColumn)->caption + QStringLiteral("不能重复！"));
        QCOMPARE(QApplication::focusWidget(), editor->input(kind.nameColumn)->focusTarget());
        press(Qt::Key_Escape);
    }
    // F3 finds by the mnemonic code; F4 changes what was found.
    press(Qt::Key_F3);
    type(QStringLiteral("QSJ"));
    press(Qt::Key_Return);
    QCOMPARE(form->grid().model().rowCount(), 1);
    press(Qt::Key_F4);
    retype(form->editor()->input(kind.nameColumn)->line(), QStringLiteral("青山丙"));
    press(Qt::Key_F5);
    QVERIFY(has(stage, kind, QStringLiteral("青山丙")));
    QVERIFY(stage.shop.lastLog().contains(QStringLiteral("修改") + kind.noun));
    QVERIFY(exportedNames(form->grid(), stage.shop.place.folder() + QStringLiteral("/out.xlsx"))
                .contains(QStringLiteral("青山丙")) ||
            form->grid().model().rowCount() == 0);
    // The search still says QSJ where the code was typed over by nobody and so followed the name.
    retype(form->findChild<QLineEdit *>(), QStringLiteral("青山丙"));
    press(Qt::Key_Return);
    stage.shop.user.takeAsked();
    press(Qt::Key_Delete);
    QCOMPARE(stage.shop.user.takeAsked(),
             QStringList(QStringLiteral("您的操作将删除%1：青山丙，确认吗？").arg(kind.noun)));
    QCOMPARE(count(stage, kind), before);
}

void TestMasterForms::layoutStays() {
    Stage stage;
    {
        auto *form = stage.open<MasterForm>(QStringLiteral("TF_Ghsgl"));
        form->grid().view().setColumnWidth(1, 333);
        form->grid().saveLayout();
        form->done(0);
    }
    stage.registry.forgetHiddenForms();
    auto *again = stage.open<MasterForm>(QStringLiteral("TF_Ghsgl"));
    QCOMPARE(again->grid().view().columnWidth(1), 333);
}

void TestMasterForms::smallList() {
    QFETCH(QString, table);
    const MasterKind &kind = masterKind(table);
    Stage stage;
    auto *form = stage.open<SmallListForm>(kind.form);
    const qint64 before = count(stage, kind);
    RecordRows &rows = form->table().rows();
    const int name = rows.columnOf(kind.nameColumn);
    // Ins goes to the blank row with its cell open; leaving the row stores it.
    press(Qt::Key_Insert);
    type(QStringLiteral("青山甲"));
    press(Qt::Key_Down);
    QCOMPARE(stage.takeTold(), QString());
    QVERIFY(has(stage, kind, QStringLiteral("青山甲")));
    QCOMPARE(count(stage, kind), before + 1);
    // The same once more is refused, and the cursor is back in that row.
    form->table().startNewRow();
    type(QStringLiteral("青山甲"));
    const int second = form->table().currentIndex().row();
    press(Qt::Key_Up);
    QTRY_COMPARE(form->table().currentIndex().row(), second);
    QCOMPARE(stage.takeTold(), kind.field(kind.nameColumn)->caption + QStringLiteral("不能重复！"));
    // Esc leaves the cell, then takes the row back, then closes.
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    QCOMPARE(static_cast<qint64>(rows.records().size()), before + 1);
    QVERIFY(form->isVisible());
    // Renamed and left by closing: stored.
    form->table().edit(second - 1, name);
    static_cast<QLineEdit *>(QApplication::focusWidget())->selectAll();
    type(QStringLiteral("青山丙"));
    press(Qt::Key_Return);
    form->close();
    QVERIFY(has(stage, kind, QStringLiteral("青山丙")));
    form = stage.open<SmallListForm>(kind.form);
    // A default is ticked with Space, and takes the tick off the one before.
    if (const int flag = rows.columnOf(kind.defaultColumn); flag >= 0) {
        form->table().setCurrentIndex(rows.index(second - 1, flag));
        press(Qt::Key_Space);
        press(Qt::Key_Up);
        QCOMPARE(stage.shop.texts(QStringLiteral("select %1 from %2 where %3<>0")
                                      .arg(kind.nameColumn, kind.table, kind.defaultColumn)),
                 QStringList(QStringLiteral("青山丙")));
        QVERIFY(!rows.record(0).flag(kind.defaultColumn));
    }
    form->table().setCurrentIndex(rows.index(second - 1, name));
    press(Qt::Key_Delete);
    QCOMPARE(count(stage, kind), before);
    QVERIFY(stage.shop.user.takeAsked().last().contains(QStringLiteral("青山丙")));
}

void TestMasterForms::hostileText() {
    QFETCH(QString, table);
    const MasterKind &kind = masterKind(table);
    Stage stage;
    auto *form = stage.open<MasterForm>(kind.form);
    RecordEditor *editor = beginNew(form, QStringLiteral("青山甲"));
    const auto typedFields = [&] {
        std::vector<FieldInput *> fields;
        for (const MasterField &field : kind.fields)
            if (field.kind == ValueKind::text && field.pick.table.isEmpty() && !field.readOnly)
                if (FieldInput *input = editor->input(field.column); !input->isReadOnly())
                    fields.push_back(input);
        return fields;
    }();
    for (FieldInput *input : typedFields) {
        const int length = column(kind.table, input->field().column)->length;
        retype(input->line(), length == 0 ? hostile : hostile.left(qMin(hostile.size(), length + 1))); // 🌾 is one
    }
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QString());
    QVERIFY(stage.shop.db.exists(QStringLiteral("select id from jxc_goods where g_sn=?"), {QStringLiteral("00000000")}));
    // What was stored is found again by the same words.
    press(Qt::Key_F3);
    type(hostile.left(20));
    press(Qt::Key_Return);
    QCOMPARE(form->grid().model().rowCount(), 1);
    // Far too long a text is refused with its field in focus, and nothing of it is lost.
    press(Qt::Key_F4);
    editor = form->editor();
    const QString tooLong(10'000, u'青');
    retype(editor->input(kind.nameColumn)->line(), tooLong);
    press(Qt::Key_F5);
    QVERIFY(!stage.takeTold().isEmpty());
    QCOMPARE(editor->input(kind.nameColumn)->text(), tooLong);
    QCOMPARE(QApplication::focusWidget(), editor->input(kind.nameColumn)->focusTarget());
    press(Qt::Key_Escape);
}

/// Ctrl+Ins in a picker: a small list opens on its blank row, an editor with an empty one.
void TestMasterForms::pickersAdd() {
    Stage stage;
    auto *form = stage.open<MasterForm>(QStringLiteral("TF_Ghsgl"));
    press(Qt::Key_Insert);
    FieldInput *zone = form->editor()->input(u"z_name");
    zone->focusTarget()->setFocus();
    whenOpen<SmallListForm>([](SmallListForm *) {
        type(QStringLiteral("云岭新区"));
        press(Qt::Key_Return);
        press(Qt::Key_F6);
    });
    press(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(zone->text(), QStringLiteral("云岭新区"));
    QVERIFY(has(stage, masterKind(u"jxc_zone"), QStringLiteral("云岭新区")));
    press(Qt::Key_Escape);

    auto *goods = stage.open<MasterForm>(QStringLiteral("TF_Spxxgl"));
    press(Qt::Key_Insert);
    FieldInput *supplier = goods->editor()->input(u"ghs_sn");
    supplier->focusTarget()->setFocus();
    whenOpen<RecordEditor>([](RecordEditor *) {
        type(QStringLiteral("云岭农资"));
        press(Qt::Key_F5);
    });
    press(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(supplier->pick()->name(), QStringLiteral("云岭农资"));
    QCOMPARE(stage.shop.texts(QStringLiteral("select ghs_name from jxc_ghsxx where ghs_sn=?"), {supplier->text()}),
             QStringList(QStringLiteral("云岭农资")));
}

/// Several operators of a warehouse: ticked in a list, never typed.
void TestMasterForms::severalPicks() {
    Stage stage;
    auto *form = stage.open<MasterForm>(QStringLiteral("TF_Ckgl"));
    RecordEditor *editor = beginNew(form, QStringLiteral("青山甲"));
    FieldInput *operators = editor->input(u"ck_asn");
    operators->focusTarget()->setFocus();
    type(QStringLiteral("x"));
    QCOMPARE(operators->text(), QString());
    whenOpen<TF_GridMsg>([](TF_GridMsg *) {
        press(Qt::Key_Space);
        press(Qt::Key_Return);
    });
    press(Qt::Key_F2);
    QCOMPARE(operators->text(), QStringLiteral("100001,"));
    press(Qt::Key_F5);
    QCOMPARE(stage.shop.texts(QStringLiteral("select ck_asn,ck_aname from jxc_ckxx where ck_name='青山甲'")),
             QStringList(QStringLiteral("100001,|admin,")));
}

void TestMasterForms::openingBalance() {
    Stage stage;
    auto *form = stage.open<MasterForm>(QStringLiteral("TF_Khgl"));
    RecordEditor *editor = beginNew(form, QStringLiteral("青山甲"));
    retype(editor->input(u"kh_lwje")->line(), QStringLiteral("1200.50"));
    press(Qt::Key_F5);
    QCOMPARE(stage.takeTold(), QString());
    QCOMPARE(stage.shop.figures(QStringLiteral("select k_qcje,k_ljje from jxc_ysyfk")), QStringLiteral("1200.5 1200.5"));
    form->grid().goTo(u"kh_name", QStringLiteral("青山甲"));
    press(Qt::Key_F4);
    QVERIFY(!form->editor()->input(u"kh_lwje")->isReadOnly());
    press(Qt::Key_Escape);
    stage.shop.db.execute(QStringLiteral("update jxc_ysyfk set k_djlx='XS'"));
    press(Qt::Key_F4);
    QVERIFY(form->editor()->input(u"kh_lwje")->isReadOnly());
}

QTEST_MAIN(TestMasterForms)
#include "test_master_forms.moc"
