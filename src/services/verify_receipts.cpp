#include "services/verify_receipts.h"

#include "master/goods_rules.h"
#include "services/verify_paging.h"

#include <tuple>

namespace jxc::verify {

namespace {

const QString receiptTable = QStringLiteral("jxc_posxsd");
const QString returnTable = QStringLiteral("jxc_posthd");
const QString settlementTable = QStringLiteral("jxc_rjd");

/// A pair of the counter's tables.
struct ReceiptTables {
    QString headers, lines, title;
    bool areReturns = false;
};

const ReceiptTables &receiptTables() {
    static const ReceiptTables tables = {receiptTable, QStringLiteral("jxc_posxssp"),
                                         QStringLiteral("POS销售单"), false};
    return tables;
}

const ReceiptTables &returnTables() {
    static const ReceiptTables tables = {returnTable, QStringLiteral("jxc_posthsp"),
                                         QStringLiteral("POS退货单"), true};
    return tables;
}

struct Sums {
    Decimal quantity{}, amount{};
    Decimal discountLine{}; ///< the part of the amount that a discount line takes off
};

/// What one settlement summed up, by day and goods.
using SettledKey = std::tuple<QString, QString, QString>; // settlement, day, goods

QString firstOf(const QStringList &checks) {
    for (const QString &check : checks)
        if (!check.isEmpty())
            return check;
    return {};
}

class ReceiptCheck {
public:
    ReceiptCheck(Database &db, const QSet<QString> &beforeBooks, Findings &findings)
        : m_db(db)
        , m_beforeBooks(beforeBooks)
        , m_findings(findings) {}

    void run() {
        for (const QString &code : {QStringLiteral("XS"), QStringLiteral("XT")})
            for (const ReceiptTables *tables : {&receiptTables(), &returnTables()})
                checkTables(*tables, code);
        checkCopies({QStringLiteral("jxc_lsxsd"), QStringLiteral("gl_djh"),
                     QStringLiteral("ls_status"), QStringLiteral("hy_sn,ls_yfje,ls_yhje")},
                    QStringLiteral("XS"));
        checkCopies({QStringLiteral("jxc_xsthd"), QStringLiteral("gl_djh"),
                     QStringLiteral("th_status"), QStringLiteral("hy_sn,th_yfje")},
                    QStringLiteral("XT"));
        checkSettlements();
    }

private:
    void checkTables(const ReceiptTables &tables, const QString &code) {
        const QString columns = QStringLiteral(
            "pos_xsrq,pos_rjid,pos_yfje,pos_sfje,pos_zlje,pos_mlje,pos_yhje,pos_xj,pos_czk,"
            "pos_yhk,pos_djq,pos_wxje,pos_zfbje");
        eachHeaderPage(
            m_db, {tables.headers, QStringLiteral("gl_djh"), QStringLiteral("1"), columns}, code,
            [&](const Headers &headers, const NumberRange &range) {
                std::map<QString, Sums> lineSums;
                for (const Row &line : m_db.rows(
                         QStringLiteral("select gl_djh,g_sn,pos_sl,pos_zje from %1 where %2")
                             .arg(tables.lines, NumberRange::condition(QStringLiteral("gl_djh"))),
                         range.values()))
                    takeLine(tables, headers, line, lineSums);
                for (const auto &[number, header] : headers)
                    checkSums(tables, number, header, lineSums[number]);
            });
    }

    /// Adds a line to its receipt and to what its settlement must hold. Quantities of returns are
    /// added there, their amounts come off.
    void takeLine(const ReceiptTables &tables, const Headers &headers, const Row &line,
                  std::map<QString, Sums> &sums) {
        const QString number = line.text(u"gl_djh");
        const Decimal amount = line.decimal(u"pos_zje");
        sums[number].amount += amount;
        if (line.text(u"g_sn") == discountGoods)
            sums[number].discountLine += amount;
        const auto header = headers.find(number);
        if (header == headers.end())
            return;
        const QString settlement = header->second.text(u"pos_rjid");
        if (settlement.isEmpty() || settlement == QLatin1String("-"))
            return;
        Sums &settled =
            m_settled[{settlement, header->second.text(u"pos_xsrq").left(10), line.text(u"g_sn")}];
        settled.quantity += line.decimal(u"pos_sl");
        settled.amount += tables.areReturns ? -amount : amount;
    }

    void checkSums(const ReceiptTables &tables, const QString &number, const Row &h,
                   const Sums &lines) {
        const Decimal due = h.decimal(u"pos_yfje");
        const Decimal paid = h.decimal(u"pos_sfje");
        Decimal tendered;
        for (const QStringView tender :
             {u"pos_xj", u"pos_czk", u"pos_yhk", u"pos_djq", u"pos_wxje", u"pos_zfbje"})
            tendered += h.decimal(tender);
        // What is paid beyond the amount due is given back; what is not is owed. The copies of
        // returns are negative.
        const Decimal beyond = paid - due;
        const Decimal off = h.decimal(u"pos_yhje") + h.decimal(u"pos_mlje");
        // The counter writes what it takes off as a line too: it counts once.
        const Decimal counted =
            !off.isZero() && lines.discountLine == -off ? lines.amount : lines.amount - off;
        const bool isChange = due.isNegative() ? beyond.isNegative() : beyond.isPositive();
        const QString wrong = firstOf({compared(QStringLiteral("应付金额"), due, counted),
                                       compared(QStringLiteral("实付金额"), paid, tendered),
                                       compared(QStringLiteral("找零金额"), h.decimal(u"pos_zlje"),
                                                isChange ? beyond : Decimal())});
        if (!wrong.isEmpty())
            m_findings.add(tables.headers, number,
                           QStringLiteral("%1 %2（%3）的%4")
                               .arg(tables.title, number, h.text(u"pos_xsrq").left(10), wrong));
    }

