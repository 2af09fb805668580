// The print dialog as a user meets it on a workstation without a printer.
#include "master/goods_search.h"
#include "reports/print_log.h"
#include "support/shop.h"
#include "ui/document_print.h"
#include "ui/print_dialog.h"
#include "ui/theme.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace jxc;
using namespace jxc::test;

namespace {

class NoStage : public FormStage {
public:
    Form *openForm(const QString &, const QString &) override { return nullptr; }
    void openDocument(const QString &) override {}
};

/// Runs something in the modal window that opens next.
void inNextDialog(const std::function<void(QWidget *)> &act) {
    QTimer::singleShot(200, qApp, [act] {
        QWidget *dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        act(dialog);
        dialog->close(); // also after a check that failed, or the test would never end
    });
}

template<class Widget>
Widget *find(QWidget *in, const char *name) {
    return in->findChild<Widget *>(QLatin1String(name));
}

} // namespace

class TestDocumentPrint : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { applyTheme(*qApp, Theme::light()); }
    void init();
    void showsAndSaves_data() { addEngineRows(); }
    void showsAndSaves();
    void brokenTemplate_data() { addEngineRows(); }
    void brokenTemplate();
    void withoutPrinterOrDocument_data() { addEngineRows(); }
    void withoutPrinterOrDocument();
    void printerMovesThePaper();
    void marksTheSecondPrint_data() { addEngineRows(); }
    void marksTheSecondPrint();

private:
    QString sale(Shop &shop);
    QTemporaryDir m_home;
    NoStage m_stage;
};

void TestDocumentPrint::init() {
    QDir(m_home.filePath(u"report"_qs)).removeRecursively();
    QDir(m_home.filePath(u"Layout"_qs)).removeRecursively();
}

QString TestDocumentPrint::sale(Shop &shop) {
    shop.addGoods(u"G1"_qs);
    DraftLine line{.goods = u"G1"_qs};
    line.quantity = 30;
    line.price = 3;
    shop.post(u"CJ"_qs, day(1), {line});
    line.quantity = 1;
    return shop.post(u"XS"_qs, day(2), std::vector<DraftLine>(30, line));
}

void TestDocumentPrint::showsAndSaves() {
    Shop shop;
    GoodsFinder finder(shop.db);
    const QString number = sale(shop);
    const QString file = m_home.filePath(number);
    inNextDialog([&](QWidget *dialog) {
        QCOMPARE(find<QPrintPreviewWidget>(dialog, "preview")->pageCount(), 3);
        QCOMPARE(find<QComboBox>(dialog, "template")->count(), 4);
        const auto *message = find<QLabel>(dialog, "message");
        if (QPrinterInfo::availablePrinterNames().isEmpty()) {
            QVERIFY(!find<QPushButton>(dialog, "print")->isEnabled());
            QCOMPARE(message->text(), u"没有找到打印机，可以预览，或者另存为 PDF。"_qs);
        }
        if (qEnvironmentVariableIsSet("JXC_PRINT_DIR"))
            dialog->grab().save(qEnvironmentVariable("JXC_PRINT_DIR") + u"/dialog.png"_qs);
        inNextDialog([&](QWidget *chooser) {
            chooser->findChild<QLineEdit *>()->setText(file);
            QTest::keyClick(chooser->findChild<QLineEdit *>(), Qt::Key_Return);
        });
        find<QPushButton>(dialog, "pdf")->setFocus();
        QTest::keyClick(find<QPushButton>(dialog, "pdf"), Qt::Key_Return); // Enter
        QVERIFY(message->text().startsWith(u"已保存："_qs));
    });
    printDocument({shop.session, shop.user, m_stage, finder, m_home.path()}, number, nullptr);
    QVERIFY(QFileInfo(file + u".pdf"_qs).size() > 5000);
    QVERIFY(QFile::exists(m_home.filePath(u"report/spxs.fr3"_qs)));
    QCOMPARE(shop.user.told, QStringList());
}

/// Words instead of the paper; another template brings it back.
void TestDocumentPrint::brokenTemplate() {
    Shop shop;
    GoodsFinder finder(shop.db);
    const QString number = sale(shop);
    QDir(m_home.path()).mkpath(u"report"_qs);
    QFile spoilt(m_home.filePath(u"report/spxs3.fr3"_qs));
    QVERIFY(spoilt.open(QIODevice::WriteOnly));
    spoilt.write("<report>\n<band/></report>");
    spoilt.close();
    inNextDialog([&](QWidget *dialog) {
        const auto *message = find<QLabel>(dialog, "message");
        QVERIFY(message->text().startsWith(u"spxs3.fr3：报表模板第2行：不认识的区域"_qs));
        QVERIFY(!find<QPushButton>(dialog, "pdf")->isEnabled());
        auto *templates = find<QComboBox>(dialog, "template");
        templates->setFocus();
        QTest::keyClick(templates, Qt::Key_Down);
        QVERIFY(find<QPushButton>(dialog, "pdf")->isEnabled());
        QVERIFY(!message->text().contains(u"spxs3"_qs));
    });
    printDocument({shop.session, shop.user, m_stage, finder, m_home.path()}, number, nullptr);
}

void TestDocumentPrint::withoutPrinterOrDocument() {
    Shop shop;
    GoodsFinder finder(shop.db);
    const FormContext context{shop.session, shop.user, m_stage, finder, m_home.path()};
    printDocument(context, u"XS26030099999"_qs, nullptr);
    QCOMPARE(shop.user.told.size(), 1);
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("this workstation has a printer");
    const QString number = sale(shop);
    QVERIFY(!printDocumentNow(context, number, nullptr));
    QCOMPARE(shop.user.told.back(), u"没有找到打印机，单据：%1没有打印！"_qs.arg(number));
}

/// The printer's corner is the paper's, and the offset moves what is printed.
void TestDocumentPrint::printerMovesThePaper() {
    Page page;
    page.paper = {241, 140};
    page.rects.push_back({20, 10, 100, 50});
    const auto printed = [&](QPointF offset) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(m_home.filePath(u"rect.pdf"_qs));
        const bool isSent = sendToPrinter({page, page}, offset, printer);
        return isSent ? printer.pageLayout().fullRect(QPageLayout::Millimeter).size() : QSizeF();
    };
    QCOMPARE(printed({}).toSize(), QSize(241, 140));
    QCOMPARE(printed({2, -1}).toSize(), QSize(241, 140));
    QPrinter nowhere(QPrinter::HighResolution);
    nowhere.setOutputFileName(m_home.filePath(u"no/such/folder/x.pdf"_qs));
    QVERIFY(!sendToPrinter({page}, {}, nowhere));
}

void TestDocumentPrint::marksTheSecondPrint() {
    Shop shop;
    const QString number = sale(shop);
    QVERIFY(!DocumentForm(shop.session, m_home.path(), number).isAgain());
    const QString file = m_home.filePath(u"sale.pdf"_qs);
    QVERIFY(saveDocumentPdf(shop.session, m_home.path(), number, file)); // no print
    QVERIFY(!DocumentForm(shop.session, m_home.path(), number).isAgain());
    PrintLog(m_home.path()).add(number, shop.session.timeStamp());
    const DocumentForm again(shop.session, m_home.path(), number);
    QVERIFY(again.isAgain());
    const Pages pages = again.pages(u"spxs.fr3"_qs);
    QStringList texts;
    for (const PlacedText &text : pages.front().texts)
        texts << text.text;
    QVERIFY(texts.contains(u"补打"_qs));
}

QTEST_MAIN(TestDocumentPrint)
#include "test_document_print.moc"
