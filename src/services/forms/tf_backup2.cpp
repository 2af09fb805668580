#include "services/forms/tf_backup2.h"

#include "core/backup.h"
#include "ui/path_field.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>

namespace jxc {

TF_Backup2::TF_Backup2(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Backup2"), QStringLiteral("备份"), parent)
    , m_folder(new PathField(PathField::What::folder, QStringLiteral("选择备份目录")))
    , m_onExit(new QCheckBox(QStringLiteral("退出系统时备份"))) {
    m_folder->field()->setObjectName(QStringLiteral("back_path"));
    fields()->addRow(QStringLiteral("备份路径"), m_folder);
    fields()->addRow(QString(), m_onExit);
    setMinimumWidth(520);
}

void TF_Backup2::FormActivate() {
    m_folder->setPath(session().backup.folder);
    m_onExit->setChecked(session().backup.onExit);
    PlainEditor::FormActivate();
}

QStringList TF_Backup2::content() const {
    return {m_folder->path(), m_onExit->isChecked() ? QStringLiteral("1") : QString()};
}

bool TF_Backup2::save() {
    BackupSettings settings = session().backup;
    settings.folder = m_folder->path();
    settings.onExit = m_onExit->isChecked();
    return show(manualBackup(session(), prompter(), settings));
}

} // namespace jxc
