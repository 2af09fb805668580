#pragma once

#include "base/pairs.h"

namespace jxc {

class Row;

/// A template with its placeholders ("{hyname}") replaced by what stands beside them. What is put
/// in is not looked through again, so that a name like "{zjf}" stays one.
[[nodiscard]] QString fillSmsTemplate(const QString &text, const QList<NameValue> &values);
/// The placeholders of every message and their values from a row of jxc_hyxx: {hyname} {hybh}
/// {hysr} {czkje} {zjf}; a recharge adds {czje} and {bcjf} of its own.
[[nodiscard]] QList<NameValue> smsPlaceholders(const Row &member);
/// The final text: the signature follows in its brackets.
[[nodiscard]] QString withSmsSign(const QString &text, const QString &sign);

/// What a new message starts from.
inline const QString smsGreeting = QStringLiteral("尊敬的{hyname}您好：");

} // namespace jxc
