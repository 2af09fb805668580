#include "core/forms/tf_bqjl.h"

#include "core/notes.h"
#include "core/prompter.h"
#include "core/session.h"

#include <QLabel>
#include <QPlainTextEdit>

namespace jxc {

TF_Bqjl::TF_Bqjl(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Bqjl"), QStringLiteral("便签"), parent)
    , m_text(new QPlainTextEdit) {
    m_text->setObjectName(QStringLiteral("bq_txt"));
    m_text->setTabChangesFocus(true);
    auto *hint = new QLabel(QStringLiteral("只有您自己看得到，关闭时自动保存。Esc 退出"));
    hint->setProperty("quiet", true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->addWidget(m_text);
    column->addWidget(hint);
    resize(480, 400);
}

void TF_Bqjl::FormActivate() {
    m_stored = readNote(session(), session().currentOperatorNo);
    m_text->setPlainText(m_stored);
    m_text->moveCursor(QTextCursor::End);
    m_text->setFocus();
}

bool TF_Bqjl::mayLeave() {
    const QString text = m_text->toPlainText();
    if (text == m_stored)
        return true;
    if (show(saveNote(session(), prompter(), session().currentOperatorNo, text))) {
        m_stored = text;
        return true;
    }
    // What was written is on the screen alone: it goes only if its writer says so.
    return prompter().confirm(QStringLiteral("便签没有保存，确认放弃吗？"), confirmCaption);
}

} // namespace jxc
