#include "services/verify_paging.h"

namespace jxc::verify {

namespace {

constexpr size_t rowsAtATime = 4'000;
constexpr size_t documentsAtATime = 500;

Value keyOf(const Row &row, size_t position, const QString &name) {
    if (name.endsWith(QLatin1String("id")))
        return row.integer(position);
    return row.text(position);
}

} // namespace

void eachRow(Database &db, const PagedQuery &q, const std::function<void(const Row &)> &visit) {
    const QString keys = q.keys.join(u',');
    const QString head = QStringLiteral("select %1 from %2 where ").arg(q.select, q.from);
    const QString tail = QStringLiteral(" order by %1 limit %2").arg(keys).arg(rowsAtATime);
    const QString first = q.where.isEmpty() ? QStringLiteral("1=1") : q.where;
    const QString marks = QStringList(q.keys.size(), QStringLiteral("?")).join(u',');
    const QString onwards = first + QStringLiteral(" and (%1)>(%2)").arg(keys, marks);

    Rows rows = db.rows(head + first + tail, q.values);
    while (!rows.empty()) {
        for (const Row &row : rows)
            visit(row);
        if (rows.size() < rowsAtATime)
            return;
        Values values = q.values;
        for (qsizetype i = 0; i < q.keys.size(); ++i)
            values.push_back(keyOf(rows.back(), static_cast<size_t>(i), q.keys[i]));
        rows = db.rows(head + onwards + tail, values);
    }
}

QString NumberRange::condition(const QString &column) {
    return QStringLiteral("%1>? and %1<=?").arg(column);
}

void eachHeaderPage(Database &db, const HeaderTable &t, const QString &code,
                    const std::function<void(const Headers &, const NumberRange &)> &visit) {
    // A number is its code and digits, so all of them lie before this.
    const QString end = code + QChar(QChar::ReplacementCharacter);
    const QString sql =
        QStringLiteral("select %1 as number,%2 as status,%3 from %4 where %5 "
                       "order by %1 limit %6")
            .arg(t.number, t.status, t.columns, t.table, NumberRange::condition(t.number))
            .arg(documentsAtATime);
    QString after = code;
    for (bool more = true; more;) {
        Headers headers;
        const Rows rows = db.rows(sql, {after, end});
        for (const Row &row : rows) {
            const auto [known, isNew] = headers.try_emplace(row.text(u"number"), row);
            if (!isNew && row.flag(u"status"))
                known->second = row;
        }
        more = rows.size() == documentsAtATime && headers.rbegin()->first > after;
        const QString upTo = more ? headers.rbegin()->first : end;
        visit(headers, {after, upTo});
        after = upTo;
    }
}

} // namespace jxc::verify
