#include "app/form_registry.h"
#include "core/backup.h"
#include "services/forms/tf_backup.h"
#include "services/forms/tf_backup2.h"
#include "services/forms/tf_mryt.h"
#include "services/forms/tf_sjtx.h"
#include "services/today.h"
#include "support/windows.h"
#include "ui/grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>

using namespace jxc;
using namespace jxc::test;

namespace {

struct Office {
    Shop shop;
    FormRegistry registry{shop.session, shop.user, shop.place.folder()};

    Office() { registerForms(registry); }
    ~Office() {
        while (QWidget *top = QApplication::activeModalWidget())
            top->hide();
    }
    template<class FormClass>
    FormClass *open(const char16_t *name) {
        auto *form = qobject_cast<FormClass *>(registry.openForm(QString::fromUtf16(name), {}));
        bringUp(form);
        return form;
    }
    QString makeFolder(const QString &name) {
        QString folder = QDir(shop.place.folder()).filePath(name);
        QDir().mkpath(folder);
        return folder;
    }
};

QStringList lines(const Grid &grid) {
    QStringList all;
    for (int line = 0; line < grid.model().rowCount(); ++line)
        all << grid.model().cellText(line, 0) + u'|' + grid.model().cellText(line, 1);
    return all;
}

} // namespace

class TestServicesForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void backsUpAndRestores_data() { addEngineRows(); }
    void backsUpAndRestores();
    void smallBackup_data() { addEngineRows(); }
    void smallBackup();
    void leafsThroughTips_data() { addEngineRows(); }
    void leafsThroughTips();
    void countsWhatWaits_data() { addEngineRows(); }
    void countsWhatWaits();
    void keepsReminders_data() { addEngineRows(); }
    void keepsReminders();
};

void TestServicesForms::backsUpAndRestores() {
    Office office;
    auto *form = office.open<TF_Backup>(u"TF_Backup");
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"备份路径必须填写！"_qs);
    const QString folder = office.makeFolder(u"backups"_qs);
    child<QLineEdit>(*form, u"back_path"_qs)->setText(folder + u"/gone"_qs);
    child<QCheckBox>(*form, u"back_auto"_qs)->setChecked(true);
    child<QSpinBox>(*form, u"back_sj"_qs)->setValue(4);
    child<QSpinBox>(*form, u"back_days"_qs)->setValue(7);
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"备份失败，文件夹不存在！"_qs);
    child<QLineEdit>(*form, u"back_path"_qs)->setText(folder);
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"备份完成！"_qs);
    QCOMPARE(office.shop.figures(
                 u"select count(*),sum(back_auto),sum(back_exit),sum(back_sj),sum(back_days) from "
                 u"jxc_backup"_qs),
             u"1 1 0 4 7"_qs);
    QVERIFY(office.shop.session.backup.automatic && !office.shop.session.backup.onExit);
    const QString file = folder + u"/jxc26_03_31_09_00_00.DAT"_qs;
    QVERIFY(QFile::exists(file));

    office.shop.addCustomer(u"100777"_qs, u"后来的客户"_qs, u"1000"_qs);
    child<QTabWidget>(*form, u"pages"_qs)->setCurrentIndex(1);
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"恢复路径必须填写！"_qs);
    auto *path = child<QLineEdit>(*form, u"restore_path"_qs);
    QFile foreign(folder + u"/foreign.DAT"_qs);
    QVERIFY(foreign.open(QIODevice::WriteOnly));
    foreign.write("no backup");
    foreign.close();
    path->setText(foreign.fileName());
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"备份文件不可识别，不能恢复！"_qs);
    path->setText(file);
    office.shop.user.answers = {false};
    QTest::keyClick(form, Qt::Key_F5);
    const QString hasCustomer = u"select id from jxc_khxx where kh_sn='100777'"_qs;
    QVERIFY(office.shop.db.exists(hasCustomer));
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.asked,
             QStringList(2, u"恢复后当前帐套的数据将全部被替换，确认恢复吗？"_qs));
    QCOMPARE(office.shop.user.told.last(), u"恢复完成！"_qs);
    QVERIFY(!office.shop.db.exists(hasCustomer));
    // The replaced set is kept: beside the file, or with the backups of a server.
    const QString kept = currentEngine() == Engine::Sqlite ? office.shop.place.folder() : folder;
    QVERIFY(QFile::exists(
        kept + u"/jxc26_03_31_09_00_0%1.DAT"_qs.arg(currentEngine() == Engine::Sqlite ? 0 : 1)));
}

