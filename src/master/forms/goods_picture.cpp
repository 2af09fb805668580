#include "master/forms/goods_picture.h"

#include "core/prompter.h"
#include "master/goods_details.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

namespace jxc {

GoodsPicture::GoodsPicture(const FormContext &context, QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_label(new QLabel(this))
    , m_show(new QPushButton(QStringLiteral("查看原图"), this))
    , m_clear(new QPushButton(QStringLiteral("清除图片"), this)) {
    auto *choose = new QPushButton(QStringLiteral("选择图片…"), this);
    choose->setObjectName(QStringLiteral("btnChoosePicture"));
    m_clear->setObjectName(QStringLiteral("btnClearPicture"));
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setProperty("card", true);
    m_label->setMinimumSize(320, 240);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    for (QPushButton *button : {choose, m_show, m_clear})
        button->setAutoDefault(false);
    auto *buttons = new QVBoxLayout;
    buttons->addWidget(choose);
    buttons->addWidget(m_show);
    buttons->addWidget(m_clear);
    buttons->addStretch();
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(12);
    row->addWidget(m_label, 1);
    row->addLayout(buttons);
    connect(choose, &QPushButton::clicked, this, &GoodsPicture::choose);
    connect(m_show, &QPushButton::clicked, this, &GoodsPicture::showLarge);
    connect(m_clear, &QPushButton::clicked, this, &GoodsPicture::clear);
}

void GoodsPicture::load(const QString &goods) {
    m_changed = false;
    m_file = goods.isEmpty() ? QString() : goodsPicture(m_context.home, goods);
    m_pixmap = m_file.isEmpty() ? QPixmap() : QPixmap(m_file);
    draw();
}

void GoodsPicture::choose() {
    const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("选择图片"), {},
                                                      QStringLiteral("图片 (*.png *.jpg *.jpeg)"));
    if (!file.isEmpty())
        take(file);
}

void GoodsPicture::take(const QString &file) {
    const QPixmap pixmap(file);
    if (pixmap.isNull()) {
        m_context.prompter.inform(QStringLiteral("图片格式不正确！"), informCaption);
        return;
    }
    m_file = file;
    m_pixmap = pixmap;
    m_changed = true;
    draw();
}

void GoodsPicture::clear() {
    m_changed = m_changed || !m_pixmap.isNull();
    m_file.clear();
    m_pixmap = {};
    draw();
}

void GoodsPicture::store(const QString &goods) {
    if (!m_changed)
        return;
    m_changed = false;
    if (m_file.isEmpty()) {
        removeGoodsPicture(m_context.home, goods);
    } else if (const QString failure = storeGoodsPicture(m_context.home, goods, m_file);
               !failure.isEmpty()) {
        m_context.prompter.inform(failure, informCaption);
    }
}

void GoodsPicture::showLarge() {
    QDialog dialog(window());
    dialog.setWindowTitle(QStringLiteral("商品图片"));
    auto *area = new QScrollArea(&dialog);
    auto *picture = new QLabel(area);
    picture->setPixmap(m_pixmap);
    picture->setAlignment(Qt::AlignCenter);
    area->setWidget(picture);
    area->setWidgetResizable(true);
    auto *column = new QVBoxLayout(&dialog);
    column->addWidget(area);
    dialog.resize(960, 640);
    dialog.exec();
}

void GoodsPicture::draw() {
    m_show->setEnabled(!m_pixmap.isNull());
    m_clear->setEnabled(!m_pixmap.isNull());
    if (m_pixmap.isNull()) {
        m_label->setText(QStringLiteral("没有图片"));
        return;
    }
    const qreal ratio = devicePixelRatioF();
    QPixmap fitted = m_pixmap.scaled((QSizeF(m_label->size() - QSize(16, 16)) * ratio).toSize(),
                                     Qt::KeepAspectRatio, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    m_label->setPixmap(fitted);
}

void GoodsPicture::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    draw();
}

} // namespace jxc
