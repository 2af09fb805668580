#pragma once

#include "db/row.h"

#include <QStringList>

namespace jxc {

class Session;

enum class DocumentState { any, draft, approved };

/// What narrows a list of documents; empty texts do not.
struct DocumentQuery {
    QStringList codes{};   ///< as findDocumentSource; empty: all kinds
    QString from{}, to{};  ///< "yyyy-MM-dd", both included
    QString partnerType{}; ///< "ghs" or "kh", whose number is `partner`
    QString partner{};
    QString warehouse{}; ///< of a transfer: either one
    QString clerk{};     ///< number of the employee
    DocumentState state = DocumentState::any;
    QString search{}; ///< a part of number or note
    QString goods{};  ///< documents that hold this goods
    QString batch{};  ///< and, or, this batch number
};

/// 单据查询: the documents of several kinds, newest first, by one statement. Fields: code title id
/// number rq partner_type partner_sn partner_name ck_sn ck_name (of a transfer "out→in") amount
/// u_name a_name state (0, 1) state_text (未审核, 已审核) checker note. Amounts stand as on the
/// document; slips of goods in and out have none. A transfer is seen by whoever sees one of its
/// warehouses.
[[nodiscard]] Rows findDocuments(const Session &session, const DocumentQuery &filter);

/// The lines of a document, in their order: id, the fields that name a goods (dw_name the line's
/// unit), sl, dj, zje, bz, t_ph, t_scrq, t_yxq. Slips have no dj and zje (0).
[[nodiscard]] Rows documentLines(const Session &session, const QString &code,
                                 const QString &number);

} // namespace jxc