void TestServicesForms::smallBackup() {
    Office office;
    office.shop.session.backup = {{}, true, false, 5, 9};
    auto *form = office.open<TF_Backup2>(u"TF_Backup2");
    const QString folder = office.makeFolder(u"small"_qs);
    QTest::keyClicks(child<QLineEdit>(*form, u"back_path"_qs), folder);
    form->findChild<QCheckBox *>()->click();
    QTest::keyClick(form, Qt::Key_F5);
    QCOMPARE(office.shop.user.told, QStringList{u"备份完成！"_qs});
    QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 1);
    // What the small dialog does not show stays.
    QCOMPARE(
        office.shop.figures(u"select back_auto,back_exit,back_sj,back_days from jxc_backup"_qs),
        u"1 1 5 9"_qs);
}

void TestServicesForms::leafsThroughTips() {
    Office office;
    office.shop.db.execute(u"delete from jxc_mryt"_qs);
    for (const auto *tip : {u"甲", u"乙", u"丙"})
        office.shop.db.insertRow(u"jxc_mryt"_qs, {{u"mr_ts"_qs, tip}, {u"mr_state"_qs, u"0"}});
    QStringList seen;
    TF_Mryt *form = nullptr;
    for (int start = 1; start <= 4; ++start) {
        form = office.open<TF_Mryt>(u"TF_Mryt");
        seen << child<QLabel>(*form, u"mr_ts"_qs)->text();
        form->close();
    }
    QCOMPARE(seen, (QStringList{u"甲"_qs, u"乙"_qs, u"丙"_qs, u"甲"_qs}));
    form->leaf(-1);
    QCOMPARE(child<QLabel>(*form, u"mr_ts"_qs)->text(), u"丙"_qs);
    form->findChild<QCheckBox *>()->click();
    QCOMPARE(office.shop.db.scalar(u"select t_mryt from jxc_txdisp"_qs), u"0"_qs);
    office.shop.db.execute(u"delete from jxc_mryt"_qs);
    office.open<TF_Mryt>(u"TF_Mryt"); // nothing to tell is no fault
    form->leaf(1);
}

void TestServicesForms::countsWhatWaits() {
    Office office;
    Shop &shop = office.shop;
    shop.addGoods(u"A1"_qs, {{u"g_zdkc"_qs, 5}, {u"g_bzq"_qs, 12}});
    shop.addGoods(u"A2"_qs, {{u"g_zdkc"_qs, 5}});
    shop.addGoods(u"A3"_qs, {{u"g_zdkc"_qs, 5}, {u"g_jy"_qs, 1}}); // disabled
    shop.db.insertRow(u"jxc_kcsp"_qs,
                      {{u"g_sn"_qs, u"A2"}, {u"ck_sn"_qs, u"100001"}, {u"kc_sl"_qs, 5_d}});
    const auto batch = [&](const char16_t *expiry, const char16_t *produced, int quantity) {
        shop.db.insertRow(u"jxc_tkc"_qs, {{u"g_sn"_qs, u"A1"},
                                          {u"ck_sn"_qs, u"100001"},
                                          {u"t_yxq"_qs, expiry},
                                          {u"t_scrq"_qs, produced},
                                          {u"t_sl"_qs, quantity}});
    };
    batch(u"2026-06-29", u"", 1);        // the ninetieth day
    batch(u"2026-06-30", u"", 1);        // the day after
    batch(u"2026-01-01", u"", 0);        // nothing left of it
    batch(u"0000-00", u"2025-05-01", 1); // twelve months from then
    batch(u"0000-00", u"2026-03-01", 1);
    batch(u"0000-00", u"", 1); // never expires
    const auto owe = [&](const char16_t *day, int status, int due, int paid) {
        shop.db.insertRow(u"jxc_lsxsd"_qs, {{u"ls_ckrq"_qs, day},
                                            {u"ls_status"_qs, status},
                                            {u"ls_yfje"_qs, due},
                                            {u"ls_sfje"_qs, paid}});
    };
    owe(u"2026-03-31", 1, 100, 40);
    owe(u"2026-03-31", 1, 100, 100);
    owe(u"2026-04-01", 1, 100, 0);
    owe(u"2026-03-31", 0, 100, 0); // a draft
    owe(u"", 1, 100, 0);
    const TodayCounts counts = countToday(shop.session);
    QCOMPARE(counts.belowMinimum, 1);
    QCOMPARE(counts.nearExpiry, 2);
    QCOMPARE(counts.drafts, 1);
    QCOMPARE(counts.receivables, 1);
    QCOMPARE(counts.receivableAmount, 60_d);
    Session clerk = shop.clerk(u"cggl"_qs, {1});
    QCOMPARE(countToday(clerk).drafts, 0); // sales are none of his work

    auto *form = office.open<TF_Sjtx>(u"TF_Sjtx");
    auto *view = child<QTableView>(*form, u"TF_Sjtx_Today"_qs);
    auto &today = *qobject_cast<Grid *>(view->parentWidget());
    QCOMPARE(lines(today),
             (QStringList{u"库存报警|1种商品低于最低库存"_qs,
                          u"近效期|2个批号已过期或在90天内到期"_qs, u"待审核|1张单据等待审核"_qs,
                          u"应收到期|1张销售单到了提醒日期，未收60.00元"_qs}));
    office.registry.add(u"TF_WlzwKh"_qs, [](const FormContext &context, QWidget *parent) {
        return new Form(context, u"TF_WlzwKh"_qs, {}, parent);
    });
    today.goToLine(3);
    QTest::keyClick(view, Qt::Key_Return);
    QCOMPARE(QApplication::activeModalWidget()->objectName(), u"TF_WlzwKh"_qs);
    QCOMPARE(QApplication::activeModalWidget()->windowTitle(), u"往来账务(客户)"_qs);
}

