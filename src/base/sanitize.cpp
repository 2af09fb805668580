#include "base/sanitize.h"

namespace jxc {

namespace {

constexpr char16_t deleted = 0;

/// What stands in place of a character in every sanitised text.
constexpr char16_t replacedAlways(char16_t c) {
    switch (c) {
    case u'\'':
        return u'‘';
    case u'"':
        return u'“';
    case u'?':
        return u'？';
    case u'%':
        return u'％';
    case u'!':
        return u'！';
    case u'$':
        return u'￥';
    case u'&':
        return u'＆';
    case u',':
        return u'，';
    case u'@':
        return u'＠';
    case u'~':
        return u'～';
    case u'^':
    case u'`':
        return deleted;
    default:
        return c;
    }
}

/// What codes and numbers keep and other texts do not.
constexpr char16_t replacedInWords(char16_t c) {
    switch (c) {
    case u'.':
        return u'．';
    case u'(':
        return u'（';
    case u')':
        return u'）';
    case u'+':
        return u'＋';
    case u'-':
        return u'－';
    case u'/':
        return u'／';
    default:
        return replacedAlways(c);
    }
}

template<typename Replacement>
QString replaced(QStringView text, Replacement replacement) {
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        // A zero character that was typed stays as little as one that is deleted.
        if (const char16_t kept = replacement(c.unicode()); kept != deleted)
            result += QChar(kept);
    }
    return result;
}

} // namespace

QString sanitizeSqlText(QStringView text) {
    return replaced(text, replacedInWords);
}

QString sanitizeSqlTextLight(QStringView text) {
    return replaced(text, replacedAlways);
}

} // namespace jxc
