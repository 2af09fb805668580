#include "ctl/story.h"

#include "base/dates.h"
#include "core/session.h"
#include "ctl/console.h"
#include "db/database.h"
#include "money/cash_journal.h"
#include "money/partner_ledger.h"
#include "money/settlement.h"
#include "money/settlement_draft.h"
#include "retail/counter_goods.h"
#include "retail/counter_member.h"
#include "retail/day_end.h"
#include "retail/member.h"
#include "retail/receipt_posting.h"
#include "retail/receipt_return.h"
#include "retail/recharge.h"
#include "stock/close_rest.h"
#include "stock/cost.h"
#include "stock/draft.h"
#include "stock/posting.h"
#include "stock/source_entry.h"

namespace jxc::ctl {

namespace {

const QString supplier = QStringLiteral("100002");
const QString customer = QStringLiteral("100002");
const QString walkIn = QStringLiteral("100001");
const QString warehouse = QStringLiteral("100001");
const QString member = QStringLiteral("100002");

class Story {
public:
    Story(Session &session, FixedClock &clock)
        : m_session(session)
        , m_db(session.db())
        , m_clock(clock)
        , m_goods(
              m_db.scalar(QStringLiteral("select g_sn from jxc_goods where g_jy=0 and g_iscf=0 and "
                                         "g_xzsl=0 order by id limit 1"))) {}

    void tell() {
        say(QStringLiteral("商品：%1")
                .arg(m_db.scalar(QStringLiteral("select g_name from jxc_goods where g_sn=?"),
                                 {m_goods})));
        on(1, QStringLiteral("进货100，单价8.00，欠款"));
        post(receipt(QStringLiteral("100"), QStringLiteral("8"), QStringLiteral("A01"), true));
        on(2, QStringLiteral("零售20，单价12.00，收现金"));
        const QString sale = post(saleOf(QStringLiteral("20"), walkIn, true));
        on(3, QStringLiteral("赊销30给农户，秋后付款"));
        post(saleOf(QStringLiteral("30"), customer, false));
        on(5, QStringLiteral("补录第1天的进货50，单价9.50：以后每一行的成本当场重算"));
        backDatedReceipt();
        on(6, QStringLiteral("第2天的销售开错了，取消审核，改后再审核"));
        cancel(sale);
        approve(sale);
        on(7, QStringLiteral("农户退回5"));
        post(salesReturn(QStringLiteral("5")));
        on(8, QStringLiteral("进货40，分两次到货：先到15，其余25不再来了"));
        partDelivery();
        on(10, QStringLiteral("退给供货商4"));
        post(purchaseReturn(QStringLiteral("4")));
        on(12, QStringLiteral("农户付款200.00，优惠5.00"));
        settle(QStringLiteral("SK"), customer, QStringLiteral("200"), QStringLiteral("5"));
        on(13, QStringLiteral("付供货商500.00"));
        settle(QStringLiteral("FK"), supplier, QStringLiteral("500"), QStringLiteral("0"));
        on(14, QStringLiteral("会员充值200，收现金"));
        recharge(200);
        QString receiptNumber;
        on(15, QStringLiteral("会员在收银台买3，用储值卡付"));
        ringUp(3, &receiptNumber);
        on(16, QStringLiteral("其中1退货，退回储值卡"));
        bringBack(receiptNumber, 1);
        on(17, QStringLiteral("收银台日结"));
        settleTheCounter();
    }

private:
    void on(int day, const QString &what) {
        const QDate date(2026, 3, day);
        m_clock.set(QDateTime(date, QTime(9, 0)));
        say({});
        say(QStringLiteral("%1  %2").arg(toDateText(date), what));
    }

    Draft draft(const QString &code, const QString &partner, const QString &quantity,
                const QString &price, const QString &batch) {
        Draft d;
        d.code = code;
        d.date = m_session.today();
        d.partner = partner;
        d.warehouse = warehouse;
        d.clerk = walkIn;
        DraftLine line{.goods = m_goods};
        line.quantity = Decimal::fromText(quantity);
        line.price = Decimal::fromText(price);
        line.batch = {batch, QStringLiteral("2028-02-01"), QStringLiteral("2026-02-01")};
        d.lines.push_back(line);
        return d;
    }

    Draft receipt(const QString &quantity, const QString &price, const QString &batch, bool owing) {
        Draft d = draft(QStringLiteral("CJ"), supplier, quantity, price, batch);
        if (owing)
            d.paid = Decimal();
        return d;
    }

