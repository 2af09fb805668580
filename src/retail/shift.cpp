#include "retail/shift.h"

#include "core/operation_log.h"
#include "core/rights.h"
#include "core/session.h"
#include "db/computed_rows.h"
#include "db/database.h"
#include "db/where.h"

#include <QDateTime>
#include <array>

namespace jxc {

namespace {

const QString shiftTable = QStringLiteral("jxc_poshb");
const QString changed = QStringLiteral("交班数据已变化，请重新核对！");

/// How the figures are called in jxc_poshb. Tenders are kept with refunds taken off.
using Columns = std::vector<std::pair<const char16_t *, Decimal TillFigures::*>>;
const Columns &columns() {
    static const Columns all = {
        {u"jb_xjje", &TillFigures::cash},      {u"jb_czkje", &TillFigures::storedValue},
        {u"jb_yhkje", &TillFigures::bankCard}, {u"jb_djqje", &TillFigures::voucher},
        {u"jb_wxje", &TillFigures::weChat},    {u"jb_zfbje", &TillFigures::aliPay},
        {u"jb_zlje", &TillFigures::change},    {u"jb_mlje", &TillFigures::rounding},
        {u"jb_thje", &TillFigures::returned},  {u"jb_rkje", &TillFigures::in},
        {u"jb_ckje", &TillFigures::out}};
    return all;
}

using Recharged = TillFigures::Recharged;
const std::array<std::pair<const char16_t *, Decimal Recharged::*>, 5> rechargeColumns = {
    {{u"jb_xjje2", &Recharged::cash},
     {u"jb_yhkje2", &Recharged::bankCard},
     {u"jb_wxje2", &Recharged::weChat},
     {u"jb_zfbje2", &Recharged::aliPay},
     {u"jb_zlje2", &Recharged::change}}};

QString secondAfter(const QString &moment) {
    const QString format = QStringLiteral("yyyy-MM-dd hh:mm:ss");
    const QDateTime time = QDateTime::fromString(moment, format);
    return time.isValid() ? time.addSecs(1).toString(format) : moment;
}

/// Till cash bears a day and no time, so that two shifts of one day cannot be told apart by it:
/// what counts now is all that the cashier recorded since his first shift, less what his shifts
/// have counted.
void takeTillCash(const Session &session, const QString &firstBegin, TillFigures &figures) {
    Database &db = session.db();
    figures.in = figures.out = {};
    for (const Row &row :
         db.rows(QStringLiteral("select crk_flag,crk_je from jxc_crk where a_name=? and crk_rq>=?"),
                 {session.currentOperatorName, firstBegin.left(10)}))
        (row.text(u"crk_flag") == QLatin1String("r") ? figures.in : figures.out) +=
            row.decimal(u"crk_je");
    for (const Row &row : db.rows(QStringLiteral("select jb_rkje,jb_ckje from jxc_poshb where "
                                                 "a_name=?"),
                                  {session.currentOperatorName})) {
        figures.in -= row.decimal(u"jb_rkje");
        figures.out -= row.decimal(u"jb_ckje");
    }
}

/// What was left in the till for the operator since his own last shift ended: by himself for
/// himself, or by others.
Decimal receivedSince(const Session &session, const QString &lastEnd) {
    const QString &name = session.currentOperatorName;
    Decimal sum;
    for (const Row &row : session.db().rows(
             QStringLiteral("select jb_xfyyk from jxc_jbgl where jb_time>=? and (jb_nextuser=? or "
                            "(coalesce(jb_nextuser,'')='' and jb_curruser=?))"),
             {lastEnd, name, name}))
        sum += row.decimal(u"jb_xfyyk");
    return sum;
}

Shift shiftUntil(const Session &session, const QString &end) {
    const Row own = session.db()
                        .row(QStringLiteral("select max(jb_endtime) as last,min(jb_begintime) as "
                                            "first from jxc_poshb where a_name=?"),
                             {session.currentOperatorName})
                        .value();
    const QString lastEnd = own.text(u"last");
    Shift shift;
    shift.end = end;
    shift.begin =
        lastEnd.isEmpty() ? session.today() + QStringLiteral(" 00:00:00") : secondAfter(lastEnd);
    CounterFilter filter;
    filter.from = shift.begin;
    filter.to = shift.end;
    filter.cashier = session.currentOperatorName;
    filter.ofTillOnly = true;
    for (TillFigures &figures : tillFigures(session, filter))
        shift.figures = std::move(figures);
    shift.figures.cashier = session.currentOperatorName;
    takeTillCash(session, lastEnd.isEmpty() ? shift.begin : own.text(u"first"), shift.figures);
    shift.received = receivedSince(session, lastEnd);
    return shift;
}

void check(const Session &session, const Shift &shown, const Handover &handover) {
    if (!hasRight(session, u"xsgl", 1))
        throw Refusal(noRightMessage(QStringLiteral("交班！")));
    if (handover.handedIn.isNegative() || handover.left.isNegative())
        throw Refusal(QStringLiteral("金额不能小于零！"));
    const Shift now = shiftUntil(session, shown.end);
    if (now.end < now.begin)
        throw Refusal(QStringLiteral("刚刚已经交班！"));
    if (!(now == shown))
        throw Refusal(changed);
}

QString question(const Shift &shift, const Handover &handover) {
    const auto money = [](Decimal amount) { return amount.toText(2); };
    const Decimal difference = handover.difference(shift);
    const QString off =
        difference.isZero()
            ? QString()
            : QStringLiteral("%1：%2\r\n")
                  .arg(difference.isPositive() ? QStringLiteral("长款") : QStringLiteral("短款"),
                       money(difference.abs()));
    return QStringLiteral("应交金额：%1\r\n实交金额：%2\r\n留存金额：%3\r\n%4\r\n确定交班吗？")
        .arg(money(shift.cashDue()), money(handover.handedIn), money(handover.left), off);
}

qint64 store(Session &session, const Shift &shift, const Handover &handover) {
    Database &db = session.db();
    const auto name = [](const char16_t *column) { return QString::fromUtf16(column); };
    Assignments row = {{name(u"jb_begintime"), shift.begin},
                       {name(u"jb_endtime"), shift.end},
                       {name(u"a_name"), session.currentOperatorName},
                       {name(u"jb_xsje"), shift.figures.sold()},
                       {name(u"jb_yjje"), shift.cashDue()},
                       {name(u"jb_sjje"), handover.handedIn},
                       {name(u"jb_xfje"), handover.left},
                       {name(u"jb_note"), handover.note}};
    for (const auto &[column, figure] : columns())
        row.push_back({name(column), shift.figures.*figure});
    for (const auto &[column, figure] : rechargeColumns)
        row.push_back({name(column), shift.figures.recharged.*figure});
    const qint64 id = db.insertRow(shiftTable, row);
    db.insertRow(QStringLiteral("jxc_jbgl"),
                 {{name(u"jb_time"), shift.end},
                  {name(u"jb_curruser"), session.currentOperatorName},
                  {name(u"jb_nextuser"), handover.next},
                  {name(u"jb_jjzje"), handover.handedIn + handover.left},
                  {name(u"jb_bbskzje"), shift.takings()},
                  {name(u"jb_sjyyk"), handover.handedIn},
                  {name(u"jb_xfyyk"), handover.left},
                  {name(u"jb_note"), handover.note}});
    return id;
}

} // namespace

Decimal Shift::takings() const {
    return figures.cash + figures.bankCard + figures.weChat + figures.aliPay - figures.change +
           figures.recharged.net();
}

Shift runningShift(const Session &session) {
    return shiftUntil(session, session.timeStamp());
}

Outcome endShift(Session &session, Prompter &prompter, const Shift &shown, const Handover &handover,
                 qint64 *id) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        check(session, shown, handover);
        answers.require(question(shown, handover));
        *id = store(session, shown, handover);
        writeLog(session, QStringLiteral("POS交班：应交%1，实交%2，留存%3")
                              .arg(shown.cashDue().toText(), handover.handedIn.toText(),
                                   handover.left.toText()));
    });
}

