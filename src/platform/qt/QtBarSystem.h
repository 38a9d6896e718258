#pragma once

#include "platform/BarWindow.h"
#include "platform/SystemColours.h"
#include "platform/qt/QtWindowMessages.h"

#include <QAbstractNativeEventFilter>
#include <QEvent>
#include <QObject>

namespace quillshift {

/// The input of the process and the screens, as the command bars see them.
class QtBarSystem final : public QObject, public BarSystem, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// `ids` outlives it.
    explicit QtBarSystem(QtWindowMessages& ids);

    void SetInputFilter(InputFilter* filter) override { filter_ = filter; }
    void WatchPresses(bool on) override;
    Point PointerPosition() const override;
    WindowId WindowUnderPointer() const override;
    WindowId ForegroundWindow() const override;
    std::vector<MonitorInfo> Monitors() const override;
    bool Layered() const override;
    ScreenCopy CopyOfScreen(const Rect& part) const override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

    QtWindowMessages& ids_;
    InputFilter* filter_ = nullptr;
};

/// The desktop's palette as the colours of the command bars.
class QtSystemColours final : public SystemColours {
public:
    Colour Of(SystemColour name) const override;
    int BitsPerPixel() const override;
    bool HighContrast() const override;
};

/// The desktop's style as the theme of the command bars.
class QtTheme final : public ThemeService {
public:
    std::optional<std::u16string> ColourName() const override { return std::nullopt; }
    bool DrawToolbarPart(Surface& surface, int part, int state, const Rect& area) const override;
    /// Today's bars are of one piece.
    std::optional<ProgressSizes> ProgressBarSizes() const override { return ProgressSizes{}; }
    bool DrawProgressPart(Surface& surface, int part, const Rect& area) const override;
    bool DrawProgressText(Surface& surface, const Rect& area, std::u16string_view text,
                          const FontSpec& font) const override;
};

} // namespace quillshift
