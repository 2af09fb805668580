#include "retail/points_exchange.h"

#include "base/dates.h"
#include "core/numbering.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/database.h"
#include "retail/member_card.h"
#include "stock/barrier.h"
#include "stock/cost.h"
#include "stock/document.h"
#include "stock/document_kind.h"
#include "stock/posting.h"
#include "stock/proposals.h"
#include "stock/snapshot.h"
#include "stock/stock_book.h"

namespace jxc {

namespace {

/// An exchange has no approval of its own, so it is none of the kinds that are approved.
const DocumentKind &exchangeKind() {
    static const DocumentKind kind = [] {
        DocumentKind k;
        k.code = QStringLiteral("DH");
        k.title = QStringLiteral("积分兑换");
        k.headerTable = QStringLiteral("jxc_dhd");
        k.lineTable = QStringLiteral("jxc_dhzp");
        k.numberColumn = QStringLiteral("gl_djh");
        k.dateColumn = QStringLiteral("dh_dhrq");
        k.warehouseColumn = QStringLiteral("ck_sn");
        k.noteColumn = QStringLiteral("dh_note");
        k.clerkColumn.clear();
        k.quantityColumn = k.baseQuantityColumn = QStringLiteral("dh_sl");
        return k;
    }();
    return kind;
}

/// The batch that expires first; none while the goods has no batch stock.
Batch firstBatch(Session &session, const QString &goods, const QString &warehouse) {
    const auto batches = batchesOut(session, goods, warehouse);
    return batches.empty() ? Batch{}.normalised() : batches.front().batch;
}

/// What leaves the stock: gifts bring nothing and, in the profit, cost nothing.
std::vector<JournalRow> movements(Session &session, const Document &d) {
    std::vector<JournalRow> rows;
    for (const Row &line : d.lines) {
        JournalRow r{.flag = QStringLiteral("dh"), .goods = line.text(u"g_sn")};
        r.warehouse = d.warehouse;
        r.warehouseName = d.warehouseName.value_or(QString());
        r.quantity = line.decimal(u"dh_sl");
        r.entryQuantity = r.quantity;
        r.costPrice = getCbjBefore(session.db(), d.warehouse, r.goods, d.date);
        r.batch = firstBatch(session, r.goods, d.warehouse);
        r.line = line.integer(u"id");
        rows.push_back(std::move(r));
    }
    return rows;
}

class Exchange {
public:
    Exchange(Session &session, const PointsExchange &wanted)
        : m_session(session)
        , m_db(session.db())
        , m_wanted(wanted)
        , m_parameters(Parameters::load(m_db)) {}

    QString run() {
        checkHeader();
        Member member = loadMember(m_db, m_wanted.member);
        memberUsable(m_session, member);
        checkMemberPassword(member, m_wanted.password);
        takeGifts();
        if (m_points > member.points)
            throw Refusal(QStringLiteral("会员积分不足！"));
        const QString number =
            newDocNumberForDate(m_session, exchangeKind().headerTable, QStringLiteral("gl_djh"),
                                exchangeKind().code, m_wanted.date);
        store(number);
        const Document document = loadDocument(m_db, exchangeKind(), number);
        checkReferences(document);
        checkPdBeforeChk(m_db, document);
        member.points -= m_points;
        storeMemberFigures(m_db, member);
        noteTaken(number);
        postMovements(m_session, m_parameters, document, movements(m_session, document));
        writeLog(m_session, QStringLiteral("积分兑换：%1，%2").arg(number, member.name));
        updateKcjs(m_db, monthOf(m_wanted.date));
        return number;
    }

private:
    struct Gift {
        Decimal each, points;
    };

    void checkHeader() const {
        if (!isDate(m_wanted.date))
            throw Refusal(QStringLiteral("兑换日期必须填写！"));
        if (m_wanted.date > m_session.today())
            throw Refusal(QStringLiteral("单据日期不能大于当前日期！"));
        if (m_wanted.member.isEmpty())
            throw Refusal(QStringLiteral("会员必须填写！"));
        if (m_wanted.warehouse.isEmpty())
            throw Refusal(QStringLiteral("仓库必须填写！"));
        if (m_wanted.lines.empty())
            throw Refusal(QStringLiteral("单据没有明细，不能保存！"));
    }

