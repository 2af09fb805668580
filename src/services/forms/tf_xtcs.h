#pragma once

#include "master/record.h"
#include "ui/form.h"

class QLineEdit;

namespace jxc {

class FieldTabs;
struct GatewaySettings;

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
    void addAddresses();
    [[nodiscard]] GatewaySettings typedAddresses() const;
    [[nodiscard]] bool areAddressesChanged() const;
    /// False when one of them was refused; it has been told.
    [[nodiscard]] bool saveAddresses();

    FieldTabs *m_tabs;
    QLineEdit *m_smsHost, *m_paymentAddress; ///< of this workstation, not of the account set
    Record m_settings;                       ///< the columns of both tables, whose names differ
};

} // namespace jxc
