#include "base/dates.h"
#include "base/decimal.h"
#include "sheets/write.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <filesystem>
#include <xlsxwriter.h>

namespace jxc {

namespace {

constexpr size_t mostRows = 1'048'570;
constexpr int widthLimit = 60;

SheetError notWritten(const QString &path) {
    return SheetError(QStringLiteral("文件不能写入，可能正被其他程序打开：%1").arg(path));
}

/// A file beside the target that takes its name only when all is written.
class PartFile {
public:
    explicit PartFile(const QString &target)
        : m_target(target)
        , m_file(QFileInfo(target).dir().filePath(QStringLiteral("~XXXXXX.part"))) {
        if (!m_file.open())
            throw notWritten(target);
        m_file.close();
    }

    [[nodiscard]] QByteArray name() const { return QFile::encodeName(m_file.fileName()); }
    void takePlace() {
        QFile::setPermissions(m_file.fileName(), QFile::ReadOwner | QFile::WriteOwner |
                                                     QFile::ReadGroup | QFile::ReadOther);
        std::error_code error; // unlike Qt's, this takes the place of a file that is there
        std::filesystem::rename(m_file.fileName().toStdU16String(), m_target.toStdU16String(),
                                error);
        if (error)
            throw notWritten(m_target);
    }

private:
    QString m_target;
    QTemporaryFile m_file;
};

QByteArray validSheetName(const SheetTable &table) {
    static const QRegularExpression forbidden(QStringLiteral("[\\[\\]:*?/\\\\]|^'|'$"));
    QString name = table.sheetName.isEmpty() ? table.title : table.sheetName;
    name = name.replace(forbidden, QStringLiteral("_")).left(31);
    return (name.isEmpty() ? QStringLiteral("Sheet1") : name).toUtf8();
}

/// Characters of a Chinese font are as wide as two others.
int shownWidth(QStringView text) {
    int width = 0;
    for (const QChar c : text)
        width += c.unicode() < 0x2e80 ? 1 : 2;
    return width;
}

class XlsxWriter {
public:
    XlsxWriter(const SheetTable &table, const QString &path)
        : m_table(table)
        , m_path(path)
        , m_part(path)
        , m_book(workbook_new(m_part.name().constData()))
        , m_sheet(m_book != nullptr
                      ? workbook_add_worksheet(m_book, validSheetName(table).constData())
                      : nullptr) {
        if (m_sheet == nullptr) {
            if (m_book != nullptr)
                workbook_close(m_book);
            throw notWritten(path);
        }
    }
    ~XlsxWriter() {
        if (m_book != nullptr)
            workbook_close(m_book);
    }
    XlsxWriter(const XlsxWriter &) = delete;
    XlsxWriter &operator=(const XlsxWriter &) = delete;

    void run() {
        makeFormats();
        writeTitle();
        writeHeader();
        for (const QStringList &row : m_table.rows)
            writeRow(row);
        writeSums();
        if (workbook_close(std::exchange(m_book, nullptr)) != LXW_NO_ERROR)
            throw notWritten(m_path);
        m_part.takePlace();
    }

private:
    void makeFormats() {
        m_titleFormat = workbook_add_format(m_book);
        format_set_bold(m_titleFormat);
        format_set_font_size(m_titleFormat, 14);
        m_headerFormat = workbook_add_format(m_book);
        format_set_bold(m_headerFormat);
        format_set_align(m_headerFormat, LXW_ALIGN_CENTER);
        format_set_bg_color(m_headerFormat, 0xE8EEF4);
        format_set_border(m_headerFormat, LXW_BORDER_THIN);
        for (const SheetColumn &column : m_table.columns) {
            m_formats.push_back(columnFormat(column));
            m_sumFormats.push_back(columnFormat(column));
            format_set_bold(m_sumFormats.back());
            format_set_top(m_sumFormats.back(), LXW_BORDER_THIN);
        }
    }

    lxw_format *columnFormat(const SheetColumn &column) {
        lxw_format *format = workbook_add_format(m_book);
        if (column.kind == SheetColumn::Kind::number) {
            const QString pattern = column.decimals > 0
                                        ? QStringLiteral("#,##0.") + QString(column.decimals, u'0')
                                        : QStringLiteral("#,##0");
            format_set_num_format(format, pattern.toLatin1().constData());
        } else if (column.kind == SheetColumn::Kind::date)
            format_set_num_format(format, "yyyy-mm-dd");
        else
            format_set_num_format(format, "@"); // codes keep their zeros when they are edited
        return format;
    }

    void writeTitle() {
        if (m_table.title.isEmpty())
            return;
        check(worksheet_write_string(m_sheet, m_row, 0, m_table.title.toUtf8().constData(),
                                     m_titleFormat));
        ++m_row;
    }

