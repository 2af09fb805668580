#include "stock/draft_context.h"

#include <QCryptographicHash>

namespace jxc {

namespace {

void addTo(QCryptographicHash &hash, const Row &row) {
    for (size_t i = 0; i < row.columns().names().size(); ++i) {
        hash.addData(row.text(i).toUtf8());
        hash.addData(QByteArrayView("\x1f"));
    }
    hash.addData(QByteArrayView("\x1e"));
}

} // namespace

std::optional<StoredState> readStoredState(Database &db, const DocumentKind &kind,
                                           const QString &number) {
    // Should a number stand on two rows, the approved one is the document.
    auto header = db.row(QStringLiteral("select * from %1 where %2=? order by %3 desc,id")
                             .arg(kind.headerTable, kind.numberColumn, kind.statusColumn()),
                         {number});
    if (!header)
        return std::nullopt;
    StoredState state{*std::move(header),
                      db.rows(QStringLiteral("select * from %1 where %2=? order by id")
                                  .arg(kind.lineTable, kind.numberColumn),
                              {number}),
                      {}};
    QCryptographicHash hash(QCryptographicHash::Sha1);
    addTo(hash, state.header);
    for (const Row &line : state.lines)
        addTo(hash, line);
    state.fingerprint = QString::fromLatin1(hash.result().toHex());
    return state;
}

const DocumentKind &draftKind(const QString &code) {
    const DocumentKind *kind = findDocumentKind(code);
    if (kind == nullptr || kind->code != code)
        throw Refusal(QStringLiteral("不支持的单据类型：%1").arg(code));
    return *kind;
}

DraftContext::DraftContext(Session &session_, Draft &draft_)
    : session(session_)
    , db(session_.db())
    , draft(draft_)
    , kind(draftKind(draft_.code))
    , parameters(Parameters::load(session_.db()))
    , isSale(kind.rightGroup == QLatin1String("xsgl"))
    , isReturn(kind.code.endsWith(u'T'))
    , isFollower(kind.moveAgainstSource != nullptr) {}

QString DraftContext::linePrefix() const {
    return kind.quantityColumn.left(2);
}

QString DraftContext::partnerColumn() const {
    if (!kind.partnerColumn.isEmpty())
        return kind.partnerColumn;
    return isSale ? QStringLiteral("kh_sn") : QStringLiteral("ghs_sn");
}

} // namespace jxc
