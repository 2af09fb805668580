#pragma once

#include "base/decimal.h"
#include "ui/column.h"

#include <QLineEdit>

namespace jxc {

class Formats;

/// A figure with the decimals of its kind, right-aligned. Takes digits, one point and, where
/// negative figures make sense, a minus; full-width digits of an input method count as digits.
class NumberField : public QLineEdit {
    Q_OBJECT
public:
    NumberField(ValueKind kind, const Formats &formats, QWidget *parent = nullptr);

    [[nodiscard]] Decimal value() const;
    void setValue(Decimal value);
    void setNegativeAllowed(bool on) { m_negative = on; }

Q_SIGNALS:
    void valueChanged();

private:
    void tidy(const QString &typed);

    ValueKind m_kind;
    int m_decimals;
    bool m_negative = false;
};

/// What of a typed text may stand as a figure with so many decimals: full-width forms become
/// ASCII, everything else that is no figure falls away.
[[nodiscard]] QString tidyNumber(const QString &typed, int decimals, bool negative);
/// The figure of a typed text; 0 for none. Too large a one is cut to the largest that is kept.
[[nodiscard]] Decimal typedNumber(const QString &typed);

} // namespace jxc