    void takeGifts() {
        std::map<QString, Decimal> needed;
        for (const PointsExchange::Line &line : m_wanted.lines) {
            if (!line.quantity.isPositive())
                throw Refusal(QStringLiteral("第%1行：数量必须大于零！").arg(m_gifts.size() + 1));
            const auto goods =
                m_db.row(QStringLiteral("select g_name,g_iszp,g_zpjf from jxc_goods where g_sn=?"),
                         {line.goods});
            if (!goods || !goods->flag(u"g_iszp"))
                throw Refusal(QStringLiteral("商品“%1”不是赠品，不能兑换！")
                                  .arg(goods ? goods->text(u"g_name") : line.goods));
            needed[line.goods] += line.quantity;
            if (!m_parameters.negativeStockAsks &&
                needed[line.goods] > getKcsl(m_db, line.goods, m_wanted.warehouse))
                throw Refusal(QStringLiteral("赠品“%1”库存不足！").arg(goods->text(u"g_name")));
            const Decimal each = goods->decimal(u"g_zpjf");
            m_gifts.push_back({each, pointsFor(each, line.quantity)});
            m_points += m_gifts.back().points;
            m_quantity += line.quantity;
        }
    }

    void store(const QString &number) {
        m_db.insertRow(QStringLiteral("jxc_dhd"),
                       {{QStringLiteral("gl_djh"), number},
                        {QStringLiteral("hy_sn"), m_wanted.member},
                        {QStringLiteral("dh_dhrq"), m_wanted.date},
                        {QStringLiteral("dh_sl"), m_quantity},
                        {QStringLiteral("dh_jf"), m_points},
                        {QStringLiteral("dh_note"), m_wanted.note},
                        {QStringLiteral("a_name"), m_session.currentOperatorName},
                        {QStringLiteral("ck_sn"), m_wanted.warehouse}});
        std::vector<Values> lines;
        for (size_t i = 0; i < m_gifts.size(); ++i)
            lines.push_back({number, m_wanted.lines[i].goods, m_gifts[i].each,
                             m_wanted.lines[i].quantity, m_gifts[i].points,
                             m_session.currentOperatorName});
        m_db.insertRows(QStringLiteral("jxc_dhzp"),
                        QStringLiteral("gl_djh,g_sn,dh_zpjf,dh_sl,dh_jf,a_name").split(u','),
                        lines);
    }

    void noteTaken(const QString &number) {
        m_db.insertRow(QStringLiteral("jxc_jfdh"),
                       {{QStringLiteral("hy_sn"), m_wanted.member},
                        {QStringLiteral("jf_xfjf"), m_points},
                        {QStringLiteral("jf_rq"), m_session.timeStamp()},
                        {QStringLiteral("a_name"), m_session.currentOperatorName},
                        {QStringLiteral("jf_note"), number}});
    }

    Session &m_session;
    Database &m_db;
    const PointsExchange &m_wanted;
    Parameters m_parameters;
    std::vector<Gift> m_gifts;
    Decimal m_points, m_quantity;
};

} // namespace

Outcome exchangePoints(Session &session, Prompter &prompter, const PointsExchange &exchange,
                       QString *number) {
    return runAction(session.db(), prompter,
                     [&](Answers &) { *number = Exchange(session, exchange).run(); });
}

Outcome undoPointsExchange(Session &session, Prompter &prompter, const QString &number) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        Database &db = session.db();
        const Document d = loadDocument(db, exchangeKind(), number);
        checkPdBeforeCancel(db, number);
        answers.require(QStringLiteral("您的操作将撤销积分兑换：%1，确认吗？").arg(number));
        Member member = loadMember(db, d.header.text(u"hy_sn"));
        member.points += d.header.decimal(u"dh_jf");
        storeMemberFigures(db, member);
        takeBackMovements(session, Parameters::load(db), d);
        db.execute(QStringLiteral("delete from jxc_jfdh where hy_sn=? and jf_note=?"),
                   {member.key, number});
        for (const QString &table : {exchangeKind().lineTable, exchangeKind().headerTable})
            db.execute(QStringLiteral("delete from %1 where gl_djh=?").arg(table), {number});
        writeLog(session, QStringLiteral("撤销积分兑换：%1，%2").arg(number, member.name));
        updateKcjs(db, monthOf(d.date));
    });
}

} // namespace jxc
