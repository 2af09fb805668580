#include "base/identity_number.h"

#include <QDate>

namespace jxc {

namespace {

int figure(QChar c) {
    return c >= u'0' && c <= u'9' ? c.unicode() - u'0' : -1;
}

} // namespace

bool isIdentityNumber(QStringView text) {
    if (text.size() != 18)
        return false;
    // The weight of a place is 2 to the power of its distance from the check digit, modulo 11; with
    // the check digit the weighted sum is 1 modulo 11.
    int sum = 0;
    int date = 0;
    for (qsizetype i = 0; i < 17; ++i) {
        const int f = figure(text[i]);
        if (f < 0)
            return false;
        sum += f * ((1 << (17 - i)) % 11);
        if (i >= 6 && i < 14)
            date = date * 10 + f;
    }
    if (!QDate::isValid(date / 10'000, date / 100 % 100, date % 100))
        return false;
    const int check = text[17] == u'X' || text[17] == u'x' ? 10 : figure(text[17]);
    return check >= 0 && (sum + check) % 11 == 1;
}

} // namespace jxc
