#include "reports/document_data.h"

#include "core/approval.h"
#include "db/database.h"
#include "db/schema.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

/// What a numeric column of a document holds, by the ends that all documents' columns share.
ValueKind figureKind(QStringView column) {
    const QStringView end = column.sliced(column.lastIndexOf(u'_') + 1);
    if (end.endsWith(u"sl"))
        return ValueKind::quantity;
    if (end.endsWith(u"dj") || end == u"lsj" || end.startsWith(u"cbj") || end == u"zhje")
        return ValueKind::price;
    if (end == u"tax")
        return ValueKind::percent;
    if (end == u"dzl" || end == u"zhxs" || end == u"bzq")
        return ValueKind::factor;
    return ValueKind::amount;
}

/// What only those see who may see cost prices: every price of a purchase, the cost of a sale.
bool isCost(const DocumentKind &kind, QStringView column, ValueKind what) {
    const QStringView end = column.sliced(column.lastIndexOf(u'_') + 1);
    if (kind.partnerKind == Partner::Kind::customer || !kind.payments)
        return end.startsWith(u"cbj") || end == u"zcb" || end == u"lr";
    return (what == ValueKind::price && column != u"g_lsj") || what == ValueKind::amount;
}

class DocumentReader {
public:
    DocumentReader(const Session &session, const DocumentKind &kind, QString number)
        : m_session(session)
        , m_kind(kind)
        , m_number(std::move(number))
        , m_data(PrintData::of(session)) {}

    PrintData read() {
        readHead();
        readLines();
        m_data.vars.insert(QStringLiteral("foot"), m_session.parameters.printedHint);
        m_data.vars.insert(QStringLiteral("operator"), m_session.currentOperatorName);
        m_data.vars.insert(QStringLiteral("now"), m_session.timeStamp());
        return std::move(m_data);
    }

private:
    [[nodiscard]] bool isSupplier() const {
        return table(m_kind.headerTable).column(u"ghs_sn") != nullptr;
    }
    [[nodiscard]] bool hasMember() const {
        return table(m_kind.headerTable).column(u"hy_sn") != nullptr;
    }

    [[nodiscard]] QString headSql() const {
        const QString partner = isSupplier() ? QStringLiteral("ghs") : QStringLiteral("kh");
        QString columns =
            QStringLiteral("h.*,p.%1_name as p_name,p.%1_lxr as p_lxr,p.%1_tele as p_tele,"
                           "p.%1_address as p_address,p.%1_lwje as p_owed,w.ck_name,u.u_name,"
                           "y.k_yfje as y_due,y.k_sfje as y_paid,y.k_ljje as y_after,y.id as y_id");
        QString from = QStringLiteral(
            "%2 h left join jxc_%1xx p on p.%1_sn=h.%1_sn left join jxc_ckxx w on w.ck_sn=h.ck_sn "
            "left join jxc_user u on u.u_sn=h.u_sn "
            "left join jxc_ysyfk y on y.gl_djh=h.%3 and y.k_djlx=?");
        if (hasMember()) {
            columns += QStringLiteral(",m.hy_name,m.hy_bh");
            from += QStringLiteral(" left join jxc_hyxx m on m.hy_sn=h.hy_sn and h.hy_sn<>''");
        }
        // Should a number stand on two rows, the approved one is the document.
        return QStringLiteral("select %1 from %2 where h.%3=? order by h.%4 desc,h.id limit 1")
            .arg(columns.arg(partner), from.arg(partner, m_kind.headerTable, m_kind.numberColumn),
                 m_kind.numberColumn, m_kind.statusColumn());
    }

    void readHead() {
        const auto row = m_session.db().row(headSql(), {m_kind.code, m_number});
        if (!row)
            throw unknownDocument(m_number);
        take(*row, m_kind.headerTable, m_data.head);
        PrintFields &head = m_data.head;
        head.insert(QStringLiteral("title"), m_kind.title);
        head.insert(QStringLiteral("number"), m_number);
        head.insert(QStringLiteral("date"), row->text(m_kind.dateColumn));
        head.insert(QStringLiteral("note"), row->text(m_kind.noteColumn));
        head.insert(QStringLiteral("checker"), row->text(m_kind.checkerColumn()));
        head.insert(QStringLiteral("checked"), row->text(m_kind.checkDateColumn()));
        head.insert(QStringLiteral("partner"), row->text(u"p_name"));
        head.insert(isSupplier() ? QStringLiteral("ghs_name") : QStringLiteral("kh_name"),
                    row->text(u"p_name"));
        for (const char16_t *part : {u"lxr", u"tele", u"address"}) {
            const QString name = QString::fromUtf16(part);
            head.insert(QStringLiteral("partner_") + name, row->text(QStringLiteral("p_") + name));
        }
        head.insert(QStringLiteral("ck_name"), row->text(u"ck_name"));
        head.insert(QStringLiteral("u_name"), row->text(u"u_name"));
        if (hasMember()) {
            head.insert(QStringLiteral("hy_name"), row->text(u"hy_name"));
            head.insert(QStringLiteral("hy_bh"), row->text(u"hy_bh"));
        }
        if (m_kind.payments)
            takeMoney(*row);
    }

