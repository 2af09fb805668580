#pragma once

#include "core/value_kind.h"
#include "retail/member_query.h"
#include "ui/plain_editor.h"

class QComboBox;
class QLineEdit;

namespace jxc {

class DateField;
class NumberField;

/// 高级查询: what members a list shall show.
class TF_Hygl_Gjcx : public PlainEditor {
    Q_OBJECT
public:
    TF_Hygl_Gjcx(const FormContext &context, const MemberFilter &filter, QWidget *parent);

    /// The filter as it is confirmed; its search stays what it was.
    [[nodiscard]] const MemberFilter &filter() const { return m_filter; }
    void FormActivate() override;

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;
    bool mayLeave() override { return true; }

private:
    /// Two fields of a span beside each other.
    template<class Field>
    struct Span {
        Field *from = nullptr, *to = nullptr;
    };
    QComboBox *addCodes(const char *name, const QString &caption, const QString &sql,
                        const QString &chosen);
    void addMonths();
    Span<NumberField> addFigures(const char *name, const QString &caption, ValueKind kind,
                                 const std::optional<Decimal> &from,
                                 const std::optional<Decimal> &to);
    void addSpan(const char *name, const QString &caption, QLineEdit *from, QLineEdit *to);
    void clearAll();
    [[nodiscard]] bool complain(const QString &caption, QLineEdit *field) const;
    bool takeFigures(const QString &caption, const Span<NumberField> &span,
                     std::optional<Decimal> &from, std::optional<Decimal> &to) const;

    MemberFilter m_filter;
    QComboBox *m_level, *m_offer, *m_month = nullptr;
    Span<NumberField> m_value, m_points, m_spent;
    Span<DateField> m_joined;
    NumberField *m_idle;
    QList<QWidget *> m_order;
};

} // namespace jxc
