#include "services/verify_journal.h"

#include "stock/document_kind.h"

namespace jxc::verify {

namespace {

const QString journalTable = QStringLiteral("jxc_goodslist");

using RowList = std::vector<const Row *>;

/// Rows of a page by the number of their document.
std::map<QString, RowList> byNumber(const Rows &rows) {
    std::map<QString, RowList> groups;
    for (const Row &row : rows)
        groups[row.text(u"number")].push_back(&row);
    return groups;
}

/// The first thing that a journal row says differently from its document; empty when it is right.
QString differing(const Row &row, const DueRow &due, const QString &date) {
    const BatchText batch = BatchText::of(row);
    QStringList checks = {compared(QStringLiteral("业务类型"), row.text(u"gl_flag"), due.flag),
                          compared(QStringLiteral("日期"), row.text(u"gl_kdrq"), date),
                          compared(QStringLiteral("数量"), row.decimal(u"gl_sl"), due.quantity),
                          compared(QStringLiteral("批号"), batch.number, due.batch.number),
                          compared(QStringLiteral("有效期"), batch.expiry, due.batch.expiry),
                          compared(QStringLiteral("生产日期"), batch.produced, due.batch.produced)};
    const auto figure = [&](const QString &caption, QStringView column,
                            const std::optional<Decimal> &expected) {
        if (expected)
            checks << compared(caption, row.decimal(column), *expected);
    };
    figure(QStringLiteral("单价"), u"gl_dj", due.price);
    figure(QStringLiteral("总金额"), u"gl_zje", due.amountWithTax);
    figure(QStringLiteral("金额"), u"gl_je", due.amount);
    figure(QStringLiteral("总成本"), u"gl_zcb", due.totalCost);
    checks.removeAll(QString());
    return checks.value(0);
}

class DocumentCheck {
public:
    DocumentCheck(Database &db, const QSet<QString> &beforeBooks, DueStock &stock,
                  Findings &findings)
        : m_db(db)
        , m_beforeBooks(beforeBooks)
        , m_stock(stock)
        , m_findings(findings) {}

    void run() {
        readFollowers(QStringLiteral("jxc_rkd"), QStringLiteral("jxc_rksp"), QStringLiteral("rk"),
                      QStringLiteral("j_sn"), 1, m_receipts);
        readFollowers(QStringLiteral("jxc_ckd"), QStringLiteral("jxc_cksp"), QStringLiteral("ck"),
                      QStringLiteral("gl_djh2"), -1, m_sales);
        readClosings(QStringLiteral("jxc_thd"), QStringLiteral("jxc_thsp"), m_receipts);
        readClosings(QStringLiteral("jxc_xsthd"), QStringLiteral("jxc_xsthsp"), m_sales);
        for (const PostingKind &kind : postingKinds())
            checkKind(kind);
        reportUnclaimed(QStringLiteral("jxc_rksp"), QStringLiteral("入库单"),
                        QStringLiteral("采购进货单"), m_receipts);
        reportUnclaimed(QStringLiteral("jxc_cksp"), QStringLiteral("出库单"),
                        QStringLiteral("商品销售单"), m_sales);
    }

private:
    /// Goods-in (sign 1) and goods-out (-1) move stock against lines of other documents.
    void readFollowers(const QString &header, const QString &lines, const QString &prefix,
                       const QString &source, int sign, LineFlow &flow) {
        const auto visit = [&](const Row &line) {
            const QString goods = line.text(u"g_sn");
            if (goods == discountGoods || m_beforeBooks.contains(line.text(u"source")))
                return;
            const Decimal base = line.decimal(u"base");
            m_stock.move({goods, line.text(u"ck_sn")}, BatchText::of(line),
                         sign > 0 ? base : -base);
            const qint64 id = line.integer(u"id2");
            if (id == 0) // of an older release, without the tie to its line
                return;
            const auto known = flow.done.find(id);
            if (known == flow.done.end())
                flow.done.insert(id, {line.decimal(u"quantity"), goods, line.text(u"gl_djh")});
            else
                known->quantity += line.decimal(u"quantity");
        };
        eachRow(m_db,
                {.select = QStringLiteral("a.id as id,a.gl_djh,a.g_sn,a.id2,a.%1_sl as quantity,"
                                          "a.%1_zsl as base,a.%2 as source,a.t_ph,a.t_yxq,"
                                          "a.t_scrq,b.ck_sn")
                               .arg(prefix, source),
                 .from = QStringLiteral("%1 a,%2 b").arg(lines, header),
                 .where = QStringLiteral("a.gl_djh=b.gl_djh and b.%1_status=1").arg(prefix),
                 .keys = {QStringLiteral("a.id")}},
                visit);
    }

