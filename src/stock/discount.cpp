#include "stock/discount.h"

#include "core/session.h"
#include "db/database.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

/// The columns of purchase lines and of sale lines.
struct Side {
    QString lineTable, lineNumber, linePrefix; ///< "jh" for jh_zje, jh_dj …
    QString headerTable, due, paid;
    bool isSale = false;

    [[nodiscard]] QString column(const char16_t *name) const {
        return linePrefix + QString::fromUtf16(name);
    }
};

struct Line {
    qint64 id = 0;
    Decimal quantity, rate, discount, total;
    Decimal price{}, taxPrice{}, amount{}, taxAmount{};
};

class Spreader {
public:
    Spreader(Session &session, const Side &side, QString number)
        : m_session(session)
        , m_side(side)
        , m_number(std::move(number))
        , m_parameters(Parameters::load(session.db())) {}

    void run(Decimal oldTotal, Decimal newTotal) {
        const bool onLine =
            m_side.isSale ? m_parameters.saleDiscountLine : m_parameters.purchaseDiscountLine;
        if (onLine) {
            runOnLine(oldTotal, newTotal);
            return;
        }
        spread(oldTotal - newTotal, newTotal);
        writeHeader();
    }

    void runOnLine(Decimal oldTotal, Decimal newTotal) {
        bookOnLine(newTotal - oldTotal);
        writeHeader();
    }

private:
    void bookOnLine(Decimal difference) {
        Database &db = m_session.db();
        const QString where = QStringLiteral("g_sn=? and %1=?").arg(m_side.lineNumber);
        const Assignments amounts = {{m_side.column(u"_zje"), difference},
                                     {m_side.column(u"_je"), difference}};
        if (db.updateRows(m_side.lineTable, amounts, where, {discountGoods, m_number}) > 0)
            return;
        Assignments line = amounts;
        line.push_back({m_side.lineNumber, m_number});
        line.push_back({QStringLiteral("g_sn"), discountGoods});
        line.push_back({QStringLiteral("a_name"), m_session.currentOperatorName});
        for (const char16_t *zero :
             {u"_dj", u"_sl", u"_tax", u"_taxdj", u"_taxje", u"_zsl", u"_qxsl"})
            line.push_back({m_side.column(zero), 0});
        line.push_back({m_side.isSale ? QStringLiteral("ls_cksl") : QStringLiteral("jh_rksl"), 0});
        line.push_back({m_side.column(u"_dzl"), 1});
        for (const char16_t *empty :
             {u"dw_name", u"g_sptm", u"t_yxq", u"t_ph", u"t_scrq", u"gl_djh2"})
            line.push_back({QString::fromUtf16(empty), u""});
        line.push_back({m_side.column(u"_bz"), u""});
        line.push_back({QStringLiteral("id2"), 0});
        line.push_back({QStringLiteral("id3"), 0});
        if (m_side.isSale)
            addSaleColumns(line);
        db.insertRow(m_side.lineTable, line);
    }

    static void addSaleColumns(Assignments &line) {
        line.push_back({QStringLiteral("g_zhxs"), 1});
        for (const char16_t *zero :
             {u"ls_cbj", u"ls_zcb", u"ls_cbj2", u"ls_lsj", u"ls_zhje", u"ls_dhdj", u"ls_dhbz"})
            line.push_back({QString::fromUtf16(zero), 0});
        for (const char16_t *empty : {u"t_zp", u"ghs_sn", u"t_cfsm", u"ls_xm", u"ls_cardno",
                                      u"t_cfhm", u"t_addr", u"t_mobile"})
            line.push_back({QString::fromUtf16(empty), u""});
    }

