#include "core/session.h"
#include "db/transaction.h"
#include "money/settlement.h"
#include "money/settlement_draft.h"
#include "retail/document_posting.h"
#include "services/demo_data.h"
#include "services/demo_trade.h"
#include "services/verify.h"
#include "stock/close_rest.h"
#include "stock/draft.h"
#include "stock/posting.h"
#include "stock/source_entry.h"
#include "support/test_database.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

class Yes : public Prompter {
public:
    void inform(const QString &, const QString &) override {}
    bool confirm(const QString &, const QString &) override { return true; }
};

QString shown(const std::vector<Difference> &differences) {
    QStringList lines;
    for (const Difference &d : differences)
        lines << d.store + QStringLiteral(" | ") + d.text;
    return lines.join(u'\n');
}

/// A shop that has met everything the check knows: goods in two units and batches, taken in and
/// issued later, closed rests, returns, back-dated and cancelled documents, fees, settlements.
class Shop {
public:
    explicit Shop(Engine engine)
        : m_place(engine)
        , m_clock(QDateTime(QDate(2026, 3, 20), QTime(9, 0)))
        , m_session(m_place.db(), m_clock) {
        m_session.currentOperatorName = QStringLiteral("admin");
        m_session.currentOperatorNo = m_session.currentRoleNo = administratorNo;
        for (const char16_t *goods : {u"G1", u"G2", u"G3"})
            addGoods(QString::fromUtf16(goods));
    }

    Database &db() { return m_place.db(); }
    Session &session() { return m_session; }
    FixedClock &clock() { return m_clock; }
    Yes &yes() { return m_yes; }

    static DraftLine line(const QString &goods, int quantity, int price, const QString &batch = {},
                          int factor = 1) {
        DraftLine l{.goods = goods};
        l.quantity = quantity;
        l.price = price;
        l.factor = factor;
        if (!batch.isEmpty())
            l.batch = {batch, QStringLiteral("2027-01-01"), QStringLiteral("2026-01-01")};
        return l;
    }

    QString save(const QString &code, const QString &date, const std::vector<DraftLine> &lines,
                 const std::function<void(Draft &)> &more = {}) {
        Draft d;
        d.code = code;
        d.date = date;
        d.partner = d.warehouse = d.clerk = administratorNo;
        d.lines = lines;
        if (more)
            more(d);
        QString number;
        demand(saveDraft(m_session, m_yes, d, &number));
        return number;
    }

    QString post(const QString &code, const QString &date, const std::vector<DraftLine> &lines,
                 const std::function<void(Draft &)> &more = {}) {
        const QString number = save(code, date, lines, more);
        approve(number);
        return number;
    }

    void approve(const QString &number) { demand(approveDocument(m_session, m_yes, number)); }
    void cancel(const QString &number) { demand(cancelDocument(m_session, m_yes, number)); }

    /// Takes in or issues a part of what a document left open, and closes the rest.
    void moveLaterAndClose(const QString &source, const QString &date, const QString &lineTable,
                           const QString &prefix, int quantity) {
        QString number;
        demand(fillFromSource(m_session, m_yes, source, date, &number));
        db().execute(
            QStringLiteral("update %1 set %2_sl=?,%2_zsl=? where gl_djh=?").arg(lineTable, prefix),
            {quantity, quantity, number});
        approve(number);
        demand(closeRest(m_session, m_yes, source));
    }

    void settle(const QString &code, int amount, int discount = 0) {
        SettlementDraft d{code, QStringLiteral("2026-03-15"), administratorNo, administratorNo,
                          amount};
        d.discount = discount;
        QString number;
        demand(saveSettlement(m_session, m_yes, d, &number));
        demand(approveSettlement(m_session, m_yes, number));
    }

    void trade();

