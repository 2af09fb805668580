#include "master/kind_parts.h"

namespace jxc {

Field &Field::pick(Pick pick) {
    m_field.pick = std::move(pick);
    m_field.sanitizer = Sanitizer::none;
    return *this;
}

Field &Field::words(const char16_t *blankSeparated) {
    for (const QString &word : wordList(blankSeparated))
        m_field.choices.push_back({word, word});
    return *this;
}

Field &Field::numbered(const char16_t *blankSeparated, const char16_t *textColumn) {
    m_field.kind = ValueKind::choice;
    for (const QString &word : wordList(blankSeparated))
        m_field.choices.push_back({QString::number(m_field.choices.size()), word});
    m_field.choiceText = QString::fromUtf16(textColumn);
    return set(m_field.initial, QStringLiteral("0"));
}

Pick pickName(const char16_t *table, const char16_t *column) {
    Pick pick;
    pick.table = QString::fromUtf16(table);
    pick.valueColumn = pick.nameColumn = QString::fromUtf16(column);
    return pick;
}

Pick pickCode(const char16_t *table, const char16_t *codeColumn, const char16_t *nameColumn,
              const char16_t *shownAs) {
    Pick pick;
    pick.table = QString::fromUtf16(table);
    pick.valueColumn = QString::fromUtf16(codeColumn);
    pick.nameColumn = QString::fromUtf16(nameColumn);
    pick.shownAs = QString::fromUtf16(shownAs);
    return pick;
}

Field warehouseField() {
    Pick pick = pickCode(u"jxc_ckxx", u"ck_sn", u"ck_name", u"ck_name");
    pick.forAll = QStringLiteral("-1");
    pick.forAllName = QStringLiteral("所有仓库");
    return Field(u"ck_sn").required().initial(u"-1").pick(pick);
}

QStringList wordList(const char16_t *words) {
    return QString::fromUtf16(words).split(u' ', Qt::SkipEmptyParts);
}

std::vector<MasterColumn> listColumns(const char16_t *names) {
    std::vector<MasterColumn> columns;
    for (QString name : wordList(names)) {
        MasterColumn column;
        column.sum = name.endsWith(u'+');
        if (column.sum)
            name.chop(1);
        column.column = name;
        columns.push_back(column);
    }
    return columns;
}

} // namespace jxc
