#pragma once

#include "master/record.h"
#include "ui/form.h"

namespace jxc {

class FieldTabs;

/// The settings of the whole system, page by page. F5 stores all that was changed at once.
class TF_Xtcs : public Form {
    Q_OBJECT
public:
    TF_Xtcs(const FormContext &context, QWidget *parent);

    [[nodiscard]] FieldTabs &tabs() const { return *m_tabs; }
    void FormActivate() override;
    bool mayLeave() override;

public Q_SLOTS:
    void btnSaveClick();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void load();

    FieldTabs *m_tabs;
    Record m_settings; ///< the columns of both tables, whose names differ
};

} // namespace jxc
