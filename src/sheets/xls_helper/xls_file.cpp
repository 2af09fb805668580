#include "sheets/xls_helper/xls_file.h"

#include "sheets/cell_text.h"
#include "sheets/faults.h"
#include "sheets/sheet_builder.h"

#include <QFile>
#include <freexl.h>

namespace jxc {

namespace {

class XlsFile {
public:
    explicit XlsFile(const QString &path) {
        const int answer = freexl_open(QFile::encodeName(path).constData(), &m_handle);
        if (answer != FREEXL_OK) {
            close();
            throw answer == FREEXL_BIFF_WORKBOOK_NOT_FOUND ? unknownFile() : damagedFile();
        }
        if (info(FREEXL_BIFF_PASSWORD) == FREEXL_BIFF_OBFUSCATED) {
            close();
            throw encryptedFile();
        }
    }
    ~XlsFile() { close(); }
    XlsFile(const XlsFile &) = delete;
    XlsFile &operator=(const XlsFile &) = delete;

    [[nodiscard]] unsigned info(unsigned short what) const {
        unsigned value = 0;
        freexl_get_info(m_handle, what, &value);
        return value;
    }

    [[nodiscard]] Sheet sheet(unsigned short index) const {
        const char *name = nullptr;
        unsigned rows = 0;
        unsigned short columns = 0;
        if (freexl_get_worksheet_name(m_handle, index, &name) != FREEXL_OK ||
            freexl_select_active_worksheet(m_handle, index) != FREEXL_OK ||
            freexl_worksheet_dimensions(m_handle, &rows, &columns) != FREEXL_OK)
            throw damagedFile();
        SheetBuilder builder;
        for (unsigned row = 0; row < rows; ++row)
            for (unsigned short column = 0; column < columns; ++column)
                builder.put(row, column, cell(row, column));
        return builder.take(QString::fromUtf8(name));
    }

private:
    [[nodiscard]] QString cell(unsigned row, unsigned short column) const {
        FreeXL_CellValue cell;
        if (freexl_get_cell_value(m_handle, row, column, &cell) != FREEXL_OK)
            return {};
        switch (cell.type) {
        case FREEXL_CELL_INT:
            return QString::number(cell.value.int_value);
        case FREEXL_CELL_DOUBLE:
            return numberText(QString::number(cell.value.double_value, 'e', 16));
        case FREEXL_CELL_TEXT:
        case FREEXL_CELL_SST_TEXT:
            return QString::fromUtf8(cell.value.text_value).trimmed();
        case FREEXL_CELL_DATE:
        case FREEXL_CELL_DATETIME:
        case FREEXL_CELL_TIME:
            return momentText(QString::fromUtf8(cell.value.text_value));
        default:
            return {};
        }
    }

    static QString momentText(const QString &text) {
        return text.endsWith(QLatin1String(" 00:00:00")) ? text.left(10) : text;
    }

    void close() { freexl_close(std::exchange(m_handle, nullptr)); }

    const void *m_handle = nullptr;
};

} // namespace

std::vector<Sheet> readXlsFile(const QString &path) {
    const XlsFile file(path);
    std::vector<Sheet> sheets;
    const unsigned count = file.info(FREEXL_BIFF_SHEET_COUNT);
    for (unsigned index = 0; index < count; ++index)
        sheets.push_back(file.sheet(static_cast<unsigned short>(index)));
    return sheets;
}

} // namespace jxc