    void readClosings(const QString &header, const QString &lines, LineFlow &flow) {
        eachRow(m_db,
                {.select = QStringLiteral("a.id as id,a.id2,a.th_sl"),
                 .from = QStringLiteral("%1 a,%2 b").arg(lines, header),
                 .where = QStringLiteral("a.gl_djh=b.gl_djh and b.th_status=1 and a.id2<>0"),
                 .keys = {QStringLiteral("a.id")}},
                [&](const Row &line) {
                    flow.returned[line.integer(u"id2")] += line.decimal(u"th_sl");
                });
    }

    void checkKind(const PostingKind &kind) {
        QString columns =
            QStringLiteral("%1 as posted,%2 as warehouse").arg(kind.date, kind.warehouse);
        if (!kind.headerColumns.isEmpty())
            columns += u',' + kind.headerColumns;
        eachHeaderPage(m_db, {kind.headerTable, kind.number, kind.status, columns}, kind.code,
                       [&](const Headers &headers, const NumberRange &range) {
                           checkPage(kind, headers, range);
                       });
    }

    void checkPage(const PostingKind &kind, const Headers &headers, const NumberRange &range) {
        const Rows lineRows =
            m_db.rows(QStringLiteral("select id,%1 as number,g_sn,t_ph,t_yxq,t_scrq,%2 from %3 "
                                     "where %4 order by %1,id")
                          .arg(kind.number, kind.lineColumns, kind.lineTable,
                               NumberRange::condition(kind.number)),
                      range.values());
        // Opening rows follow from no document; rows of documents before the books are left alone.
        const Rows journalRows = m_db.rows(
            QStringLiteral("select id,gl_djh as number,gl_flag,gl_kdrq,g_sn,ck_sn,gl_sl,gl_dj,"
                           "gl_zje,gl_je,gl_zcb,t_ph,t_yxq,t_scrq from jxc_goodslist where %1 and "
                           "gl_flag<>'qc' order by gl_djh,id")
                .arg(NumberRange::condition(QStringLiteral("gl_djh"))),
            range.values());
        const auto lines = byNumber(lineRows);
        auto journal = byNumber(journalRows);
        static const RowList none;
        for (const auto &[number, header] : headers) {
            const RowList rows = std::exchange(journal[number], {});
            const auto found = lines.find(number);
            const RowList &ownLines = found == lines.end() ? none : found->second;
            if (m_beforeBooks.contains(number))
                claim(kind, ownLines);
            else if (header.flag(u"status"))
                checkApproved(kind, number, header, ownLines, rows);
            else
                reportUnposted(number, rows);
        }
        for (const auto &[number, rows] : journal)
            if (!m_beforeBooks.contains(number))
                reportUnposted(number, rows);
    }

    void checkApproved(const PostingKind &kind, const QString &number, const Row &header,
                       const RowList &lines, const RowList &rows) {
        std::vector<DueRow> due =
            kind.rows({header, header.text(u"warehouse"), lines, flowOf(kind)});
        if (kind.batchFromJournal)
            takeBatches(due, rows);
        for (const DueRow &row : due)
            m_stock.move(row.place, row.batch, row.moved);
        claim(kind, lines);
        checkFlow(kind, number, lines);
        compare(number, header.text(u"posted"), due, rows);
    }

    /// The batches of journal rows, in their order.
    static void takeBatches(std::vector<DueRow> &due, const RowList &rows) {
        std::map<StockPlace, RowList> places;
        for (auto row = rows.rbegin(); row != rows.rend(); ++row)
            places[{(*row)->text(u"g_sn"), (*row)->text(u"ck_sn")}].push_back(*row);
        for (DueRow &row : due)
            if (RowList &own = places[row.place]; !own.empty()) {
                row.batch = BatchText::of(*own.back());
                own.pop_back();
            }
    }

    /// Goods by goods: which rows there are, and what each says, in their order.
    void compare(const QString &number, const QString &date, const std::vector<DueRow> &due,
                 const RowList &rows) {
        struct Both {
            std::vector<const DueRow *> due;
            RowList found;
        };
        std::map<StockPlace, Both> places;
        for (const DueRow &row : due)
            places[row.place].due.push_back(&row);
        for (const Row *row : rows)
            places[{row->text(u"g_sn"), row->text(u"ck_sn")}].found.push_back(row);
        for (const auto &[place, both] : places) {
            for (size_t i = 0; i < std::max(both.due.size(), both.found.size()); ++i) {
                if (i >= both.found.size())
                    reportMissing(number, date, *both.due[i]);
                else if (i >= both.due.size())
                    report(place, *both.found[i],
                           QStringLiteral("单据 %1 没有这一笔，流水多出").arg(number));
                else if (const QString wrong = differing(*both.found[i], *both.due[i], date);
                         !wrong.isEmpty())
                    report(place, *both.found[i],
                           QStringLiteral("单据 %1 的%2").arg(number, wrong));
                else
                    continue;
                break;
            }
        }
    }

