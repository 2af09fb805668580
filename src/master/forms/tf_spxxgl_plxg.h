#pragma once

#include "ui/plain_editor.h"

class QComboBox;

namespace jxc {

class PickField;

/// Changes class, supplier, restriction and disabling of all marked goods alike.
class TF_Spxxgl_Plxg : public PlainEditor {
    Q_OBJECT
public:
    TF_Spxxgl_Plxg(const FormContext &context, std::vector<qint64> goods, QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    std::vector<qint64> m_goods;
    PickField *m_class, *m_supplier;
    QComboBox *m_restricted, *m_disabled;
};

} // namespace jxc
