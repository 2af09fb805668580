#include "master/goods_index.h"

#include "base/pinyin.h"
#include "base/sanitize.h"
#include "db/database.h"
#include "master/goods_rules.h"
#include "master/master_kind.h"

#include <QStringMatcher>
#include <algorithm>

namespace jxc {

namespace {

constexpr int rowsAtOnce = 5'000;

const QString selectEntry =
    QStringLiteral(
        "select id,g_sn,g_jm,g_name,g_tym,g_sccs,color_name,g_cgpl,g_xspl from jxc_goods where "
        "coalesce(g_jy,0)=0 and g_sn<>'%1' and ")
        .arg(discountGoods);

enum At : size_t { id, code, mnemonic, name, genericName, maker, registration, purchases, sales };

QString readingsOf(const QString &goodsName) {
    const QStringList readings = pinyinReadings(goodsName);
    const bool several = std::any_of(readings.begin(), readings.end(),
                                     [](const QString &letters) { return letters.size() > 1; });
    return several ? readings.join(u' ') : QString();
}

/// Whether the name may be read so that it begins with these letters.
bool beginsWithReading(const QString &readings, const QString &letters) {
    qsizetype at = 0;
    for (const QChar letter : letters) {
        bool found = false;
        for (; at < readings.size() && readings[at] != u' '; ++at)
            found = found || readings[at] == letter;
        if (!found)
            return false;
        ++at;
    }
    return true;
}

bool isLettersAndDigits(const QString &text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
    });
}

/// Lines after which single goods cannot be told: marked goods, an import, a renamed list.
bool concernsManyGoods(const QString &note) {
    static const QStringList beginnings = [] {
        const QString goods = masterKind(u"jxc_goods").noun;
        QStringList list{QStringLiteral("批量修改") + goods, QStringLiteral("导入") + goods};
        for (const char16_t *renamed : {u"jxc_tym", u"jxc_color"})
            list << QStringLiteral("修改") + masterKind(renamed).noun;
        return list;
    }();
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](const QString &beginning) { return note.startsWith(beginning); });
}

} // namespace

/// What was typed, as it is sought: as it stands and as it would have been stored.
class GoodsIndex::Wanted {
public:
    explicit Wanted(const QString &typed)
        : m_typed(typed)
        , m_stored(sanitizeSqlTextLight(typed))
        , m_letters(typed.toUpper())
        , m_isLetters(isLettersAndDigits(m_letters))
        , m_part(m_typed)
        , m_storedPart(m_stored) {}

    [[nodiscard]] bool isEmpty() const { return m_typed.isEmpty(); }

    [[nodiscard]] bool matches(const Entry &entry) const {
        return entry.code.startsWith(m_typed) || (m_isLetters && initialsMatch(entry)) ||
               isPartOf(entry.name) || isPartOf(entry.others);
    }
    [[nodiscard]] bool isExactly(const Entry &entry) const {
        return entry.code == m_typed || entry.mnemonic == m_letters || entry.name == m_typed ||
               entry.name == m_stored;
    }

private:
    [[nodiscard]] bool initialsMatch(const Entry &entry) const {
        return entry.mnemonic.startsWith(m_letters) ||
               (!entry.readings.isEmpty() && beginsWithReading(entry.readings, m_letters));
    }
    [[nodiscard]] bool isPartOf(const QString &text) const {
        return m_part.indexIn(text) >= 0 ||
               (m_stored != m_typed && m_storedPart.indexIn(text) >= 0);
    }

    QString m_typed, m_stored;
    QString m_letters;
    bool m_isLetters;
    QStringMatcher m_part, m_storedPart;
};

GoodsIndex::Entry GoodsIndex::entryOf(const Row &row) {
    Entry entry;
    entry.id = row.integer(At::id);
    entry.code = row.text(At::code).toLower();
    entry.mnemonic = row.text(At::mnemonic).toUpper();
    const QString goodsName = row.text(At::name);
    entry.name = goodsName.toLower();
    entry.others =
        QStringList{row.text(At::genericName), row.text(At::maker), row.text(At::registration)}
            .join(u'\n')
            .toLower();
    entry.readings = readingsOf(goodsName);
    entry.purchases = row.integer(At::purchases);
    entry.sales = row.integer(At::sales);
    return entry;
}

