#pragma once

#include "ui/form.h"

#include <QLabel>

namespace jxc {

/// What a member has on the card and in points, beside the name; red when the card was reported
/// lost.
class MemberLabel : public QLabel {
    Q_OBJECT
public:
    MemberLabel(const FormContext &context, QWidget *parent);

    /// Reads the member anew; an empty key shows nothing.
    void showMember(const QString &key);

private:
    FormContext m_context;
};

} // namespace jxc