void TestServicesForms::keepsReminders() {
    Office office;
    auto *form = office.open<TF_Sjtx>(u"TF_Sjtx");
    child<QTabWidget>(*form, u"tabs"_qs)->setCurrentIndex(1);
    QTest::keyClick(form, Qt::Key_Insert);
    QWidget *editor = QApplication::activeModalWidget();
    auto *way = child<QComboBox>(*editor, u"tx_fs"_qs);
    auto *when = child<QLineEdit>(*editor, u"tx_sj"_qs);
    auto *note = child<QLineEdit>(*editor, u"tx_note"_qs);
    child<QComboBox>(*editor, u"tx_dx"_qs)->setCurrentText(u"全体人员"_qs);
    QTest::keyClick(editor, Qt::Key_F5);
    QCOMPARE(office.shop.user.told.last(), u"备注必须填写！"_qs);
    typeText(note, u"交房租"_qs);
    const auto refusal = [&](int index, const char16_t *text) {
        way->setCurrentIndex(index);
        when->setText(QString::fromUtf16(text));
        QTest::keyClick(editor, Qt::Key_F5);
        return office.shop.user.told.last();
    };
    QCOMPARE(refusal(1, u""), u"提醒时间必须填写！"_qs);
    for (const auto &[index, text] : std::vector<std::pair<int, const char16_t *>>{
             {1, u"2026-2-30"}, {2, u"8"}, {2, u"1,"}, {3, u"5"}, {3, u"32"}})
        QCOMPARE(refusal(index, text), u"提醒时间格式不正确！"_qs);
    way->setCurrentIndex(3);
    when->setText(u"05，20"_qs); // the comma of the input method
    QTest::keyClick(editor, Qt::Key_F5);
    QVERIFY(!editor->isVisible());
    const QString stored =
        u"select tx_dx,tx_fs,tx_fstxt,tx_sj,tx_note,tx_zt,a_name,tx_tjsj from jxc_tx"_qs;
    QCOMPARE(office.shop.texts(stored),
             QStringList{u"全体人员|4|每月|05,20|交房租|0|admin|2026-03-31 09:00:00"_qs});

    // Another operator has his own list; the administrator sees all.
    Session clerk = office.shop.clerk(u"cggl"_qs, {});
    QVERIFY(listReminders(clerk).empty());
    QVERIFY(!deleteReminder(clerk, office.shop.user, 1).isDone());
    QCOMPARE(listReminders(office.shop.session).size(), size_t{1});
    bringUp(form);
    QTest::keyClick(form, Qt::Key_Delete);
    QCOMPARE(office.shop.user.asked.last(), u"您的操作将删除提醒：交房租，确认吗？"_qs);
    QVERIFY(office.shop.texts(stored).isEmpty());
}

JXC_GUI_MAIN(TestServicesForms, QApplication)
#include "test_services_forms.moc"