void GoodsIndex::startAnew() {
    m_entries.clear();
    m_complete = false;
    m_lastGoods = 0;
    m_lastLog = m_db.scalar(QStringLiteral("select max(id) from jxc_log")).toLongLong();
}

void GoodsIndex::readRows(const Rows &rows) {
    m_entries.reserve(m_entries.size() + rows.size());
    for (const Row &row : rows)
        m_entries.push_back(entryOf(row));
    if (!rows.empty())
        m_lastGoods = rows.back().integer(At::id);
}

bool GoodsIndex::readMore() {
    if (m_lastLog < 0)
        startAnew();
    if (m_complete)
        return false;
    const Rows rows = m_db.rows(
        selectEntry + QStringLiteral("id>? order by id limit %1").arg(rowsAtOnce), {m_lastGoods});
    readRows(rows);
    m_complete = rows.size() < static_cast<size_t>(rowsAtOnce);
    return !m_complete;
}

void GoodsIndex::readAll() {
    while (readMore()) {
    }
}

void GoodsIndex::readAgain(qint64 goodsId) {
    if (goodsId > m_lastGoods)
        return; // comes with the new ones
    const auto place =
        std::lower_bound(m_entries.begin(), m_entries.end(), goodsId,
                         [](const Entry &entry, qint64 wanted) { return entry.id < wanted; });
    const bool known = place != m_entries.end() && place->id == goodsId;
    const auto row = m_db.row(selectEntry + QStringLiteral("id=?"), {goodsId});
    if (known && row)
        *place = entryOf(*row);
    else if (known)
        m_entries.erase(place);
    else if (row)
        m_entries.insert(place, entryOf(*row));
}

void GoodsIndex::followNote(const QString &note) {
    static const QString goods = masterKind(u"jxc_goods").noun + u'：';
    if (concernsManyGoods(note)) {
        startAnew();
        return;
    }
    const qsizetype at = note.indexOf(goods);
    if (at != 2) // 增加, 修改, 删除
        return;
    // The code ends at a comma, and may hold one: each that the line may mean is read.
    const QString rest = note.mid(at + goods.size());
    for (qsizetype end = rest.indexOf(u'，'); end >= 0; end = rest.indexOf(u'，', end + 1))
        for (const Row &row :
             m_db.rows(QStringLiteral("select id from jxc_goods where g_sn=?"), {rest.left(end)}))
            readAgain(row.integer(size_t{0}));
    // What was deleted has no row any more.
    std::vector<qint64> gone;
    for (const Entry &entry : m_entries)
        if (!entry.code.isEmpty() && rest.startsWith(entry.code, Qt::CaseInsensitive))
            gone.push_back(entry.id);
    for (const qint64 goodsId : gone)
        readAgain(goodsId);
}

void GoodsIndex::follow() {
    const qint64 newest = m_db.scalar(QStringLiteral("select max(id) from jxc_log")).toLongLong();
    if (newest < m_lastLog) // the log was cleared, or another set stands in its place
        startAnew();
    if (newest > m_lastLog) {
        const Rows notes = m_db.rows(
            QStringLiteral("select id,log_note from jxc_log where id>? order by id"), {m_lastLog});
        for (const Row &note : notes) {
            m_lastLog = std::max(m_lastLog, note.integer(u"id"));
            followNote(note.text(u"log_note"));
        }
    }
    // What arrived without a line: taken over by other programs, exchanged between branches.
    const qint64 last = m_db.scalar(QStringLiteral("select max(id) from jxc_goods")).toLongLong();
    if (last > m_lastGoods && m_complete) {
        readRows(m_db.rows(selectEntry + QStringLiteral("id>? order by id"), {m_lastGoods}));
        m_lastGoods = last;
    }
}

std::vector<GoodsIndex::Match> GoodsIndex::find(const QString &typed) {
    readAll();
    follow();
    readAll();
    std::vector<Match> matches;
    const Wanted wanted(typed.trimmed().toLower());
    if (wanted.isEmpty())
        return matches;
    for (const Entry &entry : m_entries)
        if (wanted.matches(entry))
            matches.push_back({entry.id, wanted.isExactly(entry), entry.purchases, entry.sales});
    return matches;
}

} // namespace jxc
