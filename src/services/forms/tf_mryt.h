#pragma once

#include "services/tips.h"
#include "ui/form.h"

class QCheckBox;
class QLabel;

namespace jxc {

/// The tip of the day; one can leaf through all.
class TF_Mryt : public Form {
    Q_OBJECT
public:
    explicit TF_Mryt(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    /// Leafs by so many tips, round the end.
    void leaf(int by);

private:
    void showTip();

    std::vector<Tip> m_tips;
    size_t m_index = 0;
    QLabel *m_text, *m_place;
    QCheckBox *m_atStart;
};

} // namespace jxc
