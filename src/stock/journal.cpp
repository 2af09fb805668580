#include "stock/journal.h"

#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "stock/document.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

const QString journalTable = QStringLiteral("jxc_goodslist");

const QStringList &journalColumns() {
    static const QStringList columns =
        QStringLiteral(
            "gl_flag,gl_djh,gl_kdrq,g_sn,g_name,g_jm,dw_name,gl_dj,gl_cbj,gl_zcb,gl_sl,gl_dzl,"
            "gl_zje,gl_je,gl_tax,gl_taxdj,gl_taxje,gl_lsj,gl_lr,gl_qxsl,gl_checker,gl_chkrq,"
            "gl_sqsl,gl_sqje,gl_pjjj,gl_kc,gl_kczje,gl_note,gl_bz,u_name,a_name,ck_sn,ck_name,"
            "ghs_sn,ghs_name,gg_name,color_name,gl_sysl,id2,gl_djh2,gl_fdmc,gl_dqkc,t_cfsm,"
            "gl_xm,gl_cardno,t_cfhm,t_addr,t_mobile,t_ph,t_scrq,t_yxq")
            .split(u',');
    return columns;
}

QString optionalText(const Row &row, const QString &column) {
    const auto &names = row.columns().names();
    if (std::find(names.begin(), names.end(), column) == names.end())
        return {};
    return row.text(column);
}

Values journalValues(const Session &session, const Document &d, const JournalRow &r) {
    const GoodsCopy goods = d.goods.value(r.goods);
    const Decimal none;
    return {r.flag,
            d.number,
            d.date,
            r.goods,
            fitted(journalTable, u"g_name", goods.name + r.nameSuffix),
            goods.mnemonic,
            goods.unit,
            r.price,
            r.costPrice,
            r.totalCost,
            r.quantity,
            r.discount,
            r.amountWithTax,
            r.amount,
            r.taxRate,
            r.taxPrice,
            r.taxAmount,
            r.retailPrice,
            r.profit,
            none, // gl_qxsl
            session.currentOperatorName,
            session.today(),
            none, // gl_sqsl
            none, // gl_sqje
            goods.averageCost,
            none, // gl_kc
            none, // gl_kczje
            fitted(journalTable, u"gl_note", d.note()),
            fitted(journalTable, u"gl_bz", r.lineNote),
            d.clerkName,
            d.header.text(u"a_name"),
            r.warehouse,
            r.warehouseName,
            r.partnerNo,
            r.partnerName,
            goods.specification,
            goods.registration,
            r.entryQuantity,
            r.line,
            r.sourceNumber,
            r.branch,
            none, // gl_dqkc
            r.use,
            r.buyer,
            r.identityNo,
            r.prescription,
            r.address,
            r.mobile,
            r.batch.number,
            r.batch.produced,
            r.batch.expiry};
}

} // namespace

JournalRow journalRowOfLine(const Document &d, const Row &line) {
    JournalRow r{.flag = d.kind.code.toLower(), .goods = line.text(u"g_sn")};
    r.warehouse = d.warehouse;
    r.warehouseName = d.warehouseName.value_or(QString());
    r.partnerNo = d.partner.number;
    r.partnerName = d.partnerName.value_or(QString());
    r.batch = {line.text(u"t_ph"), line.text(u"t_yxq"), line.text(u"t_scrq")};
    r.line = line.integer(u"id2");
    r.sourceNumber = optionalText(line, QStringLiteral("gl_djh2"));
    r.physical = d.kind.movesPhysically == nullptr || d.kind.movesPhysically(line);
    return r;
}

void writeJournal(Session &session, const Document &document, std::vector<JournalRow> &rows) {
    std::vector<Values> values;
    values.reserve(rows.size());
    for (const JournalRow &row : rows)
        values.push_back(journalValues(session, document, row));
    const auto ids = session.db().insertRows(journalTable, journalColumns(), values);
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i].id = ids[i];
}

std::vector<JournalRow> readJournal(Database &db, const Document &d) {
    // Which line a row came from tells whether it had moved goods physically.
    std::map<std::pair<qint64, QString>, bool> physical;
    if (d.kind.movesPhysically != nullptr)
        for (const Row &line : d.lines)
            physical[{line.integer(u"id2"), line.text(u"g_sn")}] = d.kind.movesPhysically(line);

    std::vector<JournalRow> rows;
    for (const Row &row :
         db.rows(QStringLiteral("select id,gl_flag,g_sn,ck_sn,gl_sl,gl_dj,id2,t_ph,t_scrq,"
                                "t_yxq from jxc_goodslist where gl_djh=? and g_sn<>? "
                                "order by id"),
                 {d.number, discountGoods})) {
        JournalRow r{.flag = row.text(u"gl_flag"), .goods = row.text(u"g_sn")};
        r.id = row.integer(u"id");
        r.warehouse = row.text(u"ck_sn");
        r.quantity = row.decimal(u"gl_sl");
        r.price = row.decimal(u"gl_dj");
        r.line = row.integer(u"id2");
        r.batch = {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
        const auto known = physical.find({r.line, r.goods});
        r.physical = known == physical.end() || known->second;
        rows.push_back(std::move(r));
    }
    return rows;
}

} // namespace jxc
