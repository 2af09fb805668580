#pragma once

#include "core/action.h"
#include "stock/batches.h"

#include <functional>
#include <optional>
#include <vector>

namespace jxc {

class Session;

/// A line as it is typed.
struct DraftLine {
    QString goods;
    QString unit{};     ///< empty: the base unit
    Decimal factor = 1; ///< base units per unit
    Decimal quantity{};
    Decimal price{}; ///< with tax while prices include tax
    /// A factor. On purchases it goes into the price at saving (the journal takes the cost from the
    /// price alone), the note says so, and a stored line has 1 again.
    Decimal discount = 1;
    Batch batch{};  ///< an outbound line carries the key of the batch stock exactly
    QString note{}; ///< without the tie that returns store at its start
    QString gift{}; ///< "(赠品)": costs nothing, the goods' cost stays
    QString buyer{}, identityNo{}, mobile{}, use{}, address{},
        prescription{};               ///< of restricted goods
    QString barcode{};                ///< as scanned; empty: the goods' own
    std::optional<Decimal> taxRate{}; ///< percent; nothing: the shop's
    std::optional<Decimal> total{};   ///< a typed amount with tax and discount
    /// Of sales: the cost per unit, typed (xsgl 14) or as stored; nothing: the cost in force. To be
    /// taken away when goods, unit or warehouse change.
    std::optional<Decimal> cost{};
    /// What the line follows: the order of a receipt or sale, the receipt or sale that a return
    /// names, the receipt (sale) that goods-in (goods-out) takes from.
    QString sourceNumber{};
    qint64 sourceLine = 0; ///< its line: id3, of goods-in and goods-out id2; returns have none
    qint64 id = 0;         ///< of the stored line; every saving gives a new one
    qint64 closedLine = 0; ///< id2 of a return's line, carried
};

/// How a member pays, or is paid back, beside the document's account.
struct Tenders {
    int method = 0; ///< pos_zffs
    Decimal cash{}, storedValue{}, bankCard{}, voucher{};
};

/// A document of one of the six kinds as it is typed.
struct Draft {
    QString code;                            ///< CJ, CT, RK, XS, XT or CK
    QString date, partner, warehouse, clerk; ///< RK and CK take the partner from their source
    QString note{};
    std::vector<DraftLine> lines{}; ///< without the discount line
    std::optional<Decimal> paid{};  ///< nothing: all that is due
    bool restForgiven = false; ///< what is not paid is a discount, not a debt; never of returns
    QString account = QStringLiteral("现金");
    QString supplierNumber{}; ///< the supplier's own number of a receipt
    QString invoiceNo{};
    Decimal invoiced{}, freight{}, packing{};
    QString freightTerms{};
    bool laterInOut = false; ///< goods come or go by separate documents whatever the parameters say
    std::optional<Decimal> newTotal{}; ///< whole-document discount: what the lines shall come to
    QString contract{};                ///< ht_sn
    QString member{};                  ///< hy_sn
    QString reminderDate{};            ///< ls_ckrq, of a sale on account
    Tenders tenders{};

    QString number{};      ///< empty: new; saving draws it
    QString fingerprint{}; ///< of the stored state that this was loaded from
    /// Rung up at the counter, where rights and low discounts are asked for before: the saving does
    /// not ask for the right, lines may repeat and be as cheap as agreed, and what is taken off the
    /// whole is always a line of its own.
    bool atCounter = false;
    QString reservedNumber{}; ///< of a new one: a number that was drawn for it before
    bool approved = false;    ///< loaded for reading; cannot be saved
    Decimal due{};            ///< as stored, for reading
};

/// Checks a draft and stores it unapproved, header and lines in one transaction: a new one gets its
/// number, a stored one is replaced unless another operator changed or approved it since it was
/// loaded. Refusals name the first thing that is missing or wrong; then come the questions. Once
/// done, `draft` has its number and fingerprint; loadDraft() shows what a whole-document discount
/// made of the lines.
Outcome saveDraft(Session &session, Prompter &prompter, Draft &draft);

/// The same for a new draft that is not looked at again. `number` gets the number.
Outcome saveDraft(Session &session, Prompter &prompter, const Draft &draft, QString *number);

/// How saving and approving at once ended.
struct SavedAndApproved {
    Outcome saved;
    Outcome approved; ///< as `saved` when nothing could be saved
};

/// Saves and approves in one transaction. What is typed is never lost to an approval that cannot
/// be: when the draft is right but its approval is refused, declined or fails, the draft alone is
/// stored, and no question is asked twice.
SavedAndApproved saveAndApproveDraft(Session &session, Prompter &prompter, Draft &draft);

/// The saving inside a transaction that is open.
void saveDraftInTransaction(Session &session, Answers &answers, Draft &draft);

/// A stored document as it can be typed on, approved ones for reading; nothing when there is none.
[[nodiscard]] std::optional<Draft> loadDraft(Session &session, const QString &number);

/// A new draft of today with the lines of a stored document, without its sources, payments and
/// numbers; to be saved like any other. Nothing for an unknown number and for goods-in and
/// goods-out, which are nothing without their sources.
[[nodiscard]] std::optional<Draft> copyDraft(Session &session, const QString &number);

/// Deletes a draft after asking; refused without the right and for an approved one.
Outcome deleteDraft(Session &session, Prompter &prompter, const QString &number);

/// Takes the costs of an unapproved sale anew (重取成本), typed ones as well.
Outcome refreshDraftCosts(Session &session, Prompter &prompter, const QString &number);

/// How the approval of one document of several ended.
struct ApprovedNumber {
    QString number;
    Outcome outcome;
};

/// Approves the documents one by one, each wholly or not at all, after asking once; empty when the
/// user says No. `progress` hears how many are done and stops the rest with false.
std::vector<ApprovedNumber> approveAll(Session &session, Prompter &prompter,
                                       const QStringList &numbers,
                                       const std::function<bool(qsizetype done)> &progress = {});

} // namespace jxc
