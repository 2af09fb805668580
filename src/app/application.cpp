#include "app/application.h"

#include "core/action.h"
#include "core/prompter.h"

#include <QScopedValueRollback>
#include <QTimer>

namespace jxc {

namespace {

/// What names the account set's file cannot be opened, or is none.
bool isUnreadable(const DatabaseError &error) {
    return dynamic_cast<const NotOurDatabase *>(&error) != nullptr ||
           error.userText().contains(QLatin1String("jxc.mdb"));
}

const QString unreadableText = QStringLiteral("数据库格式不可识别！\r\n\r\n系统将退出！");

} // namespace

bool Application::notify(QObject *receiver, QEvent *event) {
    std::exception_ptr fault;
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        fault = std::current_exception();
    }
    // A box runs the event loop, and must not do so inside a handler of the fault.
    tell(fault);
    return false;
}

void Application::tell(const std::exception_ptr &fault) {
    try {
        std::rethrow_exception(fault);
    } catch (const Refusal &refusal) {
        inform(refusal.text());
    } catch (const ConnectionLost &error) {
        lost(error.userText());
    } catch (const DatabaseError &error) {
        if (!isUnreadable(error)) {
            inform(error.userText());
            return;
        }
        inform(unreadableText);
        Q_EMIT accountSetUnreadable();
    } catch (const std::exception &error) {
        inform(QString::fromUtf8(error.what()));
    } catch (...) {
        inform(QStringLiteral("程序发生未知错误！"));
    }
}

void Application::lost(const QString &text) {
    inform(text + QStringLiteral("\r\n\r\n已录入的内容没有丢失，连接恢复后请再操作一次。"));
    if (!m_reconnect)
        return;
    try {
        m_reconnect();
    } catch (const std::exception &) { // NOLINT(bugprone-empty-catch): the next action tries again
    }
}

void Application::inform(const QString &text) {
    if (m_prompter == nullptr || m_telling) {
        // A fault of the box itself, or of what shines through behind it, must not open another.
        qWarning("%s", qPrintable(text));
        return;
    }
    const QScopedValueRollback telling(m_telling, true);
    m_prompter->inform(text, informCaption);
}

} // namespace jxc
