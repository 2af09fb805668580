#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QKeyEvent;
class QLineEdit;
class QWidget;

namespace jxc {

/// Tells a scanner from a typist: eight or more signs, each within a few hundredths of a second of
/// the last, and Enter. What a scanner typed into a field that happened to have the focus is taken
/// out of it again.
class ScanCatcher : public QObject {
    Q_OBJECT
public:
    /// Hears every key of the window.
    explicit ScanCatcher(QWidget *window);

    /// Asked before a burst counts as a scan, so that quick typing of something else stays typing.
    void setKnows(std::function<bool(const QString &)> knows) { m_knows = std::move(knows); }

Q_SIGNALS:
    void scanned(const QString &barcode);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void begin();
    bool isQuick(const QKeyEvent &key);

    QWidget *m_window;
    std::function<bool(const QString &)> m_knows;
    QElapsedTimer m_sinceLast; ///< where the platform gives no time of the key
    quint64 m_lastKey = 0;
    QString m_burst;
    QPointer<QLineEdit> m_field; ///< that had the focus when the burst began
    QString m_before;            ///< what it held then
};

} // namespace jxc
