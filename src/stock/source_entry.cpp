#include "stock/source_entry.h"

#include "base/dates.h"
#include "core/approval.h"
#include "core/numbering.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/document.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

/// How goods-in takes from receipts, and goods-out from sales.
struct Follow {
    QString code, sourceCode;
    QString quantity, done, cancelled, base;    ///< of the source's lines
    QString ownQuantity, ownBase, sourceNumber; ///< of the document's lines
    QString totalColumn;                        ///< of its header
    QString nothingFound;
};

const Follow &goodsIn() {
    static const Follow follow{
        QStringLiteral("RK"),
        QStringLiteral("CJ"),
        QStringLiteral("jh_sl"),
        QStringLiteral("jh_rksl"),
        QStringLiteral("jh_qxsl"),
        QStringLiteral("jh_zsl"),
        QStringLiteral("rk_sl"),
        QStringLiteral("rk_zsl"),
        QStringLiteral("j_sn"),
        QStringLiteral("rk_zsl"),
        QStringLiteral("没有找到与该条码匹配的商品，\r\n\r\n或收货已完成。请检查！")};
    return follow;
}

const Follow &goodsOut() {
    static const Follow follow{
        QStringLiteral("CK"),
        QStringLiteral("XS"),
        QStringLiteral("ls_sl"),
        QStringLiteral("ls_cksl"),
        QStringLiteral("ls_qxsl"),
        QStringLiteral("ls_zsl"),
        QStringLiteral("ck_sl"),
        QStringLiteral("ck_zsl"),
        QStringLiteral("gl_djh2"),
        QStringLiteral("ck_zsl"),
        QStringLiteral("没有找到与该条码匹配的商品，\r\n\r\n或发货已完成。请检查！")};
    return follow;
}

class Entry {
public:
    Entry(Session &session, const Follow &follow)
        : m_session(session)
        , m_follow(follow)
        , m_kind(*findDocumentKind(follow.code))
        , m_source(*findDocumentKind(follow.sourceCode)) {}

    QString fill(const QString &sourceNumber, const QString &date) {
        const Document source = loadDocument(m_session.db(), m_source, sourceNumber);
        if (!source.isApproved())
            throw notApproved(sourceNumber);
        QString number = draw(date);
        Decimal total;
        for (const Row &line : source.lines) {
            const Decimal ordered = line.decimal(m_follow.quantity);
            const Decimal done = line.decimal(m_follow.done);
            if (line.text(u"g_sn") == discountGoods)
                continue;
            if (ordered <= done + line.decimal(m_follow.cancelled))
                continue;
            const Decimal open = ordered - done;
            const Decimal base = (open * line.decimal(m_follow.base) / ordered).rounded(6);
            total += base;
            addLine(number, line, open, base, date);
        }
        if (total.isZero())
            throw Refusal(m_follow.nothingFound);
        addHeader(number, source.warehouse, source.partner.number, date, total);
        return number;
    }

    ScannedLine scan(QString number, const QString &warehouse, const QString &barcode,
                     const QString &date) {
        const Row line = oldestOpenLine(warehouse, barcode);
        if (m_session.db().exists(QStringLiteral("select g_sn from %1 where id2=? and gl_djh=?")
                                      .arg(m_kind.lineTable),
                                  {line.integer(u"id2"), number}))
            throw Refusal(
                QStringLiteral("该商品已添加，不能重复添加，\r\n\r\n可以修改已添加商品的数量！"));
        const Decimal factor = factorOf(line.text(u"g_sn"), line.text(u"dw_name"));
        if (number.isEmpty()) {
            number = draw(date);
            addHeader(number, warehouse, {}, date, factor);
        }
        const qint64 id = addLine(number, line, 1, factor, date);
        return {number, id};
    }

private:
    [[nodiscard]] QString draw(const QString &date) const {
        if (!isDate(date))
            throw Refusal(QStringLiteral("开单日期必须填写！"));
        return newDocNumberForDate(m_session, m_kind.lineTable, QStringLiteral("gl_djh"),
                                   m_kind.code, date);
    }

