#include "retail/counter_input.h"

#include "master/barcodes.h"

#include <algorithm>

namespace jxc {

namespace {

bool isDigits(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

std::optional<CounterInput::Label> readLabel(const CounterSettings &s, const QString &code) {
    if (code.size() != 13 || !isDigits(code))
        return std::nullopt;
    const bool weighs = s.weightPrefix.size() == 2 && code.startsWith(s.weightPrefix);
    const bool counts = s.countPrefix.size() == 2 && code.startsWith(s.countPrefix);
    if ((!weighs && !counts) || ean13CheckDigit(QStringView(code).left(12)) != code.back())
        return std::nullopt;
    const Decimal figure = Decimal(code.mid(7, 5).toInt());
    CounterInput::Label label{.goods = code.mid(2, 5)};
    if (s.scaleCarriesAmount)
        label.amount = (figure / Decimal(100)).rounded(2);
    else
        label.quantity = weighs ? (figure / Decimal(1000)).rounded(3) : figure;
    return label;
}

std::optional<Decimal> readQuantity(const QString &text) {
    try {
        const Decimal quantity = Decimal::fromText(text);
        if (quantity.isPositive())
            return quantity;
    } catch (const NumberError &) {
        // a code with an asterisk in it
    } catch (const RangeError &) {
        // a barcode scanned behind another one
    }
    return std::nullopt;
}

} // namespace

CounterInput parseCounterInput(const CounterSettings &settings, const QString &typed) {
    CounterInput input{.code = typed.normalized(QString::NormalizationForm_KC).trimmed()};
    const qsizetype star = input.code.indexOf(u'*');
    if (star > 0) {
        input.quantity = readQuantity(input.code.left(star));
        if (input.quantity)
            input.code = input.code.mid(star + 1).trimmed();
    }
    input.label = readLabel(settings, input.code);
    return input;
}

} // namespace jxc
