#pragma once

#include "master/record.h"
#include "money/partner_ledger.h"

namespace jxc {

struct MasterKind;

// Suppliers and customers are master data whose opening balance stands in the ledger: these take
// the place of loadRecord and saveRecord for jxc_ghsxx and jxc_khxx.

/// Whether the opening balance may still be typed: nothing but the opening row itself stands in the
/// partner's ledger.
[[nodiscard]] bool openingIsOpen(Database &db, const Partner &partner);

/// As loadRecord; 期初应付 or 期初应收 is what the ledger opened with.
[[nodiscard]] std::optional<Record> loadPartner(const Session &session, const MasterKind &kind,
                                                qint64 id);

/// As saveRecord; a changed opening balance replaces the ledger's opening row, dated the day on
/// which one was first entered. Refused once there is business.
Outcome savePartner(Session &session, Prompter &prompter, const MasterKind &kind, Record &record,
                    QString *field = nullptr);
void savePartnerInTransaction(Session &session, const MasterKind &kind, Record &record);

} // namespace jxc
