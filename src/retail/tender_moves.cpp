#include "retail/tender_moves.h"

#include "db/database.h"

namespace jxc {

namespace {

const QString weChatWord = QStringLiteral("微信");
const QString aliPayWord = QStringLiteral("支付宝");
const QString cashName = QStringLiteral("现金");

/// The accounts of the shop that money other than cash belongs to; empty names where there is none.
struct TenderAccounts {
    QString card, weChat, aliPay;
};

TenderAccounts tenderAccounts(Database &db) {
    TenderAccounts accounts;
    const auto take = [](QString &place, const QString &name) {
        if (place.isEmpty())
            place = name;
    };
    for (const Row &row : db.rows(QStringLiteral("select yh_name from jxc_yhzh order by id"))) {
        const QString name = row.text(size_t{0});
        if (name.contains(weChatWord))
            take(accounts.weChat, name);
        else if (name.contains(aliPayWord))
            take(accounts.aliPay, name);
        else if (name != cashName)
            take(accounts.card, name);
    }
    return accounts;
}

void move(Database &db, CashEntry entry, const QString &kind, Decimal amount,
          const QString &target) {
    if (amount.isZero() || target == entry.account)
        return;
    entry.kind = kind;
    entry.amount = -amount;
    addCashEntry(db, entry);
    entry.account = target;
    entry.amount = amount;
    addCashEntry(db, entry);
}

/// Stored value and vouchers were paid for earlier: they leave the account and come into none.
void leave(Database &db, CashEntry entry, const QString &kind, Decimal amount) {
    if (amount.isZero())
        return;
    entry.kind = kind;
    entry.amount = -amount;
    addCashEntry(db, entry);
}

} // namespace

void moveTenders(Database &db, const CashEntry &entry, const OtherTenders &tenders) {
    const TenderAccounts accounts = tenderAccounts(db);
    const auto orHere = [&](const QString &account) {
        return account.isEmpty() ? entry.account : account;
    };
    move(db, entry, QStringLiteral("POS银行卡"), tenders.bankCard, orHere(accounts.card));
    move(db, entry, QStringLiteral("POS微信"), tenders.weChat, orHere(accounts.weChat));
    move(db, entry, QStringLiteral("POS支付宝"), tenders.aliPay, orHere(accounts.aliPay));
    leave(db, entry, QStringLiteral("POS储值卡"), tenders.storedValue);
    leave(db, entry, QStringLiteral("POS代金券"), tenders.voucher);
}

} // namespace jxc
