#include "base/numberformat.h"

#include <QTest>

using namespace jxc;

class TestNumberFormat : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void patterns();
    void shown_data();
    void shown();
};

void TestNumberFormat::patterns() {
    const QStringList money = {QStringLiteral("￥,0;-￥,0"),
                               QStringLiteral("￥,0.0;-￥,0.0"),
                               QStringLiteral("￥,0.00;-￥,0.00"),
                               QStringLiteral("￥,0.000;-￥,0.000"),
                               QStringLiteral("￥,0.0000;-￥,0.0000"),
                               QStringLiteral("￥,0.00000;-￥,0.00000"),
                               QStringLiteral("￥,0.000000;-￥,0.000000")};
    const QStringList plain = {QStringLiteral("#;-#"),
                               QStringLiteral("#0.0;-#.0"),
                               QStringLiteral("#0.00;-#.00"),
                               QStringLiteral("#0.000;-#.000"),
                               QStringLiteral("#0.0000;-#.0000"),
                               QStringLiteral("#0.00000;-#.00000"),
                               QStringLiteral("#0.000000;-#.000000")};
    for (int decimals = 0; decimals <= 6; ++decimals) {
        QCOMPARE(moneyPattern(decimals, false), money[decimals]);
        QString withoutSymbol = money[decimals];
        withoutSymbol.replace(u'￥', u'#');
        QCOMPARE(moneyPattern(decimals, true), withoutSymbol);
        QCOMPARE(groupedPattern(decimals), withoutSymbol);
        QCOMPARE(plainPattern(decimals), plain[decimals]);
    }
    for (const int decimals : {-1, 7}) {
        QVERIFY(!moneyPattern(decimals, false));
        QVERIFY(!groupedPattern(decimals));
        QVERIFY(!plainPattern(decimals));
    }
    QCOMPARE(moneyFieldLength(2), 15);
}

void TestNumberFormat::shown_data() {
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *pattern, const char *value, const char *expected) {
        QTest::addRow("%s %s", pattern, value)
            << QString::fromUtf8(pattern) << QString::fromUtf8(value)
            << QString::fromUtf8(expected);
    };
    // The plain family with its oddities.
    row("#;-#", "0", "");
    row("#;-#", "0.4", "");
    row("#;-#", "-0.4", "");
    row("#;-#", "0.5", "1");
    row("#;-#", "-1234", "-1234");
    row("#0.00;-#.00", "0", "0.00");
    row("#0.00;-#.00", "0.5", "0.50");
    row("#0.00;-#.00", "-0.5", "-.50");
    row("#0.00;-#.00", "-0.004", "0.00");
    row("#0.00;-#.00", "-0.005", "-.01");
    row("#0.00;-#.00", "-12.5", "-12.50");
    row("#0.000000;-#.000000", "-0.000001", "-.000001");
    // Grouping, at and around its borders.
    row("#,0;-#,0", "0", "0");
    row("#,0;-#,0", "999.5", "1,000");
    row("#,0.00;-#,0.00", "999.99", "999.99");
    row("#,0.00;-#,0.00", "-1000", "-1,000.00");
    row("#,0.00;-#,0.00", "123456", "123,456.00");
    row("#,0.000000;-#,0.000000", "1234567.891", "1,234,567.891000");
    row("#,0.00;-#,0.00", "-0.004", "0.00");
    row("￥,0.00;-￥,0.00", "1234.5", "￥1,234.50");
    row("￥,0.00;-￥,0.00", "-0.5", "-￥0.50");
    row("￥,0;-￥,0", "0", "￥0");
    // What hand-made column formats use.
    row("0.##", "5", "5");
    row("0.##", "-5.1", "-5.1");
    row("0.0#", "5", "5.0");
    row("000", "7", "007");
    row("0,000", "7", "0,007");
    row("0.00;;\"-;-\"", "0", "-;-");
    row("0.00;;\"-\"", "-1", "-1.00");
    row("0.00'0%'", "12.345", "12.350%");
    row("0.00000000", "1.5", "1.50000000");
}

void TestNumberFormat::shown() {
    QFETCH(const QString, pattern);
    QFETCH(const QString, value);
    QTEST(formatNumber(Decimal::fromText(value), pattern), "expected");
}

QTEST_APPLESS_MAIN(TestNumberFormat)
#include "test_numberformat.moc"
