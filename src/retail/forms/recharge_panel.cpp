#include "retail/forms/recharge_panel.h"

#include "core/prompter.h"
#include "core/session.h"
#include "db/database.h"
#include "retail/member.h"
#include "retail/member_card.h"
#include "retail/print_settings.h"
#include "ui/formats.h"
#include "ui/member_source.h"
#include "ui/number_field.h"
#include "ui/pick_field.h"
#include "ui/theme.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace jxc {

namespace {

constexpr int noteLength = 200;

QLabel *quiet(const QString &text) {
    auto *label = new QLabel(text);
    label->setProperty("quiet", true);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

void colour(QLabel *label, const QColor &with) {
    label->setStyleSheet(QStringLiteral("color: %1; font-weight: 600;").arg(with.name()));
}

} // namespace

RechargePanel::RechargePanel(const Form &form)
    : m_form(form)
    , m_member(new PickField(memberSource(form.context()), Formats(form.session().parameters)))
    , m_amount(new NumberField(ValueKind::amount, Formats(form.session().parameters)))
    , m_password(new QLineEdit)
    , m_note(new QLineEdit)
    , m_print(new QCheckBox(QStringLiteral("打印(&P)")))
    , m_ok(new QPushButton(QStringLiteral("充值 F5")))
    , m_who(new QLabel)
    , m_credit(new QLabel)
    , m_told(new QLabel) {
    build();
    connect(m_member, &PickField::chosen, this, &RechargePanel::showMember);
    connect(m_member, &PickField::cleared, this, &RechargePanel::showMember);
    connect(m_member, &PickField::notFound, this,
            [this] { m_form.prompter().inform(QStringLiteral("会员不存在！"), informCaption); });
    connect(m_amount, &NumberField::valueChanged, this, &RechargePanel::showCredit);
    connect(m_ok, &QPushButton::clicked, this, &RechargePanel::submitted);
}

void RechargePanel::build() {
    setUpFields();
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 4, 0, 4);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    const std::pair<const char16_t *, QWidget *> lines[] = {
        {u"会员", m_member}, {u"充值金额", m_amount}, {u"会员密码", m_password}, {u"备注", m_note}};
    for (int i = 0; i < 4; ++i) {
        grid->addWidget(quiet(QString::fromUtf16(lines[i].first)), i, 0);
        lines[i].second->setFixedWidth(264);
        grid->addWidget(lines[i].second, i, 1);
    }
    grid->addWidget(m_who, 0, 2);
    grid->addWidget(m_credit, 1, 2);
    grid->addLayout(makeFigures(), 2, 2);
    auto *end = new QHBoxLayout;
    end->setSpacing(12);
    end->addWidget(m_print);
    end->addWidget(m_ok);
    end->addWidget(m_told, 1);
    grid->addLayout(end, 3, 2);
    grid->setColumnStretch(2, 1);
    QWidget *order[] = {m_member, m_amount, m_password, m_note, m_ok};
    for (size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void RechargePanel::setUpFields() {
    const std::pair<QWidget *, const char16_t *> names[] = {
        {m_member, u"hy_sn"}, {m_amount, u"xf_je"},  {m_password, u"hy_mm"},
        {m_note, u"xf_note"}, {m_print, u"print"},   {m_ok, u"btnSave"},
        {m_who, u"who"},      {m_credit, u"credit"}, {m_told, u"told"}};
    for (const auto &[widget, name] : names)
        widget->setObjectName(QString::fromUtf16(name));
    m_member->setPlaceholderText(QStringLiteral("F2：卡号、手机、姓名"));
    m_member->setClearable(true);
    m_amount->setNegativeAllowed(true);
    m_amount->setPlaceholderText(QStringLiteral("负数退款"));
    m_password->setEchoMode(QLineEdit::Password);
    m_password->setMaxLength(memberPasswordLength);
    m_note->setMaxLength(noteLength);
    m_print->setFocusPolicy(Qt::NoFocus);
    m_print->setChecked(PrintSettings::load(m_form.db()).printsAfterPaying);
    m_ok->setAutoDefault(false);
    for (QLabel *label : {m_who, m_credit, m_told})
        label->setTextFormat(Qt::PlainText);
}

QLayout *RechargePanel::makeFigures() {
    auto *figures = new QHBoxLayout;
    figures->setSpacing(8);
    for (const auto &[label, caption, name] :
         {std::tuple(&m_value, u"卡内金额", u"hy_zhje"), std::tuple(&m_points, u"积分", u"hy_jf"),
          std::tuple(&m_refundable, u"可退金额", u"refundable")}) {
        *label = addFigure(QString::fromUtf16(caption), QString::fromUtf16(name));
        figures->addWidget(quiet(QString::fromUtf16(caption)));
        figures->addWidget(*label);
        figures->addSpacing(16);
    }
    figures->addStretch(1);
    return figures;
}

QLabel *RechargePanel::addFigure(const QString &caption, const QString &name) {
    auto *label = new QLabel;
    label->setObjectName(name);
    label->setAccessibleName(caption);
    label->setStyleSheet(QStringLiteral("font-weight: 600;"));
    return label;
}

void RechargePanel::startNew() {
    m_member->setChoice({}, {});
    m_amount->clear();
    m_password->clear();
    m_note->clear();
    m_told->clear();
    showMember();
    m_member->setFocus();
}

void RechargePanel::setMember(const QString &key) {
    startNew();
    m_member->setCode(key);
    showMember();
    if (!m_member->code().isEmpty())
        m_amount->setFocus(Qt::TabFocusReason);
}

void RechargePanel::refresh() {
    showMember();
}

void RechargePanel::showMember() {
    const auto member = findMember(m_form.db(), m_member->code());
    const Formats formats(m_form.session().parameters);
    const auto figure = [&](ValueKind kind, Decimal value) {
        return member ? formats.text(kind, value) : QString();
    };
    const Member shown = member.value_or(Member());
    m_value->setText(figure(ValueKind::amount, shown.value));
    m_points->setText(figure(ValueKind::integer, shown.points));
    m_refundable->setText(
        member ? formats.text(ValueKind::amount, refundableValue(m_form.session(), shown))
               : QString());
    QStringList words{shown.number, shown.mobile};
    words.removeAll(QString());
    m_who->setText(words.join(u'　'));
    m_who->setStyleSheet({});
    if (member)
        try {
            memberUsable(m_form.session(), shown);
        } catch (const Refusal &no) {
            m_who->setText(m_who->text() + u'　' + no.text());
            colour(m_who, Theme::current().danger);
        }
    showCredit();
}

/// What the offer makes of the amount, and whether money leaves the card.
void RechargePanel::showCredit() {
    const auto member = findMember(m_form.db(), m_member->code());
    const Decimal amount = m_amount->value();
    const bool isPayout = amount.isNegative();
    m_password->setEnabled(isPayout && member && !member->password.isEmpty());
    m_ok->setText(isPayout ? QStringLiteral("退款 F5") : QStringLiteral("充值 F5"));
    if (!amount.isZero())
        m_told->clear();
    if (!member || amount.isZero() || isPayout) {
        m_credit->clear();
        return;
    }
    const Formats formats(m_form.session().parameters);
    const Decimal bonus = rechargeBonus(m_form.session(), *member, amount);
    QString words = QStringLiteral("到账 ") + formats.money(amount + bonus);
    if (!bonus.isZero())
        words += QStringLiteral("（赠送 %1）").arg(formats.money(bonus));
    m_credit->setText(words);
    colour(m_credit, Theme::current().accent);
}

bool RechargePanel::collect(Recharge *recharge) {
    if (m_member->isTyped() && !m_member->commitTyped()) {
        m_member->setFocus();
        return false;
    }
    if (m_member->code().isEmpty()) {
        m_form.prompter().inform(QStringLiteral("会员必须填写！"), informCaption);
        m_member->setFocus();
        return false;
    }
    if (m_amount->value().isZero()) {
        m_amount->setFocus();
        return false;
    }
    *recharge = {.member = m_member->code(),
                 .amount = m_amount->value(),
                 .note = m_note->text().trimmed(),
                 .password = m_password->text()};
    return true;
}

bool RechargePanel::isTyped() const {
    return !m_amount->value().isZero() || !m_note->text().isEmpty();
}

bool RechargePanel::wantsPrint() const {
    return m_print->isChecked();
}

void RechargePanel::tell(const QString &words) {
    m_told->setText(words);
    colour(m_told, Theme::current().good);
}

void RechargePanel::focusRefused(const QString &text) {
    QLineEdit *field = m_amount;
    if (text.startsWith(QStringLiteral("会员密码")) && m_password->isEnabled())
        field = m_password;
    else if (text.startsWith(QStringLiteral("该会员卡")))
        field = m_member;
    field->setFocus();
    field->selectAll();
}

void RechargePanel::goOn() {
    const QList<QWidget *> order{m_member, m_amount, m_password, m_note};
    for (qsizetype i = order.indexOf(focusWidget()) + 1; i > 0 && i < order.size(); ++i)
        if (order[i]->isEnabled()) {
            order[i]->setFocus(Qt::TabFocusReason);
            return;
        }
    Q_EMIT submitted();
}

} // namespace jxc