    static void demand(const Outcome &outcome) {
        if (!outcome.isDone())
            qFatal("%s", qPrintable(outcome.text));
    }

private:
    void addGoods(const QString &goods) {
        db().insertRow(QStringLiteral("jxc_goods"), {{QStringLiteral("g_sn"), goods},
                                                     {QStringLiteral("g_name"), goods},
                                                     {QStringLiteral("dw_name"), u"瓶"},
                                                     {QStringLiteral("g_kc"), 0},
                                                     {QStringLiteral("g_pjjj"), 3},
                                                     {QStringLiteral("g_cgpl"), 0},
                                                     {QStringLiteral("g_xspl"), 0},
                                                     {QStringLiteral("g_lsj"), 9},
                                                     {QStringLiteral("g_xzsl"), 0},
                                                     {QStringLiteral("g_iscf"), 0},
                                                     {QStringLiteral("ghs_sn"), u""}});
    }

    TestDatabase m_place;
    FixedClock m_clock;
    Session m_session;
    Yes m_yes;
};

void Shop::trade() {
    const QString g1 = QStringLiteral("G1");
    const QString g2 = QStringLiteral("G2");
    const QString g3 = QStringLiteral("G3");
    const QString b1 = QStringLiteral("B1");
    const QString b2 = QStringLiteral("B2");
    const auto day = [](int n) { return QStringLiteral("2026-03-%1").arg(n, 2, 10, QChar(u'0')); };
    const auto onAccount = [](Draft &d) { d.paid = Decimal(); };
    const auto later = [](Draft &d) { d.laterInOut = true; };

    post(QStringLiteral("XS"), day(2), {line(g1, 3, 8, b1)}); // sold before it came
    post(QStringLiteral("CJ"), day(3), {line(g1, 10, 5, b1), line(g1, 3, 70, b2, 12)},
         [](Draft &d) {
             d.freight = 20;
             d.packing = 5;
             d.freightTerms = QStringLiteral("我方付运费");
         });
    const QString receipt = post(QStringLiteral("CJ"), day(4), {line(g2, 10, 6, b1)}, later);
    moveLaterAndClose(receipt, day(5), QStringLiteral("jxc_rksp"), QStringLiteral("rk"), 6);
    const QString sale = post(QStringLiteral("XS"), day(6), {line(g2, 5, 9, b1)}, later);
    moveLaterAndClose(sale, day(7), QStringLiteral("jxc_cksp"), QStringLiteral("ck"), 2);
    post(QStringLiteral("XS"), day(8), {line(g1, 4, 8, b1), line(g1, 1, 90, b2, 12)}, onAccount);
    post(QStringLiteral("XT"), day(9), {line(g1, 1, 8, b1)});
    post(QStringLiteral("CT"), day(9), {line(g1, 2, 5, b2), line(g2, 1, 6, b1)}, onAccount);
    post(QStringLiteral("CJ"), day(2), {line(g1, 7, 4, b1), line(g3, 3, 2)}, onAccount);
    cancel(post(QStringLiteral("XS"), day(10), {line(g3, 2, 3)}, [](Draft &d) { d.freight = 7; }));
    settle(QStringLiteral("SK"), 50, 1);
    settle(QStringLiteral("FK"), 30);
    settle(QStringLiteral("YS"), 12);
    save(QStringLiteral("XS"), day(11), {line(g3, 1, 3)}); // stays a draft
}

} // namespace

class TestVerify : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void findsNothingInSoundBooks_data() { addEngineRows(); }
    void findsNothingInSoundBooks();
    void findsEveryChangedFigure_data() { addEngineRows(); }
    void findsEveryChangedFigure();
    void namesTheFirstWrongRow_data() { addEngineRows(); }
    void namesTheFirstWrongRow();
    void knowsTheOtherStockDocuments_data() { addEngineRows(); }
    void knowsTheOtherStockDocuments();
    void leavesWhatIsBeforeTheBooks_data() { addEngineRows(); }
    void leavesWhatIsBeforeTheBooks();
    void showsHistoryOnRequest_data() { addEngineRows(); }
    void showsHistoryOnRequest();
    void agreesWithLifelikeTrade_data() { addEngineRows(); }
    void agreesWithLifelikeTrade();
};

