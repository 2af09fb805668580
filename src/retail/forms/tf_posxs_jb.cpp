#include "retail/forms/tf_posxs_jb.h"

#include "core/login.h"
#include "core/session.h"
#include "retail/forms/counter_printing.h"
#include "retail/shift_paper.h"
#include "ui/formats.h"
#include "ui/number_field.h"
#include "ui/theme.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace jxc {

namespace {

const QString ownTill = QStringLiteral("（自己下次接班）");
constexpr int longestNote = 64;
constexpr int slipWidth = 300;

/// The figures as on a slip, the last one strong.
QString slip(const Shift &shift, const Formats &formats) {
    QString rows;
    const std::vector<ShiftLine> lines = shiftLines(shift);
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].isAlways && lines[i].amount.isZero())
            continue;
        const QString row =
            i + 1 == lines.size() ? QStringLiteral("<b>%1</b>") : QStringLiteral("%1");
        rows += QStringLiteral("<tr><td>%1</td><td align=\"right\">%2</td></tr>")
                    .arg(row.arg(lines[i].caption),
                         row.arg(formats.text(ValueKind::amount, lines[i].amount)));
    }
    return QStringLiteral("<table cellpadding=\"3\" width=\"%2\">%1</table>")
        .arg(rows)
        .arg(slipWidth);
}

} // namespace

TF_Posxs_Jb::TF_Posxs_Jb(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Posxs_Jb"), QStringLiteral("交班"), parent)
    , m_printing(new CounterPrinting(context, this)) {
    build();
    connect(m_printing, &CounterPrinting::failed, this,
            [this](const QString &words) { prompter().inform(words, informCaption); });
}

void TF_Posxs_Jb::build() {
    const Formats formats(session().parameters);
    const auto add = [&](const QString &caption, const char *name) {
        auto *field = new NumberField(ValueKind::amount, formats, this);
        field->setObjectName(QString::fromLatin1(name));
        field->setMinimumWidth(200);
        fields()->addRow(caption, field);
        return field;
    };
    fields()->addRow(QStringLiteral("收银员"), new QLabel(session().currentOperatorName, this));
    m_handedIn = add(QStringLiteral("实交金额"), "jb_sjje");
    m_left = add(QStringLiteral("留存金额"), "jb_xfje");
    m_difference = new QLabel(this);
    m_difference->setObjectName(QStringLiteral("difference"));
    fields()->addRow(QStringLiteral("长短款"), m_difference);
    m_next = new QComboBox(this);
    m_next->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_next->setObjectName(QStringLiteral("jb_nextuser"));
    fields()->addRow(QStringLiteral("接班操作员"), m_next);
    m_note = new QLineEdit(this);
    m_note->setObjectName(QStringLiteral("jb_note"));
    m_note->setMaxLength(longestNote);
    fields()->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    fields()->addRow(QStringLiteral("备注"), m_note);
    m_figures = new QLabel(this);
    m_figures->setObjectName(QStringLiteral("figures"));
    m_figures->setAlignment(Qt::AlignTop);
    m_figures->setFixedWidth(slipWidth);
    addBesideFields(m_figures);
    setMinimumWidth(slipWidth + 400);
    connect(m_handedIn, &NumberField::valueChanged, this, [this] {
        m_isTyped = true;
        refresh();
    });
    connect(m_left, &NumberField::valueChanged, this, &TF_Posxs_Jb::propose);
}

void TF_Posxs_Jb::FormActivate() {
    m_isTyped = false;
    m_next->clear();
    m_next->addItem(ownTill);
    for (const QString &name : operatorNames(session()))
        if (name != session().currentOperatorName)
            m_next->addItem(name);
    m_note->clear();
    m_left->setValue({});
    readShift();
    PlainEditor::FormActivate();
    m_handedIn->selectAll();
}

void TF_Posxs_Jb::readShift() {
    m_shift = runningShift(session());
    m_figures->setText(QStringLiteral("<p>%1<br>至 %2<br>销售 %3 笔，退货 %4 笔</p>")
                           .arg(m_shift.begin, m_shift.end)
                           .arg(m_shift.figures.sales)
                           .arg(m_shift.figures.returns) +
                       slip(m_shift, Formats(session().parameters)));
    propose();
    layout()->activate();
    adjustSize();
}

/// All that is due and does not stay is handed in, until the cashier counts something else.
void TF_Posxs_Jb::propose() {
    if (!m_isTyped) {
        const QSignalBlocker quiet(m_handedIn);
        m_handedIn->setValue(std::max(m_shift.cashDue() - m_left->value(), Decimal()));
    }
    refresh();
}

void TF_Posxs_Jb::refresh() {
    const Decimal difference = handover().difference(m_shift);
    const QString amount = Formats(session().parameters).text(ValueKind::amount, difference.abs());
    if (difference.isZero())
        m_difference->setText(QStringLiteral("无"));
    else
        m_difference->setText(
            (difference.isPositive() ? QStringLiteral("长款 %1") : QStringLiteral("短款 %1"))
                .arg(amount));
    m_difference->setStyleSheet(
        difference.isZero()
            ? QString()
            : QStringLiteral("color: %1; font-weight: 600;").arg(Theme::current().danger.name()));
}

Handover TF_Posxs_Jb::handover() const {
    return {m_handedIn->value(), m_left->value(),
            m_next->currentIndex() > 0 ? m_next->currentText() : QString(),
            m_note->text().trimmed()};
}

bool TF_Posxs_Jb::save() {
    qint64 id = 0;
    const Outcome outcome = endShift(session(), prompter(), m_shift, handover(), &id);
    if (!show(outcome)) {
        if (outcome.kind == Outcome::Kind::refused)
            readShift(); // what was shown may be what is no longer so
        return false;
    }
    m_printing->printShift(id, false);
    return true;
}

QStringList TF_Posxs_Jb::content() const {
    return {m_isTyped ? m_handedIn->text() : QString(), m_left->text(), m_next->currentText(),
            m_note->text()};
}

} // namespace jxc
