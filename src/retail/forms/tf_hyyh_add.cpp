#include "retail/forms/tf_hyyh_add.h"

#include "core/prompter.h"
#include "master/master_kind.h"
#include "master/member_offer.h"

#include <QComboBox>
#include <QLabel>

namespace jxc {

namespace {

const QString kindColumn = QStringLiteral("hh_zl");
const QString noteColumn = QStringLiteral("hh_note");

QString meaningOf(const QString &kind) {
    if (kind == u"0")
        return QStringLiteral("充值时按倍数记入卡内：倍数 1.1，付 100 元，卡内增加 110 元。");
    if (kind == u"1")
        return QStringLiteral("每张单据消费每满“累计消费”，就返还“转换现金”到卡内。");
    return QStringLiteral(
        "充值金额与“充值赠送”表中的一行完全相同时，赠送那一行的金额（优惠方式列表里按 F6）。");
}

} // namespace

TF_Hyyh_Add::TF_Hyyh_Add(const FormContext &context, QWidget *parent)
    : RecordEditor(context, masterKind(u"jxc_hyyh"), parent)
    , m_meaning(new QLabel(this)) {
    m_meaning->setObjectName(QStringLiteral("meaning"));
    m_meaning->setProperty("quiet", true);
    m_meaning->setWordWrap(true);
    tabs().addBelow({}, m_meaning, 0);
    connect(input(kindColumn), &FieldInput::edited, this, &TF_Hyyh_Add::chooseKind);
    for (const char16_t *figure : {u"hh_yh1", u"hh_yh2", u"hh_yh3"})
        connect(input(figure), &FieldInput::edited, this, &TF_Hyyh_Add::composeNote);
}

void TF_Hyyh_Add::fill() {
    RecordEditor::fill();
    showKind();
}

/// One offer by the table of gifts is enough; that is said before anything else is typed.
void TF_Hyyh_Add::chooseKind() {
    if (input(kindColumn)->text() == u"2" && m_kindShown != u"2" &&
        hasOtherGiftOffer(session(), record().id)) {
        auto *box = static_cast<QComboBox *>(input(kindColumn)->focusTarget());
        box->setCurrentIndex(box->findData(m_kindShown));
        prompter().inform(secondGiftOffer, informCaption);
        return;
    }
    showKind();
    composeNote();
}

void TF_Hyyh_Add::showKind() {
    m_kindShown = input(kindColumn)->text();
    const QStringList counting = offerFigures(m_kindShown);
    for (const FieldInput *figure : tabs().inputs())
        if (figure->field().column.startsWith(QLatin1String("hh_yh")))
            tabs().setShown(*figure, counting.contains(figure->field().column));
    m_meaning->setText(meaningOf(m_kindShown));
}

void TF_Hyyh_Add::composeNote() {
    Record typed = record();
    tabs().collect(typed);
    input(noteColumn)->line()->setText(offerNote(typed));
}

} // namespace jxc
