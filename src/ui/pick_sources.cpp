#include "ui/pick_sources.h"

#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "db/like.h"
#include "ui/row_list.h"

#include <QMenu>

namespace jxc {

namespace {

constexpr int mostRows = 50;

/// How the rows of a table are picked: which columns are shown, and in which one looks.
struct TablePick {
    QString select; ///< "select … from … where …", without the search
    QStringList find;
    QString order;
    QString code; ///< the column that is stored
};

Rows search(Database &db, const TablePick &pick, const QString &typed) {
    QString sql = pick.select;
    Values values;
    if (!typed.isEmpty()) {
        QStringList conditions;
        for (const QString &column : pick.find) {
            conditions << contains(column);
            values.emplace_back(containsPattern(typed));
        }
        sql += QStringLiteral(" and (") + conditions.join(QStringLiteral(" or ")) + u')';
    }
    // What begins with the typed text comes first.
    sql += QStringLiteral(" order by case when %1=? then 0 when %2 then 1 else 2 end,")
               .arg(pick.code, QStringLiteral("lower(%1) like lower(?) escape '!'")
                                   .arg(pick.find.value(1, pick.code)));
    values.emplace_back(typed);
    values.emplace_back(containsPattern(typed).mid(1));
    return db.rows(sql + pick.order + QStringLiteral(" limit %1").arg(mostRows), values);
}

PickSource sourceOf(Database &db, const TablePick &pick, ColumnSpecs columns,
                    const QString &nameField) {
    PickSource source;
    source.columns = std::move(columns);
    source.codeField = pick.code;
    source.nameField = nameField;
    source.search = [&db, pick](const QString &typed) { return jxc::search(db, pick, typed); };
    source.find = [&db, pick](const QString &code) {
        return db.row(pick.select + QStringLiteral(" and %1=?").arg(pick.code), {code});
    };
    return source;
}

} // namespace

PickSource partnerSource(const FormContext &context, Partner::Kind kind) {
    const bool customer = kind == Partner::Kind::customer;
    const QString p = customer ? QStringLiteral("kh_") : QStringLiteral("ghs_");
    const auto named = [&](const char16_t *name) { return QString(p + QString::fromUtf16(name)); };
    TablePick pick;
    pick.code = named(u"sn");
    pick.find = {named(u"sn"), named(u"jm"), named(u"name"), named(u"tele"), named(u"address")};
    pick.select = QStringLiteral(
                      "select id,%1sn,%1name,%1jm,%1tele,%1address,%1lwje from %2 where %1forbid=0")
                      .arg(p, customer ? QStringLiteral("jxc_khxx") : QStringLiteral("jxc_ghsxx"));
    pick.order = QStringLiteral("%1pl desc,id").arg(p);
    ColumnSpecs columns = {{named(u"sn"), QStringLiteral("编号"), ValueKind::text, 80},
                           {named(u"name"), QStringLiteral("名称"), ValueKind::text, 180},
                           {named(u"jm"), QStringLiteral("简码"), ValueKind::text, 88},
                           {named(u"tele"), QStringLiteral("电话"), ValueKind::text, 112},
                           {named(u"address"), QStringLiteral("地址"), ValueKind::text, 160},
                           {named(u"lwje"),
                            customer ? QStringLiteral("应收余额") : QStringLiteral("应付余额"),
                            ValueKind::amount, 104}};
    return sourceOf(context.session.db(), pick, std::move(columns), named(u"name"));
}

PickSource warehouseSource(const FormContext &context) {
    TablePick pick;
    pick.code = QStringLiteral("ck_sn");
    pick.find = {pick.code, QStringLiteral("ck_jm"), QStringLiteral("ck_name")};
    pick.select = QStringLiteral("select id,ck_sn,ck_name,ck_jm,ck_fzr from jxc_ckxx where 1=1");
    // The number comes from the login, not from typing.
    if (isWarehouseRestricted(context.session))
        pick.select += QStringLiteral(" and ck_asn like '%") + context.session.currentOperatorNo +
                       QStringLiteral("%'");
    pick.order = QStringLiteral("id");
    return sourceOf(context.session.db(), pick,
                    {text(u"ck_sn", u"编号", 80), text(u"ck_name", u"仓库", 140),
                     text(u"ck_jm", u"简码", 72), text(u"ck_fzr", u"负责人", 88)},
                    QStringLiteral("ck_name"));
}

PickSource employeeSource(const FormContext &context, EmployeeDuty duty, const QString &customer) {
    PickSource source;
    source.columns = {text(u"u_sn", u"编号", 80), text(u"u_name", u"姓名", 112),
                      text(u"u_jm", u"简码", 72)};
    source.codeField = QStringLiteral("u_sn");
    source.nameField = QStringLiteral("u_name");
    Session &session = context.session;
    const auto all = [&session, duty, customer](const QString &typed) {
        const bool assignedFirst = duty == EmployeeDuty::sale && !customer.isEmpty();
        std::vector<Employee> people =
            assignedFirst ? listSalespeople(session, customer) : listEmployees(session, duty);
        if (!assignedFirst)
            std::stable_sort(
                people.begin(), people.end(), [&](const Employee &a, const Employee &b) {
                    return duty == EmployeeDuty::purchase ? a.purchaseCount > b.purchaseCount
                                                          : a.saleCount > b.saleCount;
                });
        RowList list({u"u_sn", u"u_name", u"u_jm"});
        for (const Employee &e : people)
            if (typed.isEmpty() || e.number.contains(typed) || e.name.contains(typed) ||
                e.code.contains(typed, Qt::CaseInsensitive))
                list.add({e.number, e.name, e.code});
        return list.take();
    };
    source.search = all;
    source.find = [&session](const QString &code) {
        return session.db().row(
            QStringLiteral("select u_sn,u_name,u_jm from jxc_user where u_sn=?"), {code});
    };
    return source;
}

PickSource accountSource(const FormContext &context) {
    TablePick pick;
    pick.code = QStringLiteral("yh_name");
    pick.find = {pick.code, QStringLiteral("yh_sn"), QStringLiteral("yh_type")};
    pick.select = QStringLiteral("select id,yh_sn,yh_name,yh_type,yh_zje from jxc_yhzh where 1=1");
    pick.order = QStringLiteral("id");
    return sourceOf(context.session.db(), pick,
                    {text(u"yh_name", u"账户", 140), text(u"yh_type", u"类型", 88),
                     column(u"yh_zje", u"余额", ValueKind::amount)},
                    QStringLiteral("yh_name"));
}

PickSource goodsSource(const FormContext &context, bool forSale,
                       std::function<QString()> warehouse) {
    TablePick pick;
    pick.code = QStringLiteral("g_sn");
    pick.find = {pick.code,
                 QStringLiteral("g_jm"),
                 QStringLiteral("g_name"),
                 QStringLiteral("g_tym"),
                 QStringLiteral("g_sptm"),
                 QStringLiteral("g_sccs"),
                 QStringLiteral("color_name")};
    pick.select =
        QStringLiteral("select id,g_sn,g_name,g_tym,gg_name,dw_name,g_sccs,g_kc,g_sj,g_jj from "
                       "jxc_goods where g_jy=0 and g_sn<>'00000000'");
    pick.order = forSale ? QStringLiteral("g_xspl desc,id") : QStringLiteral("g_cgpl desc,id");
    Q_UNUSED(warehouse)
    return sourceOf(context.session.db(), pick,
                    {text(u"g_sn", u"商品编号", 96), text(u"g_name", u"商品名称", 176),
                     text(u"g_tym", u"有效成分", 120), text(u"gg_name", u"规格", 88),
                     text(u"dw_name", u"单位", 48), text(u"g_sccs", u"生产厂商", 128),
                     column(u"g_kc", u"库存", ValueKind::quantity, 84),
                     forSale ? column(u"g_sj", u"售价", ValueKind::price, 80)
                             : column(u"g_jj", u"进价", ValueKind::price, 80)},
                    QStringLiteral("g_sn"));
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
