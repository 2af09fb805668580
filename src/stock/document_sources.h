#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace jxc {

/// Where the documents of one kind are kept, for looking at them: drafts, orders and counter
/// receipts included, which have no posting of their own. Texts are column names or SQL of
/// constants; "h" is the header, "l" a line.
struct DocumentSource {
    QString code, title;
    QString header, lines;
    QString number = QStringLiteral("gl_djh");
    QString date{}, status{}, checker{}, note{};
    QString partner = QStringLiteral("''");
    QString partnerType{}; ///< "ghs", "kh" or nothing
    QString warehouse = QStringLiteral("h.ck_sn");
    QString secondWarehouse = QStringLiteral("''"); ///< where a transfer goes
    QString amount{};     ///< of the header; empty: the sum of `lineAmount`
    QString quantity{};   ///< of a line
    QString price{};      ///< of a line; empty: it has none
    QString lineAmount{}; ///< of a line
    QString lineNote = QStringLiteral("''");
    bool linesHaveUnit = true;
    bool headerHasGoods = false; ///< split and bundle name a goods in the header as well
    QString condition{};         ///< rows of the header that are no documents of this kind
};

/// All kinds that lists know, in the order of the menu.
[[nodiscard]] const std::vector<DocumentSource> &documentSources();
/// By its code: the two letters of the document's number, "POSXS" and "POSXT" of receipts of the
/// counter, whose numbers begin as those of sales do. Null for none.
[[nodiscard]] const DocumentSource *findDocumentSource(QStringView code);

} // namespace jxc
