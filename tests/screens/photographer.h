#pragma once

#include <QDir>
#include <QWidget>

namespace jxc::test {

/// Takes pictures of windows and keeps them small.
class Photographer {
public:
    /// Only of what has `only` in its name, or of all.
    Photographer(const QString &folder, const QString &only);

    [[nodiscard]] bool wants(const QString &name) const {
        return m_only.isEmpty() || name.contains(m_only);
    }
    /// Whether anything is wanted of what is called "<group>" and "<group>_…".
    [[nodiscard]] bool wantsOf(const QString &group) const {
        return m_only.isEmpty() || m_only.startsWith(group);
    }
    /// One window, by itself.
    void take(QWidget *window, const QString &name);
    /// A window with every dialog and list that is open over it, where they are.
    void takeDesk(QWidget *window, const QString &name);

private:
    void keep(const QImage &picture, const QString &name);

    QDir m_folder;
    QString m_only;
};

} // namespace jxc::test
