#include "services/import_check.h"

#include "base/dates.h"
#include "base/decimal.h"
#include "base/sanitize.h"
#include "core/session.h"
#include "db/database.h"
#include "db/schema.h"
#include "master/barcodes.h"

namespace jxc {

namespace {

const QString goodsCode = QStringLiteral("g_sn");
const QString goodsBarcode = QStringLiteral("g_sptm");
const QString specification = QStringLiteral("gg_name");

QString sanitized(Sanitizer sanitizer, const QString &text) {
    return sanitizer == Sanitizer::words ? sanitizeSqlText(text) : sanitizeSqlTextLight(text);
}

/// A picked name is stored as the list behind it stores it.
Sanitizer sanitizerOf(const MasterField &field) {
    const MasterKind *list = findMasterKind(field.pick.table);
    const MasterField *name = list == nullptr ? nullptr : list->field(field.pick.nameColumn);
    return name == nullptr ? field.sanitizer : name->sanitizer;
}

/// A figure as people write it: with groups, a currency sign.
QString plainFigure(QString text) {
    text.removeIf(
        [](QChar c) { return c.isSpace() || c == u',' || c == u'，' || c == u'￥' || c == u'¥'; });
    return text;
}

/// A day as people write it, in the books' form; empty when it is none.
QString plainDate(const QString &text) {
    const QString day = text.section(u' ', 0, 0).section(u'T', 0, 0);
    for (const char16_t *form :
         {u"yyyy-M-d", u"yyyy/M/d", u"yyyy.M.d", u"yyyy年M月d日", u"yyyyMMdd"})
        if (const QDate date = QDate::fromString(day, QString::fromUtf16(form)); date.isValid())
            return toDateText(date);
    return {};
}

/// What is wrong with a filled cell; empty when nothing is. The text becomes what is stored.
QString faultOf(const MasterField &field, const Column &column, QString &text) {
    const QString badFormat = QStringLiteral("格式不正确");
    if (isNumber(field.kind)) {
        Decimal figure;
        try {
            figure = Decimal::fromText(plainFigure(text));
        } catch (const NumberError &) {
            return QStringLiteral("不是数字");
        } catch (const RangeError &) {
            return badFormat;
        }
        if ((field.notNegative && figure.isNegative()) ||
            (field.kind == ValueKind::integer && !figure.isWhole()))
            return badFormat;
        text = figure.toText();
        return {};
    }
    if (field.kind == ValueKind::date) {
        text = plainDate(text);
        return text.isEmpty() ? badFormat : QString();
    }
    text = sanitized(sanitizerOf(field), text);
    return column.length > 0 && text.toUcs4().size() > column.length ? badFormat : QString();
}

/// By what a row of a file is known again: the first that is filled of these.
struct KnownBy {
    QString code; ///< may be empty, as the next
    QString barcode;
    QString beside; ///< with the name; several may have one name

    static KnownBy of(const MasterKind &kind) {
        if (kind.table == u"jxc_goods")
            return {goodsCode, goodsBarcode, specification};
        if (!kind.numberColumn.isEmpty())
            return {kind.numberColumn, {}, QStringLiteral("hy_mobile")};
        return {};
    }
};

/// Which goods, partners or members are there, and which the file itself has named before.
class Known {
public:
    Known(const Session &session, const MasterKind &kind)
        : m_by(KnownBy::of(kind)) {
        Database &db = session.db();
        QStringList columns{QStringLiteral("id"), kind.nameColumn};
        for (const QString &column : {m_by.code, m_by.barcode, m_by.beside})
            if (!column.isEmpty())
                columns << column;
        for (const Row &row : db.rows(QStringLiteral("select %1 from %2 order by id desc")
                                          .arg(columns.join(u','), kind.table)))
            add(row, kind);
        if (m_by.barcode.isEmpty() || !BarcodeRules::load(db).unique)
            return;
        m_barcodesAreUnique = true;
        for (const char16_t *table : {u"jxc_goodstm", u"jxc_goodsdw"})
            for (const Row &row :
                 db.rows(QStringLiteral("select g_sptm from %1").arg(QString::fromUtf16(table))))
                m_furtherBarcodes.insert(row.text(size_t{0}));
    }

    /// The id of the row that a row of the file means; 0 for a new one.
    [[nodiscard]] qint64 find(const ImportRow &row) const {
        return m_byKey.value(keyOf(row.values, row.name));
    }

    /// What the row repeats of an earlier row of the file, or of other goods; empty for nothing.
    QString repeated(const ImportRow &row, const QString &nameField) {
        const QString key = keyOf(row.values, row.name);
        if (m_seen.contains(key))
            return key.startsWith(u'c')   ? m_by.code
                   : key.startsWith(u'b') ? m_by.barcode
                                          : nameField;
        m_seen.insert(key);
        const QString text = filled(row.values, m_by.barcode);
        if (!m_barcodesAreUnique || text.isEmpty())
            return {};
        const qint64 owner = m_byKey.value(u'b' + text);
        const bool isForeign = (owner != 0 && owner != row.known) ||
                               m_furtherBarcodes.contains(text) || m_seenBarcodes.contains(text);
        m_seenBarcodes.insert(text);
        return isForeign ? m_by.barcode : QString();
    }

private:
    static QString filled(const QHash<QString, QString> &values, const QString &column) {
        return column.isEmpty() ? QString() : values.value(column);
    }

