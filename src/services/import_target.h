#pragma once

#include "sheets/write.h"

#include <map>

namespace jxc {

class Session;

/// What lists from a spreadsheet are taken into.
struct ImportTarget {
    QString word;  ///< how the command line calls it: "goods"
    QString table; ///< of the master data
    QString title; ///< of the window it belongs to: "商品管理"
    int right = 0; ///< position in qtcz that opens that window
};

[[nodiscard]] const std::vector<ImportTarget> &importTargets();
/// Null for an unknown word.
[[nodiscard]] const ImportTarget *findImportTarget(QStringView word);

/// A column of the target that a file may fill.
struct ImportField {
    QString id, caption; ///< as the catalogue of importable fields has them
};
[[nodiscard]] std::vector<ImportField> importFields(const Session &session,
                                                    const ImportTarget &target);

/// Which column of the sheet (from 0) fills which field.
using ImportMapping = std::map<QString, qsizetype>;

/// The row, from 0, that names the columns: the one of the first rows with most known names.
[[nodiscard]] size_t findHeaderRow(const std::vector<ImportField> &fields, const Sheet &sheet);
/// What the header seems to mean: first as the fields were mapped the last time, then by caption or
/// column name, then by the words that are usual for it ("品名", "登记证号", "手机").
[[nodiscard]] ImportMapping proposeMapping(const Session &session,
                                           const std::vector<ImportField> &fields,
                                           const QStringList &header);

/// An empty sheet with all columns, to be filled in and imported.
[[nodiscard]] SheetTable importTemplate(const Session &session, const ImportTarget &target);

} // namespace jxc
