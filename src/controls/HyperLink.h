#pragma once

#include "platform/Platform.h"

#include <QColor>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QLabel;

namespace quillshift {

/// A caption that behaves like a link: it is lit while the pointer is over it, and a click, Space or Enter
/// opens its address with the desktop's handler. Whether it is enabled, its font and its tool tip are those
/// of the widget.
class HyperLink final : public QWidget {
    Q_OBJECT

public:
    enum class Justify { Left, Right, Centre };
    enum class Look { Flat, Raised };
    enum class Border { None, Single };

    /// Uses the timers, the sound and the shell of `platform`, which outlives it.
    explicit HyperLink(const Platform& platform, QWidget* parent = nullptr);
    ~HyperLink() override;

    const std::u16string& Address() const { return address_; }
    /// Without the blanks around it.
    void SetAddress(std::u16string_view address);
    std::u16string Caption() const;
    void SetCaption(std::u16string_view caption);
    Justify Alignment() const { return alignment_; }
    void SetAlignment(Justify alignment);
    bool AutoSize() const { return autoSize_; }
    /// On: the control takes the caption's size; off: the caption takes the control's.
    void SetAutoSize(bool on);
    QColor HoverColor() const { return hoverColor_; }
    void SetHoverColor(const QColor& colour) { hoverColor_ = colour; }
    Look Appearance() const { return appearance_; }
    /// How a border looks, if there is one.
    void SetAppearance(Look look);
    Border BorderStyle() const { return borderStyle_; }
    void SetBorderStyle(Border style);
    QColor ForeColor() const;
    void SetForeColor(const QColor& colour);
    QColor BackColor() const;
    void SetBackColor(const QColor& colour);
    bool AutoToolTip() const { return autoToolTip_; }
    /// On: the tool tip tells the address; off: what the widget's tool tip says.
    void SetAutoToolTip(bool on) { autoToolTip_ = on; }
    bool SoundOn() const { return soundOn_; }
    void SetSoundOn(bool on) { soundOn_ = on; }
    bool MOUnderline() const { return mouseOverUnderline_; }
    void SetMOUnderline(bool on) { mouseOverUnderline_ = on; }
    bool MOPointer() const { return mouseOverPointer_; }
    /// The hand stays on the caption from the first hover on.
    void SetMOPointer(bool on) { mouseOverPointer_ = on; }
    int SoundID() const { return soundId_; }
    /// Number of a wave file among the program's resources of the type "SOUND".
    void SetSoundID(int id) { soundId_ = id; }

    /// As a click does: opens the address, if there is one, and raises `OnClick`.
    void Click();

    struct Mouse {
        std::int16_t button = 0; ///< bits: 1 left, 2 right, 4 middle; in a move, those that are down
        std::int16_t shift = 0;  ///< bits: 1 Shift, 2 Ctrl, 4 Alt
        float x = 0;             ///< twips from the control's corner
        float y = 0;
    };
    std::function<void()> OnClick;
    std::function<void(Mouse&)> OnMouseDown;
    std::function<void(Mouse&)> OnMouseMove; ///< the pointer has come over the caption
    std::function<void()> OnMouseLeft;
    std::function<void(Mouse&)> OnMouseUp;
    std::function<void()> OnChange; ///< the caption is another one

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Fit();
    void SetLabelColour(const QColor& colour);
    void Underline(bool on);
    void ShowBorder();
    void BeginHover();
    void EndHoverIfLeft();
    void Play();

    const Platform& platform_;
    QLabel* lblHyperLink_;
    std::unique_ptr<Timer> myTimer_; ///< runs while the pointer is over the control
    std::u16string address_;
    Justify alignment_ = Justify::Left;
    bool autoSize_ = true;
    QColor hoverColor_{255, 0, 0};
    Look appearance_ = Look::Raised;
    Border borderStyle_ = Border::None;
    bool autoToolTip_ = true;
    bool soundOn_ = false;
    bool mouseOverUnderline_ = false;
    bool mouseOverPointer_ = false;
    int soundId_ = 0;
    bool hover_ = false;
    QColor saved_; ///< the caption's colour while it is lit
};

} // namespace quillshift
