#include "reports/partner_statement.h"

#include "core/action.h"
#include "core/session.h"
#include "db/database.h"
#include "money/open_items.h"
#include "money/partner_accounts.h"
#include "reports/print_data.h"
#include "reports/template_files.h"

namespace jxc {

namespace {

PrintValue amount(Decimal value) {
    return {ValueKind::amount, value};
}

/// Who he is, and how to reach him.
void fillPartner(const Session &session, const Partner &partner, PrintFields &head) {
    const QString prefix =
        partner.kind == Partner::Kind::customer ? QStringLiteral("kh") : QStringLiteral("ghs");
    const auto row =
        session.db().row(QStringLiteral("select %1_name as name,%1_tele as tele,%1_address as "
                                        "address from jxc_%1xx where %1_sn=?")
                             .arg(prefix),
                         {partner.number});
    if (!row)
        throw Refusal(QStringLiteral("该记录已被其他操作员修改，请刷新后重试！"));
    head[QStringLiteral("partner")] = row->text(u"name");
    head[QStringLiteral("tele")] = row->text(u"tele");
    head[QStringLiteral("address")] = row->text(u"address");
}

void fillOpen(const Session &session, const Partner &partner, PrintFields &head) {
    int count = 0;
    QString oldest;
    for (const OpenItem &item : openItems(session, partner.kind, partner.number))
        if (item.open.isPositive() && ++count == 1)
            oldest = QStringLiteral("%1（%2天）").arg(item.date).arg(item.days);
    head[QStringLiteral("open")] = QString::number(count);
    head[QStringLiteral("oldest")] = oldest.isEmpty() ? QStringLiteral("无") : oldest;
}

PrintData statementData(const Session &session, const Partner &partner, const QString &from,
                        const QString &to) {
    PrintData data = PrintData::of(session);
    fillPartner(session, partner, data.head);
    fillOpen(session, partner, data.head);
    data.vars[QStringLiteral("who")] =
        partner.kind == Partner::Kind::customer ? QStringLiteral("客户") : QStringLiteral("供货商");
    data.head[QStringLiteral("from")] = from;
    data.head[QStringLiteral("to")] = to;
    data.head[QStringLiteral("a_name")] = session.currentOperatorName;
    data.head[QStringLiteral("today")] = session.today();
    Decimal balance;
    bool isFirst = true;
    for (const Row &row : partnerDetail(session, {partner.kind, partner.number, from, to, {}})) {
        balance = row.decimal(u"k_ljje");
        if (std::exchange(isFirst, false)) { // what was owed before
            data.head[QStringLiteral("opening")] = amount(balance);
            continue;
        }
        PrintFields line;
        line[QStringLiteral("no")] = QString::number(data.lines.size() + 1);
        line[QStringLiteral("rq")] = row.text(u"k_rq");
        line[QStringLiteral("number")] = row.text(u"number");
        line[QStringLiteral("kind")] = row.text(u"k_djtxt");
        line[QStringLiteral("due")] = amount(row.decimal(u"k_qcje") + row.decimal(u"k_yfje"));
        line[QStringLiteral("paid")] = amount(row.decimal(u"k_sfje"));
        line[QStringLiteral("balance")] = amount(balance);
        line[QStringLiteral("note")] = row.text(u"k_note");
        data.lines.push_back(line);
    }
    data.head[QStringLiteral("closing")] = amount(balance);
    return data;
}

} // namespace

Pages statementPages(const Session &session, const QString &home, const Partner &partner,
                     const QString &from, const QString &to) {
    installTemplates(home);
    return layOut(loadTemplate(home, QStringLiteral("wlzw.fr3")),
                  statementData(session, partner, from, to));
}

} // namespace jxc
