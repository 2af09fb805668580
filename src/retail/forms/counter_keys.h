#pragma once

#include "retail/counter_settings.h"

class QKeyEvent;

namespace jxc {

/// The key that a virtual-key code of jxc_gnb stands for; 0 for one that no keyboard of ours has.
[[nodiscard]] int keyOfVirtualKey(int virtualKey);
/// The virtual-key code of a key; 0 for one that has none.
[[nodiscard]] int virtualKeyOf(int key);
/// As the hints name it: "F7", "=", "Page Down".
[[nodiscard]] QString nameOfVirtualKey(int virtualKey);
/// The function that a key was given; empty for none.
[[nodiscard]] QString functionOfKey(const CounterSettings &settings, const QKeyEvent &key);

} // namespace jxc
