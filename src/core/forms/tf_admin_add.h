#pragma once

#include "ui/plain_editor.h"

class QComboBox;
class QLineEdit;

namespace jxc {

/// One operator's name, password, role and limit.
class TF_Admin_Add : public PlainEditor {
    Q_OBJECT
public:
    /// `id` 0 adds one.
    TF_Admin_Add(const FormContext &context, qint64 id, QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    void fill();

    qint64 m_id;
    QLineEdit *m_name, *m_password, *m_confirmation, *m_limit;
    QComboBox *m_role;
};

} // namespace jxc
