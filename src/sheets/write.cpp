#include "sheets/write.h"

#include "base/decimal.h"
#include "sheets/csv.h"

#include <QSaveFile>

namespace jxc {

namespace {

Decimal columnSum(const SheetTable &table, qsizetype column) {
    Decimal sum;
    for (const QStringList &row : table.rows) {
        try {
            sum += Decimal::fromText(row.value(column));
        } catch (const NumberError &) { // NOLINT(bugprone-empty-catch): a text does not count
        }
    }
    return sum;
}

} // namespace

QStringList sumsRow(const SheetTable &table) {
    QStringList sums;
    for (size_t i = 0; i < table.columns.size(); ++i)
        sums << (table.columns[i].sum ? columnSum(table, static_cast<qsizetype>(i)).toText()
                                      : QString());
    return sums;
}

void writeSheet(const SheetTable &table, const QString &path) {
    if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        writeCsv(table, path);
    else
        writeXlsx(table, path);
}

void writeCsv(const SheetTable &table, const QString &path) {
    std::vector<QStringList> rows;
    rows.reserve(table.rows.size() + 2);
    QStringList &header = rows.emplace_back();
    for (const SheetColumn &column : table.columns)
        header << column.caption;
    rows.insert(rows.end(), table.rows.begin(), table.rows.end());
    if (std::ranges::any_of(table.columns, &SheetColumn::sum)) {
        QStringList sums = sumsRow(table);
        if (sums[0].isEmpty())
            sums[0] = QStringLiteral("合计");
        rows.push_back(sums);
    }
    QSaveFile file(path);
    const QByteArray bytes = csvText(rows);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw SheetError(QStringLiteral("文件不能写入，可能正被其他程序打开：%1").arg(path));
}

} // namespace jxc
