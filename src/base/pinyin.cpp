#include "base/pinyin.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace jxc {

namespace {

using namespace std::string_view_literals;

#include "base/pinyin_data.inc"

constexpr char16_t firstHan = 0x4E00;
constexpr char16_t lastHan = 0x9FFF;
static_assert(bestLetters.size() == lastHan - firstHan + 1);

bool isHan(char16_t c) {
    return c >= firstHan && c <= lastHan;
}

bool isLetterOrDigit(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

/// Full-width and other compatible forms become plain ones (Ａ, Ⅱ, ①), all of it upper-case.
QString plain(QStringView text) {
    const bool alreadyPlain = std::all_of(
        text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80 || isHan(c.unicode()); });
    if (alreadyPlain)
        return text.toString().toUpper();
    return text.toString().normalized(QString::NormalizationForm_KD).toUpper();
}

/// The entries of a sorted table that begin with the character.
auto entriesOf(std::span<const std::u16string_view> table, char16_t c) {
    struct ByFirst {
        bool operator()(std::u16string_view entry, char16_t c) const { return entry[0] < c; }
        bool operator()(char16_t c, std::u16string_view entry) const { return c < entry[0]; }
    };
    return std::equal_range(table.begin(), table.end(), c, ByFirst());
}

/// The longest word of the list that the text begins with: its letters, one for each character.
std::u16string_view wordLetters(std::u16string_view text) {
    std::u16string_view longest;
    const auto [first, last] = entriesOf(words, text[0]);
    for (auto entry = first; entry != last; ++entry) {
        const size_t size = entry->size() / 2;
        if (size > longest.size() && text.starts_with(entry->substr(0, size)))
            longest = entry->substr(size);
    }
    return longest;
}

/// All letters of a polyphone; empty for a character that has just one.
std::u16string_view otherLetters(char16_t c) {
    const auto [first, last] = entriesOf(severalLetters, c);
    return first == last ? std::u16string_view() : first->substr(1);
}

/// The letter of a character on its own; 0 when it has none.
char16_t singleLetter(char16_t c) {
    if (isLetterOrDigit(c))
        return c;
    if (c == u'〇')
        return u'L'; // the zero of dates and model numbers lies outside the table
    if (!isHan(c))
        return 0;
    const char letter = bestLetters[c - firstHan];
    return letter == ' ' ? u'\0' : static_cast<char16_t>(letter);
}

/// Calls take(best letter, all letters) for each character that has a reading, until it returns
/// false.
template<typename Take>
void forEachReading(QStringView name, Take take) {
    const QString text = plain(name);
    std::u16string_view rest(QStringView(text).utf16(), static_cast<size_t>(text.size()));
    while (!rest.empty()) {
        const std::u16string_view word = wordLetters(rest);
        const size_t size = std::max<size_t>(word.size(), 1);
        for (size_t i = 0; i < size; ++i) {
            const char16_t best = word.empty() ? singleLetter(rest[i]) : word[i];
            if (best != 0 && !take(best, otherLetters(rest[i])))
                return;
        }
        rest.remove_prefix(size);
    }
}

} // namespace

QString pinyinInitials(QStringView name) {
    QString initials;
    initials.reserve(name.size());
    forEachReading(name, [&initials](char16_t best, std::u16string_view) {
        initials += QChar(best);
        return true;
    });
    return initials;
}

QStringList pinyinReadings(QStringView name) {
    QStringList readings;
    forEachReading(name, [&readings](char16_t best, std::u16string_view all) {
        QString letters{QChar(best)};
        for (const char16_t letter : all) {
            if (letter != best)
                letters += QChar(letter);
        }
        readings += letters;
        return true;
    });
    return readings;
}

bool initialsMatch(QStringView name, QStringView typed) {
    // A typed Chinese character stays and matches no letter: that is a search by name.
    QString wanted = plain(typed);
    wanted.removeIf([](QChar c) { return !isLetterOrDigit(c.unicode()) && !isHan(c.unicode()); });
    qsizetype at = 0;
    if (wanted.isEmpty())
        return true;
    forEachReading(name, [&](char16_t best, std::u16string_view all) {
        const char16_t c = wanted[at].unicode();
        if (c != best && all.find(c) == std::u16string_view::npos)
            return false;
        return ++at < wanted.size();
    });
    return at == wanted.size();
}

} // namespace jxc
