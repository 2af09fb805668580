#include "retail/gateway_settings.h"

#include "core/action.h"

#include <QDir>
#include <QFile>
#include <QSettings>

namespace jxc {

namespace {

constexpr int smsPort = 8500;

const QString hostKey = QStringLiteral("sms/host");
const QString addressKey = QStringLiteral("payment/address");

QString fileIn(const QString &home) {
    return QDir(home).filePath(QStringLiteral("data/gateway.ini"));
}

/// Invalid for what is no host, with or without a port.
QUrl smsUrlOf(const QString &host) {
    QUrl url(QStringLiteral("http://%1/shortMessage?").arg(host), QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || host.contains(u'/') || host.contains(u'@'))
        return {};
    if (url.port() < 0)
        url.setPort(smsPort);
    return url;
}

QUrl paymentUrlOf(const QString &address) {
    QUrl url(address, QUrl::StrictMode);
    const bool isHttp = url.scheme() == u"https" || url.scheme() == u"http";
    return url.isValid() && isHttp && !url.host().isEmpty() && url.userInfo().isEmpty() ? url
                                                                                        : QUrl();
}

void checkAddresses(const GatewaySettings &settings) {
    if (!settings.smsHost.isEmpty() && smsUrlOf(settings.smsHost).isEmpty())
        throw Refusal(QStringLiteral("短信平台地址格式不正确！"));
    if (!settings.paymentAddress.isEmpty() && paymentUrlOf(settings.paymentAddress).isEmpty())
        throw Refusal(QStringLiteral("移动支付平台地址格式不正确！"));
}

} // namespace

GatewaySettings loadGatewaySettings(const QString &home) {
    const QSettings file(fileIn(home), QSettings::IniFormat);
    return {file.value(hostKey).toString().trimmed(), file.value(addressKey).toString().trimmed()};
}

void saveGatewaySettings(const QString &home, const GatewaySettings &settings) {
    checkAddresses(settings);
    const QString path = fileIn(home);
    const Refusal unwritable(QStringLiteral("不能写入文件：\r\n\r\n") +
                             QDir::toNativeSeparators(path));
    // The settings' writer keeps the permissions that it finds, so the file is there first.
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::Append) ||
        !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner))
        throw unwritable;
    file.close();
    QSettings ini(path, QSettings::IniFormat);
    ini.setValue(hostKey, settings.smsHost);
    ini.setValue(addressKey, settings.paymentAddress);
    ini.sync();
    if (ini.status() != QSettings::NoError)
        throw unwritable;
}

QUrl smsUrl(const GatewaySettings &settings) {
    checkAddresses({settings.smsHost, {}});
    if (settings.smsHost.isEmpty())
        throw Refusal(QStringLiteral("您还没有定义短信平台地址，\r\n\r\n"
                                     "请在“短信参数”中填写短信服务商提供的地址！"));
    return smsUrlOf(settings.smsHost);
}

QUrl paymentUrl(const GatewaySettings &settings) {
    checkAddresses({{}, settings.paymentAddress});
    if (settings.paymentAddress.isEmpty())
        throw Refusal(QStringLiteral("您还没有定义移动支付平台地址，\r\n\r\n"
                                     "请在系统设置的“短信支付”中填写支付服务商提供的地址！"));
    return paymentUrlOf(settings.paymentAddress);
}

} // namespace jxc
