#include "services/verify_documents.h"

// What each kind of document does to the books, written down a second time and as plainly as it can
// be said. Nothing of the posting is used here: a slip there is to show.

namespace jxc::verify {

namespace {

/// A price per base unit from one per unit of entry; it stands as it is when both are the same.
Decimal pricePerBase(Decimal price, Decimal quantity, Decimal baseQuantity) {
    return quantity == baseQuantity ? price : (price * quantity / baseQuantity).rounded(6);
}

/// A row of a line in the document's own warehouse.
DueRow rowOf(const Posted &d, const Row &line, const QString &flag) {
    DueRow row;
    row.flag = flag;
    row.place = {line.text(u"g_sn"), d.warehouse};
    row.batch = BatchText::of(line);
    return row;
}

std::vector<DueRow> receiptRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        DueRow row = rowOf(d, *line, QStringLiteral("cj"));
        row.quantity = line->decimal(u"jh_zsl");
        row.price = pricePerBase(line->decimal(u"jh_dj"), line->decimal(u"jh_sl"), row.quantity);
        row.amountWithTax = line->decimal(u"jh_zje");
        row.amount = line->decimal(u"jh_je");
        // What stood there at approval, before goods-in documents added theirs; anything but
        // nothing means that the whole line came with the receipt.
        const Decimal atApproval =
            line->decimal(u"jh_rksl") - d.flow.done.value(line->integer(u"id2")).quantity;
        row.moved = atApproval.isZero() ? Decimal() : row.quantity;
        rows.push_back(row);
    }
    return rows;
}

std::vector<DueRow> purchaseReturnRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        const Decimal base = line->decimal(u"th_zsl");
        const bool closesRest = line->integer(u"id2") != 0; // those goods never came
        DueRow row = rowOf(d, *line, QStringLiteral("ct"));
        row.quantity = -base;
        row.price = closesRest
                        ? (line->decimal(u"th_je") / base).rounded(6)
                        : pricePerBase(line->decimal(u"th_dj"), line->decimal(u"th_sl"), base);
        row.amountWithTax = -line->decimal(u"th_zje");
        row.amount = -line->decimal(u"th_je");
        row.moved = closesRest ? Decimal() : -base;
        rows.push_back(row);
    }
    return rows;
}

std::vector<DueRow> saleRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        DueRow row = rowOf(d, *line, QStringLiteral("xs"));
        row.quantity = line->decimal(u"ls_zsl");
        row.price = (line->decimal(u"ls_dj") / line->decimal(u"g_zhxs")).rounded(6);
        row.amountWithTax = line->decimal(u"ls_zje");
        row.amount = line->decimal(u"ls_je");
        row.totalCost = line->decimal(u"ls_zcb");
        const Decimal atApproval =
            line->decimal(u"ls_cksl") - d.flow.done.value(line->integer(u"id2")).quantity;
        row.moved = atApproval.isZero() ? Decimal() : -row.quantity;
        rows.push_back(row);
    }
    return rows;
}

std::vector<DueRow> salesReturnRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        const Decimal base = line->decimal(u"th_zsl");
        DueRow row = rowOf(d, *line, QStringLiteral("xt"));
        row.quantity = -base;
        row.price = (line->decimal(u"th_dj") / line->decimal(u"g_zhxs")).rounded(6);
        row.amountWithTax = -line->decimal(u"th_zje");
        row.amount = -line->decimal(u"th_je");
        row.totalCost = -line->decimal(u"th_zcb");
        row.moved = line->integer(u"id2") != 0 ? Decimal() : base;
        rows.push_back(row);
    }
    return rows;
}

/// All lines leave one warehouse, then all arrive in the other.
std::vector<DueRow> transferRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const bool arriving : {false, true})
        for (const Row *line : d.lines) {
            const Decimal base = line->decimal(u"db_zsl");
            DueRow row = rowOf(d, *line, QStringLiteral("db"));
            row.place.warehouse = d.header.text(arriving ? u"ck_in" : u"ck_out");
            row.quantity = arriving ? base : -base;
            // The price is the line's or, by a parameter, the cost of that moment.
            row.moved = row.quantity;
            rows.push_back(row);
        }
    return rows;
}

