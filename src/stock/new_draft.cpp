#include "stock/new_draft.h"

#include "core/employees.h"
#include "core/session.h"
#include "db/database.h"
#include "stock/document_kind.h"

namespace jxc {

Draft newDraft(const Session &session, const QString &code) {
    const DocumentKind *kind = findDocumentKind(code);
    Draft draft;
    draft.code = code;
    draft.date = session.today();
    // Goods-in and goods-out take the partner from their source.
    if (kind->payments != nullptr)
        draft.partner =
            kind->partnerKind == Partner::Kind::customer
                ? session.db().scalar(QStringLiteral(
                      "select kh_sn from jxc_khxx where kh_default=1 and kh_forbid=0 order by id"))
                : session.db().scalar(QStringLiteral("select ghs_sn from jxc_ghsxx where "
                                                     "ghs_default=1 and ghs_forbid=0 order by id"));
    draft.warehouse = session.db().scalar(
        QStringLiteral("select ck_sn from jxc_ckxx where ck_default=1 order by id"));
    if (const auto clerk = defaultEmployee(session))
        draft.clerk = clerk->number;
    return draft;
}

} // namespace jxc
