#include "platform/qt/QtWindowMessages.h"
#include "controls/hooks/MSubclass.h"
#include "support/FakeWindowMessages.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>
#include <QTest>

namespace quillshift {
namespace {

using testing::ElementsAre;

class RecordingWidget final : public QWidget {
public:
    explicit RecordingWidget(std::vector<std::string>& log, QWidget* parent = nullptr)
        : QWidget(parent), log_(log) {}

private:
    void paintEvent(QPaintEvent*) override {
        log_.emplace_back("painted");
        QPainter(this).fillRect(rect(), Qt::white);
    }
    void resizeEvent(QResizeEvent*) override { log_.emplace_back("resized"); }
    std::vector<std::string>& log_;
};

struct QtWindowMessagesTest : testing::Test {
    QtWindowMessagesTest() {
        widget->resize(50, 40);
        widget->show();
        QCoreApplication::processEvents();
        log.clear();
    }
    std::vector<std::string> Log() {
        QCoreApplication::processEvents();
        return std::exchange(log, {});
    }

    std::vector<std::string> log;
    QtWindowMessages messages;
    MSubclass hooks{messages, u"program"};
    std::unique_ptr<RecordingWidget> widget = std::make_unique<RecordingWidget>(log);
    WindowId window = messages.Add(*widget);
    FakeSubclass client{"client", log};
    FakeSubclass other{"other", log};
};

TEST_F(QtWindowMessagesTest, SaysGoodbyeToAClientThatThenDetaches) {
    hooks.AttachMessage(client, window, message::kDestroy);
    hooks.AttachMessage(client, window, message::kSize);
    client.react = [&] {
        hooks.DetachMessage(client, window, message::kDestroy);
        hooks.DetachMessage(client, window, message::kSize);
    };
    messages.SetProperty(window, "qsCommandBar:Control", 7);
    widget.reset();
    EXPECT_THAT(Log(), ElementsAre("client"));
    EXPECT_FALSE(messages.IsWindow(window));
    EXPECT_EQ(messages.Property(window, "qsCommandBar:Control"), 0);
    EXPECT_FALSE(messages.SetProperty(window, "qsCommandBar:Control", 7));
}

TEST_F(QtWindowMessagesTest, AClientMayDestroyTheWidget) {
    hooks.AttachMessage(client, window, message::kSize);
    client.react = [&] { widget.reset(); };
    QResizeEvent event(QSize(10, 20), QSize());
    QCoreApplication::sendEvent(widget.get(), &event);
    EXPECT_THAT(Log(), ElementsAre("client")) << "and nobody is left to be resized";
}

TEST_F(QtWindowMessagesTest, TellsWindowsOfNewSettingsAndOfActivation) {
    RecordingWidget child(log, widget.get());
    hooks.AttachMessage(other, messages.Add(child), message::kSettingChange);
    hooks.AttachMessage(client, window, message::kSettingChange);
    const auto expectMessages = [&](const char* what, std::ptrdiff_t count = 1) {
        const auto received = Log();
        EXPECT_EQ(std::count(received.begin(), received.end(), "client"), count) << what;
        EXPECT_EQ(std::count(received.begin(), received.end(), "other"), 0) << "it is no window of its own";
    };
    const auto styleBefore = QApplication::style()->name();
    QApplication::setStyle(QStringLiteral("windows"));
    expectMessages("style");
    const QFont fontBefore = QApplication::font();
    QApplication::setFont(QFont(fontBefore.family(), fontBefore.pointSize() + 3));
    expectMessages("font");
    QApplication::setPalette(Qt::darkGreen);
    expectMessages("palette");
    QApplication::setPalette(QPalette());
    QApplication::setFont(fontBefore);
    QApplication::setStyle(styleBefore);
    Log();
    hooks.DetachMessage(client, window, message::kSettingChange);

    hooks.AttachMessage(client, window, message::kActivateApplication);
    // Said in the application's stead: on this platform it is never deactivated.
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    Log();
    for (const auto state : {Qt::ApplicationInactive, Qt::ApplicationHidden})
        emit qApp->applicationStateChanged(state);
    EXPECT_EQ(client.wParam, 0);
    expectMessages("deactivated once");
    emit qApp->applicationStateChanged(Qt::ApplicationActive);
    EXPECT_EQ(client.wParam, 1);
}

} // namespace
} // namespace quillshift
