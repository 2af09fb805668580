#include "app/tf_login.h"

#include "core/account_set.h"
#include "core/login.h"
#include "core/prompter.h"
#include "core/session.h"
#include "core/skin.h"
#include "services/opening.h"
#include "ui/icons.h"
#include "ui/theme.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

namespace jxc {

namespace {

/// The strip beside the fields, in the colour of the shade.
class Picture : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override {
        const Theme &theme = Theme::current();
        QPainter painter(this);
        painter.fillRect(rect(), theme.accent);
        const int size = 72;
        painter.drawPixmap(
            QPoint((width() - size) / 2, height() / 2 - size),
            iconPixmap(QStringLiteral("product"), theme.accentText, size, devicePixelRatioF()));
        painter.setPen(theme.accentText);
        QFont large = font();
        large.setPixelSize(26);
        large.setWeight(QFont::DemiBold);
        painter.setFont(large);
        painter.drawText(QRect(0, height() / 2 + 12, width(), 36), Qt::AlignCenter, productWord);
        painter.setFont(font());
        painter.drawText(QRect(0, height() / 2 + 48, width(), 24), Qt::AlignCenter,
                         QStringLiteral("农资进销存"));
    }
};

} // namespace

TF_Login::TF_Login(const FormContext &context, const QString &callerWord, const QString &modeWord,
                   QWidget *parent)
    : Form(context, QStringLiteral("TF_Login"),
           productWord + QStringLiteral("农资进销存管理系统 ---- 操作员登录"), parent)
    , m_callerWord(callerWord)
    , m_modeWord(modeWord) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(makePicture());
    row->addWidget(makeFields(), 1);
    setFixedSize(520, 300);
    connect(m_operator, &QComboBox::currentTextChanged, this, &TF_Login::comAdminPropertiesChange);
    m_password->installEventFilter(this);
    m_operator->installEventFilter(this);
}

QWidget *TF_Login::makePicture() {
    auto *picture = new Picture;
    picture->setFixedWidth(184);
    return picture;
}

QWidget *TF_Login::makeFields() {
    m_operator = new QComboBox;
    m_operator->setObjectName(QStringLiteral("comAdmin"));
    m_password = new QLineEdit;
    m_password->setObjectName(QStringLiteral("edtPwd"));
    m_password->setEchoMode(QLineEdit::Password);
    m_hint = new QLabel;
    m_hint->setObjectName(QStringLiteral("lblHint"));
    m_hint->setProperty("quiet", true);

    m_upperPanel = new QWidget;
    m_upperPanel->setObjectName(QStringLiteral("pnlUpper"));
    auto *fields = new QFormLayout(m_upperPanel);
    fields->setContentsMargins(0, 0, 0, 0);
    fields->setVerticalSpacing(12);
    fields->addRow(QStringLiteral("操作员"), m_operator);
    fields->addRow(QStringLiteral("密　码"), m_password);
    fields->addRow(QString(), m_hint);

    auto *ok = new QPushButton(QStringLiteral("登录 F5"));
    ok->setObjectName(QStringLiteral("btnOK"));
    ok->setDefault(true);
    auto *cancel = new QPushButton(QStringLiteral("取消 Esc"));
    cancel->setObjectName(QStringLiteral("btnCancel"));
    cancel->setAutoDefault(false);
    connect(ok, &QPushButton::clicked, this, &TF_Login::btnOKClick);
    connect(cancel, &QPushButton::clicked, this, &TF_Login::btnCancelClick);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto *title = new QLabel(QStringLiteral("操作员登录"));
    title->setProperty("title", true);
    auto *side = new QWidget;
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(32, 28, 32, 24);
    column->setSpacing(20);
    column->addWidget(title);
    column->addWidget(m_upperPanel);
    column->addStretch();
    column->addLayout(buttons);
    return side;
}

void TF_Login::FormActivate() {
    m_upperPanel->show();
    {
        const QSignalBlocker quiet(m_operator);
        m_operator->clear();
        m_operator->addItems(operatorNames(session()));
        m_operator->setCurrentIndex(0);
    }
    comAdminPropertiesChange();
    m_password->setFocus();
    session().loginOk = false;
}

void TF_Login::comAdminPropertiesChange() {
    m_hint->clear();
    m_password->clear();
    if (hasEmptyPassword(session(), m_operator->currentText()))
        m_hint->setText(QStringLiteral("初始密码为空"));
}

bool TF_Login::login() {
    if (m_modeWord == QLatin1String("PosLogin"))
        return authenticate(session(), m_operator->currentText(), m_password->text());
    return openSession(session(), m_operator->currentText(), m_password->text()).outcome.isDone();
}

void TF_Login::btnOKClick() {
    bool isIn = false;
    try {
        isIn = login();
    } catch (...) { // told by the program; nobody is in until all was loaded
        session().loginOk = false;
        throw;
    }
    if (!isIn) {
        prompter().inform(QStringLiteral("用户密码不正确，请重新输入！"), informCaption);
        m_password->clear();
        m_password->setFocus();
        return;
    }
    m_upperPanel->hide();
    session().loginOk = true;
    if (auto *application = qobject_cast<QApplication *>(QApplication::instance()))
        applyTheme(*application, Theme::byName(skinOf(session())));
    accept();
}

void TF_Login::btnCancelClick() {
    reject();
}

void TF_Login::reject() {
    if (m_callerWord == QLatin1String("hb"))
        session().loginOk = true; // the one who was in stays in
    QDialog::reject();
}

void TF_Login::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_F5)
        btnOKClick();
    else
        Form::keyPressEvent(event);
}

/// Enter logs in from the list of operators too; the arrows choose an operator from the password.
bool TF_Login::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (watched == m_operator && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            btnOKClick();
            return true;
        }
        if (watched == m_password && (key == Qt::Key_Up || key == Qt::Key_Down)) {
            const int next = m_operator->currentIndex() + (key == Qt::Key_Down ? 1 : -1);
            if (next >= 0 && next < m_operator->count())
                m_operator->setCurrentIndex(next);
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

} // namespace jxc
