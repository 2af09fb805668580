#include "ui/member_label.h"

#include "core/session.h"
#include "retail/member_search.h"
#include "ui/formats.h"

#include <QStyle>

namespace jxc {

MemberLabel::MemberLabel(const FormContext &context, QWidget *parent)
    : QLabel(parent)
    , m_context(context) {
    setObjectName(QStringLiteral("memberInfo"));
}

void MemberLabel::showMember(const QString &key) {
    const auto row = key.isEmpty() ? std::nullopt : memberRow(m_context.session, key);
    const bool isLost = row && row->integer(u"hy_status") == 1;
    const Formats formats(m_context.session.parameters);
    QString words;
    if (row)
        words = QStringLiteral("%1　积分 %2")
                    .arg(formats.money(row->decimal(u"hy_zhje")),
                         formats.text(ValueKind::integer, row->decimal(u"hy_jf")));
    if (isLost)
        words += QStringLiteral("　已挂失");
    setText(words);
    setToolTip(row ? QStringLiteral("卡号 %1　%2").arg(row->text(u"hy_bh"), row->text(u"hl_name"))
                   : QString());
    setProperty("danger", isLost);
    style()->unpolish(this);
    style()->polish(this);
}

} // namespace jxc
