#pragma once

#include "platform/Platform.h"
#include "settings/SoundEvents.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace quillshift {

/// What every dialog stands on.
struct DialogContext {
    Platform& platform;
    Settings& settings;
    SoundEvents& sounds;
    QWidget* owner;
};

/// A button of a dialog: plays its sound on each press, by whatever mouse button, and on each move over it.
class DialogButton final : public QPushButton {
    Q_OBJECT

public:
    DialogButton(const QString& text, SoundEvents& sounds, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    SoundEvents& sounds_;
};

/// Whether a dialog is heard when it is loaded and unloaded.
enum class DialogSounds { LoadAndUnload, None };

/// What every dialog does the same way: it takes its place above other windows as `TopMost` says and plays
/// the load sound before it fills its fields, and plays the unload sound when it is unloaded. It has the one
/// font of all dialogs, and captions without a mnemonic get one when it is shown. Where the screen has no
/// room for all of it, it scrolls.
class Dialog : public QDialog {
    Q_OBJECT

public:
    Dialog(const DialogContext& context, const QString& title,
           DialogSounds sounds = DialogSounds::LoadAndUnload);
    ~Dialog() override;

    /// The command that shows the dialog was given again: it comes up and takes the keyboard.
    virtual void BringUp();
    /// The argument that came with the command; a kept dialog gets one each time.
    virtual void TurnTo(int /*argument*/) {}

protected:
    /// Makes a control under its name, which becomes the object name.
    template <typename Control, typename... Arguments>
    Control* Add(const char* name, Arguments&&... arguments) {
        auto* control = new Control(std::forward<Arguments>(arguments)...);
        control->setObjectName(QLatin1String(name));
        return control;
    }
    /// A button with its sounds.
    DialogButton* AddButton(const char* name, const QString& text) {
        return Add<DialogButton>(name, text, context_.sounds);
    }

    /// The label of a field, which stands before it: its mnemonic leads there, and screen readers read it.
    static QLabel* LabelFor(QWidget* field, const QString& text) {
        auto* label = new QLabel(text);
        label->setBuddy(field);
        return label;
    }
    /// Escape closes a dialog as its close box does, unless it says that it stays.
    void StayAtEscape() { stays_ = true; }

    const DialogContext& Context() const { return context_; }

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Play(const SoundEvent& event);
    void FitTheScreen();

    DialogContext context_;
    DialogSounds sounds_;
    bool stays_ = false;
};

/// Places a window above all others or takes that place away, without hiding it in between.
void SetWindowTopMost(QWidget& window, bool topMost);

} // namespace quillshift
