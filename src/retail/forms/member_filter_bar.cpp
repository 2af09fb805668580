#include "retail/forms/member_filter_bar.h"

#include "retail/forms/tf_hygl_gjcx.h"
#include "ui/theme.h"

#include <QLabel>

namespace jxc {

MemberFilterBar::MemberFilterBar(const Form &form)
    : m_form(form)
    , m_words(new QLabel) {
    m_words->setObjectName(QStringLiteral("filterWords"));
    m_words->setTextFormat(Qt::PlainText);
    m_words->setStyleSheet(
        QStringLiteral("color: %1; font-weight: 600;").arg(Theme::current().accent.name()));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_words);
    hide();
}

MemberFilter MemberFilterBar::filter(const QString &search) const {
    MemberFilter filter = m_filter;
    filter.search = search;
    return filter;
}

QString MemberFilterBar::words() const {
    return filterWords(m_form.session(), m_filter).join(QStringLiteral("，"));
}

void MemberFilterBar::setFilter(const MemberFilter &filter) {
    m_filter = filter;
    m_filter.search.clear();
    setVisible(m_filter.isActive());
    m_words->setText(QStringLiteral("条件：%1（F11 清除）").arg(words()));
    Q_EMIT changed();
}

void MemberFilterBar::choose() {
    TF_Hygl_Gjcx dialog(m_form.context(), m_filter, window());
    if (dialog.runModal())
        setFilter(dialog.filter());
}

} // namespace jxc
