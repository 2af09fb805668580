#include "retail/member_card.h"

#include "base/sanitize.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"

namespace jxc {

namespace {

/// Runs one change of one member's row and logs it under its title.
Outcome changeMember(Session &session, Prompter &prompter, const QString &key, const QString &title,
                     const std::function<Assignments(const Member &)> &change) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const Member member = loadMember(session.db(), key);
        session.db().updateRows(QStringLiteral("jxc_hyxx"), change(member), QStringLiteral("id=?"),
                                {member.id});
        writeLog(session, title + u'：' + member.number);
    });
}

} // namespace

void memberUsable(const Session &session, const Member &member) {
    if (member.lost)
        throw Refusal(QStringLiteral("该会员卡已挂失！"));
    if (member.expires && !member.expiry.isEmpty() && member.expiry < session.today())
        throw Refusal(QStringLiteral("该会员卡已过期！"));
}

bool isMemberPassword(const Member &member, const QString &typed) {
    // The editor stores a password as it stores every text; the dialog stores it as it is typed.
    return member.password.isEmpty() || member.password == typed ||
           member.password == sanitizeSqlTextLight(typed);
}

void checkMemberPassword(const Member &member, const QString &typed) {
    if (!isMemberPassword(member, typed))
        throw Refusal(QStringLiteral("会员密码不正确！"));
}

Outcome setMemberPassword(Session &session, Prompter &prompter, const QString &member,
                          const QString &password, const QString &again) {
    return changeMember(session, prompter, member, QStringLiteral("密码"), [&](const Member &) {
        if (password != again)
            throw Refusal(QStringLiteral("两次密码输入不一致！"));
        return Assignments{{QStringLiteral("hy_mm"), password}};
    });
}

Outcome setMemberMobile(Session &session, Prompter &prompter, const QString &member,
                        const QString &mobile) {
    return changeMember(session, prompter, member, QStringLiteral("手机"), [&](const Member &) {
        return Assignments{{QStringLiteral("hy_mobile"), sanitizeSqlTextLight(mobile)}};
    });
}

Outcome setMemberLost(Session &session, Prompter &prompter, const QString &member, bool lost) {
    return changeMember(session, prompter, member,
                        lost ? QStringLiteral("挂失") : QStringLiteral("解挂"),
                        [&](const Member &) {
                            return Assignments{{QStringLiteral("hy_status"), lost}};
                        });
}

Outcome changeMemberCard(Session &session, Prompter &prompter, const QString &key,
                         const QString &newNumber, const QString &password) {
    return runAction(session.db(), prompter, [&](Answers &) {
        Database &db = session.db();
        const Member member = loadMember(db, key);
        const QString number = sanitizeSqlTextLight(newNumber.trimmed());
        if (number.isEmpty())
            throw Refusal(QStringLiteral("会员卡号必须填写！"));
        if (findMemberByNumber(db, number))
            throw Refusal(QStringLiteral("会员卡号不能重复！"));
        checkMemberPassword(member, password);
        db.updateRows(QStringLiteral("jxc_hyxx"),
                      {{QStringLiteral("hy_bh"), number}, {QStringLiteral("hy_status"), 0}},
                      QStringLiteral("id=?"), {member.id});
        writeLog(session, QStringLiteral("会员换卡：%1→%2").arg(member.number, number));
    });
}

} // namespace jxc
