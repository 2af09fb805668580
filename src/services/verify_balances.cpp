#include "services/verify_balances.h"

#include "services/verify_payments.h"

#include <array>

namespace jxc::verify {

namespace {

const QString ledgerTable = QStringLiteral("jxc_ysyfk");
const QString cashTable = QStringLiteral("jxc_xjyh");

/// A partner's own figure.
struct Master {
    QString type, table, number, balance;
};

class BalanceCheck {
public:
    BalanceCheck(Database &db, Findings &findings)
        : m_db(db)
        , m_findings(findings) {}

    void run() {
        checkPartners();
        checkAccounts();
    }

private:
    void checkPartners() {
        std::map<std::pair<QString, QString>, Decimal> last; // by type and partner
        std::pair<QString, QString> current;
        bool broken = false;
        eachRow(m_db,
                {.select = QStringLiteral("k_type,k_ghskh,k_rq,id,gl_djh as number,k_qcje,k_yfje,"
                                          "k_sfje,k_ljje,k_djlx"),
                 .from = ledgerTable,
                 .keys = {QStringLiteral("k_type"), QStringLiteral("k_ghskh"),
                          QStringLiteral("k_rq"), QStringLiteral("id")}},
                [&](const Row &row) {
                    const std::pair<QString, QString> partner{row.text(u"k_type"),
                                                              row.text(u"k_ghskh")};
                    if (last.empty() || partner != current)
                        broken = false;
                    current = partner;
                    Decimal &balance = last[partner];
                    balance +=
                        row.decimal(u"k_qcje") + row.decimal(u"k_yfje") - row.decimal(u"k_sfje");
                    checkOrigin(row);
                    const QString wrong =
                        compared(QStringLiteral("余额"), row.decimal(u"k_ljje"), balance);
                    if (!wrong.isEmpty() && !std::exchange(broken, true))
                        report(ledgerTable, partnerText(partner.first, partner.second),
                               QStringLiteral("往来帐"), row, row.text(u"k_rq"),
                               QStringLiteral("单据“%1”之后的%2").arg(row.text(u"number"), wrong));
                });
        checkMasters(last);
    }

    /// Rows whose number no document of the ledger can have.
    void checkOrigin(const Row &row) {
        const QString number = row.text(u"number");
        for (const PayingKind &kind : payingKinds())
            if (kind.inLedger && number.startsWith(kind.code))
                return;
        if (!isOpeningRow(row))
            report(ledgerTable, partnerText(row.text(u"k_type"), row.text(u"k_ghskh")),
                   QStringLiteral("往来帐"), row, row.text(u"k_rq"),
                   QStringLiteral("单据“%1”不存在，不应有往来帐记录").arg(number));
    }

    /// A partner without rows keeps the opening figure that was typed.
    void checkMasters(const std::map<std::pair<QString, QString>, Decimal> &last) {
        static const std::array<Master, 2> masters = {
            {{QStringLiteral("kh"), QStringLiteral("jxc_khxx"), QStringLiteral("kh_sn"),
              QStringLiteral("kh_lwje")},
             {QStringLiteral("ghs"), QStringLiteral("jxc_ghsxx"), QStringLiteral("ghs_sn"),
              QStringLiteral("ghs_lwje")}}};
        for (const Master &master : masters)
            for (const Row &row :
                 m_db.rows(QStringLiteral("select %1 as number,%2 as balance from %3 order by id")
                               .arg(master.number, master.balance, master.table))) {
                const QString number = row.text(u"number");
                const auto due = last.find({master.type, number});
                if (due == last.end())
                    continue;
                const QString wrong =
                    compared(QStringLiteral("往来余额"), row.decimal(u"balance"), due->second);
                const QString partner = partnerText(master.type, number);
                if (!wrong.isEmpty())
                    m_findings.add(master.table, partner,
                                   QStringLiteral("%1：资料中的%2").arg(partner, wrong));
            }
    }

    void checkAccounts() {
        std::map<QString, Decimal> balances;
        QString current;
        bool broken = false;
        eachRow(
            m_db,
            {.select = QStringLiteral("xj_kmmc,xj_rq,id,gl_djh,xj_je,xj_ljje"),
             .from = cashTable,
             .where = QStringLiteral("xj_chk='1'"),
             .keys = {QStringLiteral("xj_kmmc"), QStringLiteral("xj_rq"), QStringLiteral("id")}},
            [&](const Row &row) {
                const QString account = row.text(u"xj_kmmc");
                if (account != current)
                    broken = false;
                current = account;
                Decimal &balance = balances[account];
                balance += row.decimal(u"xj_je");
                const QString wrong =
                    compared(QStringLiteral("余额"), row.decimal(u"xj_ljje"), balance);
                if (!wrong.isEmpty() && !std::exchange(broken, true))
                    report(cashTable, accountText(account), QStringLiteral("现金银行"), row,
                           row.text(u"xj_rq"),
                           QStringLiteral("单据“%1”之后的%2").arg(row.text(u"gl_djh"), wrong));
            });
    }

    void report(const QString &table, const QString &key, const QString &title, const Row &row,
                const QString &date, const QString &text) {
        m_findings.add(table, key,
                       QStringLiteral("%1：%2 %3（%4），%5")
                           .arg(key, title)
                           .arg(row.integer(u"id"))
                           .arg(date, text),
                       {date, row.integer(u"id")});
    }

    Database &m_db;
    Findings &m_findings;
};

} // namespace

void checkBalances(Database &db, Findings &findings) {
    BalanceCheck(db, findings).run();
}

} // namespace jxc::verify
