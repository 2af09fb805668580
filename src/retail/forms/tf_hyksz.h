#pragma once

#include "core/value_kind.h"
#include "retail/points_settings.h"
#include "ui/plain_editor.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace jxc {

class DateField;
class NumberField;

/// 会员设置: how members earn points, and the days on which they pay less. What does not apply is
/// disabled and stays as it is stored.
class TF_Hyksz : public PlainEditor {
    Q_OBJECT
public:
    explicit TF_Hyksz(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    QWidget *pointsGroup();
    QWidget *birthdayGroup();
    QWidget *promotionGroup();
    QWidget *memberDayGroup();
    NumberField *figure(const char *name, ValueKind kind);
    QComboBox *choice(const char *name, const QStringList &items);
    DateField *date(const char *name);

    void fill();
    void fillDays();
    void showWhatApplies();
    [[nodiscard]] MemberDay memberDay() const;
    [[nodiscard]] PointsSettings settings() const;

    PointsSettings m_stored;
    NumberField *m_perPoint, *m_birthdayFactor, *m_birthdayDays, *m_promotionFactor, *m_discount;
    QComboBox *m_rule, *m_birthdayRule, *m_memberDay, *m_dayFrom, *m_dayTo;
    QCheckBox *m_remainder;
    DateField *m_promotionFrom, *m_promotionTo, *m_periodFrom, *m_periodTo;
    QLabel *m_special;
};

} // namespace jxc
