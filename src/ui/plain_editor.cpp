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
    , m_ok(new QPushButton(QStringLiteral("确定 F5")))
    , m_cancel(new QPushButton(QStringLiteral("取消 Esc"))) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    m_ok->setObjectName(QStringLiteral("btnOK"));
    m_cancel->setObjectName(QStringLiteral("btnCancel"));
    connect(m_ok, &QPushButton::clicked, this, &PlainEditor::accept);
    connect(m_cancel, &QPushButton::clicked, this, &PlainEditor::reject);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_cancel);
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
    m_below = widget;
    static_cast<QVBoxLayout *>(layout())->insertWidget(1, widget, 1);
}

/// The buttons were there before the fields; Enter and Tab reach them last all the same.
QList<QWidget *> PlainEditor::inOrder() const {
    QList<QWidget *> order;
    for (int row = 0; row < m_fields->rowCount(); ++row) {
        const QLayoutItem *item = m_fields->itemAt(row, QFormLayout::FieldRole);
        QWidget *field = item == nullptr ? nullptr : item->widget();
        if (field != nullptr && field->focusPolicy() != Qt::NoFocus)
            order << field;
    }
    if (m_below != nullptr)
        order << m_below;
    return order << m_ok << m_cancel;
}

void PlainEditor::FormActivate() {
    m_shown = content();
    const QList<QWidget *> order = inOrder();
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    order.first()->setFocus();
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
