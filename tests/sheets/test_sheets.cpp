#include "sheets/cell_text.h"
#include "sheets/csv.h"
#include "sheets/read.h"
#include "sheets/write.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <zip.h>

using namespace jxc;

namespace {

QString u(const char *text) {
    return QString::fromUtf8(text);
}

/// The parts of a spreadsheet file, put together by hand so that the tests say what is in them.
class XlsxParts {
public:
    XlsxParts() {
        add("_rels/.rels", "<Relationships><Relationship Id='rId1' Type='http://x/officeDocument' "
                           "Target='xl/workbook.xml'/></Relationships>");
        add("xl/workbook.xml",
            "<workbook xmlns:r='urn:r'><sheets><sheet name='商品' r:id='rId1'/>"
            "<sheet name='暗表' state='hidden' r:id='rId2'/></sheets></workbook>");
        add("xl/_rels/workbook.xml.rels",
            "<Relationships><Relationship Id='rId1' Type='http://x/worksheet' "
            "Target='worksheets/sheet1.xml'/><Relationship Id='rId2' Type='http://x/worksheet' "
            "Target='/xl/worksheets/sheet2.xml'/><Relationship Id='rId3' "
            "Type='http://x/sharedStrings' Target='sharedStrings.xml'/><Relationship Id='rId4' "
            "Type='http://x/styles' Target='styles.xml'/></Relationships>");
        add("xl/styles.xml",
            "<styleSheet><numFmts><numFmt numFmtId='176' formatCode='yyyy\"年\"m\"月\"d\"日\";@'/>"
            "<numFmt numFmtId='177' formatCode='000000'/></numFmts><cellStyleXfs><xf "
            "numFmtId='14'/></cellStyleXfs><cellXfs><xf numFmtId='0'/><xf numFmtId='176'/><xf "
            "numFmtId='22'/><xf numFmtId='177'/></cellXfs></styleSheet>");
        add("xl/sharedStrings.xml",
            "<sst><si><t>品名</t></si><si><r><t>吡虫</t></r><r><rPr/><t "
            "xml:space='preserve'>啉 </t></r><rPh><t>bcl</t></rPh></si></sst>");
        add("xl/worksheets/sheet2.xml", "<worksheet><sheetData><row><c><v>1</v></c></row>"
                                        "</sheetData></worksheet>");
    }
    void add(const char *name, const QByteArray &content) { m_parts[QByteArray(name)] = content; }
    void addRows(const QByteArray &rows) {
        add("xl/worksheets/sheet1.xml",
            "<worksheet><sheetData>" + rows + "</sheetData></worksheet>");
    }

    void write(const QString &path) const {
        zip_t *zip =
            zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        for (const auto &[name, content] : m_parts)
            zip_file_add(zip, name.constData(),
                         zip_source_buffer(zip, content.constData(),
                                           static_cast<zip_uint64_t>(content.size()), 0),
                         ZIP_FL_ENC_UTF_8);
        QCOMPARE(zip_close(zip), 0);
    }

private:
    std::map<QByteArray, QByteArray> m_parts;
};

void writeFile(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString faultOf(const QString &path) {
    try {
        return QStringLiteral("read: ") + readSheets(path).front().name;
    } catch (const SheetError &error) {
        return error.userText();
    }
}

SheetTable smallTable() {
    using Kind = SheetColumn::Kind;
    SheetTable table{u("库存表 2026-03"), u("库存[1]"), {}, {}};
    table.columns = {{u("编号"), Kind::text, 0, 12, false},
                     {u("数量"), Kind::number, 2, 0, true},
                     {u("日期"), Kind::date, 0, 0, false},
                     {u("备注"), Kind::text, 0, 0, false}};
    table.rows = {{u("00000001"), u("0.1"), u("2026-03-31"), u("=1+1")},
                  {u("00000002"), u("0.2"), u("不详"), u("-5")},
                  {u("00000003"), u("约三"), {}, u("@\"引号\",逗号")}};
    return table;
}

} // namespace

class TestSheets : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void numbersAreExactDecimals();
    void formatsTellDatesFromNumbers();
    void readsXlsx();
    void readsXls();
    void readsTextFiles_data();
    void readsTextFiles();
    void saysWhatIsWrong();
    void refusesBombs();
    void damagedFilesNeverCrash();
    void writesWhatItReads();
    void textFilesCannotBringFormulas();
    void leavesTheOldFileWhenWritingFails();

private:
    [[nodiscard]] QString path(const char *name) const { return m_folder.filePath(u(name)); }
    QTemporaryDir m_folder;
};

