#pragma once

#include "base/decimal.h"

#include <QString>
#include <vector>

namespace jxc {

class Session;

/// The customer that a receipt is written for when nobody gives a name.
inline const QString walkInCustomer = QStringLiteral("100001");

/// A function of the counter and the key that it was given (jxc_gnb).
struct CounterKey {
    QString function; ///< "付款结账"
    int virtualKey = 0;
};

/// How the counter works: jxc_poscs, the switches of jxc_xtcs that begin with cs_pos, the drawer's
/// port and the keys. Read when the window opens and again inside every posting.
struct CounterSettings {
    int amountDecimals = 2; ///< pos_jews, of a line
    int priceDecimals = 2;  ///< pos_djws
    int dueDecimals = 2;    ///< cs_posfkws, of the whole receipt

    // Labels of the scale: prefix, five digits of goods, five of figure, check digit
    QString weightPrefix, countPrefix;
    bool scaleCarriesAmount = false; ///< pos_tmlx: the figure is fen, not grams or pieces

    bool pricesEditable = false; ///< cs_posdj: without asking a second operator
    bool listsMatches = true;    ///< cs_posblur
    bool onlyTodaysHeld = true;  ///< cs_poshooktoday
    bool memberRequired = false; ///< cs_possk
    bool chargesWallets = false; ///< cs_wxzf: through the payment gateway
    Decimal lowestDiscount;      ///< cs_zdzk, 0 for any
    Decimal mostRounding;        ///< a_zreoje of the operator, 0 for any

    bool opensDrawer = false;     ///< pos_dkqx, once paid
    bool drawerOnPort = false;    ///< pos_qxjk: by the port, not by the printer
    bool customerDisplay = false; ///< pos_kxjk
    QString port;                 ///< pos_com

    QString warehouse; ///< ck_pos, else the default one
    std::vector<CounterKey> keys;

    static CounterSettings load(const Session &session);
};

} // namespace jxc