void TestVerify::findsNothingInSoundBooks() {
    Shop shop(currentEngine());
    QCOMPARE(shown(verifyBooks(shop.db())), QString());
    shop.trade();
    QCOMPARE(shown(verifyBooks(shop.db())), QString());
    QVERIFY(!shop.db().inTransaction());
}

void TestVerify::findsEveryChangedFigure() {
    struct Change {
        QString sql;
        QString store; ///< that must be named
        QString says;  ///< a part of its text
    };
    const auto c = [](const char16_t *sql, const char16_t *store, const char16_t *says) {
        return Change{QString::fromUtf16(sql), QString::fromUtf16(store), QString::fromUtf16(says)};
    };
    const std::vector<Change> changes = {
        // the journal against the documents
        c(u"update jxc_goodslist set gl_sl=gl_sl+1 where gl_flag='xt'", u"jxc_goodslist", u"数量"),
        c(u"update jxc_goodslist set gl_dj=gl_dj+1 where gl_flag='xs' and g_sn='G2'",
          u"jxc_goodslist", u"单价"),
        c(u"update jxc_goodslist set gl_je=gl_je+1 where gl_flag='ct' and g_sn='G1'",
          u"jxc_goodslist", u"金额"),
        c(u"update jxc_goodslist set gl_zje=0 where g_sn='G3'", u"jxc_goodslist", u"总金额"),
        c(u"update jxc_goodslist set gl_zcb=gl_zcb+1 where gl_flag='xt'", u"jxc_goodslist",
          u"总成本"),
        c(u"update jxc_goodslist set gl_kdrq='2026-03-01' where g_sn='G3'", u"jxc_goodslist",
          u"日期为 2026-03-01，应为 2026-03-02"),
        c(u"update jxc_goodslist set gl_flag='by' where g_sn='G3'", u"jxc_goodslist", u"业务类型"),
        c(u"update jxc_goodslist set gl_flag='zz' where g_sn='G3'", u"jxc_goodslist", u"业务类型"),
        c(u"update jxc_goodslist set t_ph='B9' where gl_flag='xt'", u"jxc_goodslist", u"批号"),
        c(u"update jxc_goodslist set t_yxq='2028-01-01' where gl_flag='xt'", u"jxc_goodslist",
          u"有效期"),
        c(u"update jxc_goodslist set ck_sn='100009' where g_sn='G3'", u"jxc_goodslist",
          u"仓库 100009"),
        c(u"update jxc_goodslist set g_sn='G2' where g_sn='G3'", u"jxc_goodslist", u"商品 G2"),
        c(u"delete from jxc_goodslist where gl_flag='xt' and g_sn='G1'", u"jxc_goodslist",
          u"缺少流水"),
        c(u"insert into jxc_goodslist (gl_flag,gl_djh,gl_kdrq,g_sn,ck_sn) values "
          u"('by','BY1','2026-03-01','G3','100001')",
          u"jxc_goodslist", u"BY1 不存在或没有审核"),
        c(u"insert into jxc_goodslist (gl_flag,gl_djh,gl_kdrq,g_sn,ck_sn) values "
          u"('by','ZZ1','2026-03-01','G3','100001')",
          u"jxc_goodslist", u"“ZZ1”不存在"),
        c(u"insert into jxc_goodslist (gl_flag,gl_djh,gl_kdrq,g_sn,ck_sn) select "
          u"'cj',j_sn,'2026-03-01','G3','100001' from jxc_jhd where j_jhrq='2026-03-03'",
          u"jxc_goodslist", u"多出"),
        c(u"insert into jxc_goodslist (gl_flag,gl_djh,gl_kdrq,ck_sn) values "
          u"('by','BY1','2026-03-01','100001')",
          u"jxc_goodslist", u"缺少商品"),
        c(u"update jxc_jhd set j_status=0 where j_jhrq='2026-03-03'", u"jxc_goodslist",
          u"没有审核"),
        c(u"update jxc_lsxsd set ls_status=1 where ls_xsrq='2026-03-11'", u"jxc_goodslist",
          u"缺少流水"),
        // its running figures
        c(u"update jxc_goodslist set gl_sqsl=gl_sqsl+1 where gl_flag='xt'", u"jxc_goodslist",
          u"期初数量"),
        c(u"update jxc_goodslist set gl_sqje=gl_sqje+1 where gl_flag='xt'", u"jxc_goodslist",
          u"期初金额"),
        c(u"update jxc_goodslist set gl_kc=gl_kc+1 where gl_flag='xt'", u"jxc_goodslist",
          u"结存数量"),
        c(u"update jxc_goodslist set gl_pjjj=gl_pjjj+1 where gl_flag='xt'", u"jxc_goodslist",
          u"平均成本价"),
        c(u"update jxc_goodslist set gl_kczje=gl_kczje+1 where gl_flag='xt'", u"jxc_goodslist",
          u"结存金额"),
        // stock
        c(u"update jxc_kcsp set kc_sl=kc_sl+1 where g_sn='G1'", u"jxc_kcsp", u"kc_sl"),
        c(u"update jxc_kcsp set kc_zsl=kc_zsl+1 where g_sn='G2'", u"jxc_kcsp", u"kc_zsl"),
        c(u"delete from jxc_kcsp where g_sn='G3'", u"jxc_kcsp", u"应为 3"),
        c(u"update jxc_tkc set t_sl=t_sl+1 where g_sn='G1' and t_ph='B2'", u"jxc_tkc", u"B2"),
        c(u"update jxc_tkc set t_yxq='' where g_sn='G3'", u"jxc_tkc", u"0000-00"),
        c(u"delete from jxc_tkc where g_sn='G2'", u"jxc_tkc", u"G2"),
        c(u"update jxc_goods set g_kc=g_kc+1 where g_sn='G2'", u"jxc_goods", u"g_kc"),
        // what was taken in and issued
        c(u"update jxc_rksp set rk_zsl=7", u"jxc_kcsp", u"G2"),
        c(u"update jxc_rkd set ck_sn='100009'", u"jxc_tkc", u"100009"),
        c(u"update jxc_rksp set id2=999999", u"jxc_rksp", u"没有对应"),
        c(u"update jxc_cksp set id2=999999", u"jxc_cksp", u"没有对应"),
        c(u"update jxc_jhsp set jh_rksl=5 where jh_qxsl<>0", u"jxc_jhsp", u"jh_rksl"),
        c(u"update jxc_jhsp set jh_qxsl=0 where jh_qxsl<>0", u"jxc_jhsp", u"jh_qxsl"),
        c(u"update jxc_lsxssp set ls_qxsl=9 where ls_qxsl<>0", u"jxc_lsxssp", u"ls_qxsl"),
        // partners
        c(u"update jxc_ysyfk set k_yfje=k_yfje+1 where k_djlx='CT'", u"jxc_ysyfk", u"应付应收"),
        c(u"update jxc_ysyfk set k_sfje=k_sfje+1 where k_djlx='SK'", u"jxc_ysyfk", u"已付已收"),
        c(u"update jxc_ysyfk set k_qcje=1 where k_djlx='YS'", u"jxc_ysyfk", u"期初金额"),
        c(u"update jxc_ysyfk set k_rq='2026-03-14' where k_djlx='FK'", u"jxc_ysyfk", u"日期"),
        c(u"update jxc_ysyfk set k_ghskh='100002' where k_djlx='XT'", u"jxc_ysyfk", u"往来单位"),
        c(u"update jxc_ysyfk set k_ljje=k_ljje+1 where k_djlx='XT'", u"jxc_ysyfk", u"余额"),
        c(u"delete from jxc_ysyfk where k_djlx='YS'", u"jxc_ysyfk", u"缺少往来帐"),
        c(u"update jxc_ysyfk_dj set k_check=0 where k_djlx='YS'", u"jxc_ysyfk", u"没有审核"),
        c(u"insert into jxc_ysyfk (gl_djh,k_type,k_ghskh,k_rq,k_yfje) values "
          u"('ZZ1','kh','100001','2026-03-01',1)",
          u"jxc_ysyfk", u"ZZ1”不存在"),
        c(u"insert into jxc_ysyfk (gl_djh,k_type,k_ghskh,k_rq,k_yfje) values "
          u"('FK1','ghs','100001','2026-03-01',1)",
          u"jxc_ysyfk", u"FK1 不存在或没有审核"),
        c(u"update jxc_khxx set kh_lwje=kh_lwje+1", u"jxc_khxx", u"往来余额"),
        c(u"update jxc_ghsxx set ghs_lwje=ghs_lwje+1", u"jxc_ghsxx", u"往来余额"),
        // cash, fees, invoices
        c(u"update jxc_xjyh set xj_je=xj_je+1 where xj_dlx='收款单'", u"jxc_xjyh", u"发生金额"),
        c(u"update jxc_xjyh set xj_kmmc='工行帐号' where xj_dlx='付款单'", u"jxc_xjyh",
          u"账户为 工行帐号"),
        c(u"update jxc_xjyh set xj_chk='0' where xj_dlx='顾客退货'", u"jxc_xjyh", u"审核标志"),
        c(u"update jxc_xjyh set xj_ljje=xj_ljje+1 where xj_dlx='顾客退货'", u"jxc_xjyh", u"余额"),
        c(u"delete from jxc_xjyh where xj_dlx='顾客退货'", u"jxc_xjyh", u"缺少现金银行"),
        c(u"delete from jxc_xjyh where xj_note like '%运费'", u"jxc_xjyh", u"付款有 0 笔"),
        c(u"update jxc_yyfy set fy_je=21 where fy_lx='运费'", u"jxc_yyfy", u"金额为 21，应为 20"),
        c(u"delete from jxc_yyfy where fy_lx='包装费'", u"jxc_yyfy", u"有 0 笔"),
        c(u"update jxc_jhd set j_yf=0 where j_yf<>0", u"jxc_yyfy", u"没有对应的已审核单据"),
        c(u"update jxc_fpdjb set fp_yfje=1 where fp_djlx='XT'", u"jxc_fpdjb", u"应开票金额"),
    };
    Shop shop(currentEngine());
    shop.trade();
    Database &db = shop.db();
    for (const Change &change : changes) {
        std::vector<Difference> found;
        {
            const Transaction undone(db);
            QVERIFY2(db.execute(change.sql) > 0, qPrintable(change.sql));
            found = verifyBooks(db);
        }
        const bool named = std::any_of(found.begin(), found.end(), [&](const Difference &d) {
            return d.store == change.store && d.text.contains(change.says) && !d.information;
        });
        QVERIFY2(named, qPrintable(change.sql + u'\n' + shown(found)));
    }
    QCOMPARE(shown(verifyBooks(db)), QString());
}

