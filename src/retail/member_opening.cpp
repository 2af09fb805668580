#include "retail/member_opening.h"

#include "core/session.h"
#include "master/master_kind.h"
#include "master/record.h"

namespace jxc {

Outcome openMember(Session &session, Prompter &prompter, Record &record, const Recharge &first,
                   QString *field, RechargeReceipt *receipt) {
    const MasterKind &kind = masterKind(u"jxc_hyxx");
    Record saved;
    Outcome outcome = runFieldAction(session.db(), prompter, field, [&](Answers &) {
        saved = record; // the action may run more than once
        *receipt = {};
        saveRecordInTransaction(session, kind, saved);
        if (first.amount.isZero())
            return;
        Recharge recharge = first;
        recharge.member = saved.text(kind.codeColumn);
        *receipt = rechargeInTransaction(session, recharge, openingRechargeKind);
    });
    if (outcome.isDone())
        record = saved;
    return outcome;
}

} // namespace jxc
