#include "stock/draft.h"

#include "base/dates.h"
#include "core/numbering.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/amounts.h"
#include "stock/cost.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

/// Everything of a line that is stored, ready for either table.
struct StoredLine {
    const DraftLine &typed;
    QString unit, barcode, supplier;
    Decimal baseQuantity, rate, retailPrice, cost, totalCost;
    LineAmounts amounts;
};

struct Settlement {
    Decimal due, paid, forgiven;
    bool owing = false;
};

class DraftWriter {
public:
    DraftWriter(Session &session, const Draft &draft)
        : m_session(session)
        , m_db(session.db())
        , m_draft(draft)
        , m_kind(kindOf(draft.code))
        , m_isSale(m_kind.partnerKind == Partner::Kind::customer)
        , m_isReturn(draft.code.endsWith(u'T'))
        , m_parameters(Parameters::load(session.db())) {}

    QString write() {
        check();
        std::vector<StoredLine> lines;
        for (const DraftLine &line : m_draft.lines)
            lines.push_back(complete(line));
        const Settlement settlement = settle(lines);
        QString number = newDocNumberForDate(m_session, m_kind.headerTable, m_kind.numberColumn,
                                             m_kind.code, m_draft.date);
        for (const StoredLine &line : lines)
            m_db.insertRow(m_kind.lineTable, columnsOf(line, number));
        m_db.insertRow(m_kind.headerTable, header(settlement, number));
        return number;
    }

private:
    static const DocumentKind &kindOf(const QString &code) {
        const DocumentKind *kind = findDocumentKind(code);
        if (kind == nullptr || kind->payments == nullptr)
            throw Refusal(QStringLiteral("不支持的单据类型：%1").arg(code));
        return *kind;
    }

    void check() {
        if (!isDate(m_draft.date))
            throw Refusal(QStringLiteral("开单日期必须填写！"));
        if (m_draft.date > m_session.today())
            throw Refusal(QStringLiteral("单据日期不能大于当前日期！"));
        if (!partnerName(m_db, {m_kind.partnerKind, m_draft.partner}))
            throw Refusal(m_isSale ? QStringLiteral("客户必须填写！")
                                   : QStringLiteral("供货商必须填写！"));
        if (!m_db.exists(QStringLiteral("select id from jxc_ckxx where ck_sn=?"),
                         {m_draft.warehouse}))
            throw Refusal(QStringLiteral("仓库必须填写！"));
        if (!m_db.exists(QStringLiteral("select id from jxc_user where u_sn=?"), {m_draft.clerk}))
            throw Refusal(QStringLiteral("经手人必须填写！"));
        if (m_draft.lines.empty())
            throw Refusal(QStringLiteral("单据没有明细，不能保存！"));
        for (size_t i = 0; i < m_draft.lines.size(); ++i)
            checkLine(i);
    }

    void checkLine(size_t index) {
        const DraftLine &line = m_draft.lines[index];
        const QString opening = QStringLiteral("第%1行：").arg(index + 1);
        if (!line.quantity.isPositive())
            throw Refusal(opening + QStringLiteral("数量必须大于零！"));
        if (line.price.isNegative())
            throw Refusal(opening + QStringLiteral("单价不能小于零！"));
        if (!line.factor.isPositive())
            throw Refusal(opening + QStringLiteral("单位换算系数必须大于零！"));
    }

    StoredLine complete(const DraftLine &line) {
        const auto goods =
            m_db.row(QStringLiteral("select dw_name,g_sptm,g_lsj,ghs_sn,g_name,g_iscf from "
                                    "jxc_goods where g_sn=? and g_sn<>?"),
                     {line.goods, discountGoods});
        if (!goods)
            throw Refusal(QStringLiteral("商品“%1”不存在！").arg(line.goods));
        if (m_draft.code == QLatin1String("XS") && goods->flag(u"g_iscf") &&
            (line.buyer.isEmpty() || line.identityNo.isEmpty()))
            throw Refusal(QStringLiteral("商品“%1”属限制使用商品，必须登记购买人姓名和身份证号！")
                              .arg(goods->text(u"g_name")));
        StoredLine s{
            line, line.unit, goods->text(u"g_sptm"), goods->text(u"ghs_sn"), {}, {}, {}, {},
            {},   {}};
        if (s.unit.isEmpty())
            s.unit = goods->text(u"dw_name");
        s.baseQuantity = (line.quantity * line.factor).rounded(6);
        s.rate = m_parameters.taxRate;
        s.amounts = lineAmounts(m_parameters, line.quantity, line.price, s.rate, line.discount);
        s.retailPrice = (goods->decimal(u"g_lsj") * line.factor).rounded(6);
        if (m_isSale)
            chargeCost(s);
        return s;
    }

