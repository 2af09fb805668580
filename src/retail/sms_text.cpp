#include "retail/sms_text.h"

#include "db/row.h"

namespace jxc {

QString fillSmsTemplate(const QString &text, const QList<NameValue> &values) {
    QString filled;
    for (qsizetype i = 0; i < text.size();) {
        const QStringView rest = QStringView(text).mid(i);
        const auto found = std::find_if(values.begin(), values.end(), [&](const NameValue &value) {
            return rest.startsWith(value.first);
        });
        if (found == values.end()) {
            filled += text[i++];
        } else {
            filled += found->second;
            i += found->first.size();
        }
    }
    return filled;
}

QList<NameValue> smsPlaceholders(const Row &member) {
    return {{QStringLiteral("{hyname}"), member.text(u"hy_name")},
            {QStringLiteral("{hybh}"), member.text(u"hy_bh")},
            {QStringLiteral("{hysr}"), member.text(u"hy_sr")},
            {QStringLiteral("{czkje}"), member.decimal(u"hy_zhje").toText(2)},
            {QStringLiteral("{zjf}"), member.decimal(u"hy_jf").toText()}};
}

QString withSmsSign(const QString &text, const QString &sign) {
    return text + u'【' + sign + u'】';
}

} // namespace jxc