    void writeHeader() {
        m_header = m_row;
        for (size_t i = 0; i < m_table.columns.size(); ++i) {
            const auto column = static_cast<lxw_col_t>(i);
            check(worksheet_write_string(m_sheet, m_row, column,
                                         m_table.columns[i].caption.toUtf8().constData(),
                                         m_headerFormat));
            worksheet_set_column(m_sheet, column, column, width(i), nullptr);
        }
        ++m_row;
        worksheet_freeze_panes(m_sheet, m_row, 0);
        if (!m_table.rows.empty() && !m_table.columns.empty())
            worksheet_autofilter(m_sheet, m_header, 0,
                                 m_header + static_cast<lxw_row_t>(m_table.rows.size()),
                                 static_cast<lxw_col_t>(m_table.columns.size() - 1));
        worksheet_repeat_rows(m_sheet, m_header, m_header);
    }

    /// The widest of the first rows decides; one long note further down must not.
    [[nodiscard]] int width(size_t column) const {
        const SheetColumn &about = m_table.columns[column];
        if (about.width > 0)
            return about.width;
        int widest = shownWidth(about.caption) + 2;
        for (size_t i = 0; i < std::min<size_t>(m_table.rows.size(), 500); ++i)
            widest =
                std::max(widest, shownWidth(m_table.rows[i].value(static_cast<qsizetype>(column))));
        return std::min(widest + 2, widthLimit);
    }

    void writeRow(const QStringList &row) {
        for (size_t i = 0; i < m_table.columns.size(); ++i)
            writeCell(static_cast<lxw_col_t>(i), row.value(static_cast<qsizetype>(i)));
        ++m_row;
    }

    void writeCell(lxw_col_t column, const QString &text) {
        if (text.isEmpty())
            return;
        const SheetColumn::Kind kind = m_table.columns[column].kind;
        lxw_format *format = m_formats[column];
        if (kind == SheetColumn::Kind::number && writeNumber(column, text, format))
            return;
        if (kind == SheetColumn::Kind::date) {
            if (const QDate date = parseDate(text); date.isValid() && date.year() >= 1901) {
                lxw_datetime moment{date.year(), date.month(), date.day(), 0, 0, 0};
                check(worksheet_write_datetime(m_sheet, m_row, column, &moment, format));
                return;
            }
        }
        check(worksheet_write_string(m_sheet, m_row, column, text.toUtf8().constData(), format));
    }

    /// False when the text is no number.
    bool writeNumber(lxw_col_t column, const QString &text, lxw_format *format) {
        try {
            check(worksheet_write_number(m_sheet, m_row, column, Decimal::fromText(text).toDouble(),
                                         format));
            return true;
        } catch (const NumberError &) {
            return false;
        } catch (const RangeError &) {
            return false;
        }
    }

    /// Formulas, so that the sums follow what is filtered or corrected, beside the exact figure.
    void writeSums() {
        if (std::ranges::none_of(m_table.columns, &SheetColumn::sum))
            return;
        const QStringList sums = sumsRow(m_table);
        for (size_t i = 0; i < m_table.columns.size(); ++i) {
            const auto column = static_cast<lxw_col_t>(i);
            if (m_table.columns[i].sum && m_row > m_header + 1) {
                char from[LXW_MAX_CELL_NAME_LENGTH];
                char to[LXW_MAX_CELL_NAME_LENGTH];
                lxw_rowcol_to_cell(from, m_header + 1, column);
                lxw_rowcol_to_cell(to, m_row - 1, column);
                const QByteArray formula =
                    QByteArray("=SUBTOTAL(109,") + from + ':' + to + QByteArray(")");
                check(worksheet_write_formula_num(
                    m_sheet, m_row, column, formula.constData(), m_sumFormats[i],
                    Decimal::fromText(sums[static_cast<qsizetype>(i)]).toDouble()));
            } else
                check(worksheet_write_string(
                    m_sheet, m_row, column,
                    i == 0 ? QStringLiteral("合计").toUtf8().constData() : "", m_sumFormats[i]));
        }
        ++m_row;
    }

    void check(lxw_error error) const {
        if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED)
            throw SheetError(QStringLiteral("内容太长，单元格最多可写入32767个字！"));
        if (error != LXW_NO_ERROR)
            throw notWritten(m_path);
    }

    const SheetTable &m_table;
    QString m_path;
    PartFile m_part;
    lxw_workbook *m_book;
    lxw_worksheet *m_sheet;
    lxw_format *m_titleFormat = nullptr;
    lxw_format *m_headerFormat = nullptr;
    std::vector<lxw_format *> m_formats;
    std::vector<lxw_format *> m_sumFormats;
    lxw_row_t m_row = 0;
    lxw_row_t m_header = 0;
};

} // namespace

void writeXlsx(const SheetTable &table, const QString &path) {
    if (table.rows.size() > mostRows)
        throw SheetError(QStringLiteral("行数太多，不能写入表格文件！"));
    XlsxWriter(table, path).run();
}

} // namespace jxc
