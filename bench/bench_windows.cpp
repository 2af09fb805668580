// How long a clerk waits for the windows: a list of 100,000 documents, a key in a document of 500
// lines, a scanned line, the goods list while typing, the login after the splash.
#include "app/tf_login.h"
#include "db/transaction.h"
#include "stock/forms/tf_spxs.h"
#include "support/windows.h"
#include "ui/box_prompter.h"
#include "ui/document_editor.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>

using namespace jxc;
using namespace jxc::test;

namespace {

/// Milliseconds with one place.
QString ms(qint64 nanoseconds) {
    return QStringLiteral("%1.%2").arg(nanoseconds / 1'000'000).arg(nanoseconds / 100'000 % 10);
}

void report(const char *what, std::vector<qint64> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-56s median %8s ms   worst %8s ms\n", what,
                qPrintable(ms(times[times.size() / 2])), qPrintable(ms(times.back())));
    std::fflush(stdout);
}

qint64 timed(const std::function<void()> &work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed();
}

/// What the user sees is painted, not just computed.
void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

void makeGoods(Database &db, int count) {
    std::vector<Values> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back({QString::number(10000000 + i), QStringLiteral("吡虫啉%1").arg(i),
                        QStringLiteral("瓶"), QStringLiteral("69%1").arg(10000000000 + i),
                        QStringLiteral("BCL%1").arg(i), 0, 0, 0, 0, 10, 12, 0, 0, 0});
    Transaction whole(db);
    db.insertRows(QStringLiteral("jxc_goods"),
                  {QStringLiteral("g_sn"), QStringLiteral("g_name"), QStringLiteral("dw_name"),
                   QStringLiteral("g_sptm"), QStringLiteral("g_jm"), QStringLiteral("g_jy"),
                   QStringLiteral("g_kc"), QStringLiteral("g_xspl"), QStringLiteral("g_cgpl"),
                   QStringLiteral("g_sj"), QStringLiteral("g_lsj"), QStringLiteral("g_iscf"),
                   QStringLiteral("g_xzsl"), QStringLiteral("g_scjj")},
                  rows);
    whole.commit();
}

void makeSales(Database &db, int count) {
    std::vector<Values> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back({QStringLiteral("XS26%1").arg(1010000000 + i),
                        QStringLiteral("2026-03-%1").arg(i % 31 + 1, 2, 10, QChar(u'0')),
                        QStringLiteral("100001"), QStringLiteral("100001"),
                        QStringLiteral("100001"), 1, 100, 60, 0, 0, QStringLiteral("admin"),
                        QStringLiteral("备注"), QStringLiteral("admin"),
                        QStringLiteral("2026-03-31")});
    Transaction whole(db);
    db.insertRows(QStringLiteral("jxc_lsxsd"),
                  {QStringLiteral("gl_djh"), QStringLiteral("ls_xsrq"), QStringLiteral("kh_sn"),
                   QStringLiteral("ck_sn"), QStringLiteral("u_sn"), QStringLiteral("ls_status"),
                   QStringLiteral("ls_yfje"), QStringLiteral("ls_sfje"), QStringLiteral("ls_yhje"),
                   QStringLiteral("ls_hkje"), QStringLiteral("a_name"), QStringLiteral("ls_note"),
                   QStringLiteral("ls_checker"), QStringLiteral("ls_chkrq")},
                  rows);
    whole.commit();
}

void measureList(Desk &desk) {
    makeSales(desk.db, 100'000);
    std::vector<qint64> opened, whole, scrolled;
    for (int i = 0; i < 5; ++i) {
        TF_Spxs list(desk.context);
        list.showModal();
        settle();
        opened.push_back(timed([&] {
            list.showApproved(true);
            settle();
        }));
        whole.push_back(timed([&] {
            while (list.isReading())
                settle();
        }));
        QScrollBar *bar = list.grid().view().verticalScrollBar();
        for (int step = 0; step < 20; ++step)
            scrolled.push_back(timed([&] {
                bar->setValue(bar->maximum() * step / 20);
                list.grid().view().viewport()->repaint();
            }));
    }
    report("100,000 sales: on the screen", opened);
    report("    all of them read, with sums, in pieces", whole);
    report("    a scroll anywhere in the list", scrolled);
}

void measureEditor(Desk &desk) {
    TF_Spxs list(desk.context);
    list.showModal();
    list.btnAddClick();
    DocumentEditor &editor = *list.editor();
    DocumentLines &lines = editor.table().lines();
    for (int i = 0; i < 500; ++i) {
        DraftLine line;
        line.goods = QString::number(10000000 + i);
        line.unit = QStringLiteral("瓶");
        line.quantity = Decimal(1);
        line.price = Decimal(10);
        lines.append(line);
    }
    settle();
    std::vector<qint64> keys, cells, scans, finds;
    for (int i = 0; i < 50; ++i) {
        editor.table().edit(200 + i, LineField::quantity);
        settle();
        keys.push_back(timed([&] {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
            settle();
        }));
        cells.push_back(timed([&] {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            settle();
        }));
    }
    // A scanner's signs come while the last line is still being painted; the wait begins at Enter.
    for (int i = 0; i < 30; ++i) {
        type(QStringLiteral("69%1").arg(10000001000 + i));
        scans.push_back(timed([&] {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            settle();
        }));
    }
    for (int i = 0; i < 20; ++i) {
        editor.table().startNextLine();
        settle();
        for (const char sign : {'b', 'c', 'l', '4', '2'})
            finds.push_back(timed([&] {
                QTest::keyClick(QApplication::focusWidget(), sign);
                settle();
            }));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    }
    report("500 lines: a key in a cell", keys);
    report("    Enter: the line computed, kept on disk, next cell", cells);
    report("    a scanned goods added", scans);
    report("    a key in the goods cell, 100,000 goods", finds);
}

} // namespace

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QElapsedTimer start;
    start.start();
    QApplication application(argc, argv);
    useFixedLocale();
    applyTheme(application, Theme::light());
    useEngine(Engine::Sqlite);
    Desk desk;
    const qint64 ready = start.nsecsElapsed();
    std::vector<qint64> logins;
    for (int i = 0; i < 5; ++i)
        logins.push_back(timed([&] {
            TF_Login login(desk.context, {});
            login.showModal();
            settle();
        }));
    std::printf("program and a new account set ready after %s ms\n", qPrintable(ms(ready)));
    report("the login dialog", logins);
    makeGoods(desk.db, 100'000);
    while (desk.finder.readAhead()) {
    }
    measureList(desk);
    measureEditor(desk);
    return 0;
}
