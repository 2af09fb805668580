#include "faults/fault_shop.h"

#include "db/read_snapshot.h"
#include "money/settlement.h"
#include "money/settlement_draft.h"
#include "services/verify.h"
#include "stock/document_kind.h"
#include "stock/posting.h"
#include "stock/source_entry.h"

#include <QCryptographicHash>

using namespace Qt::Literals::StringLiterals;

namespace jxc::test {

namespace {

const QString day = u"2026-03-10"_s;

DraftLine line(const QString &goods, int quantity, int price, const QString &batch) {
    DraftLine l{.goods = goods};
    l.quantity = quantity;
    l.price = price;
    l.batch = {batch, u"2027-01-01"_s, u"2026-01-01"_s};
    return l;
}

} // namespace

Digest digestOf(Database &db) {
    const ReadSnapshot snapshot(db);
    Digest digest;
    for (const QString &table : db.tableNames()) {
        if (table.startsWith(u"sqlite_"))
            continue;
        QCryptographicHash hash(QCryptographicHash::Md5);
        for (const Row &row : db.rows(u"select * from %1 order by id"_s.arg(table))) {
            for (size_t i = 0; i < row.columns().names().size(); ++i)
                hash.addData((row.text(i) + (row.isNull(i) ? u'0' : u'1')).toUtf8());
        }
        digest[table] = hash.result();
    }
    return digest;
}

QString differing(const Digest &a, const Digest &b) {
    QStringList tables;
    for (auto i = a.begin(); i != a.end(); ++i)
        if (b.value(i.key()) != i.value())
            tables << i.key();
    if (a.size() != b.size())
        tables << u"(another number of tables)"_s;
    return tables.join(u',');
}

QString faultsOf(Database &db) {
    QStringList lines;
    for (const Difference &d : verifyBooks(db))
        lines << d.store + u" | "_s + d.text;
    return lines.join(u'\n');
}

FaultShop::FaultShop(Engine engine)
    : m_place(engine)
    , m_witness(m_place.connect())
    , m_clock(QDateTime(QDate(2026, 3, 20), QTime(9, 0)))
    , m_session(m_place.db(), m_clock) {
    m_session.currentOperatorName = u"admin"_s;
    m_session.currentOperatorNo = m_session.currentRoleNo = administratorNo;
    for (const char16_t *goods : {u"G1", u"G2", u"G3"})
        db().insertRow(u"jxc_goods"_s, {{u"g_sn"_s, goods},
                                        {u"g_name"_s, goods},
                                        {u"dw_name"_s, u"瓶"},
                                        {u"g_kc"_s, 0},
                                        {u"g_pjjj"_s, 3},
                                        {u"g_cgpl"_s, 0},
                                        {u"g_xspl"_s, 0},
                                        {u"g_lsj"_s, 9},
                                        {u"g_xzsl"_s, 0},
                                        {u"g_iscf"_s, 0},
                                        {u"ghs_sn"_s, u""}});
    Draft stock = draft(u"CJ"_s);
    for (DraftLine &l : stock.lines)
        l.quantity = 1000;
    post(stock);
    post(draft(u"XS"_s));
}

Draft FaultShop::draft(const QString &code) const {
    Draft d;
    d.code = code;
    d.date = day;
    d.partner = d.warehouse = d.clerk = administratorNo;
    d.lines = {line(u"G1"_s, 3, 8, u"B1"_s), line(u"G1"_s, 2, 7, u"B2"_s),
               line(u"G2"_s, 5, 6, u"B1"_s)};
    d.paid = 20;
    if (code == u"CJ") {
        d.freight = 12;
        d.freightTerms = u"我方付运费"_s;
    }
    return d;
}

QString FaultShop::save(const Draft &draft) {
    QString number;
    demand(saveDraft(m_session, m_yes, draft, &number));
    return number;
}

QString FaultShop::post(const Draft &draft) {
    const QString number = save(draft);
    demand(approve(number));
    return number;
}

QString FaultShop::saveSettlement(const QString &code) {
    SettlementDraft d{code, day, administratorNo, administratorNo, 15};
    d.discount = 1;
    QString number;
    demand(jxc::saveSettlement(m_session, m_yes, d, &number));
    return number;
}

Outcome FaultShop::approve(const QString &number) {
    return isSettlementNumber(number) ? approveSettlement(m_session, m_yes, number)
                                      : approveDocument(m_session, m_yes, number);
}

Outcome FaultShop::cancel(const QString &number) {
    return isSettlementNumber(number) ? cancelSettlement(m_session, m_yes, number)
                                      : cancelDocument(m_session, m_yes, number);
}

QString FaultShop::prepare(const QString &code) {
    if (code != u"RK" && code != u"CK")
        return save(code);
    Draft source = draft(code == u"RK" ? u"CJ"_s : u"XS"_s);
    source.laterInOut = true;
    QString number;
    demand(fillFromSource(m_session, m_yes, post(source), day, &number));
    return number;
}

bool FaultShop::isApproved(const QString &number) {
    if (isSettlementNumber(number))
        return witness().scalar(u"select k_check from jxc_ysyfk_dj where gl_djh=?"_s, {number}) ==
               u"1";
    const DocumentKind &kind = *findDocumentKind(number);
    return witness().scalar(u"select %1 from %2 where %3=?"_s.arg(
                                kind.statusColumn(), kind.headerTable, kind.numberColumn),
                            {number}) == u"1";
}

void FaultShop::demand(const Outcome &outcome) {
    if (!outcome.isDone())
        qFatal("%s", qPrintable(outcome.text));
}

} // namespace jxc::test
