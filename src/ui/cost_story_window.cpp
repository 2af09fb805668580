#include "ui/cost_story_window.h"

#include "core/rights.h"
#include "core/session.h"
#include "db/database.h"
#include "ui/list_form.h"
#include "ui/row_list.h"

#include <QLabel>

namespace jxc {

namespace {

ColumnSpecs storyColumns() {
    return {column(u"date", u"日期", ValueKind::date),
            text(u"number", u"单据号", 132),
            text(u"title", u"类型", 84),
            costOnly(column(u"price", u"单价", ValueKind::price, 84)),
            summed(column(u"in", u"入库数量", ValueKind::quantity, 84)),
            summed(column(u"out", u"出库数量", ValueKind::quantity, 84)),
            column(u"stock", u"结存数量", ValueKind::quantity, 84),
            costOnly(column(u"cost", u"成本", ValueKind::price, 84)),
            costOnly(text(u"sentence", u"说明", 336))};
}

/// The latest row that set the cost; the number of rows when none did.
size_t settingRow(const CostStory &story) {
    for (size_t i = story.rows.size(); i-- > 0;)
        if (story.rows[i].setsCost)
            return i;
    return story.rows.size();
}

Rows storyRows(const CostStory &story) {
    RowList list({u"date", u"number", u"title", u"price", u"in", u"out", u"stock", u"cost",
                  u"sentence", u"sets", u"differs"});
    const size_t setting = settingRow(story);
    for (size_t i = 0; i < story.rows.size(); ++i) {
        const CostStoryRow &row = story.rows[i];
        const bool goes = row.change.isNegative();
        list.add({row.date, row.number, row.title, row.price, goes ? Cell() : Cell(row.change),
                  goes ? Cell(row.change.abs()) : Cell(), row.step.after.stock, row.step.after.cost,
                  row.sentence, qint64(i == setting ? 1 : 0), qint64(row.differs ? 1 : 0)});
    }
    return list.take();
}

QLabel *label(const char *property, QWidget *parent) {
    auto *words = new QLabel(parent);
    words->setWordWrap(true);
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (property != nullptr)
        words->setProperty(property, true);
    return words;
}

} // namespace

TF_CostStory::TF_CostStory(const FormContext &context, const JournalKey &key,
                           const CostStoryEnd &end, QWidget *parent)
    : Form(context, QStringLiteral("TF_CostStory"), QStringLiteral("为什么是这个成本？"), parent)
    , m_goods(label("title", this))
    , m_conclusion(label("total", this))
    , m_opening(label("quiet", this))
    , m_sentence(label(nullptr, this))
    , m_grid(new Grid(context, QStringLiteral("TF_CostStory"), storyColumns(), this)) {
    build();
    tell(key, end);
}

void TF_CostStory::build() {
    auto *bar = new ActionBar(this);
    bar->add(QStringLiteral("btnOpen"), QStringLiteral("打开单据"), Qt::Key_F4,
             [this] { btnOpenClick(); });
    bar->add(QStringLiteral("btnPrint"), QStringLiteral("打印"), Qt::Key_F12,
             [this] { m_grid->print(); });
    bar->add(QStringLiteral("btnExport"), QStringLiteral("导出"),
             QKeySequence(QStringLiteral("Ctrl+E")), [this] { m_grid->chooseExport(); });
    bar->add(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { reject(); });
    m_conclusion->setObjectName(QStringLiteral("lblConclusion"));
    m_opening->setObjectName(QStringLiteral("lblOpening"));
    m_sentence->setMinimumHeight(40);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(bar);
    layout->addWidget(m_goods);
    layout->addWidget(m_conclusion);
    layout->addWidget(m_opening);
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_sentence);
    m_grid->model().setTone([](const Row &row, const ColumnSpec &) {
        if (row.flag(u"differs"))
            return Tone::danger;
        return row.flag(u"sets") ? Tone::good : Tone::plain;
    });
    connect(m_grid, &Grid::activated, this, &TF_CostStory::btnOpenClick);
    connect(m_grid, &Grid::currentChanged, this,
            [this] { m_sentence->setText(m_grid->currentText(u"sentence")); });
    resize(1160, 620);
}

void TF_CostStory::tell(const JournalKey &key, const CostStoryEnd &end) {
    const CostStory story = costStory(session(), key, end);
    const QString warehouse =
        db().scalar(QStringLiteral("select ck_name from jxc_ckxx where ck_sn=?"), {key.warehouse});
    const QString name =
        db().scalar(QStringLiteral("select g_name from jxc_goods where g_sn=?"), {key.goods});
    m_goods->setText(QStringLiteral("%1　%2　%3").arg(key.goods, name, warehouse));
    m_conclusion->setText(story.conclusion);
    m_opening->setText(story.opening);
    m_grid->setTitle(QStringLiteral("成本由来 － %1 %2").arg(key.goods, name));
    m_grid->setNotes({QStringLiteral("仓库：%1").arg(warehouse), story.opening, story.conclusion});
    m_grid->setRows(storyRows(story));
    m_grid->goTo(u"sets", QStringLiteral("1"));
    m_grid->setFocus();
}

void TF_CostStory::btnOpenClick() {
    if (m_grid->current() == nullptr)
        tellNoRow(prompter());
    else
        context().stage.openDocument(m_grid->currentText(u"number"));
}

void showCostStory(const FormContext &context, const JournalKey &key, const CostStoryEnd &end,
                   QWidget *parent) {
    if (!context.session.rights.showCostPrice) {
        showNoRightMessage(context.prompter, QStringLiteral("查看成本价！"));
        return;
    }
    TF_CostStory(context, key, end, parent).exec();
}

} // namespace jxc