void TestVerify::namesTheFirstWrongRow() {
    Shop shop(currentEngine());
    shop.trade();
    Database &db = shop.db();
    db.execute(QStringLiteral("update jxc_goodslist set gl_kc=99 where g_sn='G1'"));
    const std::vector<Difference> found = verifyBooks(db);
    QCOMPARE(found.size(), size_t{1});
    const QString first = db.scalar(QStringLiteral(
        "select gl_djh from jxc_goodslist where g_sn='G1' order by gl_kdrq,id limit 1"));
    QVERIFY2(found[0].text.contains(first), qPrintable(found[0].text));
    QVERIFY(found[0].text.contains(u"结存数量为 99，应为 -3"));
    QCOMPARE(found[0].key, QStringLiteral("商品 G1 仓库 100001"));
}

void TestVerify::knowsTheOtherStockDocuments() {
    Shop shop(currentEngine());
    Database &db = shop.db();
    shop.post(QStringLiteral("CJ"), QStringLiteral("2026-03-02"),
              {Shop::line(QStringLiteral("G1"), 10, 5)});
    const auto run = [&](const char16_t *sql) { db.execute(QString::fromUtf16(sql)); };
    run(u"insert into jxc_kcdbd (gl_djh,ck_out,ck_in,db_dbrq,db_status) values "
        u"('DB1','100001','100002','2026-03-03',1)");
    run(u"insert into jxc_dbsp (gl_djh,g_sn,db_zsl,t_ph,t_yxq,t_scrq) values "
        u"('DB1','G1',4,'','','')");
    run(u"insert into jxc_bsd (gl_djh,ck_sn,bs_bsrq,bs_status) values "
        u"('BS1','100002','2026-03-04',1)");
    run(u"insert into jxc_bssp (gl_djh,g_sn,bs_sl,bs_dj,t_ph,t_yxq,t_scrq) values "
        u"('BS1','G1',1,5,'','','')");
    const auto row = [&](const char16_t *flag, const char16_t *number, const char16_t *warehouse,
                         int day, int quantity, int before, int after) {
        db.insertRow(QStringLiteral("jxc_goodslist"),
                     {{QStringLiteral("gl_flag"), flag},
                      {QStringLiteral("gl_djh"), number},
                      {QStringLiteral("g_sn"), u"G1"},
                      {QStringLiteral("ck_sn"), warehouse},
                      {QStringLiteral("gl_kdrq"), QStringLiteral("2026-03-0%1").arg(day)},
                      {QStringLiteral("gl_sl"), quantity},
                      {QStringLiteral("gl_dj"), 5},
                      {QStringLiteral("gl_sqsl"), before},
                      {QStringLiteral("gl_sqje"), before * 5},
                      {QStringLiteral("gl_kc"), after},
                      {QStringLiteral("gl_pjjj"), 5},
                      {QStringLiteral("gl_kczje"), after * 5},
                      {QStringLiteral("t_ph"), u""},
                      {QStringLiteral("t_yxq"), u""},
                      {QStringLiteral("t_scrq"), u""}});
    };
    row(u"db", u"DB1", u"100001", 3, -4, 10, 6);
    row(u"db", u"DB1", u"100002", 3, 4, 0, 4);
    row(u"bs", u"BS1", u"100002", 4, -1, 4, 3);
    run(u"update jxc_kcsp set kc_sl=6,kc_zsl=6 where g_sn='G1'");
    run(u"insert into jxc_kcsp (g_sn,ck_sn,kc_sl,kc_zsl,kc_cbj) values ('G1','100002',3,3,5)");
    run(u"update jxc_tkc set t_sl=6 where g_sn='G1'");
    run(u"insert into jxc_tkc (g_sn,ck_sn,t_ph,t_yxq,t_scrq,t_sl) values "
        u"('G1','100002','','0000-00','',3)");
    run(u"update jxc_goods set g_kc=9 where g_sn='G1'");
    QCOMPARE(shown(verifyBooks(db)), QString());

    run(u"update jxc_dbsp set db_zsl=5");
    QVERIFY(shown(verifyBooks(db)).contains(QStringLiteral("DB1 的数量为 -4，应为 -5")));
}

