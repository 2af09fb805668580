#include "stock/documents.h"

#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "stock/draft_context.h"
#include "stock/return_ties.h"

namespace jxc {

namespace {

/// The names of what a list reads of a kind; kinds without money give 0.
struct ListColumns {
    QString partner, partnerTable, partnerName;
    QString due, paid, off, later, quantity;
};

ListColumns listColumns(const DocumentKind &kind) {
    const bool isSale = kind.rightGroup == QLatin1String("xsgl");
    const QString zero = QStringLiteral("0");
    ListColumns c{isSale ? QStringLiteral("kh_sn") : QStringLiteral("ghs_sn"),
                  isSale ? QStringLiteral("jxc_khxx") : QStringLiteral("jxc_ghsxx"),
                  isSale ? QStringLiteral("kh_name") : QStringLiteral("ghs_name"),
                  zero,
                  zero,
                  zero,
                  zero,
                  zero};
    if (kind.payments == nullptr) {
        c.quantity = QStringLiteral("a.") + kind.baseQuantityColumn;
        return c;
    }
    const QString header = QStringLiteral("a.") + kind.prefix;
    c.due = header + QStringLiteral("_yfje");
    c.paid = header + QStringLiteral("_sfje");
    c.later = header + QStringLiteral("_hkje");
    if (!kind.code.endsWith(u'T'))
        c.off = header + QStringLiteral("_yhje");
    return c;
}

class ListQuery {
public:
    ListQuery(const DocumentKind &kind, const DocumentFilter &filter)
        : m_kind(kind)
        , m_filter(filter)
        , m_columns(listColumns(kind)) {
        m_sql = QStringLiteral("select a.id,a.%1,a.%2,a.%3,p.%4,a.ck_sn,k.ck_name,%5,%6,%7,%8,%9,")
                    .arg(kind.numberColumn, kind.dateColumn, m_columns.partner,
                         m_columns.partnerName, m_columns.due, m_columns.paid, m_columns.off,
                         m_columns.later, m_columns.quantity) +
                QStringLiteral("u.u_name,a.a_name,a.%1,a.%2,a.%3 from %4 a left join %5 p on "
                               "p.%6=a.%6 left join jxc_ckxx k on k.ck_sn=a.ck_sn left join "
                               "jxc_user u on u.u_sn=a.u_sn where a.%7=?")
                    .arg(kind.noteColumn, kind.checkerColumn(), kind.checkDateColumn(),
                         kind.headerTable, m_columns.partnerTable, m_columns.partner,
                         kind.statusColumn());
        m_values = {filter.approved ? 1 : 0};
        narrow();
        m_sql += QStringLiteral(" order by a.%1 desc,a.id desc").arg(kind.dateColumn);
        if (filter.most > 0)
            m_sql += QStringLiteral(" limit %1").arg(filter.most);
    }

    [[nodiscard]] const QString &sql() const { return m_sql; }
    [[nodiscard]] const Values &values() const { return m_values; }

private:
    void add(const QString &condition, const QString &value) {
        if (value.isEmpty())
            return;
        m_sql += QStringLiteral(" and ") + condition;
        m_values.emplace_back(value);
    }

    void narrow() {
        const QString date = QStringLiteral("a.") + m_kind.dateColumn;
        add(date + QStringLiteral(">=?"), m_filter.fromDate);
        // Older files keep a time behind some dates.
        if (!m_filter.toDate.isEmpty())
            add(date + QStringLiteral("<=?"), m_filter.toDate + QStringLiteral(" 23:59:59"));
        add(QStringLiteral("a.ck_sn=?"), m_filter.warehouse);
        add(QStringLiteral("a.%1=?").arg(m_columns.partner), m_filter.partner);
        add(QStringLiteral("a.a_name=?"), m_filter.operatorName);
        // Not "exists": the engine would go through all lines of the goods for every document.
        add(QStringLiteral("a.%1 in (select %1 from %2 where g_sn=?)")
                .arg(m_kind.numberColumn, m_kind.lineTable),
            m_filter.goods);
        search();
        if (m_filter.afterId == 0)
            return;
        m_sql += QStringLiteral(" and (%1<? or (%1=? and a.id<?))").arg(date);
        m_values.insert(m_values.end(), {m_filter.afterDate, m_filter.afterDate, m_filter.afterId});
    }

    void search() {
        if (m_filter.search.trimmed().isEmpty())
            return;
        const QString pattern = containsPattern(m_filter.search.trimmed());
        m_sql += QStringLiteral(" and (%1 or %2 or %3)")
                     .arg(contains(QStringLiteral("a.") + m_kind.numberColumn),
                          contains(QStringLiteral("p.") + m_columns.partnerName),
                          contains(QStringLiteral("a.") + m_kind.noteColumn));
        for (int i = 0; i < 3; ++i)
            m_values.emplace_back(pattern);
    }