    void spread(Decimal difference, Decimal newTotal) {
        std::vector<Line> lines = readLines();
        const Decimal remainder = Decimal::fromMicros(400'000);
        while (difference > remainder && !lines.empty()) {
            const Decimal share =
                (difference / Decimal::fromInteger(static_cast<qint64>(lines.size())))
                    .roundedUp9(m_parameters.priceDecimals);
            const bool taken = takeShare(lines, share);
            writeLines(lines);
            if (!taken)
                break;
            difference = totalOf(lines) - newTotal;
        }
    }

    std::vector<Line> readLines() {
        const QString p = m_side.linePrefix;
        QString sql = QStringLiteral(
                          "select id,%1_sl as sl,%1_tax as tax,%1_dzl as dzl,%1_zje as zje from %2 "
                          "where %3=? and g_sn<>?")
                          .arg(p, m_side.lineTable, m_side.lineNumber);
        if (m_side.isSale)
            sql += QStringLiteral(" and coalesce(t_zp,'')=''");
        std::vector<Line> lines;
        for (const Row &row :
             m_session.db().rows(sql + QStringLiteral(" order by id"), {m_number, discountGoods})) {
            Line line;
            line.id = row.integer(u"id");
            line.quantity = row.decimal(u"sl");
            line.rate = row.decimal(u"tax");
            line.discount = row.decimal(u"dzl");
            line.total = row.decimal(u"zje");
            if (line.quantity.isPositive())
                lines.push_back(line);
        }
        return lines;
    }

    /// Takes the share from every line that can bear it; false when none can.
    bool takeShare(std::vector<Line> &lines, Decimal share) const {
        bool taken = false;
        for (Line &line : lines) {
            if (line.total >= share && !share.isZero()) {
                line.total -= share;
                taken = true;
            }
            const Product divisor =
                m_side.isSale ? line.discount * line.quantity : Product(line.quantity);
            line.taxPrice = (line.total / divisor.rounded(6)).rounded(3);
            line.price = (line.taxPrice * Decimal(100) / (Decimal(100) + line.rate)).rounded(3);
            line.amount = (line.price * line.quantity).rounded(6);
            line.taxAmount = (Product(line.total) - line.price * line.quantity).rounded(6);
        }
        return taken;
    }

    static Decimal totalOf(const std::vector<Line> &lines) {
        Decimal sum;
        for (const Line &line : lines)
            sum += line.total;
        return sum;
    }

    void writeLines(const std::vector<Line> &lines) {
        std::vector<Values> rows;
        rows.reserve(lines.size());
        for (const Line &l : lines)
            rows.push_back({l.id, l.total, l.taxPrice, l.price, l.amount, l.taxAmount});
        m_session.db().updateById(m_side.lineTable,
                                  {m_side.column(u"_zje"), m_side.column(u"_taxdj"),
                                   m_side.column(u"_dj"), m_side.column(u"_je"),
                                   m_side.column(u"_taxje")},
                                  rows);
    }

    void writeHeader() {
        Decimal sum;
        for (const Row &row : m_session.db().rows(
                 QStringLiteral("select %1 from %2 where %3=?")
                     .arg(m_side.column(u"_zje"), m_side.lineTable, m_side.lineNumber),
                 {m_number}))
            sum += row.decimal(size_t{0});
        m_session.db().updateRows(m_side.headerTable, {{m_side.due, sum}, {m_side.paid, sum}},
                                  QStringLiteral("%1=?").arg(m_side.lineNumber), {m_number});
    }

    Session &m_session;
    const Side &m_side;
    QString m_number;
    Parameters m_parameters;
};

const Side &saleSide() {
    static const Side side{QStringLiteral("jxc_lsxssp"),
                           QStringLiteral("gl_djh"),
                           QStringLiteral("ls"),
                           QStringLiteral("jxc_lsxsd"),
                           QStringLiteral("ls_yfje"),
                           QStringLiteral("ls_sfje"),
                           true};
    return side;
}

} // namespace

void spreadDjYhPurchase(Session &session, const QString &number, Decimal oldTotal,
                        Decimal newTotal) {
    static const Side side{QStringLiteral("jxc_jhsp"),
                           QStringLiteral("j_sn"),
                           QStringLiteral("jh"),
                           QStringLiteral("jxc_jhd"),
                           QStringLiteral("j_yfje"),
                           QStringLiteral("j_sfje"),
                           false};
    Spreader(session, side, number).run(oldTotal, newTotal);
}

void spreadDjYhSale(Session &session, const QString &number, Decimal oldTotal, Decimal newTotal) {
    Spreader(session, saleSide(), number).run(oldTotal, newTotal);
}

void bookSaleDiscount(Session &session, const QString &number, Decimal oldTotal, Decimal newTotal) {
    Spreader(session, saleSide(), number).runOnLine(oldTotal, newTotal);
}

} // namespace jxc
