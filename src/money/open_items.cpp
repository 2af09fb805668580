#include "money/open_items.h"

#include "base/dates.h"
#include "core/session.h"
#include "db/database.h"

namespace jxc {

namespace {

/// A kind of stock document that leaves a debt, or with `sign` -1 a credit.
struct Source {
    QString kind, table, number, date, status, partner, prefix, note;
    bool hasDiscount = false;
    int sign = 1;
};

std::vector<Source> sourcesOf(Partner::Kind kind) {
    const auto t = [](const char16_t *text) { return QString::fromUtf16(text); };
    if (kind == Partner::Kind::customer)
        return {{t(u"商品销售单"), t(u"jxc_lsxsd"), t(u"gl_djh"), t(u"ls_xsrq"), t(u"ls_status"),
                 t(u"kh_sn"), t(u"ls"), t(u"ls_note"), true, 1},
                {t(u"顾客退货单"), t(u"jxc_xsthd"), t(u"gl_djh"), t(u"th_xsrq"), t(u"th_status"),
                 t(u"kh_sn"), t(u"th"), t(u"th_note"), false, -1}};
    return {{t(u"采购进货单"), t(u"jxc_jhd"), t(u"j_sn"), t(u"j_jhrq"), t(u"j_status"),
             t(u"ghs_sn"), t(u"j"), t(u"j_note"), true, 1},
            {t(u"采购退货单"), t(u"jxc_thd"), t(u"gl_djh"), t(u"th_thrq"), t(u"th_status"),
             t(u"ghs_sn"), t(u"th"), t(u"th_note"), false, -1}};
}

/// The statement, and what it binds in the order of its marks. Every branch selects: kind, order on
/// a day, partner, number, date, note, due, paid, off, settled later.
class Statement {
public:
    Statement(const Dialect &dialect, const Partner &partner)
        : m_dialect(dialect)
        , m_partner(partner) {}

    void addDocuments(const Source &s) {
        const QString off = s.hasDiscount ? amount(s.prefix + QStringLiteral("_yhje")) : zero();
        const QString due = amount(s.prefix + QStringLiteral("_yfje"));
        const QString paid = amount(s.prefix + QStringLiteral("_sfje"));
        const QString later = amount(s.prefix + QStringLiteral("_hkje"));
        add(QStringLiteral("select '%1' as kind,%2 as sign,%3 as partner,%4 as number,%5 as rq,"
                           "%6 as note,%7 as due,%8 as paid,%9 as off,")
                    .arg(s.kind)
                    .arg(s.sign)
                    .arg(s.partner, s.number, s.date, s.note, due, paid, off) +
                QStringLiteral("%1 as later from %2 where %3=1 and %4-%5-%6-%1<>0")
                    .arg(later, s.table, s.status, due, paid, off),
            s.partner, {});
    }

    /// Amounts entered as owed, and the opening balance: payments that name them settle them.
    void addEntries() {
        add(QStringLiteral("select d.k_djtxt,1,d.k_ghskh,d.gl_djh,d.k_rq,d.k_note,") +
                amount(u"d.k_yfje") + QStringLiteral(",0,0,") + amount(u"n.named") +
                QStringLiteral(" from jxc_ysyfk_dj d left join ") + named() +
                QStringLiteral(" n on n.gl_djh=d.gl_djh where d.k_check<>0 and d.k_type=? and "
                               "substr(d.gl_djh,1,2) in ('YS','YF')"),
            QStringLiteral("d.k_ghskh"), namedThen({m_partner.type()}));
        const QString number = QStringLiteral("case when coalesce(gl_djh,'')='' then "
                                              "'QC'||k_ghskh else gl_djh end");
        QString opening = QStringLiteral("select k_ghskh,%1 as number,min(k_rq) as rq,%2 as due "
                                         "from jxc_ysyfk where k_type=? and (k_djlx='QC' or "
                                         "(coalesce(gl_djh,'')='' and k_qcje<>0))")
                              .arg(number, m_dialect.exactSum(QStringLiteral("k_qcje")));
        Values bound = {m_partner.type()};
        narrow(opening, bound, QStringLiteral("k_ghskh"));
        opening += QStringLiteral(" group by k_ghskh,") + number;
        const Values ofNames = namedThen({});
        bound.insert(bound.end(), ofNames.begin(), ofNames.end());
        m_selects << QStringLiteral("select '期初数',1,o.k_ghskh,o.number,o.rq,'',o.due,0,0,") +
                         amount(u"n.named") + QStringLiteral(" from (") + opening +
                         QStringLiteral(") o left join ") + named() +
                         QStringLiteral(" n on n.gl_djh=o.number");
        m_values.insert(m_values.end(), bound.begin(), bound.end());
    }

