#pragma once

#include "stock/cost_story.h"
#include "ui/form.h"

class QLabel;

namespace jxc {

class Grid;

/// "Why this cost?": the cost in large, and the rows of the journal that made it. The row that set
/// it is marked; Enter opens its document.
class TF_CostStory : public Form {
    Q_OBJECT
public:
    TF_CostStory(const FormContext &context, const JournalKey &key, const CostStoryEnd &end,
                 QWidget *parent = nullptr);

    [[nodiscard]] Grid &grid() { return *m_grid; }

    void btnOpenClick();

private:
    void build();
    void tell(const JournalKey &key, const CostStoryEnd &end);

    QLabel *m_goods, *m_conclusion, *m_opening, *m_sentence;
    Grid *m_grid;
};

/// Shows the story of a cost, to whoever may see costs.
void showCostStory(const FormContext &context, const JournalKey &key, const CostStoryEnd &end,
                   QWidget *parent);

} // namespace jxc
