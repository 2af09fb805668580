#include "services/forms/tf_xtcs.h"

#include "core/prompter.h"
#include "core/session.h"
#include "master/system_parameters.h"
#include "services/save_parameters.h"
#include "ui/field_tabs.h"
#include "ui/progress.h"

#include <QKeyEvent>
#include <QPushButton>

namespace jxc {

TF_Xtcs::TF_Xtcs(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Xtcs"), QStringLiteral("系统设置"), parent)
    , m_tabs(new FieldTabs(context, this)) {
    for (const SystemParameter &parameter : systemParameters()) {
        MasterField field = parameter.field;
        field.page = parameter.page;
        m_tabs->add(parameter.table, field);
    }
    m_tabs->finish();
    auto *save = new QPushButton(QStringLiteral("保存 F5"), this);
    auto *exit = new QPushButton(QStringLiteral("退出 Esc"), this);
    save->setObjectName(QStringLiteral("btnSave"));
    exit->setObjectName(QStringLiteral("btnExit"));
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &TF_Xtcs::btnSaveClick);
    connect(exit, &QPushButton::clicked, this, &TF_Xtcs::reject);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(save);
    buttons->addWidget(exit);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(12);
    column->addWidget(m_tabs, 1);
    column->addLayout(buttons);
    resize(880, 520);
}

void TF_Xtcs::load() {
    const QHash<QString, QString> stored = loadSystemParameters(session());
    m_settings = {};
    m_settings.id = 1; // what stands counts as stored
    for (auto it = stored.begin(); it != stored.end(); ++it)
        m_settings.set(it.key(), it.value());
    m_settings.settle();
    m_tabs->fill(m_settings);
}

void TF_Xtcs::FormActivate() {
    load();
    m_tabs->focus(*m_tabs->inputs().front());
}

bool TF_Xtcs::mayLeave() {
    m_tabs->collect(m_settings);
    return !m_settings.isChanged() ||
           prompter().confirm(QStringLiteral("内容已修改，确认放弃吗？"), confirmCaption);
}

void TF_Xtcs::btnSaveClick() {
    m_tabs->collect(m_settings);
    QHash<QString, QString> changed;
    for (const FieldInput *input : m_tabs->inputs())
        if (m_settings.isChanged(input->field().column))
            changed.insert(input->field().column, m_settings.text(input->field().column));
    // Changed decimals re-cost all that was ever booked, which takes its time.
    std::unique_ptr<Progress> progress;
    const auto walked = [&](int done, int total) {
        if (progress == nullptr)
            progress = std::make_unique<Progress>(QStringLiteral("正在重新计算成本"), total, this);
        return progress->reach(done);
    };
    QString field;
    const Outcome outcome = saveParameters(session(), prompter(), changed, walked, &field);
    if (progress != nullptr)
        progress->finish();
    if (!show(outcome)) {
        if (const FieldInput *refused = m_tabs->input(field))
            m_tabs->focus(*refused);
        return;
    }
    const int page = m_tabs->currentIndex();
    load();
    m_tabs->setCurrentIndex(page);
    if (!changed.isEmpty())
        prompter().inform(QStringLiteral("保存成功！"), informCaption);
}

void TF_Xtcs::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    if (key == Qt::Key_F5) {
        btnSaveClick();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (!m_tabs->focusNext())
            focusNextChild();
    } else {
        Form::keyPressEvent(event);
    }
}

} // namespace jxc
