#include "base/capitals.h"
#include "base/dates.h"
#include "base/pairs.h"
#include "base/sanitize.h"

#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

using namespace jxc;

class TestText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dateIsADayInTheFixedForm_data();
    void dateIsADayInTheFixedForm();
    void datesLookTheSameEverywhere();
    void weekdays();
    void sanitisers_data();
    void sanitisers();
    void capitals_data();
    void capitals();
    void queryPairs();
    void xmlPairsAreReadBack();
    void tokens();
};

void TestText::dateIsADayInTheFixedForm_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    const auto row = [](const char *text, bool valid) {
        QTest::addRow("%s", text) << QString::fromUtf8(text) << valid;
    };
    row("2024-02-29", true);
    row("1900-01-01", true);
    row("2023-02-29", false);
    row("2024-04-31", false);
    row("2024-13-01", false);
    row("2024-00-10", false);
    row("0000-01-01", false);
    row("2024-2-9", false);
    row("2024/02/09", false);
    row("2024-02-09 ", false);
    row("2024-02-+9", false);
    row("2024- 2-09", false);
    row("２０２４-02-09", false);
    row("2024-02-09 10:00:00", false);
    row("", false);
}

void TestText::dateIsADayInTheFixedForm() {
    QFETCH(const QString, text);
    QFETCH(const bool, valid);
    QCOMPARE(isDate(text), valid);
    QCOMPARE(toDateText(parseDate(text)), valid ? text : QString());
    if (!valid)
        QVERIFY_THROWS_EXCEPTION(DateError, static_cast<void>(dateDigits(text)));
}

void TestText::datesLookTheSameEverywhere() {
    const QDateTime moment(QDate(2024, 11, 9), QTime(7, 5, 3));
    for (const QLocale::Language language : {QLocale::Chinese, QLocale::Arabic, QLocale::English}) {
        QLocale::setDefault(QLocale(language));
        QCOMPARE(toDateText(moment.date()), QStringLiteral("2024-11-09"));
        QCOMPARE(toTimeStampText(moment), QStringLiteral("2024-11-09 07:05:03"));
    }
    QLocale::setDefault(QLocale::c());
    QCOMPARE(toTimeStampText({}), QString());
    QCOMPARE(dateDigits(u"2024-11-09"), QStringLiteral("241109"));
    QCOMPARE(dateDigits(u"2005-01-31"), QStringLiteral("050131"));
    QCOMPARE(monthOf(u"2024-11-09 07:05:03"), QStringLiteral("2024-11"));
}

void TestText::weekdays() {
    QCOMPARE(weekdayName(1), QStringLiteral("星期日 "));
    QCOMPARE(weekdayName(7), QStringLiteral("星期六 "));
    QCOMPARE(weekdayName(0), QString());
    QCOMPARE(weekdayName(8), QString());
    QCOMPARE(weekdayName(QDate(2024, 11, 10)), QStringLiteral("星期日 "));
    QCOMPARE(weekdayName(QDate(2024, 11, 11)), QStringLiteral("星期一 "));
    QCOMPARE(weekdayName(QDate(2024, 11, 16)), QStringLiteral("星期六 "));
}

void TestText::sanitisers_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("codes");
    const auto row = [](const char16_t *typed, const char16_t *words, const char16_t *codes) {
        QTest::addRow("%s", qUtf8Printable(QString::fromUtf16(typed)))
            << QString::fromUtf16(typed) << QString::fromUtf16(words) << QString::fromUtf16(codes);
    };
    row(u"'?%!$&,@~\"", u"‘？％！￥＆，＠～“", u"‘？％！￥＆，＠～“");
    row(u".()+-/", u"．（）＋－／", u".()+-/");
    row(u"a^b`c*#", u"abc*#", u"abc*#");
    row(u"it''s", u"it‘‘s", u"it‘‘s");
    row(u"敌敌畏 80%乳油;Abc_1", u"敌敌畏 80％乳油;Abc_1", u"敌敌畏 80％乳油;Abc_1");
    row(u"^", u"", u"");
}

void TestText::sanitisers() {
    QFETCH(const QString, typed);
    QTEST(sanitizeSqlText(typed), "words");
    QTEST(sanitizeSqlTextLight(typed), "codes");
    // A stored text that is typed again must meet itself.
    QCOMPARE(sanitizeSqlText(sanitizeSqlText(typed)), sanitizeSqlText(typed));
}

