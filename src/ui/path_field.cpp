#include "ui/path_field.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace jxc {

PathField::PathField(What what, const QString &chooserTitle, const QString &filter, QWidget *parent)
    : QWidget(parent)
    , m_what(what)
    , m_title(chooserTitle)
    , m_filter(filter)
    , m_field(new QLineEdit) {
    auto *button = new QPushButton(QStringLiteral("浏览…"));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, &PathField::choose);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_field, 1);
    row->addWidget(button);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_field);
}

QString PathField::path() const {
    return QDir::fromNativeSeparators(m_field->text().trimmed());
}

void PathField::setPath(const QString &path) {
    m_field->setText(QDir::toNativeSeparators(path));
}

void PathField::choose() {
    const QString chosen = m_what == What::folder
                               ? QFileDialog::getExistingDirectory(this, m_title, path())
                               : QFileDialog::getOpenFileName(this, m_title, path(), m_filter);
    if (!chosen.isEmpty())
        setPath(chosen);
}

} // namespace jxc