    Draft saleOf(const QString &quantity, const QString &buyer, bool cash) {
        Draft d = draft(QStringLiteral("XS"), buyer, quantity, QStringLiteral("12"),
                        QStringLiteral("A01"));
        if (!cash)
            d.paid = Decimal();
        return d;
    }

    Draft salesReturn(const QString &quantity) {
        Draft d = draft(QStringLiteral("XT"), customer, quantity, QStringLiteral("12"),
                        QStringLiteral("A01"));
        d.paid = Decimal();
        return d;
    }

    Draft purchaseReturn(const QString &quantity) {
        Draft d = draft(QStringLiteral("CT"), supplier, quantity, QStringLiteral("8"),
                        QStringLiteral("A01"));
        d.paid = Decimal();
        return d;
    }

    void backDatedReceipt() {
        Draft d = receipt(QStringLiteral("50"), QStringLiteral("9.5"), QStringLiteral("A02"), true);
        d.date = QStringLiteral("2026-03-01");
        post(d);
    }

    void partDelivery() {
        Draft d = receipt(QStringLiteral("40"), QStringLiteral("8.8"), QStringLiteral("A03"), true);
        d.laterInOut = true;
        const QString number = post(d);
        QString goodsIn;
        demand(fillFromSource(m_session, m_prompter, number, m_session.today(), &goodsIn));
        m_db.execute(QStringLiteral("update jxc_rksp set rk_sl=15,rk_zsl=15 where gl_djh=?"),
                     {goodsIn});
        approve(goodsIn);
        QString returned;
        demand(closeRest(m_session, m_prompter, number, &returned));
        say(QStringLiteral("  取消入库，自动生成退货单%1").arg(returned));
        sayFigures();
    }

    QString post(const Draft &d) {
        QString number;
        demand(saveDraft(m_session, m_prompter, d, &number));
        approve(number);
        return number;
    }

    void approve(const QString &number) {
        demand(isSettlementNumber(number) ? approveSettlement(m_session, m_prompter, number)
                                          : approveDocument(m_session, m_prompter, number));
        say(QStringLiteral("  审核 %1").arg(number));
        sayFigures();
    }

    void cancel(const QString &number) {
        demand(cancelDocument(m_session, m_prompter, number));
        say(QStringLiteral("  取消审核 %1").arg(number));
        sayFigures();
    }

    void settle(const QString &code, const QString &partner, const QString &amount,
                const QString &discount) {
        QString number;
        demand(saveSettlement(m_session, m_prompter,
                              {code, m_session.today(), partner, walkIn, Decimal::fromText(amount),
                               Decimal::fromText(discount)},
                              &number));
        approve(number);
    }

    void recharge(int amount) {
        RechargeReceipt receipt;
        demand(rechargeMember(m_session, m_prompter,
                              {.member = member, .amount = amount, .cash = amount}, &receipt));
        say(QStringLiteral("  充值 %1").arg(receipt.number));
        sayFigures();
        sayMember();
    }

    void ringUp(int quantity, QString *number) {
        const CounterMember buyer = counterMember(m_session, member);
        const CounterSettings settings = CounterSettings::load(m_session);
        GoodsFinder finder(m_db);
        const CounterFind found = findForCounter(finder, settings, m_goods);
        Receipt receipt{.warehouse = warehouse, .clerk = walkIn, .member = member};
        receipt.lines = {
            counterLine(m_session, settings, found, found.hits.front(), buyer.asBuyer())};
        receipt.lines.front().quantity = quantity;
        Tender tender;
        tender.other.storedValue = receipt.total(settings.amountDecimals);
        tender.memberBalance = buyer.balance;
        PostedReceipt posted;
        demand(postReceipt(m_session, m_prompter, receipt, tender, &posted));
        *number = posted.number;
        say(QStringLiteral("  小票 %1，应付%2").arg(posted.number, posted.outcome.due.toText(2)));
        sayFigures();
        sayMember();
    }

    void bringBack(const QString &receipt, int quantity) {
        CounterReturn back = returnOf(m_session, receipt);
        back.lines.front().line.quantity = quantity;
        Tender refund;
        refund.other.storedValue = back.total(CounterSettings::load(m_session).amountDecimals);
        QString number;
        demand(postReturn(m_session, m_prompter, back, refund, &number));
        say(QStringLiteral("  退货 %1，退款%2").arg(number, refund.sum().toText(2)));
        sayFigures();
        sayMember();
    }

