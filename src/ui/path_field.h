#pragma once

#include <QWidget>

class QLineEdit;

namespace jxc {

/// A folder or a file: typed, or chosen by the button beside it.
class PathField : public QWidget {
    Q_OBJECT
public:
    enum class What { folder, file };
    /// `filter` is for files: "备份文件 (*.DAT)".
    PathField(What what, const QString &chooserTitle, const QString &filter = {},
              QWidget *parent = nullptr);

    [[nodiscard]] QString path() const;
    void setPath(const QString &path);
    [[nodiscard]] QLineEdit *field() const { return m_field; }

private:
    void choose();

    What m_what;
    QString m_title, m_filter;
    QLineEdit *m_field;
};

} // namespace jxc
