#include "model/drafts.h"

#include "base/dates.h"
#include "db/database.h"
#include "db/schema.h"

#include <QDate>

namespace jxc::test {

namespace {

const QString discountGoods = QStringLiteral("00000000");
const QDate firstDay(2026, 1, 20);
constexpr int days = 60;

} // namespace

const DraftNames &draftNames(const QString &number) {
    static const auto names = [] {
        const auto s = [](const char16_t *text) { return QString::fromUtf16(text); };
        return std::map<QString, DraftNames>{
            {s(u"CJ"),
             {s(u"jxc_jhd"), s(u"jxc_jhsp"), s(u"j_sn"), s(u"j_jhrq"), s(u"j"), s(u"jh"),
              s(u"ghs_sn")}},
            {s(u"CT"),
             {s(u"jxc_thd"), s(u"jxc_thsp"), s(u"gl_djh"), s(u"th_thrq"), s(u"th"), s(u"th"),
              s(u"ghs_sn")}},
            {s(u"XS"),
             {s(u"jxc_lsxsd"), s(u"jxc_lsxssp"), s(u"gl_djh"), s(u"ls_xsrq"), s(u"ls"), s(u"ls"),
              s(u"kh_sn")}},
            {s(u"XT"),
             {s(u"jxc_xsthd"), s(u"jxc_xsthsp"), s(u"gl_djh"), s(u"th_xsrq"), s(u"th"), s(u"th"),
              s(u"kh_sn")}},
            {s(u"RK"),
             {s(u"jxc_rkd"), s(u"jxc_rksp"), s(u"gl_djh"), s(u"rk_rq"), s(u"rk"), s(u"rk"), {}}},
            {s(u"CK"),
             {s(u"jxc_ckd"), s(u"jxc_cksp"), s(u"gl_djh"), s(u"ck_rq"), s(u"ck"), s(u"ck"), {}}}};
    }();
    return names.at(number.left(2));
}

Decimal Chance::figure(int limit, int places) {
    const Decimal whole = 1 + below(limit);
    if (places == 0 || percent(50))
        return whole;
    Decimal::Wide step = 1;
    for (int i = places; i < 6; ++i)
        step *= 10;
    const Decimal part = Decimal::fromMicros(below(1'000'000) / step * step);
    return part == 0 ? whole : whole - part;
}

qint64 Drafts::insert(const QString &table, const Cells &cells) {
    Assignments assignments;
    for (const Column &column : jxc::table(table).columns) {
        const auto given = cells.find(column.name);
        Value value = column.isText() ? Value(QString()) : Value(0);
        if (given != cells.end()) {
            const Decimal *figure = std::get_if<Decimal>(&given->second);
            value = figure != nullptr ? Value(*figure) : Value(std::get<QString>(given->second));
            if (figure != nullptr && column.type != ColumnType::Numeric)
                value = Value(static_cast<qint64>(figure->micros() / 1'000'000));
        }
        assignments.push_back({column.name, value});
    }
    const qint64 id = m_db.insertRow(table, assignments);
    m_books.table(table).insert(cells, id);
    return id;
}

QString Drafts::randomDate() {
    return toDateText(firstDay.addDays(m_chance.below(days)));
}

QString Drafts::newNumber(const QString &table, const QString &column, const QString &code,
                          const QString &date) {
    const QString base = code + dateDigits(date);
    int serial = 10'000;
    for (const Record &row : m_books.table(table).rows())
        if (row.text(column).startsWith(base))
            serial = std::max(serial, row.text(column).mid(8).toInt());
    return base + QString::number(serial + 1);
}

std::vector<KnownDocument> Drafts::documents(const QStringList &codes) {
    std::vector<KnownDocument> found;
    for (const QString &code : codes) {
        const DraftNames &names = draftNames(code);
        for (const Record &row : m_books.table(names.header).rows())
            found.push_back({row.text(names.number),
                             row.number(names.headerPrefix + QStringLiteral("_status")) == 1});
    }
    return found;
}

void Drafts::remove(const QString &number) {
    const DraftNames &names = draftNames(number);
    for (const QString &table : {names.header, names.lines}) {
        m_db.execute(QStringLiteral("delete from %1 where %2=?").arg(table, names.number),
                     {number});
        m_books.table(table).erase(names.number, number);
    }
}

void Drafts::addBatch(Cells &line) {
    if (m_chance.percent(40)) { // no batch; now and then typed as it is kept
        line[QStringLiteral("t_ph")] = QString();
        if (m_chance.percent(30))
            line[QStringLiteral("t_yxq")] = QStringLiteral("0000-00");
        return;
    }
    line[QStringLiteral("t_ph")] = QStringLiteral("P%1").arg(m_chance.below(2));
    line[QStringLiteral("t_yxq")] = QStringLiteral("2027-0%1").arg(1 + m_chance.below(2));
    line[QStringLiteral("t_scrq")] = QStringLiteral("2025-06-01");
}

void Drafts::addDiscountLine(Cells &line, const QString &prefix) {
    const Decimal amount = -m_chance.figure(9, m_books.settings.amountDecimals);
    line[QStringLiteral("g_sn")] = discountGoods;
    line[prefix + QStringLiteral("_dzl")] = Decimal(1);
    line[prefix + QStringLiteral("_zje")] = amount;
    line[prefix + QStringLiteral("_je")] = amount;
}

Cells Drafts::tradeLine(const QString &code, const QString &warehouse, const QString &date) {
    const QString prefix = draftNames(code).linePrefix;
    const ReferenceSettings &settings = m_books.settings;
    const bool isSales = code.startsWith(u'X');
    Cells line;
    const auto set = [&](const char16_t *column, Decimal value) {
        line[prefix + QString::fromUtf16(column)] = value;
    };
    if (isSales)
        line[QStringLiteral("g_zhxs")] = Decimal(1);
    if (m_chance.percent(6)) {
        addDiscountLine(line, prefix);
        return line;
    }
    const QString goods = m_chance.oneOf(m_goods);
    const Decimal factor = m_chance.oneOf(std::vector<Decimal>{1, 1, 1, 12, 3, 7, 50});
    const Decimal quantity =
        m_chance.percent(3) ? Decimal() : m_chance.figure(20, settings.quantityDecimals);
    const Decimal price =
        m_chance.percent(4) ? Decimal() : m_chance.figure(40, settings.priceDecimals);
    const Decimal discount = m_chance.percent(20) ? Decimal::fromText(u"0.95") : Decimal(1);
    const Decimal tax = m_chance.oneOf(std::vector<Decimal>{0, 0, 3, 9, 13});
    const Decimal taxPrice =
        (price * (Decimal(100) + tax) / Decimal(100)).rounded(settings.priceDecimals);
    const int places = settings.amountDecimals;
    const Decimal gross = roundedProduct(taxPrice, quantity, discount, places);
    const Decimal net = roundedProduct(price, quantity, discount, places);
    line[QStringLiteral("g_sn")] = goods;
    set(u"_dj", price);
    set(u"_sl", quantity);
    set(u"_zsl", (quantity * factor).rounded(6));
    set(u"_dzl", discount);
    set(u"_tax", tax);
    set(u"_taxdj", taxPrice);
    set(u"_zje", gross);
    set(u"_je", net);
    set(u"_taxje", gross - net);
    addBatch(line);
    if (isSales) {
        const Decimal cost =
            (m_books.costForEntry(warehouse, goods, date) * factor).rounded(settings.priceDecimals);
        line[QStringLiteral("g_zhxs")] = factor;
        set(u"_cbj", cost);
        set(u"_zcb", (cost * quantity).rounded(places));
    }
    if (code == u"CJ" && !(separateGoodsIn && m_chance.percent(75)))
        set(u"_rksl", quantity);
    if (code == u"XS" && !(separateGoodsOut && m_chance.percent(75)))
        set(u"_cksl", quantity);
    return line;
}

Cells Drafts::tradeHeader(const QString &code, const QString &warehouse, const QString &date,
                          Decimal total) {
    const DraftNames &names = draftNames(code);
    Cells header{{names.date, date},
                 {names.partner, m_chance.oneOf(m_partners)},
                 {QStringLiteral("ck_sn"), warehouse},
                 {QStringLiteral("u_sn"), QStringLiteral("100001")},
                 {QStringLiteral("a_name"), m_books.operatorName}};
    const auto set = [&](const char16_t *column, Cell value) {
        header[names.headerPrefix + QString::fromUtf16(column)] = std::move(value);
    };
    const int places = m_books.settings.amountDecimals;
    set(u"_note", m_chance.percent(30) ? QStringLiteral("电话订货") : QString());
    set(u"_kmmc",
        m_chance.oneOf(QStringList{QStringLiteral("现金"), QStringLiteral("工行帐号"), QString()}));
    set(u"_yfje", total);
    const int settlement = m_chance.below(3);
    set(u"_sfje", settlement == 0   ? Decimal()
                  : settlement == 1 ? total
                                    : m_chance.figure(200, places));
    if (m_chance.percent(20))
        set(u"_fpje", total);
    if (code != u"CJ" && code != u"XS")
        return header;
    if (m_chance.percent(25))
        set(u"_yhje", m_chance.figure(5, places));
    if (m_chance.percent(30)) {
        set(u"_yffs",
            m_chance.percent(70) ? QStringLiteral("我方付运费") : QStringLiteral("对方付运费"));
        set(u"_yf", m_chance.figure(30, places));
        set(u"_bzf", m_chance.percent(50) ? m_chance.figure(5, places) : Decimal());
    }
    return header;
}

QString Drafts::trade(const QString &code) {
    const DraftNames &names = draftNames(code);
    const QString date = randomDate();
    const QString warehouse = m_chance.oneOf(m_warehouses);
    QString number = newNumber(names.header, names.number, code, date);
    Decimal total;
    for (int lines = 1 + m_chance.below(5); lines > 0; --lines) {
        Cells line = tradeLine(code, warehouse, date);
        line[names.number] = number;
        total += std::get<Decimal>(line[names.linePrefix + QStringLiteral("_zje")]);
        insert(names.lines, line);
    }
    Cells header = tradeHeader(code, warehouse, date, total);
    header[names.number] = number;
    insert(names.header, header);
    return number;
}

QString Drafts::againstSource(const QString &code) {
    const bool isIn = code == u"RK";
    const QString sourceCode = isIn ? QStringLiteral("CJ") : QStringLiteral("XS");
    const DraftNames &names = draftNames(code);
    const DraftNames &from = draftNames(sourceCode);
    auto sources = documents({sourceCode});
    std::erase_if(sources, [](const KnownDocument &d) { return !d.approved; });
    if (sources.empty())
        return {};
    const QString source = m_chance.oneOf(sources).number;
    const QString warehouse =
        m_chance.percent(5) ? m_chance.oneOf(m_warehouses)
                            : m_books.table(from.header).first(from.number, source)->text(u"ck_sn");
    const QString date = randomDate();
    QString number = newNumber(names.header, names.number, code, date);
    const QString done = isIn ? QStringLiteral("jh_rksl") : QStringLiteral("ls_cksl");
    bool hasLines = false;
    for (const Record *line : m_books.table(from.lines).where(from.number, source)) {
        const Decimal ordered = line->number(from.linePrefix + QStringLiteral("_sl"));
        const Decimal base = line->number(from.linePrefix + QStringLiteral("_zsl"));
        const Decimal open = ordered - line->number(done);
        if (ordered == 0 || (open <= 0 && !m_chance.percent(5)))
            continue;
        for (int parts = m_chance.percent(20) ? 2 : 1; parts > 0; --parts) {
            Decimal quantity = m_chance.percent(50)
                                   ? open
                                   : m_chance.figure(20, m_books.settings.quantityDecimals);
            if (quantity > open && !m_chance.percent(10))
                quantity = open;
            if (quantity <= 0)
                quantity = 1;
            insert(names.lines,
                   {{names.number, number},
                    {isIn ? QStringLiteral("j_sn") : QStringLiteral("gl_djh2"), source},
                    {QStringLiteral("id2"), line->number(u"id2")},
                    {QStringLiteral("g_sn"), line->text(u"g_sn")},
                    {names.linePrefix + QStringLiteral("_sl"), quantity},
                    {names.linePrefix + QStringLiteral("_zsl"),
                     (quantity * base / ordered).rounded(6)},
                    {QStringLiteral("t_ph"), line->text(u"t_ph")},
                    {QStringLiteral("t_yxq"), line->text(u"t_yxq")},
                    {QStringLiteral("t_scrq"), line->text(u"t_scrq")}});
            hasLines = true;
        }
    }
    if (!hasLines)
        return {};
    insert(names.header, {{names.number, number},
                          {names.date, date},
                          {QStringLiteral("ck_sn"), warehouse},
                          {QStringLiteral("u_sn"), QStringLiteral("100001")},
                          {QStringLiteral("a_name"), m_books.operatorName}});
    return number;
}

QString Drafts::settlement(const QString &code) {
    const bool isCustomer = code == u"SK" || code == u"YS";
    const bool isPaid = code == u"SK" || code == u"FK";
    const QString table = QStringLiteral("jxc_ysyfk_dj");
    const QString date = randomDate();
    QString number = newNumber(table, QStringLiteral("gl_djh"), code, date);
    const QString partner = m_chance.oneOf(m_partners);
    const int places = m_books.settings.amountDecimals;
    const Decimal amount = m_chance.figure(300, places);
    const QString title = code == u"SK"   ? QStringLiteral("收款单")
                          : code == u"FK" ? QStringLiteral("付款单")
                          : code == u"YS" ? QStringLiteral("应收登记")
                                          : QStringLiteral("应付登记");
    insert(table,
           {{QStringLiteral("gl_djh"), number},
            {QStringLiteral("k_rq"), date},
            {QStringLiteral("k_type"), isCustomer ? QStringLiteral("kh") : QStringLiteral("ghs")},
            {QStringLiteral("k_ghskh"), partner},
            {QStringLiteral("k_fkfs"),
             m_chance.percent(50) ? QStringLiteral("现金") : QStringLiteral("工行帐号")},
            {QStringLiteral("k_sfje"), isPaid ? amount : Decimal()},
            {QStringLiteral("k_yfje"), isPaid ? Decimal() : amount},
            {QStringLiteral("k_djlx"), code},
            {QStringLiteral("k_djtxt"), title},
            {QStringLiteral("k_note"), QStringLiteral("结算")},
            {QStringLiteral("u_sn"), QStringLiteral("100001")},
            {QStringLiteral("a_name"), m_books.operatorName}});
    if (!isPaid)
        return number;
    const QStringList codes = isCustomer ? QStringList{QStringLiteral("XS"), QStringLiteral("XT")}
                                         : QStringList{QStringLiteral("CJ"), QStringLiteral("CT")};
    // Now and then one of somebody else, which is refused.
    const auto isHis = [&](const QString &document) {
        const DraftNames &names = draftNames(document);
        return m_books.table(names.header).first(names.number, document)->text(names.partner) ==
               partner;
    };
    for (const KnownDocument &document : documents(codes))
        if (document.approved && m_chance.percent(isHis(document.number) ? 20 : 1))
            insert(QStringLiteral("jxc_fkmx"),
                   {{QStringLiteral("fk_sn"), number},
                    {QStringLiteral("gl_djh"), document.number},
                    {QStringLiteral("fk_je"), m_chance.figure(20, places)}});
    return number;
}

} // namespace jxc::test