    const DocumentKind &m_kind;
    const DocumentFilter &m_filter;
    ListColumns m_columns;
    QString m_sql;
    Values m_values;
};

/// By position: a list may hold a hundred thousand rows.
DocumentRow rowOf(const Row &row) {
    DocumentRow d;
    size_t i = 0;
    d.id = row.integer(i++);
    for (QString *text :
         {&d.number, &d.date, &d.partner, &d.partnerName, &d.warehouse, &d.warehouseName})
        *text = row.text(i++);
    d.due = row.decimal(i++);
    d.paid = row.decimal(i++);
    d.off = row.decimal(i++);
    d.rest = d.due - d.paid - d.off - row.decimal(i++);
    d.quantity = row.decimal(i++);
    for (QString *text : {&d.clerkName, &d.operatorName, &d.note, &d.checker, &d.checkDate})
        *text = row.text(i++);
    return d;
}

/// The lines of a document under the same names for every kind; what a kind does not have is 0 or
/// empty.
class LineReader {
public:
    explicit LineReader(const DocumentKind &kind)
        : m_kind(kind)
        , m_prefix(kind.quantityColumn.left(2))
        , m_isSale(kind.rightGroup == QLatin1String("xsgl"))
        , m_isReturn(kind.code.endsWith(u'T')) {}

    [[nodiscard]] QString sql() const {
        return QStringLiteral("select b.*,g.g_name,g.g_tym,g.g_yjlx,g.gg_name,g.g_sccs,"
                              "g.color_name from %1 b left join jxc_goods g on g.g_sn=b.g_sn where "
                              "b.%2=? order by b.id")
            .arg(m_kind.lineTable, m_kind.numberColumn);
    }

    [[nodiscard]] DocumentLineRow line(const Row &row) const {
        DocumentLineRow l;
        l.goods = row.text(u"g_sn");
        l.name = row.text(u"g_name");
        l.commonName = row.text(u"g_tym");
        l.dosageForm = row.text(u"g_yjlx");
        l.specification = row.text(u"gg_name");
        l.maker = row.text(u"g_sccs");
        l.licence = row.text(u"color_name");
        l.unit = row.text(u"dw_name");
        l.barcode = row.text(u"g_sptm");
        l.quantity = row.decimal(m_kind.quantityColumn);
        l.baseQuantity = row.decimal(m_kind.baseQuantityColumn);
        l.batch = row.text(u"t_ph");
        l.produced = row.text(u"t_scrq");
        l.expiry = row.text(u"t_yxq");
        if (l.batch.isEmpty() && l.expiry == QLatin1String("0000-00"))
            l.expiry.clear();
        if (m_kind.payments == nullptr)
            l.sourceNumber = row.text(m_isSale ? u"gl_djh2" : u"j_sn");
        else
            addTrade(l, row);
        return l;
    }

private:
    [[nodiscard]] QString named(const char16_t *name) const {
        return m_prefix + QString::fromUtf16(name);
    }

    void addTrade(DocumentLineRow &l, const Row &row) const {
        l.price = row.decimal(named(u"_dj"));
        l.taxPrice = row.decimal(named(u"_taxdj"));
        l.discount = row.decimal(named(u"_dzl"));
        l.taxRate = row.decimal(named(u"_tax"));
        l.amount = row.decimal(named(u"_je"));
        l.taxAmount = row.decimal(named(u"_taxje"));
        l.total = row.decimal(named(u"_zje"));
        l.note = row.text(named(u"_bz"));
        if (m_isReturn) {
            const TiedNote tied = readTiedNote(l.note);
            l.sourceNumber = tied.number;
            l.note = tied.note;
        } else {
            l.sourceNumber = row.text(u"gl_djh2");
            l.done = row.decimal(named(m_isSale ? u"_cksl" : u"_rksl"));
            l.cancelled = row.decimal(named(u"_qxsl"));
        }
        if (m_isSale)
            addSale(l, row);
    }

    void addSale(DocumentLineRow &l, const Row &row) const {
        l.retailPrice = row.decimal(named(u"_lsj"));
        l.cost = row.decimal(named(u"_cbj"));
        l.totalCost = row.decimal(named(u"_zcb"));
        l.profit = l.amount - l.totalCost;
        l.use = row.text(u"t_cfsm");
        if (m_isReturn)
            return;
        l.gift = row.text(u"t_zp");
        l.buyer = row.text(u"ls_xm");
        l.identityNo = row.text(u"ls_cardno");
        l.mobile = row.text(u"t_mobile");
        l.address = row.text(u"t_addr");
    }

    const DocumentKind &m_kind;
    QString m_prefix;
    bool m_isSale, m_isReturn;
};

} // namespace

std::vector<DocumentRow> listDocuments(Session &session, const DocumentFilter &filter) {
    const ListQuery query(draftKind(filter.code), filter);
    const Rows rows = session.db().rows(query.sql(), query.values());
    std::vector<DocumentRow> documents;
    documents.reserve(rows.size());
    for (const Row &row : rows)
        documents.push_back(rowOf(row));
    return documents;
}

std::vector<DocumentLineRow> documentLines(Session &session, const QString &number) {
    const DocumentKind *kind = findDocumentKind(number);
    std::vector<DocumentLineRow> lines;
    if (kind == nullptr)
        return lines;
    const LineReader reader(*kind);
    for (const Row &row : session.db().rows(reader.sql(), {number}))
        lines.push_back(reader.line(row));
    return lines;
}

} // namespace jxc
