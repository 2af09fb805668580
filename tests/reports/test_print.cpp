// Printed forms: what goes on which page, and what the program's own templates make of documents.
#include "db/creation.h"
#include "db/transaction.h"
#include "reports/document_data.h"
#include "reports/pages.h"
#include "reports/pdf.h"
#include "reports/template_files.h"
#include "services/demo_data.h"
#include "services/demo_trade.h"
#include "stock/document_kind.h"
#include "support/shop.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

/// A half sheet with room for ten rows of 6 mm below the caption row when it is the only page.
QByteArray sheet(const QByteArray &columns, const QByteArray &more = {}) {
    return "<report paper=\"241x140\" margins=\"10\">"
           "<band type=\"title\" height=\"20\" repeat=\"1\"><text x=\"0\" y=\"0\" h=\"8\">"
           "[head.number] [page]/[pages]</text></band>"
           "<band type=\"detail\"><table data=\"line\" rowheight=\"6\" fill=\"1\">" +
           columns +
           "</table></band>"
           "<band type=\"footer\" height=\"10\"><text x=\"0\" y=\"0\" h=\"8\">"
           "[capital(sum(line.je))]</text></band>" +
           more + "</report>";
}

const QByteArray nameAndAmount = "<col field=\"name\" caption=\"名称\" width=\"40\"/>"
                                 "<col field=\"je\" caption=\"金额\" width=\"20\" sum=\"1\"/>";

PrintData lines(int count) {
    PrintData data;
    data.head.insert(u"number"_qs, u"XS26030001"_qs);
    for (int i = 1; i <= count; ++i)
        data.lines.push_back({{u"name"_qs, QStringLiteral("商品%1").arg(i)},
                              {u"je"_qs, {ValueKind::amount, 1.25_d}}});
    return data;
}

QStringList textsOf(const Page &page) {
    QStringList all;
    for (const PlacedText &text : page.texts)
        all << text.text;
    return all;
}

/// No text leaves the paper or its place, and none lies upon another.
QString overlaps(const Page &page) {
    for (size_t i = 0; i < page.texts.size(); ++i) {
        const PlacedText &one = page.texts[i];
        if (!QRectF(QPointF(), page.paper).contains(one.area))
            return one.text + u" leaves the paper"_qs;
        for (size_t j = i + 1; j < page.texts.size(); ++j) {
            const QRectF both = one.area.intersected(page.texts[j].area);
            if (both.width() > 0.1 && both.height() > 0.1)
                return one.text + u" | "_qs + page.texts[j].text;
        }
    }
    return {};
}

QString errorOf(const QByteArray &xml) {
    try {
        (void)readTemplate(xml);
    } catch (const TemplateError &error) {
        return error.text();
    }
    return {};
}

/// The text of a PDF file; its fonts hold some characters under the numbers of their radicals.
QString textOfPdf(const QString &file) {
    QProcess reader;
    reader.start(u"pdftotext"_qs, {u"-layout"_qs, file, u"-"_qs});
    reader.waitForFinished();
    return QString::fromUtf8(reader.readAllStandardOutput())
        .normalized(QString::NormalizationForm_KC);
}

} // namespace

class TestPrint : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pages_data();
    void pages();
    void pageSums();
    void rowsWrap();
    void figuresStayWhole();
    void fields();
    void endlessPaper();
    void labels();
    void brokenTemplates_data();
    void brokenTemplates();
    void templatesOfTheHome();
    void documents_data() { addEngineRows(); }
    void documents();
    void secrets_data() { addEngineRows(); }
    void secrets();
    void demoDocuments_data() { addEngineRows(); }
    void demoDocuments();
};

void TestPrint::pages_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("rows"); // of goods on each page
    QTest::addColumn<int>("frames");      // of the last page: caption, rows, empty rows, sums
    // 120 mm less title 20, captions 6: 94 mm. One page: sums 6, footer 10 leave 13 rows. Several:
    // 14 rows and the page's sum; the last one has both sums and the footer.
    QTest::newRow("empty") << 0 << QList<int>{0} << (1 + 13) * 2 + 2;
    QTest::newRow("one") << 1 << QList<int>{1} << (1 + 13) * 2 + 2;
    QTest::newRow("just full") << 13 << QList<int>{13} << (1 + 13) * 2 + 2;
    QTest::newRow("sums go over") << 14 << QList<int>{13, 1} << (1 + 12) * 2 + 2 * 2;
    QTest::newRow("two") << 20 << QList<int>{14, 6} << (1 + 12) * 2 + 2 * 2;
}