    void add(const Row &row, const MasterKind &kind) {
        const qint64 id = row.integer(u"id");
        const auto text = [&](const QString &column) {
            return column.isEmpty() ? QString() : row.text(column);
        };
        m_byKey.insert(u'n' + row.text(kind.nameColumn) + u'\n' + text(m_by.beside), id);
        if (const QString code = text(m_by.code); !code.isEmpty())
            m_byKey.insert(u'c' + code, id);
        if (const QString barcode = text(m_by.barcode); !barcode.isEmpty())
            m_byKey.insert(u'b' + barcode, id);
    }

    [[nodiscard]] QString keyOf(const QHash<QString, QString> &values, const QString &name) const {
        if (const QString code = filled(values, m_by.code); !code.isEmpty())
            return u'c' + code;
        if (const QString barcode = filled(values, m_by.barcode); !barcode.isEmpty())
            return u'b' + barcode;
        return u'n' + name + u'\n' + filled(values, m_by.beside);
    }

    KnownBy m_by;
    bool m_barcodesAreUnique = false;
    QHash<QString, qint64> m_byKey; ///< the kind of key is its first letter
    QSet<QString> m_seen, m_furtherBarcodes, m_seenBarcodes;
};

class RowCheck {
public:
    RowCheck(const Session &session, const ImportRequest &request)
        : m_request(request)
        , m_kind(masterKind(request.target->table))
        , m_fields(importFields(session, *request.target))
        , m_known(session, m_kind) {
        for (const ImportField &field : m_fields)
            if (field.id == m_kind.nameColumn && !isMapped(field.id))
                throw Refusal(QStringLiteral("“%1”必须选择对应的列！").arg(field.caption));
    }

    std::vector<ImportRow> run() {
        std::vector<ImportRow> rows;
        for (size_t i = m_request.headerRow + 1; i < m_request.sheet.rows.size(); ++i) {
            ImportRow row;
            row.row = i;
            if (isBlank(m_request.sheet.rows[i]))
                continue;
            decide(row, m_request.sheet.rows[i]);
            row.ticked = row.isGood() && !m_request.unticked.contains(i);
            rows.push_back(std::move(row));
        }
        return rows;
    }

private:
    [[nodiscard]] bool isMapped(const QString &field) const {
        return m_request.mapping.contains(field);
    }

    [[nodiscard]] bool isBlank(const QStringList &cells) const {
        return std::ranges::all_of(m_request.mapping, [&](const auto &entry) {
            return cells.value(entry.second).trimmed().isEmpty();
        });
    }

    void decide(ImportRow &row, const QStringList &cells) {
        QString fault = takeCells(row, cells);
        row.known = m_known.find(row);
        if (!m_kind.hiddenCode.isEmpty() && row.values.value(goodsCode) == m_kind.hiddenCode)
            fault = captionOf(goodsCode) + QStringLiteral("格式不正确");
        if (fault.isEmpty() && row.known == 0)
            fault = missing(row);
        const QString repeated = m_known.repeated(row, m_kind.nameColumn);
        if (fault.isEmpty() && !repeated.isEmpty())
            fault = captionOf(repeated) + QStringLiteral("重复");
        if (!fault.isEmpty()) {
            row.status = fault;
            return;
        }
        if (row.known == 0) {
            row.fate = ImportRow::Fate::add;
            row.status = QStringLiteral("可导入");
        } else if (m_request.known == KnownRows::update) {
            row.fate = ImportRow::Fate::update;
            row.status = QStringLiteral("更新");
        } else {
            row.fate = ImportRow::Fate::skip;
            row.status = QStringLiteral("已存在，跳过");
        }
    }

    /// The filled cells; answers the first fault in the order of the fields.
    QString takeCells(ImportRow &row, const QStringList &cells) {
        QString fault;
        for (const ImportField &field : m_fields) {
            if (!isMapped(field.id))
                continue;
            QString text = cells.value(m_request.mapping.at(field.id)).trimmed();
            if (text.isEmpty())
                continue;
            const QString wrong =
                faultOf(importedField(m_kind, field.id), *column(m_kind.table, field.id), text);
            if (!wrong.isEmpty() && fault.isEmpty())
                fault = field.caption + wrong;
            if (field.id == m_kind.nameColumn)
                row.name = text;
            row.values.insert(field.id, text);
        }
        return row.name.isEmpty() ? captionOf(m_kind.nameColumn) + QStringLiteral("必须填写")
                                  : fault;
    }

    /// A field that a new row needs and that has no proposal of its own.
    [[nodiscard]] QString missing(const ImportRow &row) const {
        for (const ImportField &field : m_fields) {
            const MasterField &described = importedField(m_kind, field.id);
            if (described.required && described.initial.isEmpty() &&
                described.column != m_kind.codeColumn && !row.values.contains(field.id))
                return field.caption + QStringLiteral("必须填写");
        }
        return {};
    }

    [[nodiscard]] QString captionOf(const QString &id) const {
        for (const ImportField &field : m_fields)
            if (field.id == id)
                return field.caption;
        return id;
    }

    const ImportRequest &m_request;
    const MasterKind &m_kind;
    std::vector<ImportField> m_fields;
    Known m_known;
};

} // namespace

const MasterField &importedField(const MasterKind &kind, const QString &id) {
    if (const MasterField *field = kind.field(id))
        return *field;
    for (const MasterField &field : kind.fields)
        if (field.pick.shownAs == id)
            return field;
    throw std::logic_error("no field to import into: " + id.toStdString());
}

std::vector<ImportRow> checkedRows(const Session &session, const ImportRequest &request) {
    return RowCheck(session, request).run();
}

} // namespace jxc