void TestVerify::leavesWhatIsBeforeTheBooks() {
    Shop shop(currentEngine());
    shop.trade();
    Database &db = shop.db();
    // As an upgrade leaves an old shop: its documents count as approved, their rows are noted, and
    // an opening row takes over the stock.
    const QString old = QStringLiteral("CJ13010110001");
    db.insertRow(QStringLiteral("jxc_jhd"), {{QStringLiteral("j_sn"), old},
                                             {QStringLiteral("j_jhrq"), u"2013-01-01"},
                                             {QStringLiteral("j_status"), 1},
                                             {QStringLiteral("ghs_sn"), administratorNo},
                                             {QStringLiteral("ck_sn"), u"100003"},
                                             {QStringLiteral("j_yfje"), 100}});
    const auto journal = [&](const char16_t *flag, const QString &number, const char16_t *date,
                             const char16_t *note, int stock) {
        db.insertRow(QStringLiteral("jxc_goodslist"), {{QStringLiteral("gl_flag"), flag},
                                                       {QStringLiteral("gl_djh"), number},
                                                       {QStringLiteral("gl_kdrq"), date},
                                                       {QStringLiteral("gl_note"), note},
                                                       {QStringLiteral("g_sn"), u"G1"},
                                                       {QStringLiteral("ck_sn"), u"100003"},
                                                       {QStringLiteral("gl_sl"), 8},
                                                       {QStringLiteral("gl_dj"), 2},
                                                       {QStringLiteral("gl_sqsl"), 0},
                                                       {QStringLiteral("gl_sqje"), 0},
                                                       {QStringLiteral("gl_kc"), stock},
                                                       {QStringLiteral("gl_pjjj"), 2},
                                                       {QStringLiteral("gl_kczje"), stock * 2},
                                                       {QStringLiteral("t_ph"), u""},
                                                       {QStringLiteral("t_yxq"), u""},
                                                       {QStringLiteral("t_scrq"), u""}});
    };
    journal(u"cj", old, u"2013-01-01", u"[-前期数据-]", 0);
    journal(u"qc", {}, u"2013-01-02", u"期初结转", 8);
    db.execute(QStringLiteral("insert into jxc_kcsp (g_sn,ck_sn,kc_sl,kc_zsl) values "
                              "('G1','100003',8,8)"));
    db.execute(QStringLiteral("insert into jxc_tkc (g_sn,ck_sn,t_ph,t_yxq,t_scrq,t_sl) values "
                              "('G1','100003','','0000-00','',8)"));
    db.execute(QStringLiteral("update jxc_goods set g_kc=g_kc+8 where g_sn='G1'"));
    QCOMPARE(shown(verifyBooks(db)), QString());

    db.execute(QStringLiteral("update jxc_goodslist set gl_note='' where gl_djh=?"), {old});
    QVERIFY(!verifyBooks(db).empty());
}

