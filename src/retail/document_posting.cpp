#include "retail/document_posting.h"

#include "core/session.h"
#include "db/database.h"
#include "retail/document_tenders.h"
#include "retail/member.h"
#include "retail/member_sale.h"
#include "retail/receipt_copy.h"
#include "stock/document.h"
#include "stock/document_kind.h"

namespace jxc {

namespace {

bool isReturn(const Document &d) {
    return d.kind.code == QLatin1String("XT");
}

QString memberOf(const Document &d) {
    return d.header.text(d.kind.memberColumn);
}

/// Moves what the document's own cash row booked on its account to where it is.
void moveDocumentTenders(Session &session, const Document &d) {
    OtherTenders t = tendersOf(d).other;
    if (isReturn(d))
        t = {-t.bankCard, -t.storedValue, -t.voucher, {}, {}};
    QString account = d.header.text(d.kind.prefix + QStringLiteral("_kmmc"));
    if (account.isEmpty())
        account = QStringLiteral("现金");
    moveTenders(session.db(),
                {account,
                 d.date,
                 d.number,
                 {},
                 {},
                 d.partner.number,
                 d.partnerName.value_or(QString()),
                 d.clerkName,
                 d.warehouseName.value_or(QString()),
                 d.note(),
                 d.header.text(u"a_name")},
                t);
}

class DocumentPosting : public DocumentMembers {
public:
    void check(const Session &session, const Document &d) const override {
        checkDocumentTenders(session, loadMember(session.db(), memberOf(d)), tendersOf(d),
                             isReturn(d));
    }

    void approved(Session &session, const Document &d) const override {
        Database &db = session.db();
        if (!hasReceipt(db, d.number)) {
            writeReceiptCopy(db, d);
            moveDocumentTenders(session, d);
        }
        PostMemberSale(session, d.number, memberOf(d),
                       isReturn(d) ? MemberMode::saleReturn : MemberMode::sale);
        if (isReturn(d))
            payBackOntoCard(db, d.number, memberOf(d));
    }

    void cancelling(Session &session, const Document &d) const override {
        if (!findMember(session.db(), memberOf(d)))
            return; // gone meanwhile: the document itself can still be taken back
        PostMemberSale(session, d.number, memberOf(d),
                       isReturn(d) ? MemberMode::undoReturn : MemberMode::undoSale);
    }
};

} // namespace

const DocumentMembers &documentPosting() {
    static const DocumentPosting posting;
    return posting;
}

} // namespace jxc
