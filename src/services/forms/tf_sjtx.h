#pragma once

#include "services/reminders.h"
#include "ui/form.h"

class QCheckBox;
class QTabWidget;

namespace jxc {

class Grid;

/// What is due today, and the operator's reminders.
class TF_Sjtx : public Form {
    Q_OBJECT
public:
    explicit TF_Sjtx(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();

private:
    QWidget *makeToday();
    QWidget *makeSettings();
    void fillToday();
    void fillSettings();
    void openToday();
    [[nodiscard]] const Reminder *current() const;
    void edit(const Reminder &reminder);

    QTabWidget *m_tabs;
    Grid *m_today = nullptr, *m_settings = nullptr;
    QCheckBox *m_atStart;
    std::vector<Reminder> m_reminders;
};

} // namespace jxc
