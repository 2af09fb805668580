#pragma once

#include "ui/plain_editor.h"

class QCheckBox;

namespace jxc {

class PathField;

/// The two settings that most shops need, and a backup at once.
class TF_Backup2 : public PlainEditor {
    Q_OBJECT
public:
    explicit TF_Backup2(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    PathField *m_folder;
    QCheckBox *m_onExit;
};

} // namespace jxc
