// F1 in every window, the pages it opens, and documents opened to read from any row.
#include "app/form_registry.h"
#include "app/help_book.h"
#include "app/help_key.h"
#include "app/tf_rjbz.h"
#include "core/notes.h"
#include "support/windows.h"
#include "ui/document_editor.h"
#include "ui/line_table.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTextBrowser>

using namespace jxc;
using namespace jxc::test;

namespace {

/// The program's own forms over a shop.
struct ProgramDesk : Shop {
    QTemporaryDir home;
    FormRegistry registry{session, user, home.path()};
    ProgramDesk() {
        session.loginOk = true;
        registerForms(registry);
    }
    TF_Rjbz *help() { return qobject_cast<TF_Rjbz *>(registry.kept(QStringLiteral("TF_Rjbz"))); }
};

} // namespace

class TestHelp : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyFormHasAPage_data() { addEngineRows(); }
    void everyFormHasAPage();
    void pagesHoldTogether();
    void searchAndLinks_data() { addEngineRows(); }
    void searchAndLinks();
    void notesAreShared_data() { addEngineRows(); }
    void notesAreShared();
    void documentsOpenToRead_data() { addEngineRows(); }
    void documentsOpenToRead();
};

void TestHelp::everyFormHasAPage() {
    ProgramDesk desk;
    const HelpKey key(desk.registry, nullptr);
    for (const QString &name : desk.registry.knownForms()) {
        const HelpPage *page = helpPageOf(name);
        QVERIFY2(page != nullptr, qPrintable(name + QStringLiteral(" has no page of help")));
        Form *form = desk.registry.openForm(name, {});
        QTest::keyClick(form, Qt::Key_F1);
        QVERIFY2(desk.help() != nullptr && desk.help()->isVisible(), qPrintable(name));
        QCOMPARE(desk.help()->pageName(), page->name);
        desk.help()->done(0);
        form->done(0);
    }
    // A dialog has the page of the window it belongs to; an editor of documents has its own.
    QCOMPARE(helpPageOf(u"TF_Admin_Add"_qs)->name, u"admin"_qs);
    QCOMPARE(helpPageOf(u"TF_Cgjh_Add"_qs)->name, u"editor"_qs);
    QCOMPARE(helpPageOf(u"TF_MainForm"_qs)->name, u"mainform"_qs);
    QCOMPARE(helpPageOf(u"TF_Login"_qs)->name, u"login"_qs);
    QCOMPARE(helpPageOf(QString()), nullptr);
}

void TestHelp::pagesHoldTogether() {
    static const QRegularExpression link(QStringLiteral("href=\"([^\"]*)\""));
    QStringList explained;
    for (const HelpPage &page : helpPages()) {
        QVERIFY2(!page.title.isEmpty() && !page.chapter.isEmpty() && page.place > 0, qPrintable(page.name));
        for (auto found = link.globalMatch(page.html); found.hasNext();) {
            const QString target = found.next().captured(1);
            QVERIFY2(findHelpPage(target) != nullptr, qPrintable(page.name + u"→"_qs + target));
        }
        for (const QString &form : page.forms)
            QVERIFY2(!explained.contains(form), qPrintable(form + QStringLiteral(" has two pages")));
        explained << page.forms;
    }
    QCOMPARE(sheetsOf(*findHelpPage(keySheetName)), 1);
}

void TestHelp::searchAndLinks() {
    ProgramDesk desk;
    TF_Rjbz help(desk.registry.context());
    help.showModal();
    bringUp(&help);
    press(Qt::Key_F3);
    type(u"最低库存"_qs);
    QCOMPARE(help.pageName(), u"kccx"_qs);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"没有这样的词"_qs);
    QVERIFY(child<QTextBrowser>(help, u"helpText"_qs)->toPlainText().startsWith(u"没有找到"_qs));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    help.showPageOf(u"TF_Spxs"_qs);
    Q_EMIT child<QTextBrowser>(help, u"helpText"_qs)->anchorClicked(QUrl(u"editor"_qs));
    QCOMPARE(help.pageName(), u"editor"_qs);
    press(Qt::Key_Escape);
    QVERIFY(!help.isVisible());
}

void TestHelp::notesAreShared() {
    ProgramDesk desk;
    TF_Rjbz help(desk.registry.context());
    help.showModal();
    auto *notes = child<QPlainTextEdit>(help, u"bq_txt"_qs);
    notes->setPlainText(u"化肥厂电话 0571"_qs);
    help.reject();
    QCOMPARE(readNote(desk.session, u"rjbz"_qs), u"化肥厂电话 0571"_qs);
    // Two at once: the second one is asked before he writes over the first.
    help.showModal();
    notes->setPlainText(u"我的"_qs);
    saveNote(desk.session, desk.user, u"rjbz"_qs, u"别人的"_qs);
    desk.user.answers = {false, true}; // not over it; rather lose one's own
    help.reject();
    QVERIFY(!help.isVisible());
    QCOMPARE(readNote(desk.session, u"rjbz"_qs), u"别人的"_qs);
    // Nobody has logged in yet.
    desk.session.loginOk = false;
    help.showModal();
    QVERIFY(!help.findChild<QTabWidget *>()->isTabVisible(1));
}

void TestHelp::documentsOpenToRead() {
    ProgramDesk desk;
    desk.addGoods(u"G1"_qs);
    DraftLine line{.goods = u"G1"_qs};
    line.quantity = 2_d;
    line.price = 3_d;
    const auto opened = [&](const QString &number) {
        desk.registry.openDocument(number);
        return qobject_cast<DocumentEditor *>(QApplication::activeModalWidget());
    };
    const QString approved = desk.post(u"CJ"_qs, day(1), {line});
    const QString draft = desk.save(u"XS"_qs, day(2), {line});
    for (const QString &number : {approved, draft}) {
        DocumentEditor *editor = opened(number);
        QVERIFY(editor != nullptr);
        QCOMPARE(editor->draft().number, number);
        QCOMPARE(editor->table().lines().rowCount(), 1); // no line that waits for more
        QVERIFY(!(editor->table().lines().flags(editor->table().lines().index(0, 0)) & Qt::ItemIsEditable));
        const QStringList before = desk.everything();
        bringUp(editor);
        for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F8, Qt::Key_F11})
            QTest::keyClick(editor, key);
        QTest::keyClick(&editor->table(), Qt::Key_Delete, Qt::ControlModifier);
        QTest::keyClick(&editor->table(), Qt::Key_G, Qt::ControlModifier);
        QVERIFY(!editor->isChanged());
        QCOMPARE(desk.everything(), before);
        editor->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    desk.user.told.clear();
    for (const auto *number : {u"", u"CJ26030110099", u"DB26030110001", u"SK26030110001"})
        QCOMPARE(opened(QString::fromUtf16(number)), nullptr);
    QCOMPARE(desk.user.told,
             QStringList({u"期初库存没有单据！"_qs, u"单据“CJ26030110099”不存在！"_qs,
                          u"库存调拨单的界面尚未提供，单据号：DB26030110001"_qs,
                          u"单据“SK26030110001”不能在这里打开！"_qs}));
}

JXC_GUI_MAIN(TestHelp, QApplication)
#include "test_help.moc"