    void settleTheCounter() {
        QString number;
        demand(settleCounter(m_session, m_prompter, &number));
        const auto settlement =
            m_db.row(QStringLiteral("select rj_sl,rj_je from jxc_rjd where gl_djh=?"), {number});
        say(QStringLiteral("  日结 %1，数量%2，金额%3")
                .arg(number, settlement->decimal(u"rj_sl").toText(),
                     settlement->decimal(u"rj_je").toText(2)));
    }

    void sayMember() {
        const Member m = loadMember(m_db, member);
        say(QStringLiteral("    会员%1 储值%2 积分%3 累计消费%4")
                .arg(m.name, m.value.toText(2), m.points.toText(), m.spent.toText(2)));
    }

    void sayFigures() {
        const auto stock = m_db.row(
            QStringLiteral("select kc_sl,kc_zsl,kc_cbj from jxc_kcsp where g_sn=? and ck_sn=?"),
            {m_goods, warehouse});
        say(QStringLiteral("    库存%1（帐面%2） 成本价%3 | 应付%4 应收%5 现金%6")
                .arg(stock->decimal(u"kc_sl").toText(), stock->decimal(u"kc_zsl").toText(),
                     stock->decimal(u"kc_cbj").toText(2),
                     CurrentBalance(m_db, {Partner::Kind::supplier, supplier}).toText(2),
                     CurrentBalance(m_db, {Partner::Kind::customer, customer}).toText(2),
                     AccountBalance(m_db, QStringLiteral("现金")).toText(2)));
    }

    static void demand(const Outcome &outcome) {
        if (!outcome.isDone())
            throw Refusal(outcome.text);
    }

    Session &m_session;
    Database &m_db;
    FixedClock &m_clock;
    AgreeingPrompter m_prompter;
    QString m_goods;
};

void reportStock(Database &db) {
    say(QStringLiteral("-- 库存（金额最大的10种） --"));
    struct Line {
        QString name;
        Decimal quantity, cost, value;
    };
    std::vector<Line> lines;
    Decimal total;
    for (const Row &row :
         db.rows(QStringLiteral("select b.g_name,a.kc_zsl,a.kc_cbj from jxc_kcsp a,jxc_goods b "
                                "where a.g_sn=b.g_sn and a.kc_zsl<>0"))) {
        const Decimal value = (row.decimal(u"kc_zsl") * row.decimal(u"kc_cbj")).rounded(2);
        lines.push_back(
            {row.text(u"g_name"), row.decimal(u"kc_zsl"), row.decimal(u"kc_cbj"), value});
        total += value;
    }
    std::sort(lines.begin(), lines.end(),
              [](const Line &a, const Line &b) { return a.value > b.value; });
    for (size_t i = 0; i < std::min<size_t>(10, lines.size()); ++i)
        say(QStringLiteral("%1 × %2 = %3  %4")
                .arg(lines[i].quantity.toText(), 8)
                .arg(lines[i].cost.toText(2), 8)
                .arg(lines[i].value.toText(2), 10)
                .arg(lines[i].name));
    say(QStringLiteral("共%1种，库存金额 %2").arg(lines.size()).arg(total.toText(2)));
}

void reportPartners(Database &db, const QString &caption, const QString &sql) {
    say(caption);
    for (const Row &row : db.rows(sql))
        say(QStringLiteral("%1  %2")
                .arg(row.decimal(size_t{1}).toText(2), 12)
                .arg(row.text(size_t{0})));
}

} // namespace

void tellStory(Session &session, FixedClock &clock) {
    Story(session, clock).tell();
}

void reportShop(Database &db) {
    reportStock(db);
    reportPartners(
        db, QStringLiteral("-- 谁欠我们（前5名） --"),
        QStringLiteral(
            "select kh_name,kh_lwje from jxc_khxx where kh_lwje<>0 order by kh_lwje desc limit 5"));
    reportPartners(
        db, QStringLiteral("-- 我们欠谁（前5名） --"),
        QStringLiteral(
            "select ghs_name,ghs_lwje from jxc_ghsxx where ghs_lwje<>0 order by ghs_lwje "
            "desc limit 5"));
    say(QStringLiteral("-- 现金银行 --"));
    for (const Row &row : db.rows(QStringLiteral("select yh_name from jxc_yhzh order by id")))
        say(QStringLiteral("%1  %2")
                .arg(AccountBalance(db, row.text(size_t{0})).toText(2), 12)
                .arg(row.text(size_t{0})));
}

} // namespace jxc::ctl
