#pragma once

#include "core/action.h"
#include "retail/counter_settings.h"

namespace jxc {

class Session;

/// What stands at the counter and how it is reached: jxc_poscs and jxc_poskx.
struct CounterDevices {
    QString weightPrefix, countPrefix; ///< of the scale's labels; empty: no such labels
    bool scaleCarriesAmount = false;   ///< pos_tmlx: a label's figure is fen
    bool opensDrawer = true;           ///< pos_dkqx: once paid
    bool drawerOnPort = false;         ///< pos_qxjk: by the port, not by the printer
    bool customerDisplay = false;      ///< pos_kxjk
    QString port;                      ///< pos_com: COM1, or a device of the system
    int amountDecimals = 2, priceDecimals = 2;

    friend bool operator==(const CounterDevices &, const CounterDevices &) = default;

    static CounterDevices load(Database &db);
};

/// Keeps devices and function keys together and logs it. Refused for a key given twice, for
/// prefixes that are no digits, and for a device on the port while no port is named.
Outcome saveCounterDevices(Session &session, Prompter &prompter, const CounterDevices &devices,
                           const std::vector<CounterKey> &keys);

} // namespace jxc