    /// Every approved document with a member has exactly one copy; a draft has none.
    void checkCopies(const HeaderTable &table, const QString &code) {
        eachHeaderPage(m_db, table, code, [&](const Headers &headers, const NumberRange &range) {
            std::map<QString, std::vector<Row>> copies;
            for (Row &copy :
                 m_db.rows(QStringLiteral("select gl_djh,hy_sn,pos_yfje from jxc_posxsd where %1")
                               .arg(NumberRange::condition(QStringLiteral("gl_djh"))),
                           range.values()))
                copies[copy.text(u"gl_djh")].push_back(std::move(copy));
            for (const auto &[number, header] : headers)
                if (const QString wrong = wrongCopy(code, header, copies[number]); !wrong.isEmpty())
                    m_findings.add(receiptTable, number,
                                   QStringLiteral("POS销售单 %1：%2").arg(number, wrong));
        });
    }

    static QString wrongCopy(const QString &code, const Row &header,
                             const std::vector<Row> &copies) {
        if (!header.flag(u"status"))
            return copies.empty() ? QString() : QStringLiteral("单据没有审核，不应有会员消费记录");
        const QString member = header.text(u"hy_sn");
        if (member.isEmpty())
            return {};
        if (copies.size() != 1)
            return QStringLiteral("已审核单据的会员消费记录有 %1 笔，应有 1 笔").arg(copies.size());
        const Decimal due = code == QLatin1String("XT")
                                ? -header.decimal(u"th_yfje")
                                : header.decimal(u"ls_yfje") - header.decimal(u"ls_yhje");
        return firstOf(
            {compared(QStringLiteral("会员"), copies.front().text(u"hy_sn"), member),
             compared(QStringLiteral("应付金额"), copies.front().decimal(u"pos_yfje"), due)});
    }

    void checkSettlements() {
        std::map<QString, Sums> totals;
        std::map<SettledKey, Sums> stored;
        eachRow(m_db,
                {.select = QStringLiteral("id,gl_djh,rj_xsrq,g_sn,rj_sl,rj_je"),
                 .from = QStringLiteral("jxc_rjsp"),
                 .keys = {QStringLiteral("id")}},
                [&](const Row &line) {
                    const Sums sums{line.decimal(u"rj_sl"), line.decimal(u"rj_je")};
                    for (Sums *sum : {&totals[line.text(u"gl_djh")],
                                      &stored[{line.text(u"gl_djh"), line.text(u"rj_xsrq").left(10),
                                               line.text(u"g_sn")}]}) {
                        sum->quantity += sums.quantity;
                        sum->amount += sums.amount;
                    }
                });
        eachRow(m_db,
                {.select = QStringLiteral("id,gl_djh,rj_sl,rj_je"),
                 .from = settlementTable,
                 .keys = {QStringLiteral("id")}},
                [&](const Row &header) {
                    const Sums &sums = totals[header.text(u"gl_djh")];
                    reportSettlement(header.text(u"gl_djh"), {},
                                     firstOf({compared(QStringLiteral("数量"),
                                                       header.decimal(u"rj_sl"), sums.quantity),
                                              compared(QStringLiteral("金额"),
                                                       header.decimal(u"rj_je"), sums.amount)}));
                });
        compareSettled(stored);
    }

    /// Receipts of a day may have been purged since; of a day that is still there all lines are
    /// held against it.
    void compareSettled(const std::map<SettledKey, Sums> &stored) {
        QSet<std::pair<QString, QString>> days;
        for (const auto &[key, sums] : m_settled)
            days.insert({std::get<0>(key), std::get<1>(key)});
        std::map<SettledKey, std::pair<Sums, Sums>> both; // stored, due
        for (const auto &[key, sums] : stored)
            if (days.contains({std::get<0>(key), std::get<1>(key)}))
                both[key].first = sums;
        for (const auto &[key, sums] : m_settled)
            both[key].second = sums;
        for (const auto &[key, sums] : both)
            reportSettlement(
                std::get<0>(key),
                QStringLiteral("%1 商品 %2 的").arg(std::get<1>(key), std::get<2>(key)),
                firstOf(
                    {compared(QStringLiteral("数量"), sums.first.quantity, sums.second.quantity),
                     compared(QStringLiteral("金额"), sums.first.amount, sums.second.amount)}));
    }

    void reportSettlement(const QString &number, const QString &place, const QString &wrong) {
        if (!wrong.isEmpty())
            m_findings.add(settlementTable, number,
                           QStringLiteral("日结单 %1：%2%3").arg(number, place, wrong));
    }

    Database &m_db;
    const QSet<QString> &m_beforeBooks;
    Findings &m_findings;
    std::map<SettledKey, Sums> m_settled;
};

} // namespace

void checkReceipts(Database &db, const QSet<QString> &beforeBooks, Findings &findings) {
    ReceiptCheck(db, beforeBooks, findings).run();
}

} // namespace jxc::verify
