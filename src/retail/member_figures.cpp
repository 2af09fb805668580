#include "retail/member_figures.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "retail/member_card.h"

namespace jxc {

namespace {

const QString pointsTable = QStringLiteral("jxc_jfdh");
const QString valueTable = QStringLiteral("jxc_czxf");

QString toText(const Member &member) {
    return QStringLiteral("转出至") + member.number;
}

QString fromText(const Member &member) {
    return QStringLiteral("转入自") + member.number;
}

/// A movement of stored value; in is positive.
void noteValue(Session &session, const Member &member, Decimal amount, const QString &note) {
    session.db().insertRow(valueTable,
                           {{QStringLiteral("hy_sn"), member.key},
                            {QStringLiteral("xf_je"), amount},
                            {QStringLiteral("hy_rq"), session.timeStamp()},
                            {QStringLiteral("a_admin"), session.currentOperatorName},
                            {QStringLiteral("hy_bz"), fitted(valueTable, u"hy_bz", note)}});
}

/// A movement of points; what was taken is positive.
void notePoints(Session &session, const Member &member, Decimal taken, const QString &note) {
    session.db().insertRow(pointsTable,
                           {{QStringLiteral("hy_sn"), member.key},
                            {QStringLiteral("jf_xfjf"), taken},
                            {QStringLiteral("jf_rq"), session.timeStamp()},
                            {QStringLiteral("a_name"), session.currentOperatorName},
                            {QStringLiteral("jf_note"), fitted(pointsTable, u"jf_note", note)}});
}

/// What both kinds of transfer have in common: who, how much, and the log line. `what` moves.
Outcome transferBetween(Session &session, Prompter &prompter, const Transfer &t,
                        const QString &title, const QString &what,
                        const std::function<void(Member &from, Member &to)> &move) {
    return runAction(session.db(), prompter, [&](Answers &) {
        if (t.from == t.to)
            throw Refusal(QStringLiteral("转出会员与转入会员不能相同！"));
        if (!t.amount.isPositive())
            throw Refusal(what + QStringLiteral("必须大于零！"));
        Member from = loadMember(session.db(), t.from);
        Member to = loadMember(session.db(), t.to);
        memberUsable(session, from);
        memberUsable(session, to);
        checkMemberPassword(from, t.password);
        move(from, to);
        storeMemberFigures(session.db(), from);
        storeMemberFigures(session.db(), to);
        writeLog(
            session,
            QStringLiteral("%1：%2→%3，%4").arg(title, from.number, to.number, t.amount.toText()));
    });
}

QString named(const Member &member) {
    return QStringLiteral("‘%1，%2’").arg(member.number, member.name);
}

} // namespace

Outcome correctPoints(Session &session, Prompter &prompter, const QString &key, Decimal points) {
    if (points.isZero())
        return {};
    return runAction(session.db(), prompter, [&](Answers &) {
        Member member = loadMember(session.db(), key);
        const QString before = member.points.toText();
        member.points += points;
        member.allPoints += points;
        member.level = LevelForPoints(session.db(), member.allPoints);
        storeMemberFigures(session.db(), member);
        writeLog(session, QStringLiteral("修改会员积分%1，原积分：%2，增加积分：%3")
                              .arg(named(member), before, points.toText()));
    });
}

Outcome correctSpending(Session &session, Prompter &prompter, const QString &key, Decimal amount) {
    if (amount.isZero())
        return {};
    return runAction(session.db(), prompter, [&](Answers &) {
        Member member = loadMember(session.db(), key);
        const QString before = member.spent.toText();
        member.spent += amount;
        storeMemberFigures(session.db(), member);
        writeLog(session, QStringLiteral("修改会员消费金额%1，原消费金额：%2，增加消费金额：%3")
                              .arg(named(member), before, amount.toText()));
    });
}

Outcome transferValue(Session &session, Prompter &prompter, const Transfer &t) {
    return transferBetween(session, prompter, t, QStringLiteral("转账"), QStringLiteral("转账金额"),
                           [&](Member &from, Member &to) {
                               if (t.amount > from.value)
                                   throw Refusal(QStringLiteral("卡内金额不足！"));
                               from.value -= t.amount;
                               to.value += t.amount;
                               noteValue(session, from, -t.amount, toText(to));
                               noteValue(session, to, t.amount, fromText(from));
                           });
}

Outcome transferPoints(Session &session, Prompter &prompter, const Transfer &t) {
    return transferBetween(session, prompter, t, QStringLiteral("积分转移"),
                           QStringLiteral("转移积分"), [&](Member &from, Member &to) {
                               if (t.amount > from.points)
                                   throw Refusal(QStringLiteral("会员积分不足！"));
                               from.points -= t.amount;
                               to.points += t.amount;
                               notePoints(session, from, t.amount, toText(to));
                               notePoints(session, to, -t.amount, fromText(from));
                           });
}

} // namespace jxc
