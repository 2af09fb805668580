#pragma once

#include "core/action.h"
#include "services/import_target.h"

#include <QSet>

namespace jxc {

/// What is done with rows whose goods or partner is there already.
enum class KnownRows { skip, update };

/// A list to take in, and how to read it.
struct ImportRequest {
    const ImportTarget *target = nullptr;
    Sheet sheet;
    size_t headerRow = 0; ///< from 0
    ImportMapping mapping;
    KnownRows known = KnownRows::skip;
    QSet<size_t> unticked{}; ///< rows of the sheet, from 0, that the user left out
};

/// What becomes of one row.
struct ImportRow {
    enum class Fate { add, update, skip, bad };
    size_t row = 0; ///< of the sheet, from 0
    QString name;
    Fate fate = Fate::bad;
    /// "可导入", "更新", "已存在，跳过", or what is wrong: "单位必须填写", "预设进价不是数字".
    QString status;
    bool ticked = false;
    qint64 known = 0;               ///< id of the row that is updated
    QHash<QString, QString> values; ///< the filled cells by field, ready to be stored

    [[nodiscard]] bool isGood() const { return fate == Fate::add || fate == Fate::update; }
};

struct ImportResult {
    int imported = 0, failed = 0;
    std::vector<ImportRow> rows; ///< with what was said of each at the end
};

/// How far it is; false stops, and nothing is written.
using ImportProgress = std::function<bool(int done, int all)>;

/// Reads the rows as they would be imported now and notes mapping and states in the import tables.
/// Refused while the name has no column: "“商品名称”必须选择对应的列！".
Outcome checkImport(Session &session, Prompter &prompter, const ImportRequest &request,
                    std::vector<ImportRow> *rows);

/// Takes all ticked good rows in, as one action, after checking them anew. New rows get code,
/// mnemonic code and proposals as in the editor (a code that the file gives is kept); names that
/// the lists behind the fields lack are added there; opening balances open the ledger. Of known
/// goods and partners the mapped fields change whose cell is filled, never a balance once there is
/// business. Done, the outcome's text is "导入完成，成功n条，失败m条！".
Outcome runImport(Session &session, Prompter &prompter, const ImportRequest &request,
                  ImportResult *result, const ImportProgress &progress = {});

} // namespace jxc