EndedShift readShift(const Session &session, qint64 id) {
    const auto row = session.db().row(
        QStringLiteral("select a.*,(select min(b.jb_nextuser) from jxc_jbgl b where "
                       "b.jb_time=a.jb_endtime and b.jb_curruser=a.a_name) as jb_nextuser from "
                       "jxc_poshb a where a.id=?"),
        {id});
    if (!row)
        throw Refusal(QStringLiteral("没有找到该交班记录！"));
    EndedShift ended;
    Shift &shift = ended.shift;
    shift.begin = row->text(u"jb_begintime");
    shift.end = row->text(u"jb_endtime");
    shift.figures.cashier = row->text(u"a_name");
    for (const auto &[column, figure] : columns())
        shift.figures.*figure = row->decimal(column);
    for (const auto &[column, figure] : rechargeColumns)
        shift.figures.recharged.*figure = row->decimal(column);
    const TillFigures &f = shift.figures;
    shift.figures.tendered = f.cash + f.storedValue + f.bankCard + f.voucher + f.weChat + f.aliPay;
    shift.figures.due = row->decimal(u"jb_xsje") - shift.figures.returned;
    shift.received = row->decimal(u"jb_yjje") - shift.figures.cashDue();
    ended.handover = {row->decimal(u"jb_sjje"), row->decimal(u"jb_xfje"), row->text(u"jb_nextuser"),
                      row->text(u"jb_note")};
    return ended;
}

Rows listShifts(const Session &session, const QString &from, const QString &to,
                const QString &cashier) {
    Where where;
    where.add(QStringLiteral("a.jb_endtime>=?"), {from});
    where.add(QStringLiteral("a.jb_endtime<=?"), {endOf(to)});
    where.addEqual(QStringLiteral("a.a_name"), cashier);
    const Rows rows = session.db().rows(
        QStringLiteral("select a.*,b.jb_nextuser from jxc_poshb a left join jxc_jbgl b on "
                       "b.jb_time=a.jb_endtime and b.jb_curruser=a.a_name where %1 order by "
                       "a.jb_endtime desc,a.id desc")
            .arg(where.text()),
        where.values());
    if (rows.empty())
        return {};
    ComputedRows list(rows.front().columns().names(), {QStringLiteral("difference")});
    for (const Row &row : rows)
        list.add(row, {cellOf(row.decimal(u"jb_sjje") + row.decimal(u"jb_xfje") -
                              row.decimal(u"jb_yjje"))});
    return list.take();
}

} // namespace jxc
