#include "retail/forms/tf_posxs_ph.h"

#include "core/session.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>

namespace jxc {

namespace {

constexpr int usualMost = 50, largestMost = 9999;

ColumnSpecs columnsOf(RankedBy group) {
    ColumnSpecs columns = {column(u"rank", u"名次", ValueKind::integer, 56)};
    if (group != RankedBy::cashier)
        columns.push_back(text(u"code", u"编号", 104));
    columns.push_back(text(u"name", u"名称", 240));
    if (group == RankedBy::goods) {
        columns.push_back(text(u"spec", u"规格", 112));
        columns.push_back(text(u"unit", u"单位", 56));
    }
    for (ColumnSpec &more :
         ColumnSpecs{summed(column(u"sl", u"数量", ValueKind::quantity, 104)),
                     summed(column(u"zje", u"金额", ValueKind::amount, 120)),
                     costOnly(summed(column(u"lr", u"毛利", ValueKind::amount, 120))),
                     column(u"share", u"占比%", ValueKind::percent, 88),
                     column(u"cumulative", u"累计占比%", ValueKind::percent, 96)})
        columns.push_back(more);
    return columns;
}

QComboBox *makeBox(const char *name, const QStringList &words, QWidget *parent) {
    auto *box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->addItems(words);
    return box;
}

} // namespace

TF_Posxs_Ph::TF_Posxs_Ph(const FormContext &context, QWidget *parent)
    : CounterReport(context, QStringLiteral("TF_Posxs_Ph"), QStringLiteral("POS销售排行"), parent) {
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：编号、名称"));
    addDetail();
    addCommonActions();
    QStringList measures = QStringLiteral("金额 数量").split(u' ');
    if (session().rights.showCostPrice)
        measures << QStringLiteral("毛利");
    m_group = makeBox("group", QStringLiteral("商品 类别 会员 收银员").split(u' '), this);
    m_measure = makeBox("measure", measures, this);
    m_most = new QSpinBox(this);
    m_most->setObjectName(QStringLiteral("most"));
    m_most->setRange(1, largestMost);
    m_most->setValue(usualMost);
    m_most->setSuffix(QStringLiteral(" 名"));
    addChoice(QStringLiteral("分组"), m_group);
    addChoice(QStringLiteral("按"), m_measure);
    addChoice(QStringLiteral("前"), m_most);
    addFilters(PeriodChoice::thisMonth, Filters::all);
    connect(m_group, &QComboBox::currentIndexChanged, this, &TF_Posxs_Ph::changeGroup);
    connect(m_measure, &QComboBox::currentIndexChanged, this, &ListForm::refresh);
    connect(m_most, &QSpinBox::valueChanged, this, &ListForm::refresh);
    changeGroup();
}

RankedBy TF_Posxs_Ph::group() const {
    return static_cast<RankedBy>(m_group->currentIndex());
}

void TF_Posxs_Ph::changeGroup() {
    // Each group keeps a layout of its own.
    grid().setRows({});
    grid().setName(group() == RankedBy::goods
                       ? objectName()
                       : QStringLiteral("%1_%2").arg(objectName()).arg(m_group->currentIndex()));
    setColumns(columnsOf(group()), QStringLiteral("gkey"));
    if (isVisible())
        refresh();
}

Rows TF_Posxs_Ph::readFor(const CounterFilter &filter) {
    return counterRanking(session(), filter, group(),
                          static_cast<RankMeasure>(m_measure->currentIndex()), m_most->value());
}

void TF_Posxs_Ph::narrow(CounterFilter &filter, const Row &row) const {
    const QString key = row.text(u"gkey");
    switch (group()) {
    case RankedBy::goods:
        filter.goods = key;
        break;
    case RankedBy::goodsClass:
        filter.goodsClass = key.isEmpty() ? noneAtAll : key;
        break;
    case RankedBy::member:
        filter.member = key.isEmpty() ? noneAtAll : key;
        break;
    case RankedBy::cashier:
        filter.cashier = key;
        break;
    }
}

QString TF_Posxs_Ph::nameOf(const Row &row) const {
    return row.text(u"name");
}

} // namespace jxc
