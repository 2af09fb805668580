#include "db/upgrade_conversions.h"

#include "db/layout.h"
#include "db/upgrade_opening_stock.h"

namespace jxc {

namespace {

// ---- 2013-10-31: approval was introduced

struct OldDocument {
    QStringView table, prefix, dateColumn;
    bool isSettled; ///< has a way of payment and an account
};

constexpr OldDocument oldDocuments[] = {
    {u"jxc_jhd", u"j", u"j_jhrq", true},      {u"jxc_thd", u"th", u"th_thrq", true},
    {u"jxc_lsxsd", u"ls", u"ls_xsrq", true},  {u"jxc_xsthd", u"th", u"th_xsrq", true},
    {u"jxc_kcdbd", u"db", u"db_dbrq", false}, {u"jxc_bsd", u"bs", u"bs_bsrq", false},
    {u"jxc_byd", u"by", u"by_byrq", false},   {u"jxc_cfd", u"cf", u"cf_cfrq", false},
    {u"jxc_kbd", u"kb", u"kb_kbrq", false},
};

/// Every old document counts as approved on its own day by whoever made it, paid in cash.
void approveOldDocuments(const Conversion &c) {
    for (const OldDocument &d : oldDocuments) {
        const bool isSale = d.table == u"jxc_lsxsd"; // its date may hold the time of day
        // An approval date holds 16 characters.
        QString settings = QStringLiteral("%1_status=1,%1_checker=a_name,%1_chkrq=substr(%2,1,%3)")
                               .arg(d.prefix, d.dateColumn, isSale ? u"10" : u"16");
        if (d.isSettled)
            settings += QStringLiteral(",%1_jsfs=0,%1_kmmc='现金'").arg(d.prefix);
        if (isSale)
            settings += QStringLiteral(",ls_dhbz=0");
        c.db.execute(QStringLiteral("update %1 set %2").arg(d.table, settings));
    }
}

/// Payments leave the account from now on: their amounts become negative. Only a sign changes, so
/// the engine may do it.
void turnPaymentsNegative(Database &db) {
    db.execute(QStringLiteral(
        "update jxc_xjyh set xj_je=-1*xj_je where substr(gl_djh,1,2)='FK' and xj_je>0"));
}

/// Transfers had no prices; they get the goods' own: cost and selling price of today.
void revalueTransfers(Database &db) {
    db.execute(QStringLiteral("update jxc_dbsp set db_dj=0,db_sj=0,db_zje=0"));
    std::vector<Values> lines;
    for (const Row &line : db.rows(QStringLiteral(
             "select l.id,l.db_sl,g.g_pjjj,g.g_sj from jxc_dbsp l join jxc_goods g on "
             "g.g_sn=l.g_sn order by l.id"))) {
        const Decimal price = line.decimal(u"g_pjjj");
        lines.push_back({line.integer(u"id"), price, line.decimal(u"g_sj"),
                         (line.decimal(u"db_sl") * price).rounded(6)});
    }
    db.updateById(QStringLiteral("jxc_dbsp"),
                  {QStringLiteral("db_dj"), QStringLiteral("db_sj"), QStringLiteral("db_zje")},
                  lines);
}

/// The decimals of quantities are a parameter since then; 0 would round half a kilogram away.
void setQuantityDecimals(const Conversion &c) {
    if (!c.layout.wasAdded(QStringLiteral("jxc_xtcs"), QStringLiteral("cs_cs004")))
        return;
    c.db.execute(
        QStringLiteral("update jxc_xtcs set cs_cs004=case when cs_xsws>2 then cs_xsws else 2 end"));
}

void introduceApproval(const Conversion &c) {
    setQuantityDecimals(c);
    approveOldDocuments(c);
    startJournal(c.db, c.layout, c.today);
    turnPaymentsNegative(c.db);
    revalueTransfers(c.db);
}

// ---- 2013-11-02: production dates are texts of another form; a retail price

/// Two rows that told the same batch by its production date only are one batch now: left apart, a
/// movement of the batch would move both.
void uniteBatches(Database &db) {
    const QStringList key{QStringLiteral("ck_sn"), QStringLiteral("g_sn"), QStringLiteral("t_ph"),
                          QStringLiteral("t_yxq")};
    struct Batch {
        qint64 id = 0;
        Decimal quantity;
        bool grew = false;
    };
    std::map<QStringList, Batch> batches;
    std::vector<qint64> absorbed;
    for (const Row &row : db.rows(QStringLiteral("select * from jxc_tkc order by id"))) {
        QStringList name;
        for (const QString &column : key)
            name << row.text(column);
        const auto [batch, isFirst] =
            batches.try_emplace(name, Batch{row.integer(u"id"), {}, false});
        batch->second.quantity += row.decimal(u"t_sl");
        if (isFirst)
            continue;
        batch->second.grew = true;
        absorbed.push_back(row.integer(u"id"));
    }
    std::vector<Values> grown;
    for (const auto &[name, batch] : batches)
        if (batch.grew)
            grown.push_back({batch.id, batch.quantity});
    db.updateById(QStringLiteral("jxc_tkc"), {QStringLiteral("t_sl")}, grown);
    for (const qint64 id : absorbed)
        db.execute(QStringLiteral("delete from jxc_tkc where id=?"), {id});
}

void introduceRetailPrice(const Conversion &c) {
    c.db.execute(QStringLiteral("update jxc_goods set g_bzq=0,g_lsj=g_sj"));
    for (const UpgradeStep &step : upgradeSteps())
        for (const UpgradeStep::Widening &w : step.widenings)
            if (w.column->name == u"t_scrq")
                c.db.execute(QStringLiteral("update %1 set t_scrq=''").arg(w.table));
    uniteBatches(c.db);
    c.db.execute(QStringLiteral("update jxc_lsxssp set g_lsj=ls_dj"));
    c.db.execute(QStringLiteral("update jxc_posxssp set g_lsj=pos_dj"));
}

// ---- 2013-11-03: running balances of the customers

void recomputeCustomers(const Conversion &c) {
    for (const Row &customer : c.db.rows(QStringLiteral("select kh_sn from jxc_khxx order by id")))
        c.hooks.recomputePartner(c.db, QStringLiteral("kh"), customer.text(u"kh_sn"),
                                 QStringLiteral("2014-04-01"));
}

// ---- 2013-12-08: running balances of cash and bank

void recomputeAccounts(const Conversion &c) {
    if (!c.layout.wasAdded(QStringLiteral("jxc_xjyh"), QStringLiteral("xj_ljje")))
        return;
    std::map<QString, Decimal> balances;
    std::vector<Values> rows;
    for (const Row &row : c.db.rows(QStringLiteral(
             "select id,xj_kmmc,xj_je from jxc_xjyh where xj_chk='1' order by xj_rq,id"))) {
        Decimal &balance = balances[row.text(u"xj_kmmc")];
        balance += row.decimal(u"xj_je");
        rows.push_back({row.integer(u"id"), balance});
    }
    c.db.updateById(QStringLiteral("jxc_xjyh"), {QStringLiteral("xj_ljje")}, rows);
}

// ---- 2013-12-18: a discount is part of the amount due

void foldDiscount(Database &db, const QString &headers, const QString &prefix) {
    const QString due = prefix + QStringLiteral("_yfje");
    const QString discount = prefix + QStringLiteral("_yhje");
    std::vector<Values> changed;
    for (const Row &row : db.rows(QStringLiteral("select id,%1_yfje,%1_sfje,%1_yhje from %2 where "
                                                 "%1_status=1 order by id")
                                      .arg(prefix, headers))) {
        const Decimal owed = row.decimal(due);
        const Decimal granted = row.decimal(discount);
        if (granted.isZero() || owed != row.decimal(prefix + QStringLiteral("_sfje")))
            continue;
        changed.push_back({row.integer(u"id"), owed + granted});
    }
    db.updateById(headers, {due}, changed);
}

void foldDiscounts(const Conversion &c) {
    foldDiscount(c.db, QStringLiteral("jxc_jhd"), QStringLiteral("j"));
    foldDiscount(c.db, QStringLiteral("jxc_lsxsd"), QStringLiteral("ls"));
}

// ---- 2014-01-01: freight and packing are expenses

void addExpenseTypes(const Conversion &c) {
    for (const QString &type : {QStringLiteral("运费"), QStringLiteral("包装费")}) {
        if (c.db.exists(QStringLiteral("select id from jxc_fylx where fy_lx=?"), {type}))
            continue;
        c.layout.insertWhole(QStringLiteral("jxc_fylx"),
                             {{{QStringLiteral("fy_lx"), type},
                               {QStringLiteral("fy_note"), type + QStringLiteral("支出")}}});
    }
}

// ---- 2014-01-04: receiving notes know their supplier

void nameSuppliersOfReceipts(const Conversion &c) {
    for (const Row &row : c.db.rows(QStringLiteral(
             "select distinct l.gl_djh,l.j_sn,h.ghs_sn from jxc_rksp l join jxc_jhd h on "
             "h.j_sn=l.j_sn order by l.gl_djh,l.j_sn")))
        c.db.execute(QStringLiteral("update jxc_rkd set ghs_sn=? where gl_djh=?"),
                     {row.text(u"ghs_sn"), row.text(u"gl_djh")});
}

} // namespace

void convertRows(const QString &stepDate, const Conversion &conversion) {
    static const std::map<QStringView, void (*)(const Conversion &)> conversions{
        {u"2013-10-31", introduceApproval},       {u"2013-11-02", introduceRetailPrice},
        {u"2013-11-03", recomputeCustomers},      {u"2013-12-08", recomputeAccounts},
        {u"2013-12-18", foldDiscounts},           {u"2014-01-01", addExpenseTypes},
        {u"2014-01-04", nameSuppliersOfReceipts},
    };
    const auto found = conversions.find(stepDate);
    if (found != conversions.end())
        found->second(conversion);
}

} // namespace jxc
