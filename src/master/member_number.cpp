#include "master/member_number.h"

#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

bool isPlainNumber(const QString &text) {
    return text.size() == 6 &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

} // namespace

QString NextMemberNumber(Database &db) {
    // Six characters begin with a digit or not; of those that do, the last plain number is the
    // largest. The few others behind it are passed over.
    QString below = QStringLiteral(":"); // follows "9"
    for (;;) {
        const QString number = db.scalar(QStringLiteral("select max(hy_bh) from jxc_hyxx where "
                                                        "length(hy_bh)=6 and hy_bh<?"),
                                         {below});
        if (number.isEmpty())
            return QStringLiteral("100001");
        if (isPlainNumber(number))
            return QString::number(number.toInt() + 1);
        below = number;
    }
}

} // namespace jxc
