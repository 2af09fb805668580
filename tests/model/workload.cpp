#include "model/workload.h"

#include "db/database.h"
#include "db/transaction.h"
#include "model/compare.h"
#include "money/settlement.h"
#include "services/verify.h"
#include "stock/close_rest.h"
#include "stock/cost.h"
#include "stock/posting.h"

namespace jxc::test {

namespace {

/// Says Yes to everything and keeps what was asked.
class YesPrompter : public Prompter {
public:
    void inform(const QString &, const QString &) override {}
    bool confirm(const QString &text, const QString &) override {
        asked << text;
        return true;
    }
    QStringList asked;
};

const QStringList stockCodes = QStringLiteral("CJ,CT,XS,XT,RK,CK").split(u',');

} // namespace

Workload::Workload(quint32 seed, Database &db)
    : m_db(db)
    , m_clock(QDateTime(QDate(2026, 3, 20), QTime(9, 0)))
    , m_session(db, m_clock)
    , m_chance(seed)
    , m_drafts(db, m_books, m_chance) {
    m_session.currentOperatorName = QStringLiteral("admin");
    m_session.currentOperatorNo = administratorNo;
    m_session.currentRoleNo = administratorNo;
    m_books.operatorName = m_session.currentOperatorName;
    m_books.today = m_session.today();
    Transaction transaction(m_db);
    chooseParameters();
    setUpShop();
    transaction.commit();
    loadGlobals(m_session);
}

void Workload::chooseParameters() {
    ReferenceSettings &s = m_books.settings;
    const bool amountsApart = m_chance.percent(70);
    const int amountDecimals = m_chance.oneOf(std::vector<int>{2, 2, 0, 1, 3, 4, 6});
    s.priceDecimals = m_chance.oneOf(std::vector<int>{2, 2, 0, 1, 3, 4, 6});
    s.quantityDecimals = m_chance.oneOf(std::vector<int>{2, 0, 0, 1, 3, 6});
    s.amountDecimals = amountsApart ? amountDecimals : s.priceDecimals;
    s.costStaysOffStock = m_chance.percent(15);
    s.shortageAsks = m_chance.percent(75);
    s.keepsInvoices = m_chance.percent(70);
    s.refusesShortAccount = m_chance.percent(15);
    m_drafts.separateGoodsIn = m_chance.percent(60);
    m_drafts.separateGoodsOut = m_chance.percent(60);
    m_db.execute(QStringLiteral("update jxc_xtcs set cs_xsws=?,cs_cs004=?,cs_zjews=?,cs_jews=?,"
                                "cs_cbjs=?,cs_kc=?,cs_kp=?,cs_xjyh=?,cs_sprk=?,cs_spck=?"),
                 {s.priceDecimals, s.quantityDecimals, amountsApart ? 1 : 0, amountDecimals,
                  s.costStaysOffStock, s.shortageAsks, s.keepsInvoices, s.refusesShortAccount,
                  m_drafts.separateGoodsIn, m_drafts.separateGoodsOut});
}

QString Workload::parametersText() const {
    const ReferenceSettings &s = m_books.settings;
    return QStringLiteral("decimals of price %1, quantity %2, amount %3; cost off stock %4, "
                          "shortage asks %5, invoices %6, short account refused %7")
        .arg(s.priceDecimals)
        .arg(s.quantityDecimals)
        .arg(s.amountDecimals)
        .arg(s.costStaysOffStock)
        .arg(s.shortageAsks)
        .arg(s.keepsInvoices)
        .arg(s.refusesShortAccount);
}

void Workload::setUpShop() {
    loadTables(m_db, m_books);
    m_drafts.insert(QStringLiteral("jxc_ckxx"),
                    {{QStringLiteral("ck_sn"), QStringLiteral("100002")},
                     {QStringLiteral("ck_name"), QStringLiteral("东库")}});
    m_drafts.insert(QStringLiteral("jxc_khxx"),
                    {{QStringLiteral("kh_sn"), QStringLiteral("100002")},
                     {QStringLiteral("kh_name"), QStringLiteral("王家村合作社")},
                     {QStringLiteral("kh_lwje"), Decimal::fromText(u"321.5")}});
    m_drafts.insert(QStringLiteral("jxc_ghsxx"),
                    {{QStringLiteral("ghs_sn"), QStringLiteral("100002")},
                     {QStringLiteral("ghs_name"), QStringLiteral("县农资公司")}});
    for (const QString &goods : m_drafts.goods()) {
        Cells row{{QStringLiteral("g_sn"), goods},
                  {QStringLiteral("g_name"), QStringLiteral("商品") + goods}};
        if (m_chance.percent(50))
            row[QStringLiteral("g_pjjj")] = m_chance.figure(9, m_books.settings.priceDecimals);
        if (m_chance.percent(15))
            row[QStringLiteral("g_xzsl")] = Decimal(25);
        m_drafts.insert(QStringLiteral("jxc_goods"), row);
        if (m_chance.percent(50))
            addOpeningStock(goods, m_chance.oneOf(m_drafts.warehouses()));
    }
    m_drafts.insert(QStringLiteral("jxc_ysyfk"),
                    {{QStringLiteral("k_djlx"), QStringLiteral("QC")},
                     {QStringLiteral("k_rq"), QStringLiteral("2026-01-01")},
                     {QStringLiteral("k_type"), QStringLiteral("kh")},
                     {QStringLiteral("k_ghskh"), QStringLiteral("100002")},
                     {QStringLiteral("k_qcje"), Decimal::fromText(u"321.5")},
                     {QStringLiteral("k_ljje"), Decimal::fromText(u"321.5")}});
}

void Workload::addOpeningStock(const QString &goods, const QString &warehouse) {
    const ReferenceSettings &s = m_books.settings;
    const Decimal quantity = m_chance.figure(60, s.quantityDecimals);
    const Decimal cost = m_chance.figure(30, s.priceDecimals);
    const Cells place{{QStringLiteral("g_sn"), goods}, {QStringLiteral("ck_sn"), warehouse}};
    const auto with = [&](Cells more) {
        more.insert(place.begin(), place.end());
        return more;
    };
    m_drafts.insert(
        QStringLiteral("jxc_goodslist"),
        with({{QStringLiteral("gl_flag"), QStringLiteral("qc")},
              {QStringLiteral("gl_djh"), QStringLiteral("期初")},
              {QStringLiteral("gl_kdrq"), m_drafts.randomDate()},
              {QStringLiteral("gl_sl"), quantity},
              {QStringLiteral("gl_dj"), cost},
              {QStringLiteral("gl_pjjj"), cost},
              {QStringLiteral("gl_kc"), quantity},
              {QStringLiteral("gl_kczje"), (quantity * cost).rounded(s.amountDecimals)}}));
    m_openingStock += quantity;
    m_drafts.insert(QStringLiteral("jxc_kcsp"), with({{QStringLiteral("kc_sl"), quantity},
                                                      {QStringLiteral("kc_zsl"), quantity},
                                                      {QStringLiteral("kc_cbj"), cost}}));
    m_drafts.insert(QStringLiteral("jxc_tkc"),
                    with({{QStringLiteral("t_yxq"), QStringLiteral("0000-00")},
                          {QStringLiteral("t_sl"), quantity}}));
    m_db.execute(QStringLiteral("update jxc_goods set g_kc=?,g_pjjj=? where g_sn=?"),
                 {quantity, cost, goods});
    Record &row = *m_books.table(QStringLiteral("jxc_goods")).first(u"g_sn", goods);
    row.set(u"g_kc", quantity);
    row.set(u"g_pjjj", cost);
}

QString Workload::compare(const QString &what, const Action &program,
                          const std::function<Verdict()> &reference) {
    YesPrompter prompter;
    const Outcome outcome = program(m_session, prompter);
    const Verdict verdict = reference();
    m_trail << what + (outcome.isDone() ? QString() : QStringLiteral(": ") + outcome.text);
    if (outcome.text != verdict.refusal)
        return QStringLiteral("answer\n  program:   %1\n  reference: %2")
            .arg(outcome.text, verdict.refusal);
    if (prompter.asked != verdict.questions)
        return QStringLiteral("questions\n  program:   %1\n  reference: %2")
            .arg(prompter.asked.join(u'|'), verdict.questions.join(u'|'));
    return firstDifference(m_db, m_books);
}

QString Workload::approve(const QString &number) {
    return compare(
        QStringLiteral("approve ") + number,
        [&](Session &session, Prompter &prompter) {
            return isSettlementNumber(number) ? approveSettlement(session, prompter, number)
                                              : approveDocument(session, prompter, number);
        },
        [&] {
            return isSettlementNumber(number) ? m_books.approveSettlement(number)
                                              : m_books.approve(number);
        });
}

QString Workload::cancel(const QString &number) {
    return compare(
        QStringLiteral("cancel ") + number,
        [&](Session &session, Prompter &prompter) {
            return isSettlementNumber(number) ? cancelSettlement(session, prompter, number)
                                              : cancelDocument(session, prompter, number);
        },
        [&] {
            return isSettlementNumber(number) ? m_books.cancelSettlement(number)
                                              : m_books.cancel(number);
        });
}

QString Workload::closeRest() {
    const auto sources = m_drafts.documents({QStringLiteral("CJ"), QStringLiteral("XS")});
    if (sources.empty())
        return {};
    const QString number = m_chance.oneOf(sources).number;
    QString made;
    return compare(
        QStringLiteral("close the rest of ") + number,
        [&](Session &session, Prompter &prompter) {
            return jxc::closeRest(session, prompter, number, &made);
        },
        [&] { return m_books.closeRest(number, made); });
}

QString Workload::approveOrCancelAny() {
    const auto documents = m_drafts.documents(stockCodes);
    if (documents.empty())
        return {};
    const KnownDocument document = m_chance.oneOf(documents);
    // Now and then the wrong way round, as when another workstation was quicker.
    const bool backwards = m_chance.percent(5);
    return document.approved != backwards ? cancel(document.number) : approve(document.number);
}

QString Workload::askForCosts() {
    const QString warehouse = m_chance.oneOf(m_drafts.warehouses());
    const QString goods = m_chance.oneOf(m_drafts.goods());
    const QString date = m_drafts.randomDate();
    const Decimal entry = getCbjBefore(m_db, warehouse, goods, date);
    const Decimal at = getCbjAt(m_db, warehouse, goods, date);
    const Decimal entryByRules = m_books.costForEntry(warehouse, goods, date);
    const Decimal atByRules = m_books.costAt(warehouse, goods, date);
    if (entry == entryByRules && at == atByRules)
        return {};
    return QStringLiteral("cost of %1 in %2 on %3: for entry %4, reference %5; at %6, reference %7")
        .arg(goods, warehouse, date, entry.toText(), entryByRules.toText(), at.toText(),
             atByRules.toText());
}

QString Workload::removeDraft() {
    auto drafts = m_drafts.documents(stockCodes);
    std::erase_if(drafts, [](const KnownDocument &d) { return d.approved; });
    if (drafts.empty())
        return {};
    const QString number = m_chance.oneOf(drafts).number;
    m_trail << QStringLiteral("remove draft ") + number;
    m_drafts.remove(number);
    return {};
}

QString Workload::step() {
    if (QString difference = askForCosts(); !difference.isEmpty())
        return difference;
    const int action = m_chance.below(100);
    if (action < 40)
        return approve(m_drafts.trade(m_chance.oneOf(
            QStringList{QStringLiteral("CJ"), QStringLiteral("CJ"), QStringLiteral("XS"),
                        QStringLiteral("XS"), QStringLiteral("CT"), QStringLiteral("XT")})));
    if (action < 55) {
        const QString number = m_drafts.againstSource(m_chance.percent(50) ? QStringLiteral("RK")
                                                                           : QStringLiteral("CK"));
        return number.isEmpty() ? QString() : approve(number);
    }
    if (action < 80)
        return approveOrCancelAny();
    if (action < 85)
        return closeRest();
    if (action < 92)
        return approve(m_drafts.settlement(
            m_chance.oneOf(QStringList{QStringLiteral("SK"), QStringLiteral("FK"),
                                       QStringLiteral("YS"), QStringLiteral("YF")})));
    if (action < 95) {
        const auto &rows = m_books.table(QStringLiteral("jxc_ysyfk_dj")).rows();
        return rows.empty() ? QString() : cancel(m_chance.oneOf(rows).text(u"gl_djh"));
    }
    return removeDraft();
}

QString Workload::verify() {
    const auto differences = verifyBooks(m_db);
    if (differences.empty())
        return {};
    const Difference &first = differences.front();
    return QStringLiteral("verification of %1, %2: %3").arg(first.store, first.key, first.text);
}

QString Workload::takeAllBack() {
    // What closes or takes from another document goes first.
    for (const QString &code : QStringLiteral("CT,XT,RK,CK,CJ,XS").split(u','))
        for (const KnownDocument &document : m_drafts.documents({code})) {
            if (document.approved)
                if (QString difference = cancel(document.number); !difference.isEmpty())
                    return difference;
            if (code == u"RK" || code == u"CK")
                m_drafts.remove(document.number);
        }
    Decimal stock;
    for (const Record &row : m_books.table(QStringLiteral("jxc_kcsp")).rows())
        stock += row.number(u"kc_zsl");
    return stock == m_openingStock ? QString()
                                   : QStringLiteral("the stock left after everything was taken "
                                                    "back: %1, not %2")
                                         .arg(stock.toText(), m_openingStock.toText());
}

} // namespace jxc::test
