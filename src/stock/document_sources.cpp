#include "stock/document_sources.h"

namespace jxc {

namespace {

QString q(const char16_t *text) {
    return QString::fromUtf16(text);
}

/// Approval triple, date and note by their usual names: "jh_status" …
DocumentSource source(const char16_t *code, const char16_t *title, const char16_t *header,
                      const char16_t *lines, const char16_t *headerPrefix, const char16_t *date) {
    const QString prefix = QStringLiteral("h.") + q(headerPrefix);
    DocumentSource s{.code = q(code), .title = q(title), .header = q(header), .lines = q(lines)};
    s.date = QStringLiteral("h.") + q(date);
    s.status = prefix + q(u"_status");
    s.checker = prefix + q(u"_checker");
    s.note = prefix + q(u"_note");
    return s;
}

/// Quantity, price and amount of a line by their usual names: "jh_sl" …
void setLine(DocumentSource &s, const char16_t *linePrefix, const char16_t *price = u"taxdj") {
    const QString prefix = QStringLiteral("l.") + q(linePrefix) + u'_';
    s.quantity = prefix + q(u"sl");
    s.price = *price == 0 ? QString() : prefix + q(price);
    s.lineAmount = *price == 0 ? QString() : prefix + q(u"zje");
}

/// Without an amount the documents move goods, not money.
void setPartner(DocumentSource &s, const char16_t *type, const char16_t *amount = nullptr) {
    s.partnerType = q(type);
    s.partner = QStringLiteral("h.") + s.partnerType + q(u"_sn");
    s.amount = amount == nullptr ? QStringLiteral("0") : QStringLiteral("h.") + q(amount);
}

DocumentSource receipt(const char16_t *code, const char16_t *title, const char16_t *header,
                       const char16_t *lines) {
    DocumentSource s = source(code, title, header, lines, u"j", u"j_jhrq");
    setPartner(s, u"ghs", u"j_yfje");
    setLine(s, u"jh");
    s.lineNote = q(u"l.jh_bz");
    return s;
}

/// The one header that numbers in a column of its own, like its lines.
DocumentSource purchaseReceipt() {
    DocumentSource s = receipt(u"CJ", u"采购进货单", u"jxc_jhd", u"jxc_jhsp");
    s.number = q(u"j_sn");
    return s;
}

DocumentSource sale(const char16_t *code, const char16_t *title, const char16_t *header,
                    const char16_t *lines) {
    DocumentSource s = source(code, title, header, lines, u"ls", u"ls_xsrq");
    setPartner(s, u"kh", u"ls_yfje");
    setLine(s, u"ls");
    s.lineNote = q(u"l.ls_bz");
    return s;
}

DocumentSource goodsReturn(const char16_t *code, const char16_t *title, const char16_t *header,
                           const char16_t *lines, const char16_t *date, const char16_t *partner) {
    DocumentSource s = source(code, title, header, lines, u"th", date);
    setPartner(s, partner, u"th_yfje");
    setLine(s, u"th");
    s.lineNote = q(u"l.th_bz");
    return s;
}

DocumentSource plan() {
    DocumentSource s =
        source(u"CP", u"采购计划单", u"jxc_cgplan", u"jxc_cgplansp", u"cp", u"cp_rq");
    setPartner(s, u"ghs", u"cp_yfje");
    setLine(s, u"cp");
    return s;
}

DocumentSource goodsIn() {
    DocumentSource s = source(u"RK", u"商品入库单", u"jxc_rkd", u"jxc_rksp", u"rk", u"rk_rq");
    setPartner(s, u"ghs");
    setLine(s, u"rk", u"");
    return s;
}

DocumentSource goodsOut() {
    DocumentSource s = source(u"CK", u"商品出库单", u"jxc_ckd", u"jxc_cksp", u"ck", u"ck_rq");
    setPartner(s, u"kh");
    setLine(s, u"ck", u"");
    return s;
}

DocumentSource transfer() {
    DocumentSource s = source(u"DB", u"库存调拨单", u"jxc_kcdbd", u"jxc_dbsp", u"db", u"db_dbrq");
    setLine(s, u"db", u"dj");
    s.warehouse = q(u"h.ck_out");
    s.secondWarehouse = q(u"h.ck_in");
    return s;
}

DocumentSource adjustment(const char16_t *code, const char16_t *title, const char16_t *header,
                          const char16_t *lines, const char16_t *prefix, const char16_t *date) {
    DocumentSource s = source(code, title, header, lines, prefix, date);
    setLine(s, prefix, u"dj");
    s.linesHaveUnit = false;
    return s;
}

DocumentSource assembly(const char16_t *code, const char16_t *title, const char16_t *header,
                        const char16_t *lines, const char16_t *prefix, const char16_t *date) {
    DocumentSource s = adjustment(code, title, header, lines, prefix, date);
    s.headerHasGoods = true;
    return s;
}

/// Receipts of the counter alone: what a document with a member leaves in these tables bears the
/// document's number, and what a return leaves stands in both.
DocumentSource counter(const char16_t *code, const char16_t *title, const char16_t *header,
                       const char16_t *lines, const QStringList &copiedFrom) {
    DocumentSource s{.code = q(code), .title = q(title), .header = q(header), .lines = q(lines)};
    s.date = q(u"h.pos_xsrq");
    s.status = q(u"1");
    s.checker = q(u"h.a_name");
    s.note = q(u"h.pos_note");
    setPartner(s, u"kh", u"pos_yfje");
    setLine(s, u"pos", u"zhje");
    QStringList conditions;
    for (const QString &table : copiedFrom)
        conditions << q(u"not exists (select id from %1 x where x.gl_djh=h.gl_djh)").arg(table);
    s.condition = conditions.join(q(u" and "));
    return s;
}

} // namespace

const std::vector<DocumentSource> &documentSources() {
    static const std::vector<DocumentSource> all = [] {
        std::vector<DocumentSource> sources = {
            plan(),
            receipt(u"CD", u"采购订单", u"jxc_cgd", u"jxc_cgsp"),
            purchaseReceipt(),
            goodsReturn(u"CT", u"采购退货单", u"jxc_thd", u"jxc_thsp", u"th_thrq", u"ghs"),
            goodsIn(),
            sale(u"XD", u"销售订单", u"jxc_xsd", u"jxc_xssp"),
            sale(u"XS", u"商品销售单", u"jxc_lsxsd", u"jxc_lsxssp"),
            goodsReturn(u"XT", u"顾客退货单", u"jxc_xsthd", u"jxc_xsthsp", u"th_xsrq", u"kh"),
            goodsOut(),
            transfer(),
            adjustment(u"BS", u"商品报损单", u"jxc_bsd", u"jxc_bssp", u"bs", u"bs_bsrq"),
            adjustment(u"BY", u"商品报溢单", u"jxc_byd", u"jxc_bysp", u"by", u"by_byrq"),
            adjustment(u"PD", u"库存盘点单", u"jxc_kcpd", u"jxc_kcpdsp", u"pd", u"pd_rq"),
            assembly(u"CF", u"商品拆分单", u"jxc_cfd", u"jxc_cfsp", u"cf", u"cf_cfrq"),
            assembly(u"KB", u"商品捆绑单", u"jxc_kbd", u"jxc_kbsp", u"kb", u"kb_kbrq"),
            counter(u"POSXS", u"POS销售单", u"jxc_posxsd", u"jxc_posxssp",
                    {q(u"jxc_lsxsd"), q(u"jxc_xsthd"), q(u"jxc_posthd")}),
            counter(u"POSXT", u"POS退货单", u"jxc_posthd", u"jxc_posthsp", {q(u"jxc_xsthd")}),
        };
        return sources;
    }();
    return all;
}

const DocumentSource *findDocumentSource(QStringView code) {
    for (const DocumentSource &source : documentSources())
        if (source.code == code)
            return &source;
    return nullptr;
}

} // namespace jxc
