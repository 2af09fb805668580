#include "ui/member_source.h"

#include "retail/member_search.h"
#include "ui/master_picks.h"

namespace jxc {

namespace {

/// As many as the finders of a document offer.
constexpr int mostOffered = 50;

} // namespace

PickSource memberSource(const FormContext &context) {
    ColumnSpec status = text(u"hy_status", u"状态", 48);
    status.words = {{QStringLiteral("0"), QString()},
                    {QStringLiteral("1"), QStringLiteral("挂失")}};
    PickSource source;
    source.columns = {text(u"hy_bh", u"会员卡号", 104),
                      text(u"hy_name", u"会员姓名", 112),
                      text(u"hy_mobile", u"移动电话", 112),
                      text(u"hl_name", u"会员级别", 88),
                      column(u"hy_zhje", u"卡内金额", ValueKind::amount, 96),
                      column(u"hy_jf", u"会员积分", ValueKind::integer, 80),
                      status};
    source.codeField = QStringLiteral("hy_sn");
    source.nameField = QStringLiteral("hy_name");
    Session &session = context.session;
    source.search = [&session](const QString &typed) {
        return findMembers(session, typed, mostOffered);
    };
    source.find = [&session](const QString &code) { return memberRow(session, code); };
    source.addNew = [context](QWidget *parent) {
        return addMasterRecord(context, QStringLiteral("jxc_hyxx"), QStringLiteral("hy_sn"),
                               parent);
    };
    return source;
}

} // namespace jxc
