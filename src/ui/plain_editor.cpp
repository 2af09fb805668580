#include "ui/plain_editor.h"

#include "core/prompter.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QPushButton>

namespace jxc {

PlainEditor::PlainEditor(const FormContext &context, const QString &className, const QString &title,
                         QWidget *parent)
    : Form(context, className, title, parent)
    , m_fields(new QFormLayout)
    , m_ok(new QPushButton(QStringLiteral("确定 (F5)"))) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    m_ok->setObjectName(QStringLiteral("btnOK"));
    auto *cancel = new QPushButton(QStringLiteral("取消 (Esc)"));
    cancel->setObjectName(QStringLiteral("btnCancel"));
    connect(m_ok, &QPushButton::clicked, this, &PlainEditor::accept);
    connect(cancel, &QPushButton::clicked, this, &PlainEditor::reject);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(cancel);
    m_fields->setVerticalSpacing(12);
    m_fields->setHorizontalSpacing(12);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(16);
    column->addLayout(m_fields);
    column->addLayout(buttons);
    setMinimumWidth(400);
}

void PlainEditor::addBelowFields(QWidget *widget) {
    static_cast<QVBoxLayout *>(layout())->insertWidget(1, widget, 1);
}

bool PlainEditor::mayLeave() {
    return content() == m_shown ||
           prompter().confirm(QStringLiteral("内容已修改，确认放弃吗？"), confirmCaption);
}

void PlainEditor::accept() {
    if (!save())
        return;
    m_shown = content();
    Form::accept();
}

void PlainEditor::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    if (key == Qt::Key_F5)
        accept();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        focusNextChild();
    else
        Form::keyPressEvent(event);
}

} // namespace jxc
