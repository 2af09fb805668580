#pragma once

#include <QList>
#include <QString>
#include <utility>

namespace jxc {

/// A name and its value; lists keep the order they are given in.
using NameValue = std::pair<QString, QString>;

/// 32 random letters and digits, the once-only text of a payment request.
[[nodiscard]] QString randomToken32();

/// "name=value&name=value", the values as they are.
[[nodiscard]] QString joinQueryPairs(const QList<NameValue> &pairs);

/// "<xml> <name><![CDATA[value]]></name>…</xml>"
[[nodiscard]] QString buildXmlPairs(const QList<NameValue> &pairs);

} // namespace jxc