void TestSheets::numbersAreExactDecimals() {
    const std::pair<const char *, const char *> cases[] = {
        {"12.30", "12.3"},
        {"0.30000000000000004", "0.3"},
        {"12.300000000000001", "12.3"},
        {"99.99999999999999999", "100"},
        {"6.901234567892E12", "6901234567892"},
        {"12345678901234567890", "12345678901234567890"}, // a trace code loses no digit
        {"1.5E-7", "0.00000015"},
        {"-0.50", "-0.5"},
        {".5", "0.5"},
        {"-0", "0"},
        {"1E999", "1E999"},
        {"PD2020", "PD2020"},
    };
    for (const auto &[raw, expected] : cases)
        QCOMPARE(numberText(u(raw)), u(expected));
}

void TestSheets::formatsTellDatesFromNumbers() {
    const auto shown = [](const char *raw, const char *pattern) {
        return numericCellText(u(raw), cellFormat(0, u(pattern)), false);
    };
    QCOMPARE(shown("46112", "yyyy/m/d;@"), u("2026-03-31"));
    QCOMPARE(shown("46112.430555555555", "[$-804]yyyy\"年\"m\"月\"d\"日\" h:mm"),
             u("2026-03-31 10:20:00"));
    QCOMPARE(shown("44927.0000058", "yyyy-mm-dd hh:mm:ss"), u("2023-01-01"));
    QCOMPARE(shown("0.25", "h:mm"), u("06:00:00"));
    QCOMPARE(shown("59", "m/d"), u("1900-02-28"));
    QCOMPARE(shown("61", "m/d"), u("1900-03-01"));
    // Colours, quoted units and scientific numbers hold letters, but no dates.
    QCOMPARE(shown("12.5", "0.00_);[Red]\\(0.00\\)"), u("12.5"));
    QCOMPARE(shown("12.5", "#,##0.00\"days\""), u("12.5"));
    QCOMPARE(shown("1250", "0.00E+00"), u("1250"));
    QCOMPARE(shown("12", "00000000"), u("00000012"));
    QCOMPARE(shown("-3", "yyyy-mm-dd"), u("-3"));
    QCOMPARE(shown("99999999", "yyyy-mm-dd"), u("99999999"));
    QCOMPARE(numericCellText(u"44650", cellFormat(14, {}), true), u("2026-03-31"));
    QCOMPARE(numericCellText(u"46112", cellFormat(31, {}), false), u("2026-03-31"));
    QCOMPARE(numericCellText(u"46112", cellFormat(2, {}), false), u("46112"));
}

void TestSheets::readsXlsx() {
    XlsxParts parts;
    parts.addRows("<row r='2'><c r='A2' t='s'><v>0</v></c><c r='C2' t='inlineStr'><is><t>进价"
                  "</t></is></c></row>"
                  "<row><c t='s'><v>1</v></c><c s='1'><v>46112</v></c><c><v>0.30000000000000004"
                  "</v></c><c s='2'><v>46112.5</v></c><c s='3'><v>12</v></c></row>"
                  "<row r='5'><c r='AB5' t='str'><f>A1</f><v>甲_x0041_乙</v></c><c r='AC5' "
                  "t='b'><v>1</v></c><c r='AD5' t='e'><v>#N/A</v></c></row>");
    parts.write(path("hand.xlsx"));
    const std::vector<Sheet> sheets = readSheets(path("hand.xlsx"));
    QCOMPARE(sheets.size(), size_t(1)); // the hidden one is not offered
    QCOMPARE(sheets[0].name, u("商品"));
    const auto &rows = sheets[0].rows;
    QCOMPARE(rows.size(), size_t(5));
    QVERIFY(rows[0].isEmpty() && rows[3].isEmpty());
    QCOMPARE(rows[1], QStringList({u("品名"), {}, u("进价")}));
    QCOMPARE(rows[2], QStringList({u("吡虫啉"), u("2026-03-31"), u("0.3"), u("2026-03-31 12:00:00"),
                                   u("000012")}));
    QCOMPARE(rows[4].mid(27), QStringList({u("甲A乙"), u("TRUE"), u("#N/A")}));
}

void TestSheets::readsXls() {
    const std::vector<Sheet> sheets = readSheets(QStringLiteral(JXC_FIXTURES "/two_sheets.xls"));
    QCOMPARE(sheets.size(), size_t(2));
    QCOMPARE(sheets[0].rows[1], QStringList({u("00000001"), u("吡虫啉"), u("12.3"),
                                             u("6901234567892"), u("2026-03-31")}));
    QCOMPARE(sheets[0].rows[2],
             QStringList({u("00000002"), {}, u("0.3"), {}, u("2026-03-31 10:20:00")}));
    QCOMPARE(sheets[1].name, u("客户"));
    QVERIFY(sheets[1].rows[0].isEmpty());
    QCOMPARE(sheets[1].rows[1], QStringList{u("王大田")});
}