/// A row that moves what it says, at the line's price.
DueRow plainRow(const Posted &d, const Row &line, const QString &flag, Decimal quantity,
                Decimal price) {
    DueRow row = rowOf(d, line, flag);
    row.quantity = quantity;
    row.price = price;
    row.moved = quantity;
    return row;
}

std::vector<DueRow> lossRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines)
        rows.push_back(plainRow(d, *line, QStringLiteral("bs"), -line->decimal(u"bs_sl"),
                                line->decimal(u"bs_dj")));
    return rows;
}

std::vector<DueRow> overflowRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines)
        rows.push_back(plainRow(d, *line, QStringLiteral("by"), line->decimal(u"by_sl"),
                                line->decimal(u"by_dj")));
    return rows;
}

/// Every counted line, also one that found what the books say: later documents meet it.
std::vector<DueRow> stocktakingRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        const Decimal found = line->isNull(u"pd_sl") // not counted: as the books have it
                                  ? Decimal()
                                  : line->decimal(u"pd_sl") - line->decimal(u"kc_sl");
        rows.push_back(plainRow(d, *line, QStringLiteral("pd"), found, line->decimal(u"pd_dj")));
    }
    return rows;
}

/// The parent goes, then its parts come.
std::vector<DueRow> splitRows(const Posted &d) {
    const QString flag = QStringLiteral("cf");
    std::vector<DueRow> rows = {
        plainRow(d, d.header, flag, -d.header.decimal(u"cf_sl"), d.header.decimal(u"cf_cbj"))};
    for (const Row *line : d.lines)
        rows.push_back(plainRow(d, *line, flag, line->decimal(u"cf_sl"), line->decimal(u"cf_dj")));
    return rows;
}

/// The parts go, then the bundle comes.
std::vector<DueRow> bundleRows(const Posted &d) {
    const QString flag = QStringLiteral("kb");
    std::vector<DueRow> rows;
    for (const Row *line : d.lines)
        rows.push_back(plainRow(d, *line, flag, -line->decimal(u"kb_sl"), line->decimal(u"kb_dj")));
    rows.push_back(
        plainRow(d, d.header, flag, d.header.decimal(u"kb_sl"), d.header.decimal(u"kb_cbj")));
    return rows;
}

std::vector<DueRow> loanRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        DueRow row = plainRow(d, *line, QStringLiteral("jh"), line->decimal(u"jh_sl"),
                              line->decimal(u"jh_dj"));
        row.moved = -row.quantity;
        rows.push_back(row);
    }
    return rows;
}

/// Goods come back at the cost of the loan, which the line does not name.
std::vector<DueRow> loanReturnRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        DueRow row = plainRow(d, *line, QStringLiteral("hh"), line->decimal(u"jh_sl"), {});
        row.price.reset();
        rows.push_back(row);
    }
    return rows;
}

/// Gifts for points: they go for nothing.
std::vector<DueRow> exchangeRows(const Posted &d) {
    std::vector<DueRow> rows;
    for (const Row *line : d.lines) {
        DueRow row = rowOf(d, *line, QStringLiteral("dh"));
        row.quantity = line->decimal(u"dh_sl");
        row.price = row.amountWithTax = row.amount = row.totalCost = Decimal();
        row.moved = -row.quantity;
        rows.push_back(row);
    }
    return rows;
}

} // namespace

