#pragma once

#include "model/memory_table.h"

#include <QStringList>
#include <functional>

namespace jxc::test {

/// The parameters that the books depend on.
struct ReferenceSettings {
    int priceDecimals = 2, quantityDecimals = 2, amountDecimals = 2;
    bool costStaysOffStock = false;
    bool shortageAsks = true;
    bool keepsInvoices = true;
    bool refusesShortAccount = false;
};

/// What an action should answer: the questions it asks on its way, and its refusal, empty when it
/// is done.
struct Verdict {
    QStringList questions;
    QString refusal;
};

/// The books as the rules state them, kept in plain tables in memory, slow and without a thought
/// for speed. It shares nothing with the program but the exact decimal, so a fault of one does not
/// hide in the other. Every question is answered Yes.
class ReferenceBooks {
public:
    ReferenceSettings settings;
    QString operatorName, today;

    [[nodiscard]] MemoryTable &table(const QString &name) { return m_tables[name]; }

    Verdict approve(const QString &number);
    Verdict cancel(const QString &number);
    /// Closes what was not taken in or issued; the return gets this number.
    Verdict closeRest(const QString &number, const QString &returnNumber);
    Verdict approveSettlement(const QString &number);
    Verdict cancelSettlement(const QString &number);

    /// What an outbound line is charged per base unit when it is entered.
    [[nodiscard]] Decimal costForEntry(const QString &warehouse, const QString &goods,
                                       const QString &date);
    /// The cost in force on a date.
    [[nodiscard]] Decimal costAt(const QString &warehouse, const QString &goods,
                                 const QString &date);

private:
    struct Names;
    struct Refused {
        QString text;
    };
    static const Names *namesOf(const QString &number);
    Verdict run(const std::function<void(QStringList &questions)> &action);

    // reference.cpp: documents and what refuses them
    void post(const Names &names, const QString &number);
    void unpost(const Names &names, const QString &number);
    void checkLimit(const QString &number);
    void checkOpen(const Names &names, const QString &number);
    void checkShortage(const Names &names, const QString &number, QStringList &questions);
    void checkFollowers(const Names &names, const QString &number);

    // reference_stock.cpp
    void writeReturn(const Names &source, const QString &number, const QString &returnNumber,
                     const std::vector<Record *> &lines);
    [[nodiscard]] Cells journalRow(const Names &names, const Record &header, const Record &line);
    [[nodiscard]] bool isPhysical(const Names &names, const Record &journalRow);
    void moveStock(const Names &names, const std::vector<Record> &rows, int direction);
    void moveAgainstSource(const Names &names, const QString &number, int direction);
    void refreshGoodsCost(const Record &row);
    void changeBatch(const QString &goods, const QString &warehouse, const Record &of,
                     Decimal quantity);
    void updateMonth(const QString &month);

    // reference_walk.cpp
    void walk(const QString &goods, const QString &warehouse, const QString &date,
              const QString &flag);
    [[nodiscard]] std::vector<Record *> journalOf(const QString &goods, const QString &warehouse);

    // reference_money.cpp
    void postMoney(const Names &names, const Record &header);
    void postFees(const Names &names, const Record &header);
    void removeMoney(const Names &names, const QString &number);
    void addCash(Cells row);
    void addPartnerRow(Cells row);
    void balanceAccount(const QString &account);
    void balancePartner(const QString &type, const QString &partner);
    void balanceInvoices(const QString &type, const QString &partner);
    void checkParts(const Record &document);
    void settle(const QString &number, int direction);

    std::map<QString, MemoryTable> m_tables;
};

/// How a kind of document calls its tables and columns.
struct ReferenceBooks::Names {
    QString code, title;
    QString header, lines, number, date, status; ///< status: prefix of the approval triple
    QString line;                                ///< prefix of the line's figures
    QString partner, partnerType;
    QString done, cancelled; ///< of lines that are taken in or issued; of the source for RK, CK
    QString shortage;

    [[nodiscard]] QString ofHeader(const char16_t *column) const {
        return status + QString::fromUtf16(column);
    }
    [[nodiscard]] QString ofLine(const char16_t *column) const {
        return line + QString::fromUtf16(column);
    }
    [[nodiscard]] bool isReturn() const { return code == u"CT" || code == u"XT"; }
    [[nodiscard]] bool isSales() const { return code == u"XS" || code == u"XT"; }
    [[nodiscard]] bool isAgainstSource() const { return code == u"RK" || code == u"CK"; }
};

} // namespace jxc::test