void TestSheets::readsTextFiles_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8") << QByteArray("编码,品名\n1,\"草甘膦, \"\"水剂\"\"\"\n");
    QTest::newRow("marked") << QByteArray("\xef\xbb\xbf编码,品名\r\n1,\"草甘膦, \"\"水剂\"\"\"");
    QTest::newRow("semicolons") << QByteArray(
        "\xef\xbb\xbf编码;品名\r1;\"草甘膦, \"\"水剂\"\"\"\r");
    QTest::newRow("tabs") << QByteArray("编码\t 品名 \r\n1\t草甘膦, \"水剂\"\r\n\r\n");
    // the same in GB18030
    QTest::newRow("GB18030") << QByteArray(
        "\xb1\xe0\xc2\xeb,\xc6\xb7\xc3\xfb\r\n1,\"\xb2\xdd\xb8\xca"
        "\xec\xa2, \"\"\xcb\xae\xbc\xc1\"\"\"\r\n");
    QByteArray utf16("\xff\xfe", 2);
    const QString text = u("编码\t品名\r\n1\t草甘膦, \"水剂\"\r\n");
    utf16.append(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    QTest::newRow("UTF-16, as spreadsheet programs save Unicode text") << utf16;
}

void TestSheets::readsTextFiles() {
    QFETCH(QByteArray, bytes);
    writeFile(path("list.xls"), bytes); // the content counts, not the name
    const std::vector<Sheet> sheets = readSheets(path("list.xls"));
    QCOMPARE(sheets.front().name, u("list"));
    QCOMPARE(sheets.front().rows.at(0), QStringList({u("编码"), u("品名")}));
    QCOMPARE(sheets.front().rows.at(1), QStringList({u("1"), u("草甘膦, \"水剂\"")}));
    QCOMPARE(sheets.front().rows.size(), size_t(2));
}

