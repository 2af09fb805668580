#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

namespace jxc {

/// A spreadsheet could not be read or written. The text is shown to the user as it stands.
class SheetError : public std::runtime_error {
public:
    explicit SheetError(const QString &userText)
        : std::runtime_error(userText.toStdString())
        , m_userText(userText) {}

    [[nodiscard]] const QString &userText() const { return m_userText; }

private:
    QString m_userText;
};

/// One sheet of a file as plain texts: numbers as decimals with a point and without groups, days
/// as "yyyy-MM-dd", moments as "yyyy-MM-dd hh:mm:ss". Rows stand where they stand in the file
/// (blank ones between others are there, as empty lists) and end with their last filled cell.
struct Sheet {
    QString name;
    std::vector<QStringList> rows;
};

} // namespace jxc
