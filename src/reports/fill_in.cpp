#include "reports/fill_in.h"

#include "base/capitals.h"

#include <QRegularExpression>

namespace jxc {

namespace {

/// One field after the other, those in parentheses first.
class FieldReader {
public:
    FieldReader(const PrintData &data, const PrintPlace &place)
        : m_data(data)
        , m_place(place) {}

    [[nodiscard]] PrintValue value(const QString &field) const {
        if (const auto inner = insideOf(field, QLatin1String("capital")))
            return capital(value(*inner));
        if (const auto inner = insideOf(field, QLatin1String("sum")))
            return m_data.sum(inner->section(u'.', 1), 0, m_data.lines.size());
        if (const auto inner = insideOf(field, QLatin1String("pagesum")))
            return m_data.sum(inner->section(u'.', 1), m_place.firstLine, m_place.endLine);
        if (field == QLatin1String("page"))
            return QString::number(m_place.page);
        if (field == QLatin1String("pages"))
            return QString::number(m_place.pages);
        return fieldOf(field.section(u'.', 0, 0), field.section(u'.', 1));
    }

private:
    static std::optional<QString> insideOf(const QString &field, QLatin1String function) {
        if (!field.startsWith(function) || field.size() < function.size() + 2 ||
            field[function.size()] != u'(' || !field.endsWith(u')'))
            return std::nullopt;
        return field.sliced(function.size() + 1).chopped(1).trimmed();
    }

    [[nodiscard]] PrintValue capital(const PrintValue &value) const {
        if (!isNumber(value.kind))
            return {};
        return amountInCapitals(value.figure.rounded(m_data.amountDecimals).toText());
    }

    [[nodiscard]] PrintValue fieldOf(const QString &source, const QString &name) const {
        if (source == QLatin1String("head"))
            return m_data.head.value(name);
        if (source == QLatin1String("line"))
            return m_place.line && *m_place.line < m_data.lines.size()
                       ? m_data.lines[*m_place.line].value(name)
                       : PrintValue();
        if (source == QLatin1String("var"))
            return m_data.vars.value(name);
        if (source == QLatin1String("company"))
            return company(name);
        return {};
    }

    [[nodiscard]] QString company(const QString &name) const {
        if (name == QLatin1String("c_name"))
            return m_data.company.name;
        if (name == QLatin1String("c_jc"))
            return m_data.company.shortName;
        if (name == QLatin1String("c_tele"))
            return m_data.company.telephone;
        if (name == QLatin1String("c_address"))
            return m_data.company.address;
        return {};
    }

    const PrintData &m_data;
    const PrintPlace &m_place;
};

} // namespace

QString fillIn(const QString &text, const PrintData &data, const PrintPlace &place,
               const QString &format) {
    static const QRegularExpression field(QStringLiteral("\\[([a-z][a-z0-9_.() ]*)\\]"),
                                          QRegularExpression::CaseInsensitiveOption);
    const FieldReader reader(data, place);
    QString filled;
    qsizetype end = 0;
    for (auto found = field.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        filled += QStringView(text).sliced(end, match.capturedStart() - end);
        filled += data.shown(reader.value(match.captured(1)), format);
        end = match.capturedEnd();
    }
    filled += QStringView(text).sliced(end);
    return filled;
}

} // namespace jxc
