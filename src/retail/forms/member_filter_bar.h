#pragma once

#include "retail/member_query.h"
#include "ui/form.h"

#include <QWidget>

class QLabel;

namespace jxc {

/// The conditions that narrow a list of members, in words, while there are any.
class MemberFilterBar : public QWidget {
    Q_OBJECT
public:
    explicit MemberFilterBar(const Form &form);

    /// What was typed into the search box is the list's own.
    [[nodiscard]] MemberFilter filter(const QString &search) const;
    void setFilter(const MemberFilter &filter);
    /// Asks for the conditions (TF_Hygl_Gjcx).
    void choose();
    void clear() { setFilter({}); }
    [[nodiscard]] QString words() const;

Q_SIGNALS:
    void changed();

private:
    const Form &m_form;
    MemberFilter m_filter;
    QLabel *m_words;
};

} // namespace jxc
