#include "retail/forms/tf_hygl_gjcx.h"

#include "core/prompter.h"
#include "core/session.h"
#include "db/database.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/number_field.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

namespace jxc {

namespace {

constexpr int spanWidth = 112;

std::optional<Decimal> bound(const NumberField *field) {
    return field->text().isEmpty() ? std::nullopt : std::optional(field->value());
}

} // namespace

TF_Hygl_Gjcx::TF_Hygl_Gjcx(const FormContext &context, const MemberFilter &filter, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Hygl_Gjcx"), QStringLiteral("高级查询"), parent)
    , m_filter(filter) {
    fields()->setVerticalSpacing(8);
    m_level =
        addCodes("hl_sn", QStringLiteral("会员级别"),
                 QStringLiteral("select hl_sn,hl_name from jxc_hyfl order by id"), filter.level);
    m_offer =
        addCodes("hh_sn", QStringLiteral("优惠方式"),
                 QStringLiteral("select hh_sn,hh_name from jxc_hyyh order by id"), filter.offer);
    m_value = addFigures("hy_zhje", QStringLiteral("卡内金额"), ValueKind::amount, filter.valueFrom,
                         filter.valueTo);
    m_points = addFigures("hy_jf", QStringLiteral("会员积分"), ValueKind::integer,
                          filter.pointsFrom, filter.pointsTo);
    m_spent = addFigures("hy_zje", QStringLiteral("累计消费"), ValueKind::amount, filter.spentFrom,
                         filter.spentTo);
    m_joined = {new DateField(session().today()), new DateField(session().today())};
    m_joined.from->setDate(filter.joinedFrom);
    m_joined.to->setDate(filter.joinedTo);
    addSpan("hy_jrrq", QStringLiteral("加入日期"), m_joined.from, m_joined.to);
    addMonths();
    m_idle = new NumberField(ValueKind::integer, Formats(session().parameters));
    m_idle->setObjectName(QStringLiteral("idle"));
    if (filter.idleDays > 0)
        m_idle->setValue(Decimal(filter.idleDays));
    m_idle->setPlaceholderText(QStringLiteral("多少天没有消费"));
    fields()->addRow(QStringLiteral("未消费天数"), m_idle);
    m_order << m_idle;
    addButton(QStringLiteral("btnClear"), QStringLiteral("清空"), Qt::Key_F9,
              [this] { clearAll(); });
}

QComboBox *TF_Hygl_Gjcx::addCodes(const char *name, const QString &caption, const QString &sql,
                                  const QString &chosen) {
    auto *box = new QComboBox;
    box->setObjectName(QString::fromLatin1(name));
    box->addItem(QStringLiteral("全部"), QString());
    for (const Row &row : db().rows(sql))
        box->addItem(row.text(size_t(1)), row.text(size_t(0)));
    box->setCurrentIndex(qMax(0, box->findData(chosen)));
    fields()->addRow(caption, box);
    m_order << box;
    return box;
}

void TF_Hygl_Gjcx::addMonths() {
    m_month = new QComboBox;
    m_month->setObjectName(QStringLiteral("hy_sr"));
    m_month->addItem(QStringLiteral("全部"));
    for (int month = 1; month <= 12; ++month)
        m_month->addItem(QStringLiteral("%1月").arg(month));
    m_month->setMaxVisibleItems(13);
    m_month->setCurrentIndex(m_filter.birthMonth);
    fields()->addRow(QStringLiteral("生日月份"), m_month);
    m_order << m_month;
}

TF_Hygl_Gjcx::Span<NumberField> TF_Hygl_Gjcx::addFigures(const char *name, const QString &caption,
                                                         ValueKind kind,
                                                         const std::optional<Decimal> &from,
                                                         const std::optional<Decimal> &to) {
    const Formats formats(session().parameters);
    Span<NumberField> span{new NumberField(kind, formats), new NumberField(kind, formats)};
    for (const auto &[field, value] : {std::pair(span.from, from), std::pair(span.to, to)}) {
        field->setNegativeAllowed(true);
        // A bound of 0 is one; an empty field is none.
        if (value)
            field->setText(value->isZero() ? QStringLiteral("0") : formats.typed(kind, *value));
    }
    addSpan(name, caption, span.from, span.to);
    return span;
}

void TF_Hygl_Gjcx::addSpan(const char *name, const QString &caption, QLineEdit *from,
                           QLineEdit *to) {
    from->setObjectName(QString::fromLatin1(name));
    to->setObjectName(QString::fromLatin1(name) + QStringLiteral("_to"));
    auto *line = new QWidget;
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    for (QLineEdit *field : {from, to})
        field->setMinimumWidth(spanWidth);
    row->addWidget(from, 1);
    row->addWidget(new QLabel(QStringLiteral("至")));
    row->addWidget(to, 1);
    fields()->addRow(caption, line);
    m_order << from << to;
}

/// The spans hold two fields each, which the plain editor does not look into.
void TF_Hygl_Gjcx::FormActivate() {
    PlainEditor::FormActivate();
    for (qsizetype i = 1; i < m_order.size(); ++i)
        setTabOrder(m_order[i - 1], m_order[i]);
    m_level->setFocus();
}

void TF_Hygl_Gjcx::clearAll() {
    for (QComboBox *box : {m_level, m_offer, m_month})
        box->setCurrentIndex(0);
    for (QWidget *field : m_order)
        if (auto *line = qobject_cast<QLineEdit *>(field))
            line->clear();
    m_level->setFocus();
}

bool TF_Hygl_Gjcx::complain(const QString &caption, QLineEdit *field) const {
    prompter().inform(caption + QStringLiteral("的起始值不能大于终止值！"), informCaption);
    field->setFocus();
    field->selectAll();
    return false;
}

bool TF_Hygl_Gjcx::takeFigures(const QString &caption, const Span<NumberField> &span,
                               std::optional<Decimal> &from, std::optional<Decimal> &to) const {
    from = bound(span.from);
    to = bound(span.to);
    return !from || !to || *from <= *to || complain(caption, span.from);
}

bool TF_Hygl_Gjcx::save() {
    for (DateField *field : {m_joined.from, m_joined.to})
        if (!field->text().isEmpty() && !field->isValid()) {
            prompter().inform(QStringLiteral("加入日期格式不正确！"), informCaption);
            field->setFocus();
            return false;
        }
    MemberFilter filter;
    filter.search = m_filter.search;
    filter.level = m_level->currentData().toString();
    filter.offer = m_offer->currentData().toString();
    if (!takeFigures(QStringLiteral("卡内金额"), m_value, filter.valueFrom, filter.valueTo) ||
        !takeFigures(QStringLiteral("会员积分"), m_points, filter.pointsFrom, filter.pointsTo) ||
        !takeFigures(QStringLiteral("累计消费"), m_spent, filter.spentFrom, filter.spentTo))
        return false;
    filter.joinedFrom = m_joined.from->date();
    filter.joinedTo = m_joined.to->date();
    if (!filter.joinedFrom.isEmpty() && !filter.joinedTo.isEmpty() &&
        filter.joinedFrom > filter.joinedTo)
        return complain(QStringLiteral("加入日期"), m_joined.from);
    filter.birthMonth = m_month->currentIndex();
    // Nobody stays away for longer than there are members.
    filter.idleDays =
        static_cast<int>(std::min(m_idle->value(), Decimal(36500)).micros() / 1'000'000);
    m_filter = filter;
    return true;
}

QStringList TF_Hygl_Gjcx::content() const {
    return {};
}

} // namespace jxc
