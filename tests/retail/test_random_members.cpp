// Random sales, returns, recharges and cancellings of members under changing rules, each step held
// against a reference that counts in whole numbers; the books are verified at the end.
#include "retail/day_end.h"
#include "retail/member_figures.h"
#include "retail/member_reference.h"
#include "retail/member_shop.h"
#include "retail/recharge.h"
#include "services/verify.h"

#include <QTest>
#include <random>

using namespace jxc;
using namespace jxc::test;

namespace {

Decimal yuan(Fen amount) {
    return Decimal::fromMicros(static_cast<Decimal::Wide>(amount) * 10'000);
}

class Play {
public:
    explicit Play(quint32 seed)
        : m_random(seed) {
        m_shop.db.insertRow(QStringLiteral("jxc_hyyh"), {{QStringLiteral("hh_sn"), u"R"},
                                                         {QStringLiteral("hh_name"), u"返现"},
                                                         {QStringLiteral("hh_zl"), 1},
                                                         {QStringLiteral("hh_yh1"), 0}});
        m_shop.post(QStringLiteral("CJ"), day(1),
                    {line(u"G1", 100'000, 100), line(u"G2", 100'000, 100)});
        changeRules();
    }

    void step() {
        const int what = number(0, 99);
        if (what < 40)
            document(false);
        else if (what < 58)
            document(true);
        else if (what < 78)
            cancel();
        else if (what < 88)
            recharge();
        else if (what < 93)
            correct();
        else
            changeRules();
    }

    [[nodiscard]] QString expected() const { return m_member.text(); }
    [[nodiscard]] QString found() { return m_shop.now(); }
    MemberShop &shop() { return m_shop; }

private:
    int number(int from, int to) {
        return from + static_cast<int>(m_random() % static_cast<quint32>(to - from + 1));
    }
    bool chance(int percent) { return number(0, 99) < percent; }

    static DraftLine line(const char16_t *goods, int quantity, Fen price) {
        DraftLine l{.goods = QString::fromUtf16(goods)};
        l.quantity = quantity;
        l.price = yuan(price);
        return l;
    }

    void changeRules() {
        ReferenceRules &r = m_rules;
        r.cardEarns = chance(50);
        r.carries = chance(50);
        r.specialsEarn = chance(50);
        r.perPoint = chance(15) ? 0 : number(1, 12) * 100;
        r.birthdayTimes = chance(50) ? number(2, 3) : 0;
        r.birthdayDays = chance(50) ? number(0, 4) : -1;
        r.promotionTimes = chance(50) ? 2 : 0;
        r.promotionFrom = number(1, 28);
        r.promotionTo = number(r.promotionFrom, 28);
        r.every = chance(50) ? number(1, 50) * 100 : 0;
        r.gives = number(0, 300);
        r.born = number(1, 28);
        r.follows = chance(70);
        Database &db = m_shop.db;
        db.updateRows(QStringLiteral("jxc_jfsz"),
                      {{QStringLiteral("jf_jfgz"), r.cardEarns ? 1 : 0},
                       {QStringLiteral("jf_mfje"), yuan(r.perPoint)},
                       {QStringLiteral("jf_yelj"), r.carries},
                       {QStringLiteral("jf_srjfbs"), r.birthdayTimes},
                       {QStringLiteral("jf_srjflx"), r.birthdayDays < 0 ? 0 : 1},
                       {QStringLiteral("jf_srjfts"), std::max(r.birthdayDays, 0)},
                       {QStringLiteral("jf_dbjf"), r.promotionTimes},
                       {QStringLiteral("jf_dbrq1"), day(r.promotionFrom)},
                       {QStringLiteral("jf_dbrq2"), day(r.promotionTo)}},
                      QStringLiteral("1=1"), {});
        db.updateRows(
            QStringLiteral("jxc_hyyh"),
            {{QStringLiteral("hh_yh2"), yuan(r.every)}, {QStringLiteral("hh_yh3"), yuan(r.gives)}},
            QStringLiteral("hh_sn='R'"), {});
        db.updateRows(QStringLiteral("jxc_hyxx"),
                      {{QStringLiteral("hh_sn"), u"R"},
                       {QStringLiteral("hy_sj"), r.follows},
                       {QStringLiteral("hy_sr"), QString(QStringLiteral("1966") + day(r.born).mid(4))}},
                      QStringLiteral("hy_sn=?"), {m_shop.member});
        m_shop.set(QStringLiteral("cs_tjcyjf"), r.specialsEarn ? 1 : 0);
    }

    void document(bool isReturn) {
        ReferenceReceipt x;
        x.isReturn = isReturn;
        x.day = number(2, 28);
        std::vector<DraftLine> lines;
        for (int i = number(1, 3); i > 0; --i) {
            const bool special = chance(35);
            const int quantity = number(1, 5);
            const Fen price = chance(20) ? number(1, 60) : number(1, 4'000);
            lines.push_back(line(special ? u"G2" : u"G1", quantity, price));
            x.due += quantity * price;
            x.ordinary += special ? 0 : quantity * price;
            x.hasOrdinary = x.hasOrdinary || !special;
        }
        if (chance(40))
            x.fromCard = isReturn ? x.due : std::min(x.due, std::max(m_member.value, Fen{0}));
        const QString number = m_shop.post(isReturn ? QStringLiteral("XT") : QStringLiteral("XS"),
                                           day(x.day), lines, [&](Draft &d) {
                                               d.member = m_shop.member;
                                               d.tenders.storedValue = yuan(x.fromCard);
                                           });
        m_member.post(m_rules, x);
        m_posted.emplace_back(number, x);
    }

    void cancel() {
        if (m_posted.empty())
            return;
        const auto chosen = m_posted.begin() + number(0, static_cast<int>(m_posted.size()) - 1);
        m_shop.cancel(chosen->first);
        m_member.undo(m_rules, chosen->second);
        m_posted.erase(chosen);
    }

    void recharge() {
        const Fen amount = number(1, 30'000);
        RechargeReceipt receipt;
        Shop::demand(rechargeMember(
            m_shop.session, m_shop.user,
            {.member = m_shop.member, .amount = yuan(amount), .cash = yuan(amount)}, &receipt));
        m_member.recharge(m_rules, amount);
    }

    void correct() {
        const int change = number(1, 80) * (chance(50) ? 1 : -1);
        Shop::demand(correctPoints(m_shop.session, m_shop.user, m_shop.member, change));
        m_member.correct(change);
    }

    MemberShop m_shop;
    std::mt19937 m_random;
    ReferenceRules m_rules;
    ReferenceMember m_member;
    std::vector<std::pair<QString, ReferenceReceipt>> m_posted;
};

QString shown(const std::vector<Difference> &differences) {
    QStringList lines;
    for (const Difference &d : differences)
        lines << d.store + QStringLiteral(": ") + d.text;
    return lines.join(u'\n');
}

} // namespace

class TestRandomMembers : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void plays_data();
    void plays();
    void wrongReceipts_data() { addEngineRows(); }
    void wrongReceipts();
};

void TestRandomMembers::plays_data() {
    addEngineRows();
}

void TestRandomMembers::plays() {
    for (quint32 seed = 1; seed <= 4; ++seed) {
        Play play(seed);
        for (int i = 0; i < 80; ++i) {
            play.step();
            if (play.found() != play.expected())
                QFAIL(qPrintable(QStringLiteral("seed %1, step %2: found %3, expected %4")
                                     .arg(seed)
                                     .arg(i)
                                     .arg(play.found(), play.expected())));
        }
        QString number;
        Shop::demand(settleCounter(play.shop().session, play.shop().user, &number));
        QCOMPARE(shown(verifyBooks(play.shop().db)), QString());
    }
}

/// Every kind of fault in receipts and settlements is named.
void TestRandomMembers::wrongReceipts() {
    Play play(7);
    for (int i = 0; i < 30; ++i)
        play.step();
    MemberShop &shop = play.shop();
    const QString sale = shop.post(QStringLiteral("XS"), day(5),
                                   {{.goods = QStringLiteral("G1"), .quantity = 2, .price = 5_d}},
                                   [&](Draft &d) { d.member = shop.member; });
    QString settlement;
    Shop::demand(settleCounter(shop.session, shop.user, &settlement));
    QCOMPARE(shown(verifyBooks(shop.db)), QString());
    const auto breaks = [&](const QString &sql, const QString &back, const QString &said) {
        QVERIFY(shop.db.execute(sql, {sale}) > 0);
        const QString text = shown(verifyBooks(shop.db));
        QVERIFY2(text.contains(said), qPrintable(said + QStringLiteral(" / ") + text));
        QVERIFY(shop.db.execute(back, {sale}) > 0);
        QCOMPARE(shown(verifyBooks(shop.db)), QString());
    };
    const QString header = QStringLiteral("update jxc_posxsd set %1 where gl_djh=?");
    breaks(header.arg(u"pos_xj=9"), header.arg(u"pos_xj=10"),
           QStringLiteral("实付金额为 10，应为 9"));
    breaks(header.arg(u"pos_zlje=1"), header.arg(u"pos_zlje=0"),
           QStringLiteral("找零金额为 1，应为 0"));
    breaks(header.arg(u"hy_sn='9'"), header.arg(u"hy_sn='100002'"), QStringLiteral("会员"));
    const QString line = QStringLiteral("update jxc_posxssp set %1 where gl_djh=?");
    breaks(line.arg(u"pos_zje=11"), line.arg(u"pos_zje=10"),
           QStringLiteral("应付金额为 10，应为 11"));
    breaks(line.arg(u"pos_sl=3"), line.arg(u"pos_sl=2"), QStringLiteral("日结单 ") + settlement);
}

QTEST_GUILESS_MAIN(TestRandomMembers)
#include "test_random_members.moc"