    void report(const StockPlace &place, const Row &row, const QString &text) {
        m_findings.add(journalTable, place.text(),
                       QStringLiteral("%1：流水 %2（%3），%4")
                           .arg(place.text())
                           .arg(row.integer(u"id"))
                           .arg(row.text(u"gl_kdrq"), text),
                       {row.text(u"gl_kdrq"), row.integer(u"id")});
    }

    void reportMissing(const QString &number, const QString &date, const DueRow &due) {
        m_findings.add(journalTable, due.place.text(),
                       QStringLiteral("%1：已审核单据 %2（%3）缺少流水，应有数量 %4")
                           .arg(due.place.text(), number, date, due.quantity.toText()),
                       {date, 0});
    }

    void reportUnposted(const QString &number, const RowList &rows) {
        for (const Row *row : rows)
            report({row->text(u"g_sn"), row->text(u"ck_sn")}, *row,
                   QStringLiteral("单据 %1 不存在或没有审核，不应有流水").arg(number));
    }

    LineFlow &flowOf(const PostingKind &kind) {
        if (kind.code == QLatin1String("CJ"))
            return m_receipts;
        if (kind.code == QLatin1String("XS"))
            return m_sales;
        return m_noFlow;
    }

    /// What goods-in and goods-out documents did belongs to a line that is there.
    void claim(const PostingKind &kind, const RowList &lines) {
        if (kind.done.isEmpty())
            return;
        LineFlow &flow = flowOf(kind);
        for (const Row *line : lines) {
            const auto done = flow.done.find(line->integer(u"id2"));
            if (done != flow.done.end())
                done->claimed = line->text(u"g_sn");
        }
    }

    /// What was taken in or issued holds what the documents did, and what was cancelled is exactly
    /// what returns have closed.
    void checkFlow(const PostingKind &kind, const QString &number, const RowList &lines) {
        if (kind.done.isEmpty())
            return;
        const LineFlow &flow = flowOf(kind);
        for (const Row *line : lines) {
            const qint64 id = line->integer(u"id2");
            const Decimal byDocuments = flow.done.value(id).quantity;
            const Decimal done = line->decimal(kind.done);
            QString wrong = compared(kind.cancelled + u' ', line->decimal(kind.cancelled),
                                     flow.returned.value(id));
            if (wrong.isEmpty() && byDocuments.isPositive() && done < byDocuments)
                wrong = QStringLiteral("%1 为 %2，少于已审核出入库单的 %3")
                            .arg(kind.done, done.toText(), byDocuments.toText());
            if (!wrong.isEmpty())
                m_findings.add(kind.lineTable, number,
                               QStringLiteral("单据 %1 的商品 %2（明细 %3）：%4")
                                   .arg(number, line->text(u"g_sn"))
                                   .arg(line->integer(u"id"))
                                   .arg(wrong));
        }
    }

    void reportUnclaimed(const QString &table, const QString &title, const QString &sourceTitle,
                         const LineFlow &flow) {
        for (const LineFlow::Done &done : flow.done)
            if (done.claimed != done.goods)
                m_findings.add(table, done.number,
                               QStringLiteral("%1 %2 的商品 %3：没有对应的已审核%4明细")
                                   .arg(title, done.number, done.goods, sourceTitle));
    }

    Database &m_db;
    const QSet<QString> &m_beforeBooks;
    DueStock &m_stock;
    Findings &m_findings;
    LineFlow m_receipts, m_sales, m_noFlow;
};

} // namespace

QSet<QString> documentsBeforeTheBooks(Database &db) {
    QSet<QString> numbers;
    for (const Row &row : db.rows(QStringLiteral("select distinct gl_djh from jxc_goodslist where "
                                                 "gl_note='[-前期数据-]' and gl_djh<>''")))
        numbers.insert(row.text(size_t{0}));
    return numbers;
}

void checkJournalAgainstDocuments(Database &db, const QSet<QString> &beforeBooks, DueStock &stock,
                                  Findings &findings) {
    DocumentCheck(db, beforeBooks, stock, findings).run();
}

} // namespace jxc::verify
