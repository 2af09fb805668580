#include "services/verify_money.h"

#include "services/verify_payments.h"

namespace jxc::verify {

namespace {

const QString ledgerTable = QStringLiteral("jxc_ysyfk");
const QString cashTable = QStringLiteral("jxc_xjyh");
const QString feeTable = QStringLiteral("jxc_yyfy");
const QString invoiceTable = QStringLiteral("jxc_fpdjb");

QString firstOf(QStringList checks) {
    checks.removeAll(QString());
    return checks.value(0);
}

/// A document that is approved, and what it books.
struct Due {
    QString date;
    DuePayment payment;
};

/// The approved documents of a page by number.
using DueByNumber = std::map<QString, Due>;
using RowsByNumber = std::map<QString, std::vector<const Row *>>;

RowsByNumber byNumber(const Rows &rows) {
    RowsByNumber groups;
    for (const Row &row : rows)
        groups[row.text(u"number")].push_back(&row);
    return groups;
}

class PaymentCheck {
public:
    PaymentCheck(Database &db, const QSet<QString> &beforeBooks, Findings &findings)
        : m_db(db)
        , m_beforeBooks(beforeBooks)
        , m_findings(findings) {}

    void run() {
        for (const PayingKind &kind : payingKinds())
            eachHeaderPage(m_db, kind.table, kind.code,
                           [&](const Headers &headers, const NumberRange &range) {
                               checkPage(kind, headers, range);
                           });
        checkFees();
    }

private:
    void checkPage(const PayingKind &kind, const Headers &headers, const NumberRange &range) {
        DueByNumber due;
        for (const auto &[number, header] : headers)
            if (header.flag(u"status") && !m_beforeBooks.contains(number)) {
                const DuePayment payment = kind.payment(header);
                due[number] = {header.text(u"posted"), payment};
                expectFees(kind, number, due[number]);
            }
        if (kind.inLedger) {
            checkLedger(due, range);
            checkInvoices(due, range);
        }
        checkCash(due, range);
    }

    Rows rowsOf(const QString &columns, const QString &table, const NumberRange &range) {
        return m_db.rows(QStringLiteral("select id,gl_djh as number,%1 from %2 where %3 order by "
                                        "gl_djh,id")
                             .arg(columns, table, NumberRange::condition(QStringLiteral("gl_djh"))),
                         range.values());
    }

    void checkLedger(const DueByNumber &due, const NumberRange &range) {
        const Rows rows = rowsOf(QStringLiteral("k_type,k_ghskh,k_rq,k_qcje,k_yfje,k_sfje,k_djlx"),
                                 ledgerTable, range);
        RowsByNumber found;
        for (const Row &row : rows)
            if (!isOpeningRow(row))
                found[row.text(u"number")].push_back(&row);
        for (const auto &[number, document] : due) {
            const auto own = found.find(number);
            const DuePayment &p = document.payment;
            if (own == found.end()) {
                m_findings.add(ledgerTable, partnerText(p.type, p.partner),
                               QStringLiteral("%1：已审核单据 %2（%3）缺少往来帐记录，应有应付应收 "
                                              "%4，已付已收 %5")
                                   .arg(partnerText(p.type, p.partner), number, document.date,
                                        p.due.toText(), p.settled.toText()),
                               {document.date, 0});
                continue;
            }
            const Row &row = *own->second.front();
            const QString wrong = firstOf(
                {compared(QStringLiteral("往来单位"),
                          partnerText(row.text(u"k_type"), row.text(u"k_ghskh")),
                          partnerText(p.type, p.partner)),
                 compared(QStringLiteral("日期"), row.text(u"k_rq"), document.date),
                 compared(QStringLiteral("期初金额"), row.decimal(u"k_qcje"), p.opening),
                 compared(QStringLiteral("应付应收金额"), row.decimal(u"k_yfje"), p.due),
                 compared(QStringLiteral("已付已收金额"), row.decimal(u"k_sfje"), p.settled)});
            if (!wrong.isEmpty())
                reportLedger(row, QStringLiteral("单据 %1 的%2").arg(number, wrong));
            else if (own->second.size() > 1)
                reportLedger(*own->second[1],
                             QStringLiteral("单据 %1 的往来帐记录重复").arg(number));
        }
        for (const auto &[number, own] : found)
            if (!due.contains(number) && !m_beforeBooks.contains(number))
                reportLedger(
                    *own.front(),
                    QStringLiteral("单据 %1 不存在或没有审核，不应有往来帐记录").arg(number));
    }