    /// Open lines are found by the receipt's own column names: nothing here is typed text.
    Row oldestOpenLine(const QString &warehouse, const QString &barcode) {
        const QString open =
            QStringLiteral(
                " from %1 b,%2 c where b.%3=c.%3 and b.%4>b.%5+b.%6 and c.%7=1 and c.ck_sn=?")
                .arg(m_source.lineTable, m_source.headerTable, m_source.numberColumn,
                     m_follow.quantity, m_follow.done, m_follow.cancelled, m_source.statusColumn());
        const auto goods =
            m_session.db().row(QStringLiteral("select b.g_sn") + open +
                                   QStringLiteral(" and b.g_sptm=? order by b.id limit 1"),
                               {warehouse, barcode});
        if (!goods || barcode.isEmpty())
            throw Refusal(m_follow.nothingFound);
        auto line = m_session.db().row(QStringLiteral("select b.*") + open +
                                           QStringLiteral(" and b.g_sn=? order by b.id limit 1"),
                                       {warehouse, goods->text(u"g_sn")});
        return *std::move(line);
    }

    Decimal factorOf(const QString &goods, const QString &unit) {
        const auto row = m_session.db().row(
            QStringLiteral("select g_zhxs from jxc_goodsdw where g_sn=? and dw_name=? order by id"),
            {goods, unit});
        return row ? row->decimal(u"g_zhxs") : Decimal(1);
    }

    qint64 addLine(const QString &number, const Row &line, Decimal quantity, Decimal base,
                   const QString &date) {
        return m_session.db().insertRow(m_kind.lineTable,
                                        {{QStringLiteral("gl_djh"), number},
                                         {m_follow.ownQuantity, quantity},
                                         {m_follow.ownBase, base},
                                         {QStringLiteral("g_sn"), line.text(u"g_sn")},
                                         {QStringLiteral("a_name"), m_session.currentOperatorName},
                                         {m_follow.sourceNumber, line.text(m_source.numberColumn)},
                                         {QStringLiteral("id2"), line.integer(u"id2")},
                                         {QStringLiteral("t_ph"), line.text(u"t_ph")},
                                         {QStringLiteral("t_scrq"), line.text(u"t_scrq")},
                                         {QStringLiteral("t_yxq"), line.text(u"t_yxq")},
                                         {QStringLiteral("dw_name"), line.text(u"dw_name")},
                                         {QStringLiteral("g_sptm"), line.text(u"g_sptm")},
                                         {QStringLiteral("t_jhrq"), date},
                                         {QStringLiteral("g_xlh"), u""}});
    }

    void addHeader(const QString &number, const QString &warehouse, const QString &partner,
                   const QString &date, Decimal total) {
        m_session.db().insertRow(m_kind.headerTable,
                                 {{QStringLiteral("gl_djh"), number},
                                  {m_kind.dateColumn, date},
                                  {m_follow.totalColumn, total},
                                  {QStringLiteral("ck_sn"), warehouse},
                                  {m_source.partnerColumn, partner},
                                  {QStringLiteral("u_sn"), administratorNo},
                                  {m_kind.noteColumn, u""},
                                  {QStringLiteral("a_name"), m_session.currentOperatorName},
                                  {m_kind.statusColumn(), 0},
                                  {m_kind.checkerColumn(), u""},
                                  {m_kind.checkDateColumn(), u""}});
    }

    Session &m_session;
    const Follow &m_follow;
    const DocumentKind &m_kind;
    const DocumentKind &m_source;
};

} // namespace

Outcome fillFromSource(Session &session, Prompter &prompter, const QString &source,
                       const QString &date, QString *made) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const Follow &follow = source.startsWith(QLatin1String("XS")) ? goodsOut() : goodsIn();
        *made = Entry(session, follow).fill(source, date);
    });
}

Outcome addScannedLine(Session &session, Prompter &prompter, const QString &code,
                       const QString &number, const QString &warehouse, const QString &barcode,
                       const QString &date, ScannedLine *added) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const Follow &follow = code == QLatin1String("CK") ? goodsOut() : goodsIn();
        *added = Entry(session, follow).scan(number, warehouse, barcode, date);
    });
}

} // namespace jxc
