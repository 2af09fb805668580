#pragma once

#include "master/master_kind.h"

// The words in which the kinds are described.

namespace jxc {

/// Builds a field by naming what it has: Field(u"ghs_name").required().unique().words().
class Field {
public:
    explicit Field(const char16_t *column, ValueKind kind = ValueKind::text) {
        m_field.column = QString::fromUtf16(column);
        m_field.kind = kind;
    }
    Field &required() { return set(m_field.required, true); }
    Field &unique() { return set(m_field.unique, true); }
    Field &positive() { return set(m_field.positive, true); }
    Field &notNegative() { return set(m_field.notNegative, true); }
    Field &readOnly() { return set(m_field.readOnly, true); }
    Field &fixedOnceStored() { return set(m_field.fixedOnceStored, true); }
    Field &keptByLedger() { return set(m_field.keptByLedger, true); }
    Field &single() { return set(m_field.isSingle, true); }
    Field &alsoByDocuments() { return set(m_field.alsoByDocuments, true); }
    Field &follower(const char16_t *column) {
        return set(m_field.follower, QString::fromUtf16(column));
    }
    Field &words() { return set(m_field.sanitizer, Sanitizer::words); }
    Field &cost() { return set(m_field.secrecy, Secrecy::cost); }
    Field &selling() { return set(m_field.secrecy, Secrecy::selling); }
    Field &caption(const char16_t *text) { return set(m_field.caption, QString::fromUtf16(text)); }
    Field &initial(const char16_t *text) { return set(m_field.initial, QString::fromUtf16(text)); }
    Field &page(const QString &name) { return set(m_field.page, name); }
    Field &pick(Pick pick);
    /// Stored as shown.
    Field &words(const char16_t *blankSeparated);
    /// Stored as 0, 1, 2 … and, if a column is named, as text beside it.
    Field &numbered(const char16_t *blankSeparated, const char16_t *textColumn = u"");

    // NOLINTNEXTLINE(google-explicit-constructor): a list of fields reads like a form
    operator MasterField() const { return m_field; }

private:
    template<typename T>
    Field &set(T &member, T value) {
        member = std::move(value);
        return *this;
    }
    MasterField m_field;
};

/// The value of a list is the row's name itself: units, specifications, types.
[[nodiscard]] Pick pickName(const char16_t *table, const char16_t *column);
/// The value is the row's code; its name stands in `shownAs`.
[[nodiscard]] Pick pickCode(const char16_t *table, const char16_t *codeColumn,
                            const char16_t *nameColumn, const char16_t *shownAs);
/// The warehouse that a partner or employee belongs to; at first all.
[[nodiscard]] Field warehouseField();

/// Blank-separated column names; "+" behind one asks for its sum in the footer.
[[nodiscard]] std::vector<MasterColumn> listColumns(const char16_t *names);
/// Blank-separated words.
[[nodiscard]] QStringList wordList(const char16_t *words);

/// The kinds, file by file.
[[nodiscard]] MasterKind goodsKind();
[[nodiscard]] std::vector<MasterKind> partnerKinds();
[[nodiscard]] std::vector<MasterKind> memberKinds();
[[nodiscard]] std::vector<MasterKind> smallListKinds();

} // namespace jxc