void TestSheets::saysWhatIsWrong() {
    QCOMPARE(faultOf(path("none.xlsx")), u("文件不存在：") + path("none.xlsx"));
    const auto fault = [this](const QByteArray &bytes) {
        writeFile(path("bad.xlsx"), bytes);
        return faultOf(path("bad.xlsx"));
    };
    const QByteArray ole("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8);
    const QByteArray encrypted("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32);
    QCOMPARE(fault(" \r\n"), u("文件是空的！"));
    QCOMPARE(fault(",,\n,,\n"), u("文件里没有数据！"));
    QCOMPARE(fault("编码,品名\n1,\"草甘膦\n2,x\n"), u("第2行的引号没有结束，请检查！"));
    QCOMPARE(fault("<html><table>"),
             u("文件的内容是网页，请用表格软件打开并另存为 xlsx 格式后再试！"));
    QCOMPARE(fault(QByteArray("\x89PNG\0\0", 6)),
             u("不能识别文件的格式或文字编码，请另存为 xlsx、xls 或 csv！"));
    QCOMPARE(fault("PK\x03\x04 and no more"), u("文件已损坏或不完整，不能读取！"));
    QCOMPARE(fault(ole + QByteArray(2000, '\0')), u("文件已损坏或不完整，不能读取！"));
    const QString password = u("文件有密码保护，请用表格软件打开、取消密码并保存后再试！");
    QCOMPARE(fault(ole + QByteArray(504, '\0') + encrypted), password);
    QByteArray xls = readFile(QStringLiteral(JXC_FIXTURES "/two_sheets.xls"));
    const QByteArray codePage("\x42\0\x02\0", 4); // becomes the record that announces a password
    QVERIFY(xls.contains(codePage));
    QCOMPARE(fault(xls.replace(codePage, QByteArray("\x2f\0\x02\0", 4))), password);
    zip_t *zip = zip_open(QFile::encodeName(path("other.xlsx")).constData(), ZIP_CREATE, nullptr);
    zip_file_add(zip, "content.xml", zip_source_buffer(zip, "<x/>", 4, 0), 0);
    zip_close(zip);
    QCOMPARE(faultOf(path("other.xlsx")), u("不是表格文件，请另存为 xlsx、xls 或 csv 格式！"));
}

void TestSheets::refusesBombs() {
    const auto fault = [this](const XlsxParts &parts) {
        parts.write(path("bomb.xlsx"));
        return faultOf(path("bomb.xlsx"));
    };
    XlsxParts corner;
    corner.addRows("<row r='1048576'><c r='A1048576'><v>1</v></c></row>");
    QVERIFY(fault(corner).startsWith(u("表格的行数太多")));
    corner.addRows("<row r='1'><c r='XFD1'><v>1</v></c></row>");
    QVERIFY(fault(corner).startsWith(u("表格的列数太多")));
    QByteArray wide;
    for (int row = 1; row <= 12'100; ++row)
        wide += "<row><c r='SF" + QByteArray::number(row) + "'><v>1</v></c></row>";
    corner.addRows(wide);
    QVERIFY(fault(corner).startsWith(u("表格的内容太多")));
    XlsxParts blownUp; // 320 MB of blanks pack into 300 KB
    blownUp.addRows(QByteArray(320 * 1024 * 1024, ' '));
    QCOMPARE(fault(blownUp), u("文件太大，不能读取，请分成几个文件！"));
    XlsxParts entities;
    entities.add("xl/worksheets/sheet1.xml",
                 "<!DOCTYPE w [<!ENTITY a 'xxxxxxxxxx'><!ENTITY b '&a;&a;&a;&a;'>]><worksheet>"
                 "<sheetData><row><c t='str'><v>&b;</v></c></row></sheetData></worksheet>");
    QCOMPARE(fault(entities), u("文件已损坏或不完整，不能读取！"));
}

/// Every file cut short or with a byte turned gives a table or a text for the user, nothing else.
void TestSheets::damagedFilesNeverCrash() {
    XlsxParts parts;
    parts.addRows("<row><c t='s'><v>1</v></c><c s='1'><v>46112</v></c></row>");
    parts.write(path("whole.xlsx"));
    for (const QString &file :
         {path("whole.xlsx"), QStringLiteral(JXC_FIXTURES "/two_sheets.xls")}) {
        const QByteArray whole = readFile(file);
        QVERIFY(faultOf(file).startsWith(u("read: ")));
        int refused = 0;
        for (qsizetype i = 1; i < whole.size(); i += 37) {
            writeFile(path("cut"), whole.left(i));
            refused += faultOf(path("cut")).startsWith(u("read: ")) ? 0 : 1;
            QByteArray turned = whole;
            turned[i] = static_cast<char>(~turned[i]);
            writeFile(path("turned"), turned);
            QVERIFY(!faultOf(path("turned")).isEmpty());
        }
        QVERIFY(refused > 10);
    }
    // A length that the library for .xls trusts: it reads far beyond the file and is killed.
    QByteArray xls = readFile(QStringLiteral(JXC_FIXTURES "/two_sheets.xls"));
    xls[2045] = 0x7f;
    writeFile(path("fatal.xls"), xls);
    QCOMPARE(faultOf(path("fatal.xls")), u("文件已损坏或不完整，不能读取！"));
}

void TestSheets::writesWhatItReads() {
    const SheetTable table = smallTable();
    writeSheet(table, path("out.xlsx"));
    const Sheet sheet = readSheets(path("out.xlsx")).front();
    QCOMPARE(sheet.name, u("库存_1_"));
    QCOMPARE(sheet.rows.at(0), QStringList{table.title});
    QCOMPARE(sheet.rows.at(1), QStringList({u("编号"), u("数量"), u("日期"), u("备注")}));
    for (size_t i = 0; i < table.rows.size(); ++i)
        QCOMPARE(sheet.rows.at(i + 2), table.rows[i]);
    QCOMPARE(sheet.rows.at(5).mid(0, 2), QStringList({u("合计"), u("0.3")}));

    writeSheet(table, path("out.CSV"));
    const Sheet text = readSheets(path("out.CSV")).front();
    for (size_t i = 0; i < table.rows.size(); ++i)
        QCOMPARE(text.rows.at(i + 1), table.rows[i]);
    QCOMPARE(text.rows.at(4), QStringList({u("合计"), u("0.3")}));
}

void TestSheets::textFilesCannotBringFormulas() {
    const QByteArray text =
        csvText({{u("=HYPERLINK(1)"), u("-5"), u("+86 137"), u("a,b"), u(" x")}});
    QCOMPARE(text, QByteArray("\xef\xbb\xbf'=HYPERLINK(1),-5,'+86 137,\"a,b\",\" x\"\r\n"));
    QCOMPARE(readCsv(text).front(),
             QStringList({u("=HYPERLINK(1)"), u("-5"), u("+86 137"), u("a,b"), u(" x")}));
}

void TestSheets::leavesTheOldFileWhenWritingFails() {
    SheetTable table = smallTable();
    writeFile(path("kept.xlsx"), "old");
    table.rows.push_back({QString(40'000, u'字')});
    QVERIFY_EXCEPTION_THROWN(writeSheet(table, path("kept.xlsx")), SheetError);
    QCOMPARE(readFile(path("kept.xlsx")), QByteArray("old"));
    QVERIFY_EXCEPTION_THROWN(writeSheet(table, path("nowhere/out.csv")), SheetError);
    QVERIFY_EXCEPTION_THROWN(writeSheet(table, path("nowhere/out.xlsx")), SheetError);
    QVERIFY(QDir(m_folder.path()).entryList({QStringLiteral("*.part")}).isEmpty());
    table.rows.pop_back();
    writeSheet(table, path("kept.xlsx"));
    QCOMPARE(readSheets(path("kept.xlsx")).size(), size_t(1));
}

QTEST_GUILESS_MAIN(TestSheets)
#include "test_sheets.moc"