    /// A sale is charged the cost in force, a return the cost of its day; both stay from here on.
    void chargeCost(StoredLine &s) {
        const Decimal base =
            m_isReturn ? getCbjAt(m_db, m_draft.warehouse, s.typed.goods, m_draft.date)
                       : getCbjBefore(m_db, m_draft.warehouse, s.typed.goods, m_draft.date);
        s.cost = (base * s.typed.factor).rounded(6);
        s.totalCost = (s.cost * s.typed.quantity).rounded(m_parameters.amountDecimals);
    }

    Settlement settle(const std::vector<StoredLine> &lines) {
        Settlement s;
        for (const StoredLine &line : lines)
            s.due += line.amounts.total;
        s.paid = m_draft.paid.value_or(s.due);
        if (s.paid > s.due)
            throw Refusal(m_isSale ? QStringLiteral("实收金额不能大于应收金额！")
                                   : QStringLiteral("实付金额不能大于应付金额！"));
        if (s.paid < s.due && m_draft.restForgiven && !m_isReturn)
            s.forgiven = s.due - s.paid;
        else
            s.owing = s.paid < s.due;
        return s;
    }

    [[nodiscard]] Assignments columnsOf(const StoredLine &s, const QString &number) const {
        const QString p = m_isReturn ? QStringLiteral("th")
                          : m_isSale ? QStringLiteral("ls")
                                     : QStringLiteral("jh");
        const auto named = [&](const char16_t *name) {
            return QString(p + QString::fromUtf16(name));
        };
        Assignments row = {{m_kind.numberColumn, number},
                           {QStringLiteral("g_sn"), s.typed.goods},
                           {named(u"_dj"), s.amounts.price},
                           {named(u"_sl"), s.typed.quantity},
                           {named(u"_je"), s.amounts.amount},
                           {named(u"_tax"), s.rate},
                           {named(u"_taxdj"), s.amounts.taxPrice},
                           {named(u"_taxje"), s.amounts.tax},
                           {named(u"_zje"), s.amounts.total},
                           {named(u"_zsl"), s.baseQuantity},
                           {named(u"_dzl"), s.typed.discount},
                           {named(u"_bz"), s.typed.note},
                           {QStringLiteral("id2"), 0},
                           {QStringLiteral("dw_name"), s.unit},
                           {QStringLiteral("g_sptm"), s.barcode},
                           {QStringLiteral("a_name"), m_session.currentOperatorName},
                           {QStringLiteral("t_ph"), s.typed.batch.number},
                           {QStringLiteral("t_scrq"), s.typed.batch.produced},
                           {QStringLiteral("t_yxq"), s.typed.batch.normalised().expiry}};
        if (m_isSale)
            addSaleColumns(row, s, named);
        if (!m_isReturn)
            addFlowColumns(row, s, named);
        return row;
    }

    template<class Named>
    void addSaleColumns(Assignments &row, const StoredLine &s, const Named &named) const {
        row.push_back({QStringLiteral("g_zhxs"), s.typed.factor});
        row.push_back({named(u"_cbj"), s.cost});
        row.push_back({named(u"_zcb"), s.totalCost});
        row.push_back({named(u"_lsj"), s.retailPrice});
        row.push_back({named(u"_zhje"), s.amounts.discounted});
        row.push_back({QStringLiteral("t_cfsm"), s.typed.use});
        if (m_isReturn)
            return;
        row.push_back({QStringLiteral("t_zp"), s.typed.gift});
        row.push_back({QStringLiteral("ghs_sn"), s.supplier});
        row.push_back({QStringLiteral("ls_xm"), s.typed.buyer});
        row.push_back({QStringLiteral("ls_cardno"), s.typed.identityNo});
        row.push_back({QStringLiteral("t_mobile"), s.typed.mobile});
        for (const char16_t *zero : {u"ls_cbj2", u"ls_dhdj", u"ls_dhbz"})
            row.push_back({QString::fromUtf16(zero), 0});
        for (const char16_t *empty : {u"t_cfhm", u"t_addr"})
            row.push_back({QString::fromUtf16(empty), u""});
    }

