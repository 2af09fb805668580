#include "retail/forms/tf_hyksz.h"

#include "core/action.h"
#include "core/session.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace jxc {

namespace {

QLabel *quiet(const QString &words) {
    auto *label = new QLabel(words);
    label->setProperty("quiet", true);
    return label;
}

QFormLayout *formIn(QGroupBox *group) {
    auto *form = new QFormLayout(group);
    form->setContentsMargins(12, 16, 12, 12);
    form->setSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return form;
}

/// "1" to "31", or the days of a week from Monday; behind them what Enter chooses.
QStringList daysOf(MemberDay rule) {
    QStringList days;
    if (rule == MemberDay::monthly) {
        for (int day = 1; day <= 31; ++day)
            days << QStringLiteral("%1日").arg(day);
        return days;
    }
    for (const QChar day : QStringLiteral("一二三四五六日"))
        days << QStringLiteral("星期") + day;
    return days;
}

int whole(const NumberField &field) {
    return static_cast<int>(field.value().micros() / 1'000'000);
}

} // namespace

TF_Hyksz::TF_Hyksz(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Hyksz"), QStringLiteral("会员设置"), parent) {
    auto *groups = new QWidget(this);
    auto *grid = new QGridLayout(groups);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(12);
    // One after the other, so that Enter goes down the left side and then the right one.
    QWidget *points = pointsGroup();
    QWidget *birthday = birthdayGroup();
    QWidget *promotion = promotionGroup();
    QWidget *day = memberDayGroup();
    grid->addWidget(points, 0, 0);
    grid->addWidget(birthday, 1, 0);
    grid->addWidget(promotion, 0, 1);
    grid->addWidget(day, 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    groups->setFocusProxy(m_perPoint);
    addBelowFields(groups);
    for (NumberField *switching : {m_perPoint, m_birthdayFactor, m_promotionFactor})
        connect(switching, &NumberField::valueChanged, this, &TF_Hyksz::showWhatApplies);
    connect(m_birthdayRule, &QComboBox::currentIndexChanged, this, &TF_Hyksz::showWhatApplies);
    connect(m_memberDay, &QComboBox::currentIndexChanged, this, [this] {
        fillDays();
        showWhatApplies();
    });
    setMinimumWidth(760);
}

NumberField *TF_Hyksz::figure(const char *name, ValueKind kind) {
    auto *field = new NumberField(kind, Formats(session().parameters));
    field->setObjectName(QString::fromLatin1(name));
    if (kind == ValueKind::integer)
        field->setMaxLength(4); // times, days
    return field;
}

QComboBox *TF_Hyksz::choice(const char *name, const QStringList &items) {
    auto *box = new QComboBox;
    box->setObjectName(QString::fromLatin1(name));
    box->addItems(items);
    return box;
}

DateField *TF_Hyksz::date(const char *name) {
    auto *field = new DateField(session().today());
    field->setObjectName(QString::fromLatin1(name));
    return field;
}

QWidget *TF_Hyksz::pointsGroup() {
    auto *group = new QGroupBox(QStringLiteral("积分"), this);
    QFormLayout *form = formIn(group);
    m_perPoint = figure("jf_mfje", ValueKind::amount);
    m_rule = choice("jf_jfgz", {QStringLiteral("充值积分"), QStringLiteral("消费积分")});
    m_rule->setToolTip(QStringLiteral(
        "充值积分：充值时就得积分，用储值卡付的部分不再积分\n消费积分：消费时得积分"));
    m_remainder = new QCheckBox(QStringLiteral("零头累计到下一次"));
    m_remainder->setObjectName(QStringLiteral("jf_yelj"));
    m_special = quiet({});
    form->addRow(QStringLiteral("每分金额"), m_perPoint);
    form->addRow(QString(), quiet(QStringLiteral("每消费这么多元得 1 分；0 不积分")));
    form->addRow(QStringLiteral("积分规则"), m_rule);
    form->addRow(QString(), m_remainder);
    form->addRow(QString(), m_special);
    return group;
}

QWidget *TF_Hyksz::birthdayGroup() {
    auto *group = new QGroupBox(QStringLiteral("生日"), this);
    QFormLayout *form = formIn(group);
    m_birthdayFactor = figure("jf_srjfbs", ValueKind::integer);
    m_birthdayRule = choice("jf_srjflx", {QStringLiteral("生日当天"), QStringLiteral("生日前后")});
    m_birthdayDays = figure("jf_srjfts", ValueKind::integer);
    form->addRow(QStringLiteral("积分倍数"), m_birthdayFactor);
    form->addRow(QString(), quiet(QStringLiteral("0 生日不加倍；生日与促销不叠加")));
    form->addRow(QStringLiteral("生日规则"), m_birthdayRule);
    form->addRow(QStringLiteral("前后天数"), m_birthdayDays);
    return group;
}

QWidget *TF_Hyksz::promotionGroup() {
    auto *group = new QGroupBox(QStringLiteral("促销期间"), this);
    QFormLayout *form = formIn(group);
    m_promotionFactor = figure("jf_dbjf", ValueKind::integer);
    m_promotionFrom = date("jf_dbrq1");
    m_promotionTo = date("jf_dbrq2");
    form->addRow(QStringLiteral("积分倍数"), m_promotionFactor);
    form->addRow(QString(), quiet(QStringLiteral("0 没有促销")));
    form->addRow(QStringLiteral("开始日期"), m_promotionFrom);
    form->addRow(QStringLiteral("结束日期"), m_promotionTo);
    return group;
}

QWidget *TF_Hyksz::memberDayGroup() {
    auto *group = new QGroupBox(QStringLiteral("会员日"), this);
    QFormLayout *form = formIn(group);
    m_memberDay = choice("jf_hyr", {QStringLiteral("无"), QStringLiteral("每周"),
                                    QStringLiteral("每月"), QStringLiteral("期间")});
    m_dayFrom = choice("jf_hyrmy1", {});
    m_dayTo = choice("jf_hyrmy2", {});
    m_periodFrom = date("jf_hyr1");
    m_periodTo = date("jf_hyr2");
    m_discount = figure("jf_hyrzk", ValueKind::factor);
    const auto pair = [](QWidget *from, QWidget *to) {
        auto *row = new QHBoxLayout;
        row->setSpacing(8);
        row->addWidget(from, 1);
        row->addWidget(quiet(QStringLiteral("至")));
        row->addWidget(to, 1);
        return row;
    };
    form->addRow(QStringLiteral("会员日"), m_memberDay);
    form->addRow(QStringLiteral("日子"), pair(m_dayFrom, m_dayTo));
    form->addRow(QStringLiteral("期间"), pair(m_periodFrom, m_periodTo));
    form->addRow(QStringLiteral("会员日折扣"), m_discount);
    form->addRow(QString(), quiet(QStringLiteral("0.95 是九五折；0 或 1 不打折")));
    return group;
}

/// The settings may have changed since the form was made.
void TF_Hyksz::FormActivate() {
    fill();
    PlainEditor::FormActivate();
    m_perPoint->selectAll();
}

void TF_Hyksz::fill() {
    m_stored = PointsSettings::load(db());
    m_perPoint->setValue(m_stored.amountPerPoint);
    m_rule->setCurrentIndex(m_stored.storedValueEarns ? 1 : 0);
    m_remainder->setChecked(m_stored.carriesRemainder);
    m_special->setText(m_stored.specialPricesEarn
                           ? QStringLiteral("特价商品也积分（系统设置，销售页）")
                           : QStringLiteral("特价商品不积分（系统设置，销售页）"));
    m_birthdayFactor->setValue(m_stored.birthdayFactor);
    m_birthdayRule->setCurrentIndex(m_stored.birthdayWindow ? 1 : 0);
    m_birthdayDays->setValue(m_stored.birthdayDays);
    m_promotionFactor->setValue(m_stored.promotionFactor);
    m_promotionFrom->setDate(m_stored.promotionFrom);
    m_promotionTo->setDate(m_stored.promotionTo);
    m_memberDay->setCurrentIndex(static_cast<int>(m_stored.memberDay));
    m_periodFrom->setDate(m_stored.periodFrom);
    m_periodTo->setDate(m_stored.periodTo);
    m_discount->setValue(m_stored.memberDayDiscount);
    fillDays();
    showWhatApplies();
}

MemberDay TF_Hyksz::memberDay() const {
    return static_cast<MemberDay>(m_memberDay->currentIndex());
}

/// Weekdays or days of the month; those that are stored where they are of this rule.
void TF_Hyksz::fillDays() {
    const bool isStored = memberDay() == m_stored.memberDay;
    const int from = isStored ? m_stored.memberDayFrom.toInt() : 1;
    const int to =
        isStored && !m_stored.memberDayTo.isEmpty() ? m_stored.memberDayTo.toInt() : from;
    for (const auto &[box, day] : {std::pair(m_dayFrom, from), std::pair(m_dayTo, to)}) {
        box->clear();
        box->addItems(daysOf(memberDay()));
        box->setCurrentIndex(std::clamp(day, 1, box->count()) - 1);
    }
}

void TF_Hyksz::showWhatApplies() {
    const bool earns = !m_perPoint->value().isZero();
    const bool birthday = earns && whole(*m_birthdayFactor) != 0;
    const bool promotion = earns && whole(*m_promotionFactor) != 0;
    const MemberDay day = memberDay();
    const auto enable = [](bool on, const std::vector<QWidget *> &fields) {
        for (QWidget *field : fields)
            field->setEnabled(on);
    };
    enable(earns, {m_rule, m_remainder, m_birthdayFactor, m_promotionFactor});
    enable(birthday, {m_birthdayRule});
    enable(birthday && m_birthdayRule->currentIndex() == 1, {m_birthdayDays});
    enable(promotion, {m_promotionFrom, m_promotionTo});
    enable(day == MemberDay::weekly || day == MemberDay::monthly, {m_dayFrom, m_dayTo});
    enable(day == MemberDay::period, {m_periodFrom, m_periodTo});
    enable(day != MemberDay::none, {m_discount});
}

PointsSettings TF_Hyksz::settings() const {
    PointsSettings s = m_stored;
    s.amountPerPoint = m_perPoint->value();
    s.storedValueEarns = m_rule->currentIndex() == 1;
    s.carriesRemainder = m_remainder->isChecked();
    s.birthdayFactor = whole(*m_birthdayFactor);
    s.birthdayWindow = m_birthdayRule->currentIndex() == 1;
    s.birthdayDays = whole(*m_birthdayDays);
    s.promotionFactor = whole(*m_promotionFactor);
    s.promotionFrom = m_promotionFrom->date();
    s.promotionTo = m_promotionTo->date();
    s.memberDay = memberDay();
    if (m_dayFrom->isEnabled()) {
        s.memberDayFrom = QString::number(m_dayFrom->currentIndex() + 1);
        s.memberDayTo = QString::number(m_dayTo->currentIndex() + 1);
    }
    s.periodFrom = m_periodFrom->date();
    s.periodTo = m_periodTo->date();
    s.memberDayDiscount = m_discount->value();
    return s;
}

QStringList TF_Hyksz::content() const {
    QStringList all;
    for (const QLineEdit *field : findChildren<QLineEdit *>())
        all << field->text();
    for (const QComboBox *box : findChildren<QComboBox *>())
        all << QString::number(box->currentIndex());
    return all << QString::number(m_remainder->isChecked());
}

bool TF_Hyksz::save() {
    QString field;
    if (show(savePointsSettings(session(), prompter(), settings(), &field)))
        return true;
    if (auto *refused = findChild<QWidget *>(field); refused != nullptr && !field.isEmpty()) {
        refused->setFocus();
        if (auto *line = qobject_cast<QLineEdit *>(refused))
            line->selectAll();
    }
    return false;
}

} // namespace jxc
