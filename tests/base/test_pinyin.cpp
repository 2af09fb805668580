#include "base/pinyin.h"

#include <QTest>

using namespace jxc;

class TestPinyin : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initials_data();
    void initials();
    void everyCharacterHasALetter();
    void readings();
    void match_data();
    void match();
};

void TestPinyin::initials_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *expected) {
        QTest::addRow("%s", name) << QString::fromUtf8(name) << QString::fromUtf8(expected);
    };
    // The default rows of a new account set.
    row("所有类别", "SYLB");
    row("默认类别", "MRLB");
    row("优惠商品", "YHSP");
    row("主仓库", "ZCK");
    row("普通供货商", "PTGHS");
    row("普通客户", "PTKH");
    row("默认员工", "MRYG");
    // Characters of several readings, as the trade reads them in the word.
    row("重楼", "CL");
    row("抗重茬菌剂", "KCCJJ");
    row("重过磷酸钙", "ZGLSG");
    row("长效尿素", "CXNS");
    row("植物生长调节剂", "ZWSZTJJ");
    row("氧化乐果", "YHLG");
    row("调环酸钙", "THSG");
    row("稻瘟灵", "DWL");
    row("地黄", "DH");
    row("行军虫", "XJC");
    row("敌敌畏", "DDW");
    row("吡虫啉", "BCL");
    row("炔螨特", "QMT");
    row("甲哌鎓", "JPW");
    row("噁霉灵", "EML");
    row("莪术醇", "EZC");
    row("烟碱·苦参碱", "YJKSJ");
    row("多粘类芽孢杆菌", "DNLYBGJ");
    row("长茄", "CQ");
    row("阿维·三唑磷", "AWSZL");
    row("代森锰锌", "DSMX");
    row("绿僵菌", "LJJ");
    row("农村信用社银行", "NCXYSYH");
    // Places and people; a place's name begins where a longer word could swallow its first sign.
    row("重庆", "CQ");
    row("长沙", "CS");
    row("厦门", "XM");
    row("浙江省长兴县", "ZJSCXX");
    row("吉林省长春市长双农药", "JLSCCSCSNY");
    row("曾国强", "ZGQ");
    row("農藥", "NY");
    // Letters, digits and what is dropped.
    row("2,4-滴丁酯", "24DDZ");
    row("50%多菌灵 可湿性粉剂(wp)", "50DJLKSXFJWP");
    row("Ｓ－诱抗素２号", "SYKS2H");
    row("高效Ⅱ型", "GXIIX");
    row("二〇二四款", "ELESK");
    row("α-氯氰菊酯", "LQJZ");
    row(" ·（）", "");
    row("", "");
}

void TestPinyin::initials() {
    QFETCH(const QString, name);
    QTEST(pinyinInitials(name), "expected");
}

void TestPinyin::everyCharacterHasALetter() {
    int without = 0;
    for (char16_t c = 0x4E00; c <= 0x9FA5; ++c) {
        const QString letters = pinyinInitials(QString(QChar(c)));
        if (letters.isEmpty())
            ++without;
        QVERIFY(letters.isEmpty() || (letters >= u"A" && letters <= u"Z" && letters != u"I" &&
                                      letters != u"U" && letters != u"V"));
    }
    QVERIFY2(without <= 10, qPrintable(QString::number(without)));
}

void TestPinyin::readings() {
    const QStringList found = pinyinReadings(QString::fromUtf8("长沙2号"));
    QCOMPARE(found, QStringList({QStringLiteral("CZ"), QStringLiteral("S"), QStringLiteral("2"),
                                 QStringLiteral("H")}));
    // The word decides which comes first, and the others stay.
    const QStringList governed = pinyinReadings(QString::fromUtf8("生长"));
    QCOMPARE(governed.value(1), QStringLiteral("ZC"));
    QCOMPARE(pinyinReadings(QString::fromUtf8("、")), QStringList());
}

void TestPinyin::match_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("expected");
    const auto row = [](const char *name, const char *typed, bool expected) {
        QTest::addRow("%s %s", name, typed)
            << QString::fromUtf8(name) << QString::fromUtf8(typed) << expected;
    };
    row("重楼种子", "cl", true);
    row("重楼种子", "zlzz", true);
    row("重楼种子", "clzzx", false);
    row("重楼种子", "lz", false);
    row("查小林", "zxl", true);
    row("单建国", "sjg", true);
    row("咯菌腈", "gjj", true);
    row("2,4-滴丁酯", "24d", true);
    row("2,4-滴丁酯", "2,4-d", true);
    row("吡虫啉", "ＢＣ", true);
    row("吡虫啉", "b c", true);
    row("吡虫啉", "", true);
    row("吡虫啉", "吡", false);
    row("", "b", false);
}

void TestPinyin::match() {
    QFETCH(const QString, name);
    QFETCH(const QString, typed);
    QTEST(initialsMatch(name, typed), "expected");
    // What is stored beside the name always finds it.
    QVERIFY(initialsMatch(name, pinyinInitials(name)));
}

QTEST_APPLESS_MAIN(TestPinyin)
#include "test_pinyin.moc"