    /// Receipts and payments that are not wholly spread, negative.
    void addAdvances() {
        const QString spread =
            QStringLiteral("coalesce((select %1 from jxc_fkmx m where m.fk_sn=d.gl_djh),0)")
                .arg(m_dialect.exactSum(signedPart));
        add(QStringLiteral("select d.k_djtxt,-1,d.k_ghskh,d.gl_djh,d.k_rq,d.k_note,") +
                amount(u"d.k_sfje") + QStringLiteral(",-") + amount(u"d.k_yhje") +
                QStringLiteral(",0,") + spread + QStringLiteral("-") + amount(u"n.named") +
                QStringLiteral(" from jxc_ysyfk_dj d left join ") + named() +
                QStringLiteral(" n on n.gl_djh=d.gl_djh where d.k_check<>0 and d.k_type=? and "
                               "substr(d.gl_djh,1,2) in ('SK','FK')"),
            QStringLiteral("d.k_ghskh"), namedThen({m_partner.type()}));
    }

    [[nodiscard]] QString text() const {
        return m_selects.join(QStringLiteral(" union all ")) +
               QStringLiteral(" order by rq,sign desc,number");
    }
    [[nodiscard]] const Values &values() const { return m_values; }

private:
    static QString zero() { return QStringLiteral("0"); }
    static QString amount(QStringView column) {
        return QStringLiteral("coalesce(%1,0)").arg(column);
    }

    /// What approved receipts or payments of the partner put on each document.
    [[nodiscard]] QString named() const {
        QString sql = QStringLiteral("(select m.gl_djh,%1 as named from jxc_fkmx m join "
                                     "jxc_ysyfk_dj d on d.gl_djh=m.fk_sn where d.k_check<>0 and "
                                     "d.k_type=?")
                          .arg(m_dialect.exactSum(QStringLiteral("m.fk_je")));
        if (!m_partner.number.isEmpty())
            sql += QStringLiteral(" and d.k_ghskh=?");
        return sql + QStringLiteral(" group by m.gl_djh)");
    }

    [[nodiscard]] Values namedThen(Values more) const {
        Values all = {m_partner.type()};
        if (!m_partner.number.isEmpty())
            all.push_back(m_partner.number);
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }

    void narrow(QString &sql, Values &bound, const QString &column) const {
        if (m_partner.number.isEmpty())
            return;
        sql += QStringLiteral(" and %1=?").arg(column);
        bound.push_back(m_partner.number);
    }

    void add(QString sql, const QString &partnerColumn, Values bound) {
        narrow(sql, bound, partnerColumn);
        m_selects << sql;
        m_values.insert(m_values.end(), bound.begin(), bound.end());
    }

    /// What was put on a return lowers it, with whatever sign it was stored.
    inline static const QString signedPart =
        QStringLiteral("case when substr(m.gl_djh,1,2) in ('CT','XT') then -abs(m.fk_je) else "
                       "m.fk_je end");

    const Dialect &m_dialect;
    Partner m_partner;
    QStringList m_selects;
    Values m_values;
};

} // namespace

std::vector<OpenItem> openItems(const Session &session, Partner::Kind kind,
                                const QString &partner) {
    Database &db = session.db();
    Statement statement(db.dialect(), {kind, partner});
    for (const Source &source : sourcesOf(kind))
        statement.addDocuments(source);
    statement.addEntries();
    statement.addAdvances();
    const QDate today = session.now().date();
    std::vector<OpenItem> items;
    for (const Row &row : db.rows(statement.text(), statement.values())) {
        OpenItem item;
        item.total = row.decimal(u"due") - row.decimal(u"paid") - row.decimal(u"off");
        item.open = item.total - row.decimal(u"later");
        if (item.open.isZero())
            continue;
        if (row.integer(u"sign") < 0) {
            item.total = -item.total;
            item.open = -item.open;
        }
        item.partner = row.text(u"partner");
        item.number = row.text(u"number");
        item.kind = row.text(u"kind");
        item.date = row.text(u"rq");
        item.days = static_cast<int>(parseDate(item.date).daysTo(today));
        item.note = row.text(u"note");
        items.push_back(std::move(item));
    }
    return items;
}

bool takeFrom(Decimal &open, Decimal part) {
    if (part.isNegative() != open.isNegative() || part.abs() > open.abs())
        return false;
    open -= part;
    return true;
}

std::vector<Allocation> spreadOldestFirst(const std::vector<OpenItem> &items, Decimal amount) {
    Decimal debts;
    for (const OpenItem &item : items)
        if (item.open.isPositive())
            debts += item.open;
    Decimal credit = debts - amount; // as much as may be taken from returns and advances
    Decimal fund = amount;
    std::vector<Decimal> taken(items.size());
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i].open.isNegative() && credit.isPositive()) {
            taken[i] = -std::min(-items[i].open, credit);
            credit += taken[i];
            fund -= taken[i];
        }
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i].open.isPositive() && fund.isPositive()) {
            taken[i] = std::min(items[i].open, fund);
            fund -= taken[i];
        }
    std::vector<Allocation> parts;
    for (size_t i = 0; i < items.size(); ++i)
        if (!taken[i].isZero())
            parts.push_back({items[i].number, taken[i]});
    return parts;
}

} // namespace jxc
