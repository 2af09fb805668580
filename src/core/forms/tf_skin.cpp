#include "core/forms/tf_skin.h"

#include "core/skin.h"
#include "ui/theme.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace jxc {

TF_Skin::TF_Skin(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Skin"), QStringLiteral("界面风格"), parent) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(12);
    auto *hint = new QLabel(QStringLiteral("每个操作员用自己的风格，选择后立即生效。"));
    hint->setProperty("quiet", true);
    column->addWidget(hint);
    for (const Theme *theme : {&Theme::light(), &Theme::dark()}) {
        auto *choice = new QRadioButton(theme->name);
        choice->setObjectName(theme->name);
        connect(choice, &QRadioButton::clicked, this, [this, theme] { choose(theme->name); });
        column->addWidget(choice);
        m_choices.append(choice);
    }
    column->addStretch();
    auto *close = new QPushButton(QStringLiteral("退出 Esc"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &TF_Skin::reject);
    column->addWidget(close, 0, Qt::AlignRight);
    setMinimumWidth(360);
}

void TF_Skin::FormActivate() {
    const Theme &shown = Theme::byName(skinOf(session()));
    for (QRadioButton *choice : m_choices)
        if (choice->text() == shown.name) {
            choice->setChecked(true);
            choice->setFocus();
        }
}

void TF_Skin::choose(const QString &name) {
    if (!show(saveSkin(session(), prompter(), name)))
        return;
    if (auto *application = qobject_cast<QApplication *>(QApplication::instance()))
        applyTheme(*application, Theme::byName(name));
}

} // namespace jxc
