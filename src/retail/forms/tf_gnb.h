#pragma once

#include "retail/counter_devices.h"
#include "ui/plain_editor.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

namespace jxc {

class KeyField;

/// POS功能键: the keys of the counter, and the devices that stand at it. A key is given by pressing
/// it in its field.
class TF_Gnb : public PlainEditor {
    Q_OBJECT
public:
    explicit TF_Gnb(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    QWidget *makeDevices();
    [[nodiscard]] CounterDevices devices() const;

    std::vector<std::pair<QString, KeyField *>> m_keys;
    QComboBox *m_scale, *m_drawerPort;
    QLineEdit *m_weight, *m_count, *m_port;
    QCheckBox *m_opensDrawer, *m_display;
    QSpinBox *m_amount, *m_price;
};

} // namespace jxc
