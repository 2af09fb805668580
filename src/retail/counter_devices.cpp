#include "retail/counter_devices.h"

#include "core/operation_log.h"
#include "core/session.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace jxc {

namespace {

void check(const CounterDevices &d, const std::vector<CounterKey> &keys) {
    QSet<int> taken;
    for (const CounterKey &key : keys) {
        if (key.virtualKey == 0)
            throw Refusal(key.function + QStringLiteral("的功能键必须填写！"));
        if (taken.contains(key.virtualKey))
            throw Refusal(key.function + QStringLiteral("的功能键不能重复！"));
        taken.insert(key.virtualKey);
    }
    static const QRegularExpression prefix(QStringLiteral("^[0-9]{0,2}$"));
    for (const QString &text : {d.weightPrefix, d.countPrefix})
        if (!prefix.match(text).hasMatch())
            throw Refusal(QStringLiteral("条码前缀格式不正确！"));
    if (!d.weightPrefix.isEmpty() && d.weightPrefix == d.countPrefix)
        throw Refusal(QStringLiteral("称重前缀和计数前缀不能相同！"));
    if ((d.drawerOnPort || d.customerDisplay) && d.port.isEmpty())
        throw Refusal(QStringLiteral("串口必须填写！"));
}

/// Writes the one row of a table of settings.
void storeOne(Database &db, const QString &table, const Assignments &row) {
    if (db.exists(QStringLiteral("select id from %1").arg(table)))
        db.updateRows(table, row, QStringLiteral("1=1"), {});
    else
        db.insertRow(table, row);
}

} // namespace

CounterDevices CounterDevices::load(Database &db) {
    CounterDevices d;
    if (const auto row = db.row(QStringLiteral("select * from jxc_poscs order by id"))) {
        d.weightPrefix = row->text(u"pos_jzqz").trimmed();
        d.countPrefix = row->text(u"pos_jsqz").trimmed();
        d.scaleCarriesAmount = row->integer(u"pos_tmlx") == 1;
        d.opensDrawer = row->flag(u"pos_dkqx");
        d.drawerOnPort = row->integer(u"pos_qxjk") == 1;
        d.customerDisplay = row->integer(u"pos_kxjk") == 1;
        d.amountDecimals = static_cast<int>(std::clamp<qint64>(row->integer(u"pos_jews"), 0, 6));
        d.priceDecimals = static_cast<int>(std::clamp<qint64>(row->integer(u"pos_djws"), 0, 6));
    }
    d.port = db.scalar(QStringLiteral("select pos_com from jxc_poskx order by id")).trimmed();
    return d;
}

Outcome saveCounterDevices(Session &session, Prompter &prompter, const CounterDevices &d,
                           const std::vector<CounterKey> &keys) {
    return runAction(session.db(), prompter, [&](Answers &) {
        check(d, keys);
        Database &db = session.db();
        storeOne(db, QStringLiteral("jxc_poscs"),
                 {{QStringLiteral("pos_jzqz"), d.weightPrefix},
                  {QStringLiteral("pos_jsqz"), d.countPrefix},
                  {QStringLiteral("pos_tmlx"), d.scaleCarriesAmount ? 1 : 0},
                  {QStringLiteral("pos_dkqx"), d.opensDrawer},
                  {QStringLiteral("pos_qxjk"), d.drawerOnPort ? 1 : 0},
                  {QStringLiteral("pos_kxjk"), d.customerDisplay ? 1 : 0},
                  {QStringLiteral("pos_jews"), d.amountDecimals},
                  {QStringLiteral("pos_djws"), d.priceDecimals}});
        storeOne(db, QStringLiteral("jxc_poskx"), {{QStringLiteral("pos_com"), d.port}});
        for (const CounterKey &key : keys)
            db.updateRows(QStringLiteral("jxc_gnb"), {{QStringLiteral("gn_jz"), key.virtualKey}},
                          QStringLiteral("gn_name=?"), {key.function});
        writeLog(session, QStringLiteral("修改POS功能键"));
    });
}

} // namespace jxc
