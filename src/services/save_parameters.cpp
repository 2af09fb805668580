#include "services/save_parameters.h"

#include "core/operation_log.h"
#include "core/session.h"
#include "master/record.h"
#include "master/record_checks.h"
#include "master/record_values.h"
#include "master/system_parameters.h"

#include <algorithm>

namespace jxc {

namespace {

constexpr int mostDecimals = 6;

/// The settings of one table that differ, checked and as they are stored.
class TableChange {
public:
    TableChange(const Session &session, const QString &table, const QHash<QString, QString> &stored,
                const QHash<QString, QString> &changed)
        : m_session(session)
        , m_table(table) {
        m_record.id = 1; // what stands counts as stored
        m_kind.table = table;
        for (const SystemParameter &parameter : systemParameters()) {
            if (parameter.table != table)
                continue;
            m_kind.fields.push_back(parameter.field);
            m_record.set(parameter.field.column, stored.value(parameter.field.column));
        }
        m_record.settle();
        for (const MasterField &field : m_kind.fields)
            if (changed.contains(field.column))
                m_record.set(field.column, changed.value(field.column));
    }

    void check() {
        prepareRecord(m_session, m_kind, m_record);
        checkRecord(m_session, m_kind, m_record);
        for (const SystemParameter &parameter : systemParameters())
            if (parameter.table == m_table && parameter.isDecimals)
                checkDecimals(parameter.field.column);
    }

    [[nodiscard]] QStringList captions() const {
        QStringList list;
        for (const MasterField &field : m_kind.fields)
            if (m_record.isChanged(field.column))
                list << field.caption;
        return list;
    }

    [[nodiscard]] bool switchesOff(QStringView column) const {
        return m_record.stored(column) == u"1" && m_record.text(column) == u"0";
    }

    void write() const {
        Assignments columns;
        for (const MasterField &field : m_kind.fields)
            if (m_record.isChanged(field.column))
                columns.push_back(
                    {field.column, fieldValue(m_table, field.column, m_record.text(field.column))});
        if (!columns.empty())
            m_session.db().updateRows(
                m_table, columns, QStringLiteral("id=(select min(id) from %1)").arg(m_table), {});
    }

private:
    void checkDecimals(const QString &column) const {
        const Decimal places = m_record.decimal(column);
        if (places.isNegative() || places > Decimal(mostDecimals))
            throw FieldRefusal(column, QStringLiteral("小数位数必须在0到6之间！"));
    }

    const Session &m_session;
    QString m_table;
    MasterKind m_kind;
    Record m_record;
};

/// Lines of approved documents of which a part is neither taken in (issued) nor closed.
struct OpenLines {
    QString setting;
    QString sql; ///< quantity, moved, closed
    QString refusal;
};

const std::vector<OpenLines> &openLines() {
    static const std::vector<OpenLines> both{
        {QStringLiteral("cs_sprk"),
         QStringLiteral("select s.jh_sl as sl,s.jh_rksl as moved,s.jh_qxsl as closed from jxc_jhsp "
                        "s join jxc_jhd d on d.j_sn=s.j_sn where d.j_status=1 and "
                        "s.jh_sl>coalesce(s.jh_rksl,0)+coalesce(s.jh_qxsl,0)"),
         QStringLiteral("还有未入库的采购商品，不能关闭商品入库！")},
        {QStringLiteral("cs_spck"),
         QStringLiteral("select s.ls_sl as sl,s.ls_cksl as moved,s.ls_qxsl as closed from "
                        "jxc_lsxssp s join jxc_lsxsd d on d.gl_djh=s.gl_djh where d.ls_status=1 "
                        "and s.ls_sl>coalesce(s.ls_cksl,0)+coalesce(s.ls_qxsl,0)"),
         QStringLiteral("还有未出库的销售商品，不能关闭商品出库！")}};
    return both;
}

/// Separate goods-in (goods-out) cannot end while lines wait for it: nothing would ever take them
/// in. The engine only narrows down, since it adds in doubles.
void refuseOpenLines(Database &db, const TableChange &settings) {
    for (const OpenLines &lines : openLines()) {
        if (!settings.switchesOff(lines.setting))
            continue;
        const Rows rows = db.rows(lines.sql);
        if (std::any_of(rows.begin(), rows.end(), [](const Row &row) {
                return row.decimal(u"sl") > row.decimal(u"moved") + row.decimal(u"closed");
            }))
            throw FieldRefusal(lines.setting, lines.refusal);
    }
}

bool roundAlike(const Parameters &a, const Parameters &b) {
    return a.priceDecimals == b.priceDecimals && a.quantityDecimals == b.quantityDecimals &&
           a.amountDecimals == b.amountDecimals;
}

void rewalkIfNeeded(const Session &session, Answers &answers, const Parameters &before,
                    const RewalkProgress &progress) {
    const Parameters after = Parameters::load(session.db());
    if (roundAlike(before, after) ||
        !session.db().exists(QStringLiteral("select id from jxc_goodslist limit 1")))
        return;
    answers.require(QStringLiteral("您的操作将修改小数位数，并重新计算所有商品的成本，确认吗？"));
    rewalkEverything(session, after, progress);
}

} // namespace

Outcome saveParameters(Session &session, Prompter &prompter, const QHash<QString, QString> &changed,
                       const RewalkProgress &progress, QString *field) {
    Outcome outcome = runFieldAction(session.db(), prompter, field, [&](Answers &answers) {
        const Parameters before = Parameters::load(session.db());
        const auto stored = loadSystemParameters(session);
        TableChange company(session, QStringLiteral("jxc_company"), stored, changed);
        TableChange settings(session, QStringLiteral("jxc_xtcs"), stored, changed);
        company.check();
        settings.check();
        refuseOpenLines(session.db(), settings);
        const QStringList captions = company.captions() + settings.captions();
        if (captions.isEmpty())
            return;
        company.write();
        settings.write();
        rewalkIfNeeded(session, answers, before, progress);
        writeLog(session, QStringLiteral("修改系统设置：") + captions.join(u'，'));
    });
    if (outcome.isDone())
        loadGlobals(session);
    return outcome;
}

} // namespace jxc