    void reportLedger(const Row &row, const QString &text) {
        const QString partner = partnerText(row.text(u"k_type"), row.text(u"k_ghskh"));
        m_findings.add(ledgerTable, partner,
                       QStringLiteral("%1：往来帐 %2（%3），%4")
                           .arg(partner)
                           .arg(row.integer(u"id"))
                           .arg(row.text(u"k_rq"), text),
                       {row.text(u"k_rq"), row.integer(u"id")});
    }

    void checkCash(const DueByNumber &due, const NumberRange &range) {
        const Rows rows =
            rowsOf(QStringLiteral("xj_rq,xj_dlx,xj_je,xj_chk,xj_kmmc"), cashTable, range);
        RowsByNumber found;
        for (const Row &row : rows)
            // The counter moves what was not paid in cash to its account under the sale's number.
            if (!row.text(u"xj_dlx").startsWith(QLatin1String("POS")))
                found[row.text(u"number")].push_back(&row);
        for (const auto &[number, document] : due) {
            const auto own = found.find(number);
            const size_t count = own == found.end() ? 0 : own->second.size();
            const DuePayment &p = document.payment;
            const bool demanded = !p.cash.isZero();
            if (demanded && count == 0)
                m_findings.add(
                    cashTable, accountText(p.account),
                    QStringLiteral("%1：已审核单据 %2（%3）缺少现金银行记录，应有 %4")
                        .arg(accountText(p.account), number, document.date, p.cash.toText()),
                    {document.date, 0});
            else if (demanded)
                checkCashRow(*own->second.front(), QStringLiteral("单据 %1").arg(number),
                             document.date, p.account, p.cash);
            if (count > (demanded ? 1U : 0U))
                reportCash(*own->second.back(),
                           QStringLiteral("单据 %1 没有这一笔，现金银行记录多出").arg(number));
        }
        for (const auto &[number, own] : found)
            if (!due.contains(number) && !m_beforeBooks.contains(number))
                reportCash(
                    *own.front(),
                    QStringLiteral("单据 %1 不存在或没有审核，不应有现金银行记录").arg(number));
    }

    void checkCashRow(const Row &row, const QString &document, const QString &date,
                      const QString &account, Decimal amount) {
        const QString wrong =
            firstOf({compared(QStringLiteral("账户"), row.text(u"xj_kmmc"), account),
                     compared(QStringLiteral("日期"), row.text(u"xj_rq"), date),
                     compared(QStringLiteral("审核标志"), row.text(u"xj_chk"), QStringLiteral("1")),
                     compared(QStringLiteral("发生金额"), row.decimal(u"xj_je"), amount)});
        if (!wrong.isEmpty())
            reportCash(row, QStringLiteral("%1的%2").arg(document, wrong));
    }

    void reportCash(const Row &row, const QString &text) {
        const QString account = accountText(row.text(u"xj_kmmc"));
        m_findings.add(cashTable, account,
                       QStringLiteral("%1：现金银行 %2（%3），%4")
                           .arg(account)
                           .arg(row.integer(u"id"))
                           .arg(row.text(u"xj_rq"), text),
                       {row.text(u"xj_rq"), row.integer(u"id")});
    }

    /// Whether the register is kept is a parameter, so a row is not demanded; one that is there
    /// must be right.
    void checkInvoices(const DueByNumber &due, const NumberRange &range) {
        const Rows rows =
            rowsOf(QStringLiteral("fp_type,fp_ghskh,fp_rq,fp_yfje,fp_kpje"), invoiceTable, range);
        for (const auto &[number, own] : byNumber(rows)) {
            const Row &row = *own.front();
            const auto document = due.find(number);
            QString wrong;
            if (document == due.end()) {
                if (!m_beforeBooks.contains(number))
                    wrong = QStringLiteral("不存在或没有审核，不应有发票登记");
            } else {
                const DuePayment &p = document->second.payment;
                wrong = firstOf(
                    {compared(QStringLiteral("往来单位"),
                              partnerText(row.text(u"fp_type"), row.text(u"fp_ghskh")),
                              partnerText(p.type, p.partner)),
                     compared(QStringLiteral("日期"), row.text(u"fp_rq"), document->second.date),
                     compared(QStringLiteral("应开票金额"), row.decimal(u"fp_yfje"), p.due),
                     compared(QStringLiteral("已开票金额"), row.decimal(u"fp_kpje"), p.invoiced),
                     own.size() > 1 ? QStringLiteral("发票登记重复") : QString()});
            }
            if (!wrong.isEmpty())
                m_findings.add(invoiceTable, number,
                               QStringLiteral("发票登记 %1：单据 %2 %3")
                                   .arg(row.integer(u"id"))
                                   .arg(number, wrong));
        }
    }