void TestText::capitals_data() {
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *amount, const char16_t *expected) {
        QTest::addRow("%s", amount) << QString::fromUtf8(amount) << QString::fromUtf16(expected);
    };
    // Nothing, and what is only called nothing.
    row("0", u"零元整");
    row("000", u"零元整");
    row("0.00", u"零元整");
    row("0.001", u"零元整");
    row("-0", u"负零元整");
    // Below one yuan.
    row("0.5", u"伍角");
    row("0.50", u"伍角");
    row(".5", u"伍角");
    row(".05", u"伍分");
    row("0.05", u"零伍分");
    row("00.1", u"壹角");
    row("0.99", u"玖角玖分");
    // Zeros between digits, at the end of a group, and over a whole group.
    row("001", u"壹元整");
    row("1.", u"壹元整");
    row("01.1", u"壹元壹角");
    row("1.05", u"壹元零伍分");
    row("10.01", u"壹拾元零壹分");
    row("12", u"壹拾贰元整");
    row("1000", u"壹仟元整");
    row("1010", u"壹仟零壹拾元整");
    row("2421.02", u"贰仟肆佰贰拾壹元零贰分");
    row("-12.30", u"负壹拾贰元叁角");
    row("20000.00", u"贰万元整");
    row("100111.11", u"壹拾万零壹佰壹拾壹元壹角壹分");
    row("3456789", u"叁佰肆拾伍万陆仟柒佰捌拾玖元整");
    row("4000000.00", u"肆佰万元整");
    row("100001001", u"壹亿零壹仟零壹元整");
    row("200000000.00", u"贰亿元整");
    row("1001000021", u"壹拾亿零壹佰万零贰拾壹元整");
    row("2000000000000.00", u"贰万亿元整");
    row("12000000002421", u"壹拾贰万亿零贰仟肆佰贰拾壹元整");
    row("12000012412421", u"壹拾贰万亿零壹仟贰佰肆拾壹万贰仟肆佰贰拾壹元整");
    row("12412412412421.12", u"壹拾贰万亿肆仟壹佰贰拾肆亿壹仟贰佰肆拾壹万贰仟肆佰贰拾壹元壹角贰分");
    row("10000000000000000", u"壹亿亿元整");
    // Decimals beyond the fen are cut.
    row("10.019", u"壹拾元零壹分");
    row("0.999", u"玖角玖分");
    // The highest unit, one beyond it, and what is no amount.
    row("1000000000000000000000000000", u"壹仟亿亿亿元整");
    row("10000000000000000000000000000", u"");
    row("", u"");
    row("-", u"");
    row(".", u"");
    row("1.2.3", u"");
    row("--1", u"");
    row("+1", u"");
    row("1,000", u"");
    row("1e3", u"");
    row("１", u"");
}

void TestText::capitals() {
    QFETCH(const QString, amount);
    QTEST(amountInCapitals(amount), "expected");
}

void TestText::queryPairs() {
    const QString text = joinQueryPairs({{QStringLiteral("mch_id"), QStringLiteral("1&0")},
                                         {QStringLiteral("body"), QString()},
                                         {QStringLiteral("a"), QStringLiteral("种 子")}});
    QCOMPARE(text, QStringLiteral("mch_id=1&0&body=&a=种 子"));
    QCOMPARE(joinQueryPairs({}), QString());
}

void TestText::xmlPairsAreReadBack() {
    QCOMPARE(buildXmlPairs({{QStringLiteral("b"), QStringLiteral("2%1")},
                            {QStringLiteral("a"), QStringLiteral("<%2>")}}),
             QStringLiteral("<xml> <b><![CDATA[2%1]]></b><a><![CDATA[<%2>]]></a></xml>"));
    QCOMPARE(buildXmlPairs({}), QStringLiteral("<xml> </xml>"));

    const QString nasty = QStringLiteral("x]]></a><fee>1</fee><a>]]]>");
    QXmlStreamReader reader(buildXmlPairs({{QStringLiteral("a"), nasty}}));
    QVERIFY(reader.readNextStartElement());
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.readElementText(), nasty);
    QVERIFY(!reader.hasError());
}

void TestText::tokens() {
    static const QRegularExpression form(QStringLiteral("\\A[0-9a-zA-Z]{32}\\z"));
    QSet<QString> tokens;
    QSet<QChar> seen;
    for (int i = 0; i < 500; ++i) {
        const QString token = randomToken32();
        QVERIFY(form.match(token).hasMatch());
        tokens.insert(token);
        for (const QChar c : token)
            seen.insert(c);
    }
    QCOMPARE(tokens.size(), 500);
    QCOMPARE(seen.size(), 62);
}

QTEST_APPLESS_MAIN(TestText)
#include "test_text.moc"
