#include "base/decimal.h"
#include "core/session.h"
#include "db/database.h"
#include "master/kind_parts.h"
#include "master/member_number.h"
#include "master/member_offer.h"
#include "master/record.h"

// Members, their levels, and what they are offered.

namespace jxc {

namespace {

void proposeMember(const Session &session, Record &record) {
    record.set(QStringLiteral("hy_bh"), NextMemberNumber(session.db()));
    record.set(QStringLiteral("hy_jrrq"), session.today());
}

/// Points that another program had counted were earned here too.
void completeMember(const Session &, Record &record) {
    if (record.isNew() && record.decimal(u"hy_zjf").isZero())
        record.set(QStringLiteral("hy_zjf"), record.text(u"hy_jf"));
}

void refuseMemberWithValue(const Session &, const Record &record) {
    if (!record.decimal(u"hy_zhje").isZero())
        throw Refusal(QStringLiteral("该会员卡内还有金额，不能删除！"));
}

/// Figures that documents and dialogs write, never an editor.
std::vector<MasterField> figureFields() {
    std::vector<MasterField> fields{
        Field(u"hy_jf", ValueKind::integer).readOnly().notNegative(),
        Field(u"hy_zjf", ValueKind::integer).readOnly(),
        Field(u"hy_zhje", ValueKind::amount).readOnly().notNegative(),
        Field(u"hy_zje", ValueKind::amount).readOnly(),
        Field(u"hy_cs", ValueKind::integer).readOnly().caption(u"消费次数"),
        Field(u"hy_status").numbered(u"正常 挂失").caption(u"状态").readOnly()};
    for (MasterField &field : fields)
        field.page = QStringLiteral("积分金额");
    return fields;
}

MasterKind memberKind() {
    MasterKind kind;
    kind.noun = QStringLiteral("会员");
    kind.table = QStringLiteral("jxc_hyxx");
    kind.form = QStringLiteral("TF_Hygl");
    kind.codeColumn = QStringLiteral("hy_sn");
    kind.nameColumn = QStringLiteral("hy_name");
    kind.mnemonicColumn = QStringLiteral("hy_jm");
    kind.numberColumn = QStringLiteral("hy_bh");
    kind.fields = {Field(u"hy_sn").readOnly(),
                   Field(u"hy_bh").required().unique().initial(u"100001"),
                   Field(u"hy_name").required().words(),
                   Field(u"hy_jm"),
                   Field(u"hl_sn").required().initial(u"100001").alsoByDocuments().pick(
                       pickCode(u"jxc_hyfl", u"hl_sn", u"hl_name", u"hl_name")),
                   Field(u"hh_sn").required().initial(u"100001").pick(
                       pickCode(u"jxc_hyyh", u"hh_sn", u"hh_name", u"hh_name")),
                   Field(u"hy_mm"),
                   Field(u"hy_sex").words(u"男 女"),
                   Field(u"hy_sr", ValueKind::date),
                   Field(u"hy_mobile"),
                   Field(u"hy_tele"),
                   Field(u"hy_email"),
                   Field(u"hy_zjlx").words(u"身份证 驾驶证 其他"),
                   Field(u"hy_zjhm"),
                   Field(u"hy_dwzy").words(),
                   Field(u"hy_address").words(),
                   Field(u"hy_qtxx").words(),
                   Field(u"hy_jrrq", ValueKind::date),
                   Field(u"hy_qx", ValueKind::flag).caption(u"启用失效日期"),
                   Field(u"hy_dqrq", ValueKind::date),
                   Field(u"hy_sj", ValueKind::flag).initial(u"1"),
                   Field(u"hy_note").words()};
    for (MasterField &figure : figureFields())
        kind.fields.push_back(std::move(figure));
    kind.columns = listColumns(u"hy_bh hy_name hy_jm hl_name hh_name hy_mobile hy_jf+ hy_zjf+ "
                               u"hy_zhje+ hy_zje+ hy_cs hy_jrrq hy_dqrq hy_status hy_note");
    kind.findColumns = wordList(u"hy_bh hy_mobile hy_tele hy_zjhm");
    kind.propose = proposeMember;
    kind.check = completeMember;
    kind.checkDeletion = refuseMemberWithValue;
    return kind;
}

void checkLevel(const Session &session, Record &record) {
    const Decimal from = record.decimal(u"hl_jfxx");
    const Decimal to = record.decimal(u"hl_jfsx");
    if (record.decimal(u"hl_zk") > Decimal(1))
        throw FieldRefusal(QStringLiteral("hl_zk"), QStringLiteral("级别折扣不能大于 1！"));
    if (from > to)
        throw FieldRefusal(QStringLiteral("hl_jfxx"), QStringLiteral("积分下限不能大于积分上限！"));
    for (const Row &other : session.db().rows(
             QStringLiteral("select hl_jfxx,hl_jfsx from jxc_hyfl where id<>?"), {record.id}))
        if (from <= other.decimal(u"hl_jfsx") && other.decimal(u"hl_jfxx") <= to)
            throw FieldRefusal(QStringLiteral("hl_jfxx"),
                               QStringLiteral("积分范围与其他级别重叠！"));
}

MasterKind levelKind() {
    MasterKind kind;
    kind.noun = QStringLiteral("会员级别");
    kind.table = QStringLiteral("jxc_hyfl");
    kind.form = QStringLiteral("TF_Hyfl");
    kind.codeColumn = QStringLiteral("hl_sn");
    kind.nameColumn = QStringLiteral("hl_name");
    kind.fields = {Field(u"hl_sn").readOnly(), Field(u"hl_name").required().unique().words(),
                   Field(u"hl_zk", ValueKind::factor).positive().initial(u"1"),
                   Field(u"hl_jfxx", ValueKind::integer).notNegative(),
                   Field(u"hl_jfsx", ValueKind::integer).notNegative()};
    kind.columns = listColumns(u"hl_sn hl_name hl_zk hl_jfxx hl_jfsx");
    kind.check = checkLevel;
    return kind;
}

/// The figures of the offer's kind, and the note that says what they mean. Those of another kind
/// go: a sale would give back by them whatever the kind says.
void checkOffer(const Session &session, Record &record) {
    const QString kind = record.text(u"hh_zl");
    if (kind == u"2" && hasOtherGiftOffer(session, record.id))
        throw FieldRefusal(QStringLiteral("hh_zl"), secondGiftOffer);
    const QStringList counting = offerFigures(kind);
    for (const QString &figure : wordList(u"hh_yh1 hh_yh2 hh_yh3")) {
        if (!counting.contains(figure))
            record.set(figure, QStringLiteral("0"));
        else if (!record.decimal(figure).isPositive())
            throw FieldRefusal(figure, masterKind(u"jxc_hyyh").field(figure)->caption +
                                           QStringLiteral("必须大于零！"));
    }
    record.set(QStringLiteral("hh_note"), offerNote(record));
}

MasterKind offerKind() {
    MasterKind kind;
    kind.noun = QStringLiteral("优惠方式");
    kind.table = QStringLiteral("jxc_hyyh");
    kind.form = QStringLiteral("TF_Hyyh");
    kind.codeColumn = QStringLiteral("hh_sn");
    kind.nameColumn = QStringLiteral("hh_name");
    kind.fields = {
        Field(u"hh_sn").readOnly().caption(u"编号"),
        Field(u"hh_name").required().unique().words(),
        Field(u"hh_zl").numbered(u"存款优惠 消费返现 充值赠送", u"hh_zlname").follower(u"hh_note"),
        Field(u"hh_yh1", ValueKind::factor)
            .notNegative()
            .initial(u"1")
            .caption(u"存款倍数")
            .follower(u"hh_note"),
        Field(u"hh_yh2", ValueKind::amount).notNegative().caption(u"累计消费").follower(u"hh_note"),
        Field(u"hh_yh3", ValueKind::amount).notNegative().caption(u"转换现金").follower(u"hh_note"),
        Field(u"hh_note").readOnly()};
    kind.columns = listColumns(u"hh_sn hh_name hh_zlname hh_yh1 hh_yh2 hh_yh3 hh_note");
    kind.propose = [](const Session &, Record &record) {
        record.set(QStringLiteral("hh_note"), offerNote(record));
    };
    kind.check = checkOffer;
    return kind;
}

/// What is given on top of a recharge of exactly an amount. The rows have no name of their own.
MasterKind giftKind() {
    MasterKind kind;
    kind.isSmallList = true;
    kind.noun = QStringLiteral("充值赠送");
    kind.table = QStringLiteral("jxc_hyczzs");
    kind.form = QStringLiteral("TF_Hyzs");
    kind.codeColumn = QStringLiteral("hs_sn");
    kind.nameColumn = QStringLiteral("hs_note");
    kind.protectedCodes.clear();
    kind.fields = {Field(u"hs_sn").readOnly(),
                   Field(u"hs_czje", ValueKind::amount).required().unique().positive(),
                   Field(u"hs_zsje", ValueKind::amount).required().positive(),
                   Field(u"hs_note").words()};
    kind.columns = listColumns(u"hs_sn hs_czje hs_zsje hs_note");
    return kind;
}

} // namespace

std::vector<MasterKind> memberKinds() {
    return {memberKind(), levelKind(), offerKind(), giftKind()};
}

} // namespace jxc