    /// What was taken in or issued at once: all of it, or nothing while separate documents do that.
    template<class Named>
    void addFlowColumns(Assignments &row, const StoredLine &s, const Named &named) const {
        const bool later = m_draft.laterInOut || (m_isSale ? m_parameters.separateGoodsOut
                                                           : m_parameters.separateGoodsIn);
        row.push_back(
            {named(m_isSale ? u"_cksl" : u"_rksl"), later ? Decimal() : s.typed.quantity});
        row.push_back({named(u"_qxsl"), 0});
        row.push_back({QStringLiteral("id3"), 0});
        row.push_back({QStringLiteral("gl_djh2"), u""});
    }

    [[nodiscard]] Assignments header(const Settlement &s, const QString &number) const {
        const QString p = m_kind.prefix;
        const auto named = [&](const char16_t *name) {
            return QString(p + QString::fromUtf16(name));
        };
        Assignments row = {{m_kind.numberColumn, number},
                           {m_kind.partnerColumn, m_draft.partner},
                           {m_kind.warehouseColumn, m_draft.warehouse},
                           {m_kind.dateColumn, m_draft.date},
                           {QStringLiteral("u_sn"), m_draft.clerk},
                           {m_kind.noteColumn, m_draft.note},
                           {QStringLiteral("a_name"), m_session.currentOperatorName},
                           {named(u"_yfje"), s.due},
                           {named(u"_sfje"), s.paid},
                           {named(u"_hkje"), 0},
                           {named(u"_qk"), s.owing},
                           {named(u"_jsfs"), s.owing ? 1 : 0},
                           {named(u"_kmmc"), m_draft.account},
                           {named(u"_fpno"), m_draft.invoiceNo},
                           {named(u"_fpje"), m_draft.invoiced},
                           {m_kind.statusColumn(), 0},
                           {m_kind.checkerColumn(), u""},
                           {m_kind.checkDateColumn(), u""}};
        if (m_isSale)
            addCounterColumns(row);
        if (!m_isReturn) {
            row.push_back({named(u"_yhje"), s.forgiven});
            row.push_back({named(u"_yf"), m_draft.freight});
            row.push_back({named(u"_bzf"), m_draft.packing});
            row.push_back({named(u"_yffs"), m_draft.freightTerms});
            row.push_back({named(u"_th"), 0});
            row.push_back({named(u"_dhbz"), 0});
            row.push_back({QStringLiteral("ht_sn"), u""});
            if (m_isSale)
                addSaleHeader(row);
            else
                addReceiptHeader(row);
        }
        return row;
    }

    void addCounterColumns(Assignments &row) const {
        if (m_isReturn) {
            row.push_back({QStringLiteral("th_fdmc"), u""});
            row.push_back({QStringLiteral("th_lr"), 0});
            row.push_back({QStringLiteral("pos_yhje"), 0});
        }
        row.push_back({QStringLiteral("hy_sn"), u""});
        row.push_back({QStringLiteral("pos_rjid"), u""});
        for (const char16_t *zero : {u"pos_zffs", u"pos_xj", u"pos_czk", u"pos_yhk", u"pos_djq"})
            row.push_back({QString::fromUtf16(zero), 0});
    }

    static void addSaleHeader(Assignments &row) {
        for (const char16_t *empty :
             {u"gl_djh2", u"ls_fdmc", u"ls_hy", u"ls_ckrq", u"ls_zftype", u"ls_transactionid"})
            row.push_back({QString::fromUtf16(empty), u""});
        row.push_back({QStringLiteral("ls_lr"), 0});
    }

    void addReceiptHeader(Assignments &row) const {
        row.push_back({QStringLiteral("j_sn2"), m_draft.supplierNumber});
        row.push_back({QStringLiteral("j_dhdid"), u""});
    }

    Session &m_session;
    Database &m_db;
    const Draft &m_draft;
    const DocumentKind &m_kind;
    bool m_isSale;
    bool m_isReturn;
    Parameters m_parameters;
};

} // namespace

QString saveDraftInTransaction(Session &session, const Draft &draft) {
    return DraftWriter(session, draft).write();
}

Outcome saveDraft(Session &session, Prompter &prompter, const Draft &draft, QString *number) {
    return runAction(session.db(), prompter,
                     [&](Answers &) { *number = saveDraftInTransaction(session, draft); });
}

} // namespace jxc
