#include "base/decimal.h"

#include <QTest>
#include <random>

using namespace jxc;

namespace {
Decimal d(const char *text) {
    return Decimal::fromText(QString::fromLatin1(text));
}
} // namespace

class TestDecimal : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void textRoundTrips();
    void refusesWhatIsNoNumber();
    void rangeIsAnErrorNeverAWrap();
    void everyValueSurvivesADouble();
    void rounding();
    void productsAndQuotients();
};

void TestDecimal::textRoundTrips() {
    for (const char *t : {"0", "1", "-1", "0.1", "-0.000001", "12345.678901", "8589934591.999999",
                          "70000000000000.25"})
        QCOMPARE(d(t).toText(), QString::fromLatin1(t));
    QCOMPARE(d("  1.50 ").toText(), QStringLiteral("1.5"));
    QCOMPARE(d("1.2345675").toText(), QStringLiteral("1.234568"));
    QCOMPARE(d("-1.2345675").toText(), QStringLiteral("-1.234568"));
    QCOMPARE(d("0.0000004").toText(), QStringLiteral("0"));
    QCOMPARE(d("1.5e3").toText(), QStringLiteral("1500"));
    QCOMPARE(d("2E-3").toText(), QStringLiteral("0.002"));
    QCOMPARE(d("").toText(), QStringLiteral("0"));
    QCOMPARE(d("2.5").toText(2), QStringLiteral("2.50"));
    QCOMPARE(d("-2.005").toText(2), QStringLiteral("-2.01"));
    QCOMPARE(d("2.5").toText(0), QStringLiteral("3"));
}

void TestDecimal::refusesWhatIsNoNumber() {
    for (const char *t : {"abc", "1.2.3", "1,5", "--1", "1e", "0x10", ".", "-", "1 2", "nan", "inf"})
        QVERIFY_EXCEPTION_THROWN(d(t), NumberError);
}

void TestDecimal::rangeIsAnErrorNeverAWrap() {
    QVERIFY_EXCEPTION_THROWN(d("8589934592000000000000000"), RangeError);
    QVERIFY_EXCEPTION_THROWN(d("1e40"), RangeError);
    // Nine billion with six places does not survive a double, with fewer places it does.
    QVERIFY_EXCEPTION_THROWN(d("9007199254.740993") + d("9007199254.740993"), RangeError);
    QCOMPARE(d("8589934592") + d("8589934592.5"), d("17179869184.5"));
    QVERIFY_EXCEPTION_THROWN(static_cast<void>((d("70000000000000") * d("70000000000000")).rounded(2)), RangeError);
    QVERIFY_EXCEPTION_THROWN(Decimal::fromDouble(std::numeric_limits<double>::infinity()), RangeError);
    QVERIFY_EXCEPTION_THROWN(Decimal::fromDouble(1e23), RangeError);
}

void TestDecimal::everyValueSurvivesADouble() {
    std::mt19937_64 random(20'240'511);
    for (int i = 0; i < 200'000; ++i) {
        const auto micros = static_cast<qint64>(random() % 8'589'934'592'000'000ULL);
        const Decimal v = Decimal::fromMicros(i % 2 == 0 ? micros : -micros);
        QCOMPARE(Decimal::fromDouble(v.toDouble()), v);
    }
    QCOMPARE(Decimal::fromDouble(0.1 + 0.2), d("0.3"));
}

void TestDecimal::rounding() {
    QCOMPARE(d("2.5").rounded(0), Decimal(3));
    QCOMPARE(d("-2.5").rounded(0), Decimal(-3));
    QCOMPARE(d("0.004999").rounded(2), Decimal(0));
    // The offset is added to the value as it is: it lifts a positive hair, and drops a negative tie.
    QCOMPARE(d("-2.5").roundedUp9(0), Decimal(-2));
    QCOMPARE(d("2.5").roundedUp9(0), Decimal(3));
    QCOMPARE((d("1.234567") * d("1")).roundedUp9(6), d("1.234567"));
}

void TestDecimal::productsAndQuotients() {
    QCOMPARE((d("0.1") * d("0.7")).rounded(6), d("0.07"));
    QCOMPARE((d("160") / d("15")).roundedUp9(2), d("10.67"));
    QCOMPARE((d("-160") / d("15")).abs().roundedUp9(2), d("10.67"));
    QCOMPARE((d("10") / d("-4")).rounded(0), Decimal(-3));
    QCOMPARE((d("1") / d("0")).rounded(6), Decimal(0));
    QCOMPARE((Product(d("20")) + d("10") * d("5")).rounded(2), Decimal(70));
    QCOMPARE((d("1") / d("3")).rounded(6), d("0.333333"));
    // Exactly a tie, and a hair below one: 0.005 - 10^-9 is lifted, 0.005 - 2*10^-9 is not.
    QCOMPARE((d("0.004999") * d("1.000199")).roundedUp9(2), d("0.00"));
    QCOMPARE((d("4.999999") / d("1000")).roundedUp9(2), d("0.01"));
    QCOMPARE((d("4.999998") / d("1000")).roundedUp9(2), d("0"));
}

QTEST_APPLESS_MAIN(TestDecimal)
#include "test_decimal.moc"
