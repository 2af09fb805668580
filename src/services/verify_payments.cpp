#include "services/verify_payments.h"

// The money of each kind of document, written down a second time, apart from the posting.

namespace jxc::verify {

namespace {

QString accountOr(const QString &account) {
    return account.isEmpty() ? QStringLiteral("现金") : account;
}

void takeFees(DuePayment &payment, const Row &h, QStringView terms, QStringView freight,
              QStringView packing) {
    if (h.text(terms) != QStringView(u"我方付运费"))
        return;
    payment.freight = h.decimal(freight);
    payment.packing = h.decimal(packing);
}

DuePayment receipt(const Row &h) {
    DuePayment p;
    p.type = QStringLiteral("ghs");
    p.partner = h.text(u"ghs_sn");
    p.due = h.decimal(u"j_yfje") - h.decimal(u"j_yhje");
    p.settled = h.decimal(u"j_sfje");
    p.account = accountOr(h.text(u"j_kmmc"));
    p.cash = -p.settled;
    p.invoiced = h.decimal(u"j_fpje");
    takeFees(p, h, u"j_yffs", u"j_yf", u"j_bzf");
    return p;
}

DuePayment purchaseReturn(const Row &h) {
    DuePayment p;
    p.type = QStringLiteral("ghs");
    p.partner = h.text(u"ghs_sn");
    p.due = -h.decimal(u"th_yfje");
    p.settled = -h.decimal(u"th_sfje");
    p.account = accountOr(h.text(u"th_kmmc"));
    p.cash = h.decimal(u"th_sfje"); // the supplier pays back
    p.invoiced = -h.decimal(u"th_fpje");
    return p;
}

DuePayment sale(const Row &h) {
    DuePayment p;
    p.type = QStringLiteral("kh");
    p.partner = h.text(u"kh_sn");
    p.due = h.decimal(u"ls_yfje") - h.decimal(u"ls_yhje");
    p.settled = h.decimal(u"ls_sfje");
    p.account = accountOr(h.text(u"ls_kmmc"));
    p.cash = p.settled;
    p.invoiced = h.decimal(u"ls_fpje");
    takeFees(p, h, u"ls_yffs", u"ls_yf", u"ls_bzf");
    return p;
}

DuePayment salesReturn(const Row &h) {
    DuePayment p;
    p.type = QStringLiteral("kh");
    p.partner = h.text(u"kh_sn");
    p.due = -h.decimal(u"th_yfje");
    p.settled = -h.decimal(u"th_sfje");
    p.account = accountOr(h.text(u"th_kmmc"));
    p.cash = p.settled;
    p.invoiced = -h.decimal(u"th_fpje");
    return p;
}

/// Receipts, payments and amounts entered as owed: their ledger row copies the document.
DuePayment settlementOf(const Row &h, const QString &type, int cashSign) {
    DuePayment p;
    p.type = type;
    p.partner = h.text(u"k_ghskh");
    p.opening = h.decimal(u"k_qcje");
    p.due = h.decimal(u"k_yfje");
    p.settled = h.decimal(u"k_sfje");
    p.account = accountOr(h.text(u"k_fkfs"));
    if (cashSign != 0)
        p.cash = cashSign < 0 ? -p.settled : p.settled;
    return p;
}

DuePayment customerReceipt(const Row &h) {
    return settlementOf(h, QStringLiteral("kh"), 1);
}

DuePayment supplierPayment(const Row &h) {
    return settlementOf(h, QStringLiteral("ghs"), -1);
}

DuePayment customerEntry(const Row &h) {
    return settlementOf(h, QStringLiteral("kh"), 0);
}

DuePayment supplierEntry(const Row &h) {
    return settlementOf(h, QStringLiteral("ghs"), 0);
}

/// Money onto a member's card, or off it.
DuePayment recharge(const Row &h) {
    DuePayment p;
    p.account = accountOr({});
    p.cash = h.decimal(u"xf_je");
    return p;
}

/// A typed expense or other income.
DuePayment expense(const Row &h) {
    DuePayment p;
    p.account = accountOr(h.text(u"fy_kmmc"));
    const Decimal amount = h.decimal(u"fy_je");
    p.cash = h.text(u"fy_flag") == QLatin1String("1") ? amount : -amount;
    return p;
}

} // namespace

const std::vector<PayingKind> &payingKinds() {
    const auto t = [](const char16_t *text) { return QString::fromUtf16(text); };
    static const QString returnColumns = QStringLiteral("th_yfje,th_sfje,th_kmmc,th_fpje");
    static const QString settlementColumns =
        QStringLiteral("k_rq as posted,k_ghskh,k_qcje,k_yfje,k_sfje,k_fkfs");
    static const auto settlements = [](const char16_t *code,
                                       DuePayment (*rule)(const Row &)) -> PayingKind {
        return {QString::fromUtf16(code),
                {QStringLiteral("jxc_ysyfk_dj"), QStringLiteral("gl_djh"),
                 QStringLiteral("k_check"), settlementColumns},
                true,
                {},
                rule};
    };
    static const auto expenses = [](const char16_t *code) -> PayingKind {
        return {QString::fromUtf16(code),
                {QStringLiteral("jxc_yyfy"), QStringLiteral("gl_djh"), QStringLiteral("fy_chk"),
                 QStringLiteral("fy_rq as posted,fy_je,fy_flag,fy_kmmc")},
                false,
                {},
                expense};
    };
    static const std::vector<PayingKind> kinds = {
        {t(u"CJ"),
         {t(u"jxc_jhd"), t(u"j_sn"), t(u"j_status"),
          t(u"j_jhrq as posted,ghs_sn,j_yfje,j_yhje,j_sfje,j_kmmc,j_fpje,j_yf,j_bzf,j_yffs")},
         true,
         t(u"采购单"),
         receipt},
        {t(u"CT"),
         {t(u"jxc_thd"), t(u"gl_djh"), t(u"th_status"),
          t(u"th_thrq as posted,ghs_sn,") + returnColumns},
         true,
         {},
         purchaseReturn},
        {t(u"XS"),
         {t(u"jxc_lsxsd"), t(u"gl_djh"), t(u"ls_status"),
          t(u"ls_xsrq as posted,kh_sn,ls_yfje,ls_yhje,ls_sfje,ls_kmmc,ls_fpje,ls_yf,ls_bzf,"
            u"ls_yffs")},
         true,
         t(u"销售单"),
         sale},
        {t(u"XT"),
         {t(u"jxc_xsthd"), t(u"gl_djh"), t(u"th_status"),
          t(u"th_xsrq as posted,kh_sn,") + returnColumns},
         true,
         {},
         salesReturn},
        settlements(u"SK", customerReceipt),
        settlements(u"FK", supplierPayment),
        settlements(u"YS", customerEntry),
        settlements(u"YF", supplierEntry),
        expenses(u"FY"),
        expenses(u"SR"),
        {t(u"XF"),
         {t(u"jxc_hyxf"), t(u"gl_djh"), t(u"1"), t(u"substr(xf_rq,1,10) as posted,xf_je")},
         false,
         {},
         recharge},
    };
    return kinds;
}

QString partnerText(const QString &type, const QString &number) {
    return (type == QLatin1String("kh") ? QStringLiteral("客户 %1") : QStringLiteral("供货商 %1"))
        .arg(number);
}

QString accountText(const QString &account) {
    return QStringLiteral("账户 %1").arg(account);
}

bool isOpeningRow(const Row &row) {
    return row.text(u"k_djlx") == QLatin1String("QC") ||
           (row.text(u"number").isEmpty() && row.decimal(u"k_yfje").isZero() &&
            row.decimal(u"k_sfje").isZero());
}

} // namespace jxc::verify
