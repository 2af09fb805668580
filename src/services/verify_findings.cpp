#include "services/verify_findings.h"

namespace jxc::verify {

void Findings::add(const QString &store, const QString &key, const QString &text,
                   const Place &place) {
    put(m_differences, {rankOf(store), key}, {place, text});
}

void Findings::inform(const QString &store, const QString &key, const QString &text) {
    put(m_information, {rankOf(store), key}, {{}, text});
}

void Findings::put(ByKey &where, const std::pair<qsizetype, QString> &key, const Finding &finding) {
    const auto [known, isNew] = where.try_emplace(key, finding);
    if (!isNew && finding.place < known->second.place)
        known->second = finding;
}

qsizetype Findings::rankOf(const QString &store) {
    if (!m_stores.contains(store))
        m_stores << store;
    return m_stores.indexOf(store);
}

std::vector<Difference> Findings::take() const {
    std::vector<Difference> all;
    all.reserve(m_differences.size() + m_information.size());
    for (const auto &[key, finding] : m_differences)
        all.push_back({m_stores[key.first], key.second, finding.text, false});
    for (const auto &[key, finding] : m_information)
        all.push_back({m_stores[key.first], key.second, finding.text, true});
    return all;
}

QString compared(const QString &caption, Decimal found, Decimal due) {
    return found == due ? QString() : compared(caption, found.toText(), due.toText());
}

QString compared(const QString &caption, const QString &found, const QString &due) {
    if (found == due)
        return {};
    const auto shown = [](const QString &text) {
        return text.isEmpty() ? QStringLiteral("空") : text;
    };
    return QStringLiteral("%1为 %2，应为 %3").arg(caption, shown(found), shown(due));
}

} // namespace jxc::verify