    /// A fee of a document; its rows bear no number, only the note that names the document.
    struct Fee {
        QString kind, date;
        Decimal amount;
        int expenses = 0, payments = 0;
    };

    void expectFees(const PayingKind &kind, const QString &number, const Due &document) {
        const auto expect = [&](const QString &fee, Decimal amount) {
            if (!amount.isZero())
                m_fees[noteOf(kind.feeDocument, number, fee)] = {fee, document.date, amount};
        };
        expect(QStringLiteral("运费"), document.payment.freight);
        expect(QStringLiteral("包装费"), document.payment.packing);
    }

    static QString noteOf(const QString &document, const QString &number, const QString &fee) {
        return document + number + QStringLiteral("产生的") + fee;
    }

    /// Whether a note has exactly the form that the approval of a document gives it. A clerk's own
    /// note is left alone.
    [[nodiscard]] bool isDocumentsNote(const QString &note) const {
        for (const PayingKind &kind : payingKinds()) {
            if (kind.feeDocument.isEmpty() || !note.startsWith(kind.feeDocument + kind.code))
                continue;
            const QString number =
                note.section(QStringLiteral("产生的"), 0, 0).mid(kind.feeDocument.size());
            for (const QString &fee : {QStringLiteral("运费"), QStringLiteral("包装费")})
                if (note == noteOf(kind.feeDocument, number, fee))
                    return !m_beforeBooks.contains(number);
        }
        return false;
    }

    void checkFees() {
        eachRow(m_db,
                {.select = QStringLiteral("id,fy_rq,fy_lx,fy_je,fy_note"),
                 .from = feeTable,
                 .where = QStringLiteral("fy_lx in ('运费','包装费')"),
                 .keys = {QStringLiteral("id")}},
                [this](const Row &row) { takeExpense(row); });
        eachRow(m_db,
                {.select = QStringLiteral("id,xj_rq,xj_je,xj_chk,xj_kmmc,xj_note"),
                 .from = cashTable,
                 .where = QStringLiteral("xj_dlx='费用付款' and coalesce(gl_djh,'')=''"),
                 .keys = {QStringLiteral("id")}},
                [this](const Row &row) { takeFeePayment(row); });
        for (const auto &[note, fee] : m_fees) {
            if (fee.expenses != 1)
                m_findings.add(feeTable, note,
                               QStringLiteral("%1（%2，%3）的费用记录有 %4 笔，应有 1 笔")
                                   .arg(note, fee.date, fee.amount.toText())
                                   .arg(fee.expenses));
            if (fee.payments != 1)
                m_findings.add(cashTable, accountText(QStringLiteral("现金")),
                               QStringLiteral("账户 现金：%1（%2，%3）的付款有 %4 笔，应有 1 笔")
                                   .arg(note, fee.date, fee.amount.toText())
                                   .arg(fee.payments),
                               {fee.date, 0});
        }
    }

    void takeExpense(const Row &row) {
        const QString note = row.text(u"fy_note");
        const auto fee = m_fees.find(note);
        QString wrong;
        if (fee != m_fees.end()) {
            ++fee->second.expenses;
            wrong = firstOf(
                {compared(QStringLiteral("费用类型"), row.text(u"fy_lx"), fee->second.kind),
                 compared(QStringLiteral("日期"), row.text(u"fy_rq"), fee->second.date),
                 compared(QStringLiteral("金额"), row.decimal(u"fy_je"), fee->second.amount)});
        } else if (isDocumentsNote(note)) {
            wrong = QStringLiteral("没有对应的已审核单据");
        }
        if (!wrong.isEmpty())
            m_findings.add(
                feeTable, note,
                QStringLiteral("费用 %1（%2）：%3").arg(row.integer(u"id")).arg(note, wrong));
    }

    void takeFeePayment(const Row &row) {
        const QString note = row.text(u"xj_note");
        const auto fee = m_fees.find(note);
        if (fee != m_fees.end()) {
            ++fee->second.payments;
            checkCashRow(row, note, fee->second.date, QStringLiteral("现金"), -fee->second.amount);
        } else if (isDocumentsNote(note)) {
            reportCash(row, QStringLiteral("“%1”没有对应的已审核单据").arg(note));
        }
    }

    Database &m_db;
    const QSet<QString> &m_beforeBooks;
    Findings &m_findings;
    std::map<QString, Fee> m_fees; // by note
};

} // namespace

void checkMoneyAgainstDocuments(Database &db, const QSet<QString> &beforeBooks,
                                Findings &findings) {
    PaymentCheck(db, beforeBooks, findings).run();
}

} // namespace jxc::verify
