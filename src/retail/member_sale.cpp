#include "retail/member_sale.h"

#include "base/dates.h"
#include "core/session.h"
#include "db/database.h"
#include "retail/points_settings.h"
#include "retail/whole_numbers.h"

namespace jxc {

namespace {

struct Receipt {
    Decimal storedValue; ///< pos_czk, paid from the card
    Decimal due;         ///< pos_yfje
    QString day;
    Decimal rebate, points; ///< pos_jfye, pos_bcjf, of an earlier posting
};

/// Figures that are missing count as 0, also all of a receipt that was purged since.
Receipt readReceipt(Database &db, const QString &number) {
    const auto row = db.row(QStringLiteral("select pos_czk,pos_yfje,pos_xsrq,pos_jfye,pos_bcjf "
                                           "from jxc_posxsd where gl_djh=? order by id"),
                            {number});
    if (!row)
        return {};
    return {row->decimal(u"pos_czk"), row->decimal(u"pos_yfje"), row->text(u"pos_xsrq").left(10),
            row->decimal(u"pos_jfye"), row->decimal(u"pos_bcjf")};
}

/// The day in the year of `day` on which the member's birthday falls; 29 February falls on the 28th
/// of a short year. Invalid without a birthday.
QDate birthdayIn(QStringView day, const QString &birthday) {
    const QDate born = parseDate(birthday);
    const QDate sold = parseDate(day);
    if (!born.isValid() || !sold.isValid())
        return {};
    const QDate month(sold.year(), born.month(), 1);
    return {sold.year(), born.month(), std::min(born.day(), month.daysInMonth())};
}

/// The birthday of the sale's own year counts, deliberately: early January is not near the end of
/// the year before.
bool isBirthday(const PointsSettings &s, QStringView day, const QString &birthday) {
    if (s.birthdayFactor == 0)
        return false;
    const QDate date = birthdayIn(day, birthday);
    if (!date.isValid())
        return false;
    const qint64 apart = std::abs(date.daysTo(parseDate(day)));
    return s.birthdayWindow ? apart <= s.birthdayDays : apart == 0;
}

class MemberSale {
public:
    MemberSale(Session &session, const QString &number, const QString &member, bool isReturn)
        : m_db(session.db())
        , m_number(number)
        , m_isReturn(isReturn)
        , m_settings(PointsSettings::load(m_db))
        , m_receipt(readReceipt(m_db, number))
        , m_member(loadMember(m_db, member)) {}

    void post() {
        m_base = m_isReturn ? -m_receipt.due : m_receipt.due;
        bool birthday = false;
        if (m_settings.earnsPoints()) {
            takeEarningBase();
            if (m_base.isZero()) {
                recordVisit();
                return;
            }
            m_points = pointsOf(m_base);
            birthday = isBirthday(m_settings, m_receipt.day, m_member.birthday);
            if (birthday)
                multiply(m_settings.birthdayFactor);
        }
        m_rebate = rebate();
        if (!birthday && isPromotion())
            multiply(m_settings.promotionFactor);
        book();
    }

    void undo() {
        Member &m = m_member;
        m.allPoints -= m_receipt.points;
        m.points -= m_receipt.points;
        m.spent -= m_receipt.due;
        m.visits += m_isReturn ? 1 : -1;
        m.value += m_receipt.storedValue - m_receipt.rebate;
        // Whether the level follows the points is not asked here, deliberately.
        if (!m.allPoints.isZero())
            m.level = LevelForPoints(m_db, m.allPoints);
        UpdateMemberRemainder(m_settings, m);
        storeMemberFigures(m_db, m);
    }

private:
    /// What of the amount earns points, with what earlier sales left over.
    void takeEarningBase() {
        if (!m_settings.storedValueEarns)
            m_base -= m_receipt.storedValue.abs();
        if (!m_settings.specialPricesEarn)
            leaveSpecialPricesOut();
        if (!m_isReturn && m_settings.carriesRemainder)
            m_base += m_member.remainder;
        m_base = truncated(m_base);
    }

    void leaveSpecialPricesOut() {
        const Rows lines =
            m_db.rows(QStringLiteral("select a.pos_zje from jxc_posxssp a,jxc_goods b where "
                                     "a.g_sn=b.g_sn and b.g_tjsp=0 and a.gl_djh=?"),
                      {m_number});
        if (lines.empty()) {
            m_base = {};
            return;
        }
        Decimal ordinary;
        for (const Row &line : lines)
            ordinary += line.decimal(size_t{0});
        if (m_isReturn)
            ordinary = -ordinary;
        if (m_base > ordinary && !ordinary.isZero())
            m_base = ordinary;
    }