void TestPrint::pages() {
    QFETCH(int, count);
    QFETCH(QList<int>, rows);
    QFETCH(int, frames);
    const Pages made = layOut(readTemplate(sheet(nameAndAmount)), lines(count));
    QList<int> found;
    for (const Page &page : made) {
        const QStringList texts = textsOf(page);
        found << static_cast<int>(texts.filter(u"商品"_qs).size());
        QVERIFY(
            texts.contains(QStringLiteral("XS26030001 %1/%2").arg(found.size()).arg(made.size())));
        QVERIFY(texts.contains(u"名称"_qs));
        QCOMPARE(overlaps(page), QString());
    }
    QCOMPARE(found, rows);
    QCOMPARE(static_cast<int>(made.back().rects.size()), frames);
}

void TestPrint::pageSums() {
    const Pages made = layOut(readTemplate(sheet(nameAndAmount)), lines(500));
    int rows = 0;
    for (size_t i = 0; i < made.size(); ++i) {
        const QStringList texts = textsOf(made[i]);
        const int here = static_cast<int>(texts.filter(u"商品"_qs).size());
        rows += here;
        QCOMPARE(texts.count(u"本页小计"_qs), 1);
        const Decimal sum = Decimal::fromMicros(Decimal::Wide(1'250'000) * here);
        QVERIFY(texts.contains(sum.toText(2)));
        QCOMPARE(texts.contains(u"合计"_qs), i + 1 == made.size());
        QCOMPARE(texts.contains(u"陆佰贰拾伍元整"_qs), i + 1 == made.size());
    }
    QCOMPARE(rows, 500);
    QVERIFY(textsOf(made.back()).contains(u"625.00"_qs));
}

void TestPrint::rowsWrap() {
    const QString longName = u"百分之四十五咪鲜胺水乳剂柑橘防腐保鲜专用包装"_qs.repeated(4);
    PrintData data = lines(3);
    data.lines[1][u"name"_qs] = longName;
    const auto narrow = [&](int wrap) {
        return layOut(
            readTemplate(sheet("<col field=\"name\" caption=\"名称\" width=\"30\" lines=\"" +
                               QByteArray::number(wrap) +
                               "\"/><col field=\"je\" caption=\"金额\" width=\"150\"/>")),
            data);
    };
    const Pages cut = narrow(1), wrapped = narrow(3);
    QCOMPARE(textsOf(cut.front()).filter(u"…"_qs).size(), 1);
    QCOMPARE(overlaps(cut.front()), QString());
    const QStringList texts = textsOf(wrapped.front());
    const QStringList cutOff = texts.filter(u"…"_qs);
    QCOMPARE(cutOff.size(), 1);
    const qsizetype last = texts.indexOf(cutOff.front());
    QVERIFY(longName.startsWith(texts[last - 2] + texts[last - 1]));
    QCOMPARE(overlaps(wrapped.front()), QString());
}

/// A figure is never cut, however narrow its column.
void TestPrint::figuresStayWhole() {
    PrintData data = lines(2);
    data.lines[0][u"je"_qs].figure = 123456789.12_d;
    const Pages made =
        layOut(readTemplate(sheet("<col field=\"name\" caption=\"名称\" width=\"204\"/>"
                                  "<col field=\"je\" caption=\"金额\" width=\"17\" sum=\"1\"/>")),
               data);
    const QStringList texts = textsOf(made.front());
    QVERIFY(texts.contains(u"123456789.12"_qs));
    QVERIFY(texts.contains(u"123456790.37"_qs));
    QCOMPARE(overlaps(made.front()), QString());
}

void TestPrint::fields() {
    PrintData data = lines(2);
    data.head.insert(u"due"_qs, {ValueKind::amount, 1000.5_d});
    data.vars.insert(u"date1"_qs, u"2026-03-01"_qs);
    data.company.name = u"丰收农资"_qs;
    const Pages made = layOut(
        readTemplate(
            u"<report><band type='title' height='60'>"
            "<text y='0' h='6'>[company.c_name]/[head.due]/[capital(head.due)]/[var.date1]</text>"
            "<text y='6' h='6'>[head.nothing][line.nothing][nobody.x]</text>"
            "<text y='12' h='6'>[备注] [sum(line.je)] [capital(head.number)]</text>"
            "<text y='18' h='6' format='#,0.00'>[head.due]</text>"
            "<barcode y='24' w='40' h='12' kind='ean13'>6901234567892</barcode>"
            "<barcode y='40' w='40' h='12' kind='ean13'>6901234567893</barcode>"
            "</band></report>"_qs.toUtf8()),
        data);
    const QStringList texts = textsOf(made.front());
    QCOMPARE(texts.size(), 5); // an empty text is none
    QCOMPARE(texts[0], u"丰收农资/1000.50/壹仟元伍角/2026-03-01"_qs);
    QCOMPARE(texts[1], u"[备注] 2.50 "_qs);
    QCOMPARE(texts[2], u"1,000.50"_qs);
    // The right one has bars; the one with a wrong check digit is text only.
    QCOMPARE(texts.mid(3), (QStringList{u"6901234567892"_qs, u"6901234567893"_qs}));
    QVERIFY(made.front().bars.size() >= 30);
    for (const QRectF &bar : made.front().bars)
        QVERIFY(QRectF(5, 29, 40, 12).adjusted(-0.01, -0.01, 0.01, 0.01).contains(bar));
}

