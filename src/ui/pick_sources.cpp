#include "ui/pick_sources.h"

#include "core/session.h"
#include "db/database.h"
#include "master/finders.h"
#include "master/goods_search.h"
#include "money/accounts.h"
#include "ui/master_picks.h"
#include "ui/row_list.h"

#include <QLineEdit>
#include <QMenu>
#include <map>

namespace jxc {

namespace {

// The lists all speak of "sn" and "name", whatever the table behind them calls them.
const auto codeField = QStringLiteral("sn");
const auto nameField = QStringLiteral("name");

Rows rowsOf(const std::vector<Found> &found) {
    RowList list({u"sn", u"name", u"jm", u"phone", u"address", u"balance"});
    for (const Found &f : found)
        list.add({f.code, f.name, f.mnemonic, f.phone, f.address, f.balance});
    return list.take();
}

/// `table` is a constant of ours; its code column begins with `prefix`.
PickSource foundSource(const FormContext &context, Sought what, ColumnSpecs columns,
                       const QString &table, const QString &codeColumn, const QString &nameColumn,
                       EmployeeDuty duty = EmployeeDuty::any) {
    Session &session = context.session;
    PickSource source;
    source.columns = std::move(columns);
    source.codeField = codeField;
    source.nameField = nameField;
    source.search = [&session, what, duty](const QString &typed) {
        return rowsOf(findNamed(session, what, typed, duty));
    };
    // A code may be disabled or another's by now; its name is shown all the same.
    const QString sql = QStringLiteral("select %1 as sn,%2 as name from %3 where %1=?")
                            .arg(codeColumn, nameColumn, table);
    source.find = [&session, sql](const QString &code) { return session.db().row(sql, {code}); };
    return source;
}

} // namespace

PickSource partnerSource(const FormContext &context, Partner::Kind kind) {
    const bool customer = kind == Partner::Kind::customer;
    ColumnSpecs columns = {
        text(u"sn", u"编号", 80),
        text(u"name", u"名称", 180),
        text(u"jm", u"简码", 88),
        text(u"phone", u"电话", 112),
        text(u"address", u"地址", 160),
        column(u"balance", customer ? u"应收余额" : u"应付余额", ValueKind::amount, 104)};
    const QString table = customer ? QStringLiteral("jxc_khxx") : QStringLiteral("jxc_ghsxx");
    const QString code = customer ? QStringLiteral("kh_sn") : QStringLiteral("ghs_sn");
    const QString name = customer ? QStringLiteral("kh_name") : QStringLiteral("ghs_name");
    PickSource source = foundSource(context, customer ? Sought::customer : Sought::supplier,
                                    std::move(columns), table, code, name);
    source.addNew = [context, table, code](QWidget *parent) {
        return addMasterRecord(context, table, code, parent);
    };
    return source;
}

PickSource warehouseSource(const FormContext &context) {
    return foundSource(
        context, Sought::warehouse,
        {text(u"sn", u"编号", 80), text(u"name", u"仓库", 140), text(u"jm", u"简码", 72)},
        QStringLiteral("jxc_ckxx"), QStringLiteral("ck_sn"), QStringLiteral("ck_name"));
}

PickSource employeeSource(const FormContext &context, EmployeeDuty duty, const QString &customer) {
    PickSource source = foundSource(
        context, Sought::employee,
        {text(u"sn", u"编号", 80), text(u"name", u"姓名", 112), text(u"jm", u"简码", 72)},
        QStringLiteral("jxc_user"), QStringLiteral("u_sn"), QStringLiteral("u_name"), duty);
    if (duty != EmployeeDuty::sale || customer.isEmpty())
        return source;
    Session &session = context.session;
    const auto plain = source.search;
    source.search = [&session, customer, plain](const QString &typed) {
        if (!typed.isEmpty())
            return plain(typed);
        RowList list({u"sn", u"name", u"jm"});
        for (const Employee &e : listSalespeople(session, customer))
            list.add({e.number, e.name, e.code});
        return list.take();
    };
    return source;
}

PickSource accountSource(const FormContext &context) {
    PickSource source = foundSource(
        context, Sought::account,
        {text(u"name", u"账户", 140), column(u"balance", u"余额", ValueKind::amount)},
        QStringLiteral("jxc_yhzh"), QStringLiteral("yh_name"), QStringLiteral("yh_name"));
    // The journal and the documents keep an account's name.
    source.codeField = nameField;
    Session &session = context.session;
    source.search = [&session](const QString &typed) {
        std::map<QString, Decimal> held;
        for (const Row &row : listAccounts(session))
            held[row.text(u"yh_name")] = row.decimal(u"balance");
        RowList list({u"name", u"balance"});
        for (const Found &f : findNamed(session, Sought::account, typed))
            list.add({f.name, held[f.name]});
        return list.take();
    };
    return source;
}

PickSource goodsSource(const FormContext &context, bool forSale,
                       std::function<QString()> warehouse) {
    PickSource source;
    source.columns = {text(u"g_sn", u"商品编号", 96),
                      text(u"g_name", u"商品名称", 176),
                      text(u"g_tym", u"有效成分", 120),
                      text(u"gg_name", u"规格", 88),
                      text(u"dw_name", u"单位", 48),
                      text(u"g_sccs", u"生产厂商", 128),
                      column(u"stock", u"库存", ValueKind::quantity, 84),
                      column(u"price", forSale ? u"售价" : u"进价", ValueKind::price, 84)};
    if (forSale)
        source.columns.back().secrecy = Secrecy::selling;
    source.codeField = QStringLiteral("g_sn");
    source.nameField = QStringLiteral("g_sn");
    GoodsFinder &finder = context.goods;
    const bool lastPrice = context.session.parameters.purchaseUsesLastPrice;
    source.search = [&finder, forSale, lastPrice, warehouse](const QString &typed) {
        RowList list({u"g_sn", u"g_name", u"g_tym", u"gg_name", u"dw_name", u"g_sccs", u"stock",
                      u"price", u"barcode"});
        for (const GoodsHit &hit :
             finder.find(typed, warehouse(), forSale ? GoodsUse::sale : GoodsUse::purchase)) {
            const bool last = lastPrice && !hit.lastPurchasePrice.isZero();
            const Decimal price = forSale ? hit.sellingPrice
                                  : last  ? hit.lastPurchasePrice
                                          : hit.presetPurchasePrice;
            list.add({hit.code, hit.name, hit.genericName, hit.specification, hit.unit, hit.maker,
                      hit.stock, price, hit.barcode});
        }
        return list.take();
    };
    source.addNew = [context](QWidget *parent) {
        return addMasterRecord(context, QStringLiteral("jxc_goods"), QStringLiteral("g_sn"),
                               parent);
    };
    Session &session = context.session;
    source.find = [&session](const QString &code) {
        return session.db().row(
            QStringLiteral("select g_sn,g_name,'' as barcode from jxc_goods where g_sn=?"), {code});
    };
    return source;
}

void choosePhrase(const FormContext &context, QLineEdit *note) {
    QMenu menu(note);
    for (const Row &row : context.session.db().rows(
             QStringLiteral("select dj_name from jxc_djbz order by dj_pl desc,id limit 20"))) {
        const QString phrase = row.text(u"dj_name");
        menu.addAction(phrase, note, [note, phrase] { note->insert(phrase); });
    }
    if (menu.isEmpty())
        menu.addAction(QStringLiteral("（没有常用备注）"))->setEnabled(false);
    menu.exec(note->mapToGlobal(QPoint(0, note->height())));
}

} // namespace jxc
