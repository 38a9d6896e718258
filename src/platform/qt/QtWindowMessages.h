#pragma once

#include "platform/WindowMessages.h"

#include <QObject>
#include <QWidget>

#include <map>
#include <memory>
#include <unordered_map>

namespace quillshift {

/// The message path of widgets. While the handler of a widget is replaced, its events of paint and size go to
/// the new handler instead, and reach the widget when the old one is called. Changes of the system's settings
/// and of the application's activation go to the widgets that are windows. `kEraseBackground` comes before
/// each paint; a widget paints background and contents at once, so its own handler does nothing then.
class QtWindowMessages final : public QObject, public WindowMessages {
public:
    QtWindowMessages();

    /// Makes a widget known, and forgets it when it is destroyed. Answers its id, the same one each time.
    WindowId Add(QWidget& widget);
    /// The widget with an id; null if there is none.
    QWidget* Widget(WindowId window) const;

    bool IsWindow(WindowId window) const override { return windows_.contains(window); }
    bool IsLocal(WindowId window) const override { return IsWindow(window); }
    MessageValue Property(WindowId window, std::string_view name) const override;
    bool SetProperty(WindowId window, std::string_view name, MessageValue value) override;
    WindowHandler* SetHandler(WindowId window, WindowHandler& handler) override;

private:
    class Window;

    bool eventFilter(QObject* watched, QEvent* event) override;
    std::shared_ptr<Window> Find(WindowId window) const;
    void SendToTopLevels(int message, MessageValue wParam);
    void WatchScreens();
    void OnApplicationState(Qt::ApplicationState state);
    void OnDestroyed(WindowId window, const QObject* widget);

    std::map<WindowId, std::shared_ptr<Window>> windows_;
    std::unordered_map<const QObject*, WindowId> ids_;
    WindowId lastId_ = 0;
    bool active_;
};

} // namespace quillshift