void TestPrint::endlessPaper() {
    const QByteArray receipt =
        u"<report paper='58' margins='2'><band type='title' height='10'/>"
        "<band type='detail' height='5' data='line'><text h='5'>[line.name]</text></band>"
        "<band type='footer' height='7'><text h='5'>[sum(line.je)]</text></band></report>"_qs
            .toUtf8();
    const Pages made = layOut(readTemplate(receipt), lines(100));
    QCOMPARE(made.size(), size_t(1));
    QCOMPARE(made.front().paper, QSizeF(58, 2 + 10 + 500 + 7 + 2));
    QCOMPARE(made.front().texts.size(), size_t(101));
    QCOMPARE(overlaps(made.front()), QString());
}

void TestPrint::labels() {
    const Pages made =
        layOut(readTemplate(
                   u"<report paper='label' width='50' height='30' margins='1'><band type='detail'>"
                   "<text h='6'>[line.name]</text></band></report>"_qs.toUtf8()),
               lines(3));
    QCOMPARE(made.size(), size_t(3));
    QCOMPARE(made[2].paper, QSizeF(50, 30));
    QCOMPARE(textsOf(made[2]), QStringList{u"商品3"_qs});
}

void TestPrint::brokenTemplates_data() {
    QTest::addColumn<QString>("xml");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const QString &xml, const QString &error) {
        QTest::newRow(name) << xml << error;
    };
    row("empty", {}, u"报表模板第1行：文件不完整，缺少结束标签！"_qs);
    row("cut off", u"<report>\n<band type='title'>"_qs,
        u"报表模板第2行：文件不完整，缺少结束标签！"_qs);
    row("unmatched", u"<report>\n<band type='title'>\n</report>"_qs,
        u"报表模板第3行：标签书写有误，或没有正确配对！"_qs);
    row("no report", u"<html/>"_qs, u"报表模板第1行：最外层应为 <report>，而不是 <html>！"_qs);
    row("paper", u"<report paper='B5'/>"_qs,
        u"报表模板第1行：不认识的纸张“B5”，可用：A4、241x280、241x140、241x93、58、80、label！"_qs);
    row("number", u"<report>\n\n<band type='title' height='tall'/></report>"_qs,
        u"报表模板第3行：属性“height”的值“tall”不是 0 到 2000 之间的数字！"_qs);
    row("misspelt", u"<report><band type='title'><text algin='left'>a</text></band></report>"_qs,
        u"报表模板第1行：<text> 没有属性“algin”！"_qs);
    row("table", u"<report><band type='footer'><table/></band></report>"_qs,
        u"报表模板第1行：<table> 只能放在 detail 区域！"_qs);
    row("columns", u"<report><band type='detail'><table/></band></report>"_qs,
        u"报表模板第1行：<table> 中没有 <col>！"_qs);
    row("margins", u"<report paper='58' margins='29'/>"_qs,
        u"报表模板第1行：纸张太窄，左右边距之间不足 10 毫米！"_qs);
}

void TestPrint::brokenTemplates() {
    QFETCH(QString, xml);
    QFETCH(QString, error);
    QCOMPARE(errorOf(xml.toUtf8()), error);
}

