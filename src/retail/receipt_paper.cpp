#include "retail/receipt_paper.h"

#include "core/action.h"
#include "core/session.h"
#include "db/database.h"

namespace jxc {

namespace {

void takeHead(ReceiptPaper &paper, const Row &row) {
    paper.time = row.text(u"pos_xsrq");
    paper.cashier = row.text(u"a_name");
    paper.note = row.text(u"pos_note");
    paper.due = row.decimal(u"pos_yfje");
    paper.tendered = row.decimal(u"pos_sfje");
    paper.change = row.decimal(u"pos_zlje");
    paper.discount = row.decimal(u"pos_yhje");
    paper.rounding = row.decimal(u"pos_mlje");
    paper.cash = row.decimal(u"pos_xj");
    paper.bankCard = row.decimal(u"pos_yhk");
    paper.storedValue = row.decimal(u"pos_czk");
    paper.voucher = row.decimal(u"pos_djq");
    paper.weChat = row.decimal(u"pos_wxje");
    paper.aliPay = row.decimal(u"pos_zfbje");
    paper.pointsEarned = row.decimal(u"pos_bcjf");
}

void takeMember(ReceiptPaper &paper, Database &db, const QString &key) {
    if (key.isEmpty())
        return;
    if (const auto row = db.row(QStringLiteral("select hy_bh,hy_name,hy_mobile,hy_zhje,hy_zjf from "
                                               "jxc_hyxx where hy_sn=?"),
                                {key}))
        paper.member = {row->text(u"hy_bh"), row->text(u"hy_name"), row->text(u"hy_mobile"),
                        row->decimal(u"hy_zhje"), row->decimal(u"hy_zjf")};
}

} // namespace

ReceiptPaper readReceiptPaper(Session &session, const QString &number) {
    Database &db = session.db();
    ReceiptPaper paper;
    paper.number = number;
    // A member's return stands among the sales as well, negative; its own rows are the paper's.
    auto head = db.row(QStringLiteral("select * from jxc_posthd where gl_djh=?"), {number});
    paper.isReturn = head.has_value();
    if (!head)
        head = db.row(QStringLiteral("select * from jxc_posxsd where gl_djh=?"), {number});
    if (!head)
        throw Refusal(QStringLiteral("没有找到小票“%1”！").arg(number));
    takeHead(paper, *head);
    takeMember(paper, db, head->text(u"hy_sn"));
    for (const Row &row : db.rows(
             QStringLiteral("select a.*,g.g_name from %1 a left join jxc_goods g on g.g_sn=a.g_sn "
                            "where a.gl_djh=? order by a.id")
                 .arg(paper.isReturn ? QStringLiteral("jxc_posthsp")
                                     : QStringLiteral("jxc_posxssp")),
             {number})) {
        if (row.text(u"g_sn") == QLatin1String("00000000"))
            continue; // stands below, as what was taken off
        const QString gift = paper.isReturn ? QString() : row.text(u"t_zp");
        paper.lines.push_back({row.text(u"g_name") + gift, row.text(u"dw_name"),
                               row.decimal(u"pos_dj"), row.decimal(u"pos_dzl"),
                               row.decimal(u"pos_sl"), row.decimal(u"pos_zje")});
    }
    return paper;
}

QString lastReceiptOf(Session &session, const QString &operatorName) {
    return session.db().scalar(
        QStringLiteral("select gl_djh from jxc_posxsd where a_name=? and pos_xsrq>=? order by "
                       "pos_xsrq desc,id desc limit 1"),
        {operatorName, session.today()});
}

} // namespace jxc
