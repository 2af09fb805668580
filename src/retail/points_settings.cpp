#include "retail/points_settings.h"

#include "base/dates.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"
#include "master/record.h"

namespace jxc {

namespace {

const QString table = QStringLiteral("jxc_jfsz");

int numberOf(const Row &row, QStringView column) {
    return static_cast<int>(row.integer(column));
}

MemberDay memberDayOf(qint64 value) {
    return value >= 1 && value <= 3 ? static_cast<MemberDay>(value) : MemberDay::none;
}

bool specialPricesEarn(Database &db) {
    const QString text = db.scalar(QStringLiteral("select cs_tjcyjf from jxc_xtcs order by id"));
    return text != QLatin1String("0") && text.compare(QLatin1String("False"), Qt::CaseInsensitive);
}

/// Whether a day lies in a range of numbers; a range without end is its one day.
bool isWithin(int day, const QString &from, const QString &to) {
    const int first = from.toInt();
    const int last = to.isEmpty() ? first : to.toInt();
    return first > 0 && first <= day && day <= last;
}

void refuseUnless(bool right, const char16_t *column, const QString &text) {
    if (!right)
        throw FieldRefusal(QString::fromUtf16(column), text);
}

void checkRange(const QString &caption, const char16_t *fromColumn, const QString &from,
                const char16_t *toColumn, const QString &to) {
    for (const auto &[column, date] : {std::pair(fromColumn, from), std::pair(toColumn, to)})
        refuseUnless(date.isEmpty() || isDate(date), column,
                     QStringLiteral("%1的日期“%2”不正确！").arg(caption, date));
    refuseUnless(to.isEmpty() || from <= to, toColumn,
                 QStringLiteral("%1的开始日期不能大于结束日期！").arg(caption));
}

void checkDays(const PointsSettings &s) {
    const int most = s.memberDay == MemberDay::weekly ? 7 : 31;
    const int from = s.memberDayFrom.toInt();
    const int to = s.memberDayTo.isEmpty() ? from : s.memberDayTo.toInt();
    refuseUnless(from >= 1 && to >= from && to <= most, u"jf_hyrmy1",
                 QStringLiteral("会员日必须在 1 到 %1 之间！").arg(most));
}

void check(const PointsSettings &s) {
    const QString factor = QStringLiteral("积分倍数不能小于零！");
    refuseUnless(!s.amountPerPoint.isNegative(), u"jf_mfje",
                 QStringLiteral("每分金额不能小于零！"));
    refuseUnless(s.birthdayFactor >= 0, u"jf_srjfbs", factor);
    refuseUnless(s.promotionFactor >= 0, u"jf_dbjf", factor);
    refuseUnless(s.birthdayDays >= 0, u"jf_srjfts", QStringLiteral("生日天数不能小于零！"));
    checkRange(QStringLiteral("促销期间"), u"jf_dbrq1", s.promotionFrom, u"jf_dbrq2",
               s.promotionTo);
    if (s.memberDay == MemberDay::weekly || s.memberDay == MemberDay::monthly)
        checkDays(s);
    if (s.memberDay == MemberDay::period)
        checkRange(QStringLiteral("会员日"), u"jf_hyr1", s.periodFrom, u"jf_hyr2", s.periodTo);
    refuseUnless(!s.memberDayDiscount.isNegative() && s.memberDayDiscount <= Decimal(1),
                 u"jf_hyrzk", QStringLiteral("会员日折扣必须在 0 到 1 之间！"));
}

Assignments rowOf(const PointsSettings &s) {
    return {{QStringLiteral("jf_jfgz"), s.storedValueEarns ? 1 : 0},
            {QStringLiteral("jf_mfje"), s.amountPerPoint},
            {QStringLiteral("jf_yelj"), s.carriesRemainder},
            {QStringLiteral("jf_srjfbs"), s.birthdayFactor},
            {QStringLiteral("jf_srjflx"), s.birthdayWindow ? 1 : 0},
            {QStringLiteral("jf_srjfts"), s.birthdayDays},
            {QStringLiteral("jf_dbjf"), s.promotionFactor},
            {QStringLiteral("jf_dbrq1"), s.promotionFrom},
            {QStringLiteral("jf_dbrq2"), s.promotionTo},
            {QStringLiteral("jf_hyr"), static_cast<int>(s.memberDay)},
            {QStringLiteral("jf_hyrmy1"), s.memberDayFrom},
            {QStringLiteral("jf_hyrmy2"), s.memberDayTo},
            {QStringLiteral("jf_hyr1"), s.periodFrom},
            {QStringLiteral("jf_hyr2"), s.periodTo},
            {QStringLiteral("jf_hyrzk"), s.memberDayDiscount}};
}

} // namespace

PointsSettings PointsSettings::load(Database &db) {
    PointsSettings s;
    s.specialPricesEarn = jxc::specialPricesEarn(db);
    const auto row = db.row(QStringLiteral("select * from jxc_jfsz order by id limit 1"));
    if (!row)
        return s;
    s.storedValueEarns = row->integer(u"jf_jfgz") != 0;
    s.amountPerPoint = row->decimal(u"jf_mfje");
    s.carriesRemainder = row->flag(u"jf_yelj");
    s.birthdayFactor = numberOf(*row, u"jf_srjfbs");
    s.birthdayWindow = row->integer(u"jf_srjflx") == 1;
    s.birthdayDays = numberOf(*row, u"jf_srjfts");
    s.promotionFactor = numberOf(*row, u"jf_dbjf");
    s.promotionFrom = row->text(u"jf_dbrq1");
    s.promotionTo = row->text(u"jf_dbrq2");
    s.memberDay = memberDayOf(row->integer(u"jf_hyr"));
    s.memberDayFrom = row->text(u"jf_hyrmy1");
    s.memberDayTo = row->text(u"jf_hyrmy2");
    s.periodFrom = row->text(u"jf_hyr1");
    s.periodTo = row->text(u"jf_hyr2");
    s.memberDayDiscount = row->decimal(u"jf_hyrzk");
    return s;
}

Decimal PointsSettings::discountOn(QStringView day) const {
    const QDate date = parseDate(day);
    if (!date.isValid() || memberDayDiscount.isZero())
        return 1;
    bool applies = false;
    if (memberDay == MemberDay::weekly)
        applies = isWithin(date.dayOfWeek(), memberDayFrom, memberDayTo);
    else if (memberDay == MemberDay::monthly)
        applies = isWithin(date.day(), memberDayFrom, memberDayTo);
    else if (memberDay == MemberDay::period)
        applies = periodFrom <= day && day <= periodTo;
    return applies ? memberDayDiscount : Decimal(1);
}

Outcome savePointsSettings(Session &session, Prompter &prompter, const PointsSettings &settings,
                           QString *field) {
    return runFieldAction(session.db(), prompter, field, [&](Answers &) {
        check(settings);
        Database &db = session.db();
        const QString id = db.scalar(QStringLiteral("select min(id) from jxc_jfsz"));
        if (id.isEmpty())
            db.insertRow(table, rowOf(settings));
        else
            db.updateRows(table, rowOf(settings), QStringLiteral("id=?"), {id.toLongLong()});
        writeLog(session, QStringLiteral("修改会员设置"));
    });
}

} // namespace jxc