/// What the user changed stays; what was spoilt is named; what is missing comes from the program.
void TestPrint::templatesOfTheHome() {
    QTemporaryDir home;
    installTemplates(home.path());
    const auto path = [&](const QString &name) { return home.filePath(u"report/"_qs + name); };
    const QStringList shipped = QDir(u":/report"_qs).entryList({u"*.fr3"_qs});
    QVERIFY(shipped.size() > 15);
    QCOMPARE(QDir(path({})).entryList({u"*.fr3"_qs}), shipped);
    QFile edited(path(u"spxs.fr3"_qs));
    QVERIFY(edited.open(QIODevice::WriteOnly));
    edited.write("<report name='own' paper='A4'>");
    edited.close();
    installTemplates(home.path());
    try {
        (void)loadTemplate(home.path(), u"spxs.fr3"_qs);
        QFAIL("read a broken file");
    } catch (const TemplateError &error) {
        QCOMPARE(error.text(), u"spxs.fr3：报表模板第1行：文件不完整，缺少结束标签！"_qs);
    }
    QVERIFY(QFile::remove(path(u"cgjh.fr3"_qs)));
    QCOMPARE(loadTemplate(home.path(), u"cgjh.fr3"_qs).name, u"采购进货单"_qs);
    QVERIFY_EXCEPTION_THROWN((void)loadTemplate(home.path(), u"nothing.fr3"_qs), TemplateError);
}

/// What a sale's paper says, figure by figure.
void TestPrint::documents() {
    Shop shop;
    shop.addGoods(u"G2"_qs);
    shop.addGoods(u"G1"_qs);
    DraftLine in{.goods = u"G2"_qs};
    in.quantity = 20;
    in.price = 3;
    in.batch = {u"B1"_qs, u"2027-01-31"_qs, u"2026-01-31"_qs};
    shop.post(u"CJ"_qs, day(1), {in});
    in.price = 5;
    in.quantity = 4;
    in.discount = 0.9_d;
    in.buyer = u"张三"_qs;
    in.identityNo = u"330102198001011234"_qs;
    DraftLine other{.goods = u"G1"_qs};
    other.quantity = 1.5_d;
    other.price = 2;
    other.gift = u"(赠品)"_qs;
    const QString first = shop.post(u"XS"_qs, day(2), {in, other}, onAccount);
    const QString number = shop.save(u"XS"_qs, day(3), {in, other}, [](Draft &d) { d.paid = 1; });
    shop.set(u"cs_ts"_qs, u"货物出门，概不退换"_qs);

    PrintData data = documentData(shop.session, number);
    const auto head = [&](const QString &name) { return data.shown(data.head.value(name)); };
    const auto line = [&](size_t i, const QString &name) {
        return data.shown(data.lines[i].value(name));
    };
    QCOMPARE(head(u"number"_qs), number);
    QCOMPARE(head(u"title"_qs), u"商品销售单"_qs);
    QCOMPARE(head(u"due"_qs) + u' ' + head(u"paid"_qs) + u' ' + head(u"rest"_qs),
             u"18.00 1.00 17.00"_qs);
    QCOMPARE(head(u"before"_qs) + u' ' + head(u"after"_qs), u"18.00 35.00"_qs);
    QCOMPARE(head(u"buyers"_qs), u"购买人：张三 330102********1234"_qs);
    QCOMPARE(data.vars.value(u"foot"_qs).text, u"货物出门，概不退换"_qs);
    QVERIFY(line(1, u"g_name"_qs).endsWith(u"(赠品)"_qs));
    QCOMPARE(line(0, u"ls_sl"_qs) + u' ' + line(0, u"ls_zje"_qs) + u' ' + line(0, u"discount"_qs),
             u"4 18.00 0.9"_qs);
    QCOMPARE(line(1, u"ls_sl"_qs) + line(1, u"discount"_qs), u"1.5"_qs);

    // Approved: the balances around it are those of the ledger.
    data = documentData(shop.session, first);
    QCOMPARE(head(u"before"_qs) + u' ' + head(u"after"_qs), u"0.00 18.00"_qs);

    shop.set(u"cs_dysx"_qs, 1);
    data = documentData(shop.session, number);
    QCOMPARE(line(0, u"g_sn"_qs), u"G1"_qs);
    QCOMPARE(line(0, u"no"_qs), u"1"_qs);
    try {
        (void)documentData(shop.session, u"XS99999999"_qs);
        QFAIL("found nothing");
    } catch (const Refusal &) {
    }
}

