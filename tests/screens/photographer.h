#pragma once

#include <QDir>
#include <QWidget>
#include <algorithm>

namespace jxc::test {

/// Takes pictures of windows and keeps them small.
class Photographer {
public:
    /// Only of what has one of these in its name; of all when there are none.
    Photographer(const QString &folder, const QStringList &only);

    [[nodiscard]] bool wants(const QString &name) const {
        return m_only.isEmpty() || std::ranges::any_of(m_only, [&](const QString &part) {
                   return name.contains(part);
               });
    }
    /// Whether anything is wanted of what is called "<group>" and "<group>_…".
    [[nodiscard]] bool wantsOf(const QString &group) const {
        return m_only.isEmpty() || std::ranges::any_of(m_only, [&](const QString &part) {
                   return part.startsWith(group);
               });
    }
    /// One window, by itself.
    void take(QWidget *window, const QString &name);
    /// A window with every dialog and list that is open over it, where they are.
    void takeDesk(QWidget *window, const QString &name);

private:
    void keep(const QImage &picture, const QString &name);

    QDir m_folder;
    QStringList m_only;
};

} // namespace jxc::test
