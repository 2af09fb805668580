#include "db/errors.h"

namespace jxc {

NotOurDatabase::NotOurDatabase(const QString &where)
    : DatabaseError(QStringLiteral("数据库格式不可识别！\r\n\r\n系统将退出！"), where, {}) {}

TextTooLong::TextTooLong(const QString &caption, int limit)
    : DatabaseError(QStringLiteral("“%1”内容过长，最多%2个字！").arg(caption).arg(limit), {}, {}) {}

} // namespace jxc
