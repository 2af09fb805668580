#pragma once

#include <QStringView>

namespace jxc {

/// Whether the text is a resident's identity number: 17 figures with a possible date of birth, and
/// the check digit that belongs to them ("X" for ten, capital or small).
[[nodiscard]] bool isIdentityNumber(QStringView text);

} // namespace jxc
