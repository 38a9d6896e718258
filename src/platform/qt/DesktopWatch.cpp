#include "platform/qt/DesktopWatch.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace quillshift {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kObject = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

// Where there is no bus the library would start one of its own.
bool HasBus() {
    if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFile::exists(folder + QStringLiteral("/bus"));
}

} // namespace

DesktopWatch::DesktopWatch(QObject* parent) : QObject(parent) {
    if (!HasBus())
        return;
    qDBusRegisterMetaType<PortalSettings>();
    QDBusConnection::sessionBus().connect(kService, kObject, kInterface, QStringLiteral("SettingChanged"),
                                          this, SLOT(TakeChange(QDBusMessage)));
    // The portal may start after the program, and anew.
    connect(new QDBusServiceWatcher(kService, QDBusConnection::sessionBus(),
                                    QDBusServiceWatcher::WatchForRegistration, this),
            &QDBusServiceWatcher::serviceRegistered, this, &DesktopWatch::Ask);
    Ask();
}

void DesktopWatch::Ask() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(kService, kObject, kInterface, QStringLiteral("ReadAll"));
    question << WishGroups();
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<PortalSettings> told = *answer;
        if (told.isError())
            return;
        settings_ = told.value();
        Tell();
    });
}

void DesktopWatch::TakeChange(const QDBusMessage& told) {
    const QVariantList what = told.arguments(); // group, name, value
    settings_[what.value(0).toString()][what.value(1).toString()] =
        what.value(2).value<QDBusVariant>().variant();
    Tell();
}

void DesktopWatch::Tell() {
    const DesktopWishes now = WishesIn(settings_);
    if (std::exchange(wishes_, now) != now)
        emit Changed(now);
}

} // namespace quillshift