/// Purchase prices and costs are not there for those who may not see them, whatever the template.
void TestPrint::secrets() {
    Shop shop;
    shop.addGoods(u"G1"_qs);
    DraftLine in{.goods = u"G1"_qs};
    in.quantity = 20;
    in.price = 3;
    const QString receipt = shop.post(u"CJ"_qs, day(1), {in});
    const QString sale = shop.post(u"XS"_qs, day(2), {in});
    Session clerk = shop.clerk(u"cggl"_qs, {1});
    QVERIFY(!clerk.rights.showCostPrice);

    const PrintData bought = documentData(clerk, receipt), sold = documentData(clerk, sale);
    for (const PrintFields *fields : {&bought.head, &bought.lines.front()})
        for (auto field = fields->begin(); field != fields->end(); ++field)
            QVERIFY2(field->kind != ValueKind::amount &&
                         (field->kind != ValueKind::price || field.key() == u"g_lsj"_qs),
                     qPrintable(field.key()));
    QVERIFY(sold.lines.front().contains(u"ls_zje"_qs));
    for (const QString &cost : {u"ls_cbj"_qs, u"ls_zcb"_qs})
        QVERIFY(!sold.lines.front().contains(cost));
    const auto files = [&](const Session &session, const QString &number) {
        QStringList names;
        const DocumentKind &kind = *findDocumentKind(number);
        for (const auto &choice : templateChoices(session, kind, documentData(session, number)))
            names << choice.file;
        return names;
    };
    QCOMPARE(files(clerk, receipt), QStringList{u"cgjh2.fr3"_qs});
    QCOMPARE(files(shop.session, receipt), (QStringList{u"cgjh.fr3"_qs, u"cgjh2.fr3"_qs}));
    QCOMPARE(files(shop.session, sale).front(), u"spxs3.fr3"_qs); // cs_lsj is on in a new set
    shop.set(u"cs_lsj"_qs, 0);
    QCOMPARE(files(shop.session, sale).front(), u"spxs.fr3"_qs);
}

/// Every template with a document of every kind, as the demo shop has them, in PDF files. The
/// folder JXC_PRINT_DIR keeps them to look at.
void TestPrint::demoDocuments() {
    Shop shop;
    resetAllTables(shop.db, QDate(2026, 3, 1));
    shop.db.execute(u"update jxc_company set c_name=?,c_tele=?,c_address=?"_qs,
                    {u"青禾县丰收农资经营部", u"0571-88880000", u"青禾县城关镇人民路 18 号"});
    shop.set(u"cs_ts"_qs, u"货物当面点清；农药属有毒物品，请妥善保管、按标签使用"_qs);
    {
        Transaction transaction(shop.db);
        loadDemoMasterData(shop.session, {});
        transaction.commit();
    }
    loadGlobals(shop.session);
    playDemoTrade(shop.session, shop.clock, {QDate(2026, 3, 1), 20, 7});
    shop.addGoods(u"G1"_qs); // the demo issues all its goods at once
    DraftLine line{.goods = u"G1"_qs};
    line.quantity = 3;
    line.price = 10;
    shop.post(u"CJ"_qs, day(20), {line});
    shop.follow(shop.post(u"XS"_qs, day(20), {line}, laterOnAccount), 2);
    QTemporaryDir folder;
    const QString kept = qEnvironmentVariable("JXC_PRINT_DIR", folder.path());
    const bool reads = !QStandardPaths::findExecutable(u"pdftotext"_qs).isEmpty();
    for (const DocumentKind &kind : documentKinds()) {
        const QString number = shop.db.scalar(
            QStringLiteral("select %1 from %2 group by %1 order by count(*) desc,%1 limit 1")
                .arg(kind.numberColumn, kind.lineTable));
        QVERIFY2(!number.isEmpty(), qPrintable(kind.title));
        const PrintData data = documentData(shop.session, number);
        for (const TemplateChoice &choice : templateChoices(shop.session, kind, data)) {
            const Pages pages = layOut(loadTemplate(folder.path(), choice.file), data);
            for (const Page &page : pages)
                QVERIFY2(overlaps(page).isEmpty(), qPrintable(choice.file + overlaps(page)));
            const QStringList texts = textsOf(pages.front());
            QVERIFY(texts.contains(u"单号："_qs + number));
            QVERIFY(texts.contains(data.shown(data.lines.front().value(kind.quantityColumn))));
            const QString file = kept + u'/' + choice.file.chopped(3) + u"pdf"_qs;
            QVERIFY(writePdf(pages, number, file));
            QVERIFY(QFileInfo(file).size() > 5000);
            if (!reads)
                continue;
            const QString text = textOfPdf(file);
            QCOMPARE(text.count(u'\f'), static_cast<qsizetype>(pages.size()));
            for (const QString &expected : {kind.title, data.head.value(u"date"_qs).text,
                                            data.head.value(u"ck_name"_qs).text})
                QVERIFY2(text.contains(expected), qPrintable(choice.file + u' ' + expected));
        }
    }
}

QTEST_MAIN(TestPrint)
#include "test_print.moc"