const std::vector<PostingKind> &postingKinds() {
    const auto t = [](const char16_t *text) { return QString::fromUtf16(text); };
    static const std::vector<PostingKind> kinds = {
        {t(u"CJ"),
         t(u"jxc_jhd"),
         t(u"jxc_jhsp"),
         t(u"j_sn"),
         t(u"j_jhrq"),
         t(u"j_status"),
         t(u"ck_sn"),
         {},
         t(u"id2,jh_dj,jh_sl,jh_zsl,jh_zje,jh_je,jh_rksl,jh_qxsl"),
         receiptRows,
         t(u"jh_sl"),
         t(u"jh_rksl"),
         t(u"jh_qxsl")},
        {t(u"CT"),
         t(u"jxc_thd"),
         t(u"jxc_thsp"),
         t(u"gl_djh"),
         t(u"th_thrq"),
         t(u"th_status"),
         t(u"ck_sn"),
         {},
         t(u"id2,th_dj,th_sl,th_zsl,th_zje,th_je"),
         purchaseReturnRows},
        {t(u"XS"),
         t(u"jxc_lsxsd"),
         t(u"jxc_lsxssp"),
         t(u"gl_djh"),
         t(u"ls_xsrq"),
         t(u"ls_status"),
         t(u"ck_sn"),
         {},
         t(u"id2,ls_dj,ls_sl,ls_zsl,ls_zje,ls_je,ls_zcb,g_zhxs,ls_cksl,ls_qxsl"),
         saleRows,
         t(u"ls_sl"),
         t(u"ls_cksl"),
         t(u"ls_qxsl")},
        {t(u"XT"),
         t(u"jxc_xsthd"),
         t(u"jxc_xsthsp"),
         t(u"gl_djh"),
         t(u"th_xsrq"),
         t(u"th_status"),
         t(u"ck_sn"),
         {},
         t(u"id2,th_dj,th_zsl,th_zje,th_je,th_zcb,g_zhxs"),
         salesReturnRows},
        {t(u"DB"), t(u"jxc_kcdbd"), t(u"jxc_dbsp"), t(u"gl_djh"), t(u"db_dbrq"), t(u"db_status"),
         t(u"ck_out"), t(u"ck_out,ck_in"), t(u"db_zsl"), transferRows},
        {t(u"BS"),
         t(u"jxc_bsd"),
         t(u"jxc_bssp"),
         t(u"gl_djh"),
         t(u"bs_bsrq"),
         t(u"bs_status"),
         t(u"ck_sn"),
         {},
         t(u"bs_sl,bs_dj"),
         lossRows},
        {t(u"BY"),
         t(u"jxc_byd"),
         t(u"jxc_bysp"),
         t(u"gl_djh"),
         t(u"by_byrq"),
         t(u"by_status"),
         t(u"ck_sn"),
         {},
         t(u"by_sl,by_dj"),
         overflowRows},
        {t(u"PD"),
         t(u"jxc_kcpd"),
         t(u"jxc_kcpdsp"),
         t(u"gl_djh"),
         t(u"pd_rq"),
         t(u"pd_status"),
         t(u"ck_sn"),
         {},
         t(u"pd_sl,kc_sl,pd_dj"),
         stocktakingRows},
        {t(u"CF"), t(u"jxc_cfd"), t(u"jxc_cfsp"), t(u"gl_djh"), t(u"cf_cfrq"), t(u"cf_status"),
         t(u"ck_sn"), t(u"g_sn,cf_sl,cf_cbj,t_ph,t_yxq,t_scrq"), t(u"cf_sl,cf_dj"), splitRows},
        {t(u"KB"), t(u"jxc_kbd"), t(u"jxc_kbsp"), t(u"gl_djh"), t(u"kb_kbrq"), t(u"kb_status"),
         t(u"ck_sn"), t(u"g_sn,kb_sl,kb_cbj,t_ph,t_yxq,t_scrq"), t(u"kb_sl,kb_dj"), bundleRows},
        {t(u"JH"),
         t(u"jxc_khjh"),
         t(u"jxc_khjhsp"),
         t(u"gl_djh"),
         t(u"jh_rq"),
         t(u"jh_status"),
         t(u"ck_sn"),
         {},
         t(u"jh_sl,jh_dj"),
         loanRows},
        {t(u"HH"),
         t(u"jxc_khjh"),
         t(u"jxc_khjhsp"),
         t(u"gl_djh"),
         t(u"jh_rq"),
         t(u"jh_status"),
         t(u"ck_sn"),
         {},
         t(u"jh_sl,jh_dj"),
         loanReturnRows},
        // It is posted as soon as it is there.
        {t(u"DH"),
         t(u"jxc_dhd"),
         t(u"(select id,gl_djh,g_sn,'' as t_ph,'' as t_yxq,'' as t_scrq,dh_sl from jxc_dhzp) z"),
         t(u"gl_djh"),
         t(u"dh_dhrq"),
         t(u"1"),
         t(u"ck_sn"),
         {},
         t(u"dh_sl"),
         exchangeRows,
         {},
         {},
         {},
         true},
    };
    return kinds;
}

} // namespace jxc::verify
