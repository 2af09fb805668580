#include "base/pairs.h"

#include <QRandomGenerator>

namespace jxc {

QString randomToken32() {
    static constexpr QStringView alphabet =
        u"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    // Qt seeds it from the system; a seed from the clock would let two counters that start in the
    // same moment draw the same tokens.
    QRandomGenerator &random = *QRandomGenerator::global();
    QString token;
    token.reserve(32);
    while (token.size() < 32)
        token += alphabet[random.bounded(static_cast<int>(alphabet.size()))];
    return token;
}

QString joinQueryPairs(const QList<NameValue> &pairs) {
    QString text;
    for (const auto &[name, value] : pairs) {
        if (!text.isEmpty())
            text += u'&';
        text += name + u'=' + value;
    }
    return text;
}

QString buildXmlPairs(const QList<NameValue> &pairs) {
    QString text = QStringLiteral("<xml> ");
    for (const auto &[name, value] : pairs) {
        // The one sequence that would end the section early is divided between two of them, so that
        // the other side reads the value back as it was.
        QString data = value;
        data.replace(QStringLiteral("]]>"), QStringLiteral("]]]]><![CDATA[>"));
        text += QStringLiteral("<%1><![CDATA[%2]]></%1>").arg(name, data);
    }
    return text + QStringLiteral("</xml>");
}

} // namespace jxc
