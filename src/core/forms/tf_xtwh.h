#pragma once

#include "ui/form.h"

class QPushButton;

namespace jxc {

/// One service of the maintenance window, and who may use it.
struct MaintenanceService {
    QString caption, icon, formClass;
    QString rightGroup; ///< empty: everybody
    int right = 0;
    QString refusal;
    bool isAdministrators = false; ///< the administrator's role alone
};

/// System maintenance: open to everybody, each of its buttons asks its own right.
class TF_Xtwh : public Form {
    Q_OBJECT
public:
    explicit TF_Xtwh(const FormContext &context, QWidget *parent = nullptr);

    void click(const MaintenanceService &service);

private:
    QPushButton *makeButton(const MaintenanceService &service);
};

[[nodiscard]] const std::vector<MaintenanceService> &maintenanceServices();

} // namespace jxc