void TestVerify::showsHistoryOnRequest() {
    Shop shop(currentEngine());
    shop.trade();
    Database &db = shop.db();
    db.execute(QStringLiteral("update jxc_kcsp set kc_cbj=77 where g_sn='G3'"));
    db.execute(QStringLiteral("update jxc_goods set g_scjj=78,g_cgpl=79 where g_sn='G3'"));
    db.execute(QStringLiteral("update jxc_goods set g_pjjj=76 where g_sn='G2'"));
    QCOMPARE(shown(verifyBooks(db)), QString());
    const std::vector<Difference> all = verifyBooks(db, {.all = true});
    const QString text = shown(all);
    QVERIFY(std::all_of(all.begin(), all.end(), [](const auto &d) { return d.information; }));
    for (const QString &part :
         {QStringLiteral("kc_cbj 为 77，应为 2"), QStringLiteral("g_scjj 为 78，应为 2"),
          QStringLiteral("g_cgpl 为 79，应为 1"), QStringLiteral("g_pjjj 为 76，应为")})
        QVERIFY2(text.contains(part), qPrintable(part + u'\n' + text));
}

void TestVerify::agreesWithLifelikeTrade() {
    Shop shop(currentEngine());
    Database &db = shop.db();
    db.execute(QStringLiteral("delete from jxc_goods where g_sn like 'G%'"));
    {
        Transaction load(db);
        loadDemoMasterData(shop.session(), {.goods = 60});
        load.commit();
    }
    shop.session().members = &documentPosting();
    playDemoTrade(shop.session(), shop.clock(), {QDate(2026, 3, 1), 40, 7});
    QCOMPARE(shown(verifyBooks(db)), QString());
}

QTEST_GUILESS_MAIN(TestVerify)
#include "test_verify.moc"
