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
    m_buttons = new QHBoxLayout;
    m_buttons->addStretch();
    m_buttons->addWidget(m_ok);
    m_buttons->addWidget(m_cancel);
    m_fields->setVerticalSpacing(12);
    m_fields->setHorizontalSpacing(12);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(16);
    m_top = new QHBoxLayout;
    m_top->setSpacing(16);
    m_top->addLayout(m_fields);
    column->addLayout(m_top, 1);
    column->addLayout(m_buttons);
    setMinimumWidth(400);
}

void PlainEditor::addBelowFields(QWidget *widget) {
    m_below = widget;
    static_cast<QVBoxLayout *>(layout())->insertWidget(1, widget, 1);
}

void PlainEditor::addBesideFields(QWidget *widget) {
    m_beside = widget;
    m_top->addWidget(widget, 1);
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
    for (QWidget *more : {m_beside, m_below})
        if (more != nullptr)
            order << more;
    for (const auto &[key, button] : m_own)
        order << button;
    order << m_ok;
    if (m_more != nullptr)
        order << m_more;
    return order << m_cancel;
}

void PlainEditor::allowContinuing() {
    m_more = new QPushButton(QStringLiteral("确定并继续 F6"));
    m_more->setObjectName(QStringLiteral("btnOKContinue"));
    m_buttons->insertWidget(m_buttons->indexOf(m_cancel), m_more);
    connect(m_more, &QPushButton::clicked, this, &PlainEditor::saveAndContinue);
}

void PlainEditor::addButton(const QString &name, const QString &caption, Qt::Key key,
                            const std::function<void()> &run) {
    auto *button = new QPushButton(QStringLiteral("%1 %2").arg(
        caption, QKeySequence(key).toString(QKeySequence::PortableText)));
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, run);
    m_buttons->insertWidget(m_buttons->indexOf(m_ok), button);
    m_own.append({key, button});
}

void PlainEditor::setReadOnly() {
    m_readOnly = true;
    for (int row = 0; row < m_fields->rowCount(); ++row)
        if (const QLayoutItem *item = m_fields->itemAt(row, QFormLayout::FieldRole);
            item != nullptr && item->widget() != nullptr)
            item->widget()->setEnabled(false);
    m_ok->hide();
    if (m_more != nullptr)
        m_more->hide();
    for (const auto &[key, button] : m_own)
        button->hide();
}

void PlainEditor::saveAndContinue() {
    if (m_readOnly || m_more == nullptr || !save())
        return;
    startAnew();
    FormActivate();
}

void PlainEditor::FormActivate() {
    m_shown = content();
    const QList<QWidget *> order = inOrder();
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
    for (QWidget *field : order)
        if (field->isEnabled() && !field->isHidden()) {
            field->setFocus();
            break;
        }
}

bool PlainEditor::mayLeave() {
    return m_readOnly || content() == m_shown ||
           prompter().confirm(QStringLiteral("内容已修改，确认放弃吗？"), confirmCaption);
}

void PlainEditor::accept() {
    if (m_readOnly || !save())
        return;
    m_shown = content();
    Form::accept();
}

void PlainEditor::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    for (const auto &[own, button] : m_own)
        if (key == own && !button->isHidden()) {
            button->click();
            return;
        }
    if (key == Qt::Key_F6 && m_more != nullptr)
        saveAndContinue();
    else if (key == Qt::Key_F5)
        accept();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        focusNextChild();
    else
        Form::keyPressEvent(event);
}

} // namespace jxc
