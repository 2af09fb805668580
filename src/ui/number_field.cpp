#include "ui/number_field.h"

#include "ui/formats.h"

namespace jxc {

namespace {

/// Digits before the point that every stored figure can have.
constexpr int wholeDigits = 9;

} // namespace

QString tidyNumber(const QString &typed, int decimals, bool negative) {
    QString kept;
    bool point = false;
    int whole = 0, places = 0;
    for (QChar c : typed) {
        if (c.unicode() >= 0xff01 && c.unicode() <= 0xff5e)
            c = QChar(c.unicode() - 0xfee0);
        if (c == u'。')
            c = u'.';
        if (c == u'-' && negative && kept.isEmpty()) {
            kept += c;
        } else if (c == u'.' && !point && decimals > 0) {
            point = true;
            kept += c;
        } else if (c >= u'0' && c <= u'9') {
            int &count = point ? places : whole;
            if (count == (point ? decimals : wholeDigits))
                continue;
            ++count;
            kept += c;
        }
    }
    return kept;
}

Decimal typedNumber(const QString &typed) {
    const QString text = tidyNumber(typed, 6, true);
    if (text.isEmpty() || text == QLatin1String("-") || text == QLatin1String(".") ||
        text == QLatin1String("-."))
        return {};
    return Decimal::fromText(text);
}

NumberField::NumberField(ValueKind kind, const Formats &formats, QWidget *parent)
    : QLineEdit(parent)
    , m_kind(kind)
    , m_decimals(formats.decimals(kind)) {
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, &NumberField::tidy);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (!text().isEmpty())
            setValue(value());
    });
}

void NumberField::tidy(const QString &typed) {
    if (const QString kept = tidyNumber(typed, m_decimals, m_negative); kept != typed) {
        const int place = cursorPosition() - static_cast<int>(typed.size() - kept.size());
        setText(kept);
        setCursorPosition(qMax(0, place));
    }
    Q_EMIT valueChanged();
}

Decimal NumberField::value() const {
    return typedNumber(text());
}

void NumberField::setValue(Decimal value) {
    const QString shown = m_kind == ValueKind::factor ? value.toText() : value.toText(m_decimals);
    if (text() != shown)
        setText(shown);
}

} // namespace jxc
