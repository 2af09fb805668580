#pragma once

#include <QString>

namespace jxc {

class Database;
class Prompter;
class Session;
struct Outcome;

/// The account at the provider of short messages and the texts that the program sends by itself
/// (jxc_smscs).
struct SmsSettings {
    QString sign, user, password;
    QString rechargeNote; ///< template of the notice after a recharge
    QString purchaseNote; ///< template of the notice after a purchase

    [[nodiscard]] bool isComplete() const { return !user.isEmpty() && !password.isEmpty(); }
    friend bool operator==(const SmsSettings &, const SmsSettings &) = default;
};

/// Empty ones while nothing is defined.
[[nodiscard]] SmsSettings loadSmsSettings(Database &db);
/// Replaces the one row; logged without what is in it.
Outcome saveSmsSettings(Session &session, Prompter &prompter, const SmsSettings &settings);

/// The switch of the system settings (cs_sms).
[[nodiscard]] bool isSmsOn(Database &db);

} // namespace jxc