    /// Of receipts, sales and their returns.
    void takeMoney(const Row &row) {
        if (!mayShow(m_kind.prefix + QStringLiteral("_yfje"), ValueKind::amount))
            return;
        const auto amount = [&](const char16_t *name) {
            const QString column = m_kind.prefix + QString::fromUtf16(name);
            return table(m_kind.headerTable).column(column) ? row.decimal(column) : Decimal();
        };
        const Decimal off = amount(u"_yhje"), due = amount(u"_yfje") - off;
        const Decimal paid = amount(u"_sfje"), settled = amount(u"_hkje");
        insertAmount("due", due);
        insertAmount("off", off);
        insertAmount("paid", paid);
        insertAmount("settled", settled);
        insertAmount("rest", due - paid - settled);
        // A draft has not moved the partner's account yet.
        if (row.integer(m_kind.statusColumn()) == 1 && !row.isNull(u"y_id")) {
            const Decimal after = row.decimal(u"y_after");
            insertAmount("before", after - row.decimal(u"y_due") + row.decimal(u"y_paid"));
            insertAmount("after", after);
            return;
        }
        const bool isReturn = m_kind.prefix == QLatin1String("th");
        const Decimal before = row.decimal(u"p_owed"), owing = due - paid;
        insertAmount("before", before);
        insertAmount("after", isReturn ? before - owing : before + owing);
    }

    void insertAmount(const char *name, Decimal value) {
        m_data.head.insert(QLatin1String(name), {ValueKind::amount, value});
    }

    void readLines() {
        const QString sql =
            QStringLiteral("select l.*,g.g_name,g.g_tym,g.g_jm,g.gg_name,g.g_sccs,g.color_name,"
                           "g.g_zczh,g.g_scxkz,g.g_yjlx,g.g_cztj,g.hj_name,g.g_bzq,g.g_lsj "
                           "from %1 l left join jxc_goods g on g.g_sn=l.g_sn where l.%2=? "
                           "order by %3l.id,g.id")
                .arg(m_kind.lineTable, m_kind.numberColumn,
                     m_session.parameters.printsByGoodsCode ? QStringLiteral("l.g_sn,")
                                                            : QString());
        qint64 previous = 0;
        for (const Row &row : m_session.db().rows(sql, {m_number})) {
            // A goods code that an older file holds twice must not print its line twice.
            if (row.integer(u"id") == std::exchange(previous, row.integer(u"id")))
                continue;
            PrintFields line;
            take(row, m_kind.lineTable, line);
            takeGoods(row, line);
            m_data.lines.push_back(std::move(line));
        }
        nameBuyers();
    }

    /// Who bought restricted goods, each once: "购买人：张三 330102********1234".
    void nameBuyers() {
        QStringList buyers;
        for (const PrintFields &line : m_data.lines) {
            const QString name = line.value(QStringLiteral("ls_xm")).text;
            if (!name.isEmpty())
                buyers << (name + u' ' + line.value(QStringLiteral("ls_cardno")).text).trimmed();
        }
        buyers.removeDuplicates();
        if (!buyers.isEmpty())
            m_data.head.insert(QStringLiteral("buyers"),
                               QString(u"购买人："_qs + buyers.join(u'，')));
    }

    void takeGoods(const Row &row, PrintFields &line) {
        take(row, QStringLiteral("jxc_goods"), line);
        line.insert(QStringLiteral("no"), QString::number(m_data.lines.size() + 1));
        const auto discount = line.constFind(discountColumn());
        if (discount != line.constEnd())
            line.insert(QStringLiteral("discount"),
                        discount->figure == Decimal(1) || discount->figure.isZero() ? PrintValue()
                                                                                    : *discount);
        if (row.text(u"g_sn") == discountGoods) // an amount only
            for (const QString &name : {m_kind.quantityColumn, m_kind.baseQuantityColumn})
                line.remove(name);
        const auto append = [&](const QString &words) {
            line[QStringLiteral("g_name")].text += words;
        };
        if (line.contains(QStringLiteral("t_zp")))
            append(line.value(QStringLiteral("t_zp")).text);
        if (const auto identity = line.find(QStringLiteral("ls_cardno")); identity != line.end())
            identity->text = maskedIdentity(identity->text);
        // A batch without expiry is stored with one that never comes.
        auto &expiry = line[QStringLiteral("t_yxq")].text;
        if (expiry.startsWith(u"0000"))
            expiry.clear();
    }

    [[nodiscard]] QString discountColumn() const {
        return m_kind.quantityColumn.section(u'_', 0, 0) + QStringLiteral("_dzl");
    }

    [[nodiscard]] bool mayShow(QStringView column, ValueKind kind) const {
        return m_session.rights.showCostPrice || !isCost(m_kind, column, kind);
    }

    /// Every column of the row that the table describes.
    void take(const Row &row, const QString &tableName, PrintFields &fields) const {
        const Table &description = table(tableName);
        for (const QString &name : row.columns().names()) {
            const Column *column = description.column(name);
            if (!column || fields.contains(name))
                continue;
            if (column->type != ColumnType::Numeric) {
                fields.insert(name, row.text(name));
                continue;
            }
            const ValueKind kind = figureKind(name);
            if (mayShow(name, kind))
                fields.insert(name, {kind, row.decimal(name)});
        }
    }

    const Session &m_session;
    const DocumentKind &m_kind;
    QString m_number;
    PrintData m_data;
};

} // namespace

QString maskedIdentity(const QString &number) {
    if (number.size() < 15)
        return QString(qMax(qsizetype(0), number.size() - 4), u'*') + number.right(4);
    return number.left(6) + QString(number.size() - 10, u'*') + number.right(4);
}

PrintData documentData(const Session &session, const QString &number) {
    const DocumentKind *kind = findDocumentKind(number);
    if (!kind)
        throw unknownDocument(number);
    return DocumentReader(session, *kind, number).read();
}

} // namespace jxc