    /// Sales round down, returns half away from zero, deliberately.
    [[nodiscard]] Decimal pointsOf(Decimal amount) const {
        if (m_isReturn)
            return (amount / m_settings.amountPerPoint).rounded(0);
        return wholeQuotient(amount, m_settings.amountPerPoint);
    }

    void multiply(int factor) { m_points = (m_points * Decimal(factor)).rounded(0); }

    [[nodiscard]] bool isPromotion() const {
        return m_settings.promotionFactor != 0 && m_settings.promotionFrom <= m_receipt.day &&
               m_receipt.day <= m_settings.promotionTo;
    }

    /// Stored value that the member's offer gives for every full amount spent.
    [[nodiscard]] Decimal rebate() const {
        const auto offer = m_db.row(
            QStringLiteral("select hh_yh2,hh_yh3 from jxc_hyyh where hh_sn=? order by id limit 1"),
            {m_member.offer});
        if (!offer || offer->decimal(u"hh_yh2").isZero() || offer->decimal(u"hh_yh3").isZero())
            return {};
        return (wholeQuotient(m_base, offer->decimal(u"hh_yh2")) * offer->decimal(u"hh_yh3"))
            .rounded(6);
    }

    /// A sale that earns nothing and takes nothing from the card is not even a visit; the remainder
    /// waits.
    void recordVisit() {
        const Decimal used = m_receipt.storedValue;
        if (used.isZero())
            return;
        m_member.visits += m_isReturn ? -1 : 1;
        m_member.spent += used;
        if (!m_isReturn)
            m_member.value -= used;
        storeMemberFigures(m_db, m_member);
    }

    void book() {
        Member &m = m_member;
        const Decimal points = m_isReturn ? -m_points : m_points;
        const Decimal rebate = m_isReturn ? -m_rebate : m_rebate;
        const Decimal pointsNow = truncated(m.points) + points;
        if (m.levelFollows)
            m.level = levelHolding(m_db, truncated(m.allPoints) + points).value_or(m.level);
        m.allPoints += points;
        m.points += points;
        m.spent += m_receipt.due;
        m.visits += m_isReturn ? -1 : 1;
        // What a return pays back onto the card is booked by whoever pays it back.
        m.value += rebate - (m_isReturn ? Decimal() : m_receipt.storedValue);
        UpdateMemberRemainder(m_settings, m);
        storeMemberFigures(m_db, m);
        m_db.updateRows(QStringLiteral("jxc_posxsd"),
                        {{QStringLiteral("pos_bcjf"), points},
                         {QStringLiteral("pos_zjf"), pointsNow},
                         {QStringLiteral("pos_jfye"), rebate}},
                        QStringLiteral("gl_djh=?"), {m_number});
    }

    Database &m_db;
    const QString &m_number;
    bool m_isReturn;
    PointsSettings m_settings;
    Receipt m_receipt;
    Member m_member;
    Decimal m_base; ///< what points and rebate are counted from; of returns positive
    Decimal m_points, m_rebate;
};

} // namespace

void PostMemberSale(Session &session, const QString &receipt, const QString &member,
                    MemberMode mode) {
    const bool isReturn = mode == MemberMode::saleReturn || mode == MemberMode::undoReturn;
    MemberSale sale(session, receipt, member, isReturn);
    if (mode == MemberMode::sale || mode == MemberMode::saleReturn)
        sale.post();
    else
        sale.undo();
}

void payBackOntoCard(Database &db, const QString &receipt, const QString &key) {
    const Decimal used = readReceipt(db, receipt).storedValue; // negative on a return
    if (used.isZero())
        return;
    Member member = loadMember(db, key);
    member.value -= used;
    storeMemberFigures(db, member);
}

void UpdateMemberRemainder(const PointsSettings &settings, Member &member) {
    if (!settings.carriesRemainder || !settings.earnsPoints())
        return;
    const auto perPoint = settings.amountPerPoint.micros() / 1'000'000;
    const auto spent = member.spent.micros() / 1'000'000;
    member.remainder =
        perPoint == 0 ? Decimal() : Decimal::fromMicros(spent % perPoint * 1'000'000);
}

} // namespace jxc
