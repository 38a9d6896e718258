#pragma once

#include "platform/qt/DesktopWishes.h"

#include <QDBusMessage>
#include <QObject>

namespace quillshift {

/// Asks the desktop's portal, without ever waiting for it, and listens to what changes there. Without a bus
/// or a portal there are no wishes.
class DesktopWatch final : public QObject {
    Q_OBJECT

public:
    explicit DesktopWatch(QObject* parent);

signals:
    void Changed(const quillshift::DesktopWishes& wishes);

private slots:
    void TakeChange(const QDBusMessage& told);

private:
    void Ask();
    void Tell();

    PortalSettings settings_;
    DesktopWishes wishes_;
};

} // namespace quillshift
