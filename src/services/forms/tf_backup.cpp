#include "services/forms/tf_backup.h"

#include "core/backup.h"
#include "core/restore.h"
#include "services/opening.h"
#include "ui/path_field.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>

namespace jxc {

namespace {

const QString chooserTitle = QStringLiteral("选择备份目录");

QSpinBox *numberField(const QString &name, const QString &unit) {
    auto *field = new QSpinBox;
    field->setObjectName(name);
    field->setRange(0, 9999);
    field->setFixedWidth(136);
    field->setSuffix(unit);
    return field;
}

QFormLayout *formOf(QWidget *page) {
    auto *fields = new QFormLayout(page);
    fields->setContentsMargins(20, 20, 20, 20);
    fields->setVerticalSpacing(12);
    return fields;
}

QLabel *quiet(const QString &text) {
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setProperty("quiet", true);
    return label;
}

} // namespace

TF_Backup::TF_Backup(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Backup"), QStringLiteral("备份/恢复"), parent)
    , m_pages(new QTabWidget)
    , m_progress(new QProgressBar)
    , m_state(quiet({})) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    m_pages->setObjectName(QStringLiteral("pages"));
    m_pages->addTab(makeBackupPage(), QStringLiteral("备份"));
    m_pages->addTab(makeRestorePage(), QStringLiteral("恢复"));
    m_progress->setTextVisible(false);
    m_progress->hide();
    auto *ok = new QPushButton(QStringLiteral("确定 F5"));
    ok->setObjectName(QStringLiteral("btnOK"));
    ok->setDefault(true);
    auto *cancel = new QPushButton(QStringLiteral("取消 Esc"));
    cancel->setAutoDefault(false);
    connect(ok, &QPushButton::clicked, this, &TF_Backup::btnOKClick);
    connect(cancel, &QPushButton::clicked, this, &TF_Backup::reject);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_state, 1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 16);
    column->addWidget(m_pages);
    column->addWidget(m_progress);
    column->addLayout(buttons);
    resize(600, 400);
}

QWidget *TF_Backup::makeBackupPage() {
    m_folder = new PathField(PathField::What::folder, chooserTitle);
    m_folder->field()->setObjectName(QStringLiteral("back_path"));
    m_automatic = new QCheckBox(QStringLiteral("自动备份"));
    m_automatic->setObjectName(QStringLiteral("back_auto"));
    m_onExit = new QCheckBox(QStringLiteral("退出系统时备份"));
    m_onExit->setObjectName(QStringLiteral("back_exit"));
    m_hours = numberField(QStringLiteral("back_sj"), QStringLiteral(" 小时"));
    m_days = numberField(QStringLiteral("back_days"), QStringLiteral(" 天"));
    m_days->setSpecialValueText(QStringLiteral("全部保留"));
    auto *page = new QWidget;
    page->setObjectName(QStringLiteral("cxTab1"));
    QFormLayout *fields = formOf(page);
    fields->addRow(QStringLiteral("备份路径"), m_folder);
    fields->addRow(QString(), m_automatic);
    fields->addRow(QStringLiteral("间隔时间"), m_hours);
    fields->addRow(QString(), m_onExit);
    fields->addRow(QStringLiteral("保留天数"), m_days);
    fields->addRow(QString(),
                   quiet(QStringLiteral("备份时其他人可以继续工作。请把备份放在另一个磁盘上。")));
    return page;
}

QWidget *TF_Backup::makeRestorePage() {
    m_file = new PathField(PathField::What::file, chooserTitle,
                           QStringLiteral("备份文件 (*.DAT);;所有文件 (*)"));
    m_file->field()->setObjectName(QStringLiteral("restore_path"));
    auto *page = new QWidget;
    page->setObjectName(QStringLiteral("cxTab2"));
    QFormLayout *fields = formOf(page);
    fields->addRow(QStringLiteral("备份文件"), m_file);
    fields->addRow(QString(), quiet(QStringLiteral("先检查备份文件，再用它替换当前帐套的全部数据；"
                                                   "被替换的数据会另存一份。")));
    return page;
}

void TF_Backup::FormActivate() {
    const BackupSettings &stored = session().backup;
    m_folder->setPath(stored.folder);
    m_automatic->setChecked(stored.automatic);
    m_onExit->setChecked(stored.onExit);
    m_hours->setValue(stored.intervalHours);
    m_days->setValue(stored.keepDays);
    m_pages->setCurrentIndex(0);
    m_state->clear();
    m_folder->setFocus();
}

BackupSettings TF_Backup::settings() const {
    return {m_folder->path(), m_automatic->isChecked(), m_onExit->isChecked(), m_hours->value(),
            m_days->value()};
}

void TF_Backup::btnOKClick() {
    if (m_pages->currentIndex() == 0)
        backUp();
    else
        restore();
}

void TF_Backup::setBusy(bool isBusy, const QString &text) {
    m_pages->setEnabled(!isBusy);
    m_progress->setRange(0, 0);
    m_progress->setVisible(isBusy);
    m_state->setText(text);
    if (isBusy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void TF_Backup::backUp() {
    setBusy(true, QStringLiteral("正在备份......"));
    const Outcome outcome = manualBackup(session(), prompter(), settings());
    setBusy(false);
    show(outcome);
    Q_EMIT changed();
}

void TF_Backup::restore() {
    RestoreRequest request;
    request.file = m_file->path();
    request.hooks = upgradeHooks();
    if (session().db().location().file.isEmpty()) // a server has no folder beside its data
        request.keepFolder =
            session().backup.folder.isEmpty() ? context().home : session().backup.folder;
    const RestoreOutcome result = restoreDatabase(session(), prompter(), request);
    if (!result.keptFile.isEmpty())
        m_state->setText(QStringLiteral("被替换的数据：") +
                         QDir::toNativeSeparators(result.keptFile));
    show(result.outcome);
}

void TF_Backup::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_F5)
        btnOKClick();
    else
        Form::keyPressEvent(event);
}

} // namespace jxc
