#pragma once

#include "ui/record_editor.h"

class QLabel;

namespace jxc {

/// The editor of an offer: only the figures of its kind are shown, and the note follows them.
class TF_Hyyh_Add : public RecordEditor {
    Q_OBJECT
public:
    explicit TF_Hyyh_Add(const FormContext &context, QWidget *parent = nullptr);

protected:
    void fill() override;

private:
    void chooseKind();
    void showKind();
    void composeNote();

    QLabel *m_meaning;
    QString m_kindShown;
};

} // namespace jxc
