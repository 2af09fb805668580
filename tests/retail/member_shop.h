#pragma once

#include "retail/member.h"
#include "support/shop.h"

namespace jxc::test {

/// A shop with a member: card "100001" of the key "100002", at the level that its points give.
class MemberShop : public Shop {
public:
    MemberShop();

    const QString member = QStringLiteral("100002");

    /// Settings of points and columns of the member as "jf_mfje=10 jf_yelj=1"; texts are bound.
    void settings(const QString &assignments) { change(QStringLiteral("jxc_jfsz"), assignments); }
    void alter(const QString &assignments) {
        change(QStringLiteral("jxc_hyxx"), assignments, QStringLiteral("hy_sn='100002'"));
    }
    /// Another member with a key and a card of this number.
    void addMember(const QString &number, const QString &name);
    /// A receipt in the counter's own tables with one line of the due amount.
    void addReceipt(const QString &number, const QString &day, Decimal due,
                    Decimal storedValue = {}, const QString &goods = QStringLiteral("G1"));

    /// Points, all points, spending, visits, stored value, remainder and level of the member.
    [[nodiscard]] QString figuresOf(const QString &key);
    [[nodiscard]] QString now() { return figuresOf(member); }
    /// Points, points after it and rebate of a receipt.
    [[nodiscard]] QString posted(const QString &receipt);

private:
    void change(const QString &table, const QString &assignments,
                const QString &where = QStringLiteral("1=1"));
};

} // namespace jxc::test
