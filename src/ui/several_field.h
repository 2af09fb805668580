#pragma once

#include "master/master_kind.h"
#include "ui/form.h"

#include <QLineEdit>

namespace jxc {

/// A field that holds several picked rows, "100001,100002,", and shows their names. F2, ↓, Space or
/// a click opens the list to tick them in; Del empties it.
class SeveralField : public QLineEdit {
    Q_OBJECT
public:
    SeveralField(const FormContext &context, const MasterField &field, QWidget *parent);

    [[nodiscard]] QString codes() const { return m_codes; }
    void setChoice(const QString &codes, const QString &names);
    void openList();

Q_SIGNALS:
    void changed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    FormContext m_context;
    MasterField m_field;
    QString m_codes;
};

} // namespace jxc
