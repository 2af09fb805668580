#include "core/rights.h"

#include "core/prompter.h"
#include "core/session.h"
#include "db/database.h"

#include <array>
#include <stdexcept>

namespace jxc {

namespace {

/// A group's column; anything else would be typed text on its way into a statement.
QString groupColumn(QStringView group) {
    static constexpr std::array<QStringView, 8> groups = {u"cggl", u"xsgl", u"kcgl",  u"wlzk",
                                                          u"tjgl", u"rcgl", u"gspgl", u"qtcz"};
    for (const QStringView known : groups)
        if (known == group)
            return known.toString();
    throw std::logic_error("no such group of rights");
}

bool granted(const QString &flags, int position) {
    return position >= 1 && position <= flags.size() && flags[position - 1] == u'1';
}

/// The lists hold numbers with commas; the search is for a part of the text, so a number inside a
/// longer one matches too. That is deliberate: shops have grown used to it.
bool inAnyWarehouseList(const Session &session) {
    return session.db().exists(QStringLiteral("select ck_sn from jxc_ckxx where ck_asn like ?"),
                               {QString(u'%' + session.currentOperatorNo + u'%')});
}

} // namespace

bool isWarehouseRestricted(const Session &session) {
    if (session.currentRoleNo == administratorNo)
        return false;
    const auto parameters = session.db().row(QStringLiteral("select cs_cs002 from jxc_xtcs"));
    return parameters && parameters->flag(u"cs_cs002");
}

bool hasRight(const Session &session, QStringView group, int position) {
    const QString column = groupColumn(group);
    if (isWarehouseRestricted(session) && !inAnyWarehouseList(session))
        return false;
    return granted(
        session.db().scalar(QStringLiteral("select %1 from jxc_role where r_sn=?").arg(column),
                            {session.currentRoleNo}),
        position);
}

bool userHasRight(const Session &session, const QString &operatorName, QStringView group,
                  int position) {
    return granted(session.db().scalar(QStringLiteral("select a.%1 from jxc_role a,jxc_admin b "
                                                      "where a.r_sn=b.r_sn and b.a_name=?")
                                           .arg(groupColumn(group)),
                                       {operatorName}),
                   position);
}

QString noRightMessage(const QString &actionCaption) {
    return QStringLiteral("您没有权限进行%1\r\n\r\n或者没有可用的仓库。").arg(actionCaption);
}

void showNoRightMessage(Prompter &prompter, const QString &actionCaption) {
    prompter.inform(noRightMessage(actionCaption), informCaption);
}

} // namespace jxc
