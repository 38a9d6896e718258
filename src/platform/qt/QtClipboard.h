#pragma once

#include "platform/Clipboard.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QMimeData;

namespace quillshift {

class X11Question;
class X11Requests;
class X11SelectionReader;

/// The clipboard of the desktop. Under X11, where each text is asked of the program that copied it, it is
/// read as soon as it changes. Copied lines end with a line feed, as other programs expect. What the toolkit
/// would wait for by itself goes the same way: drops, the middle button, and the paste key where no
/// command serves it.
class QtClipboard final : public QObject, public Clipboard {
    Q_OBJECT

public:
    QtClipboard();
    ~QtClipboard() override;

    std::optional<std::u16string> Text() override;
    std::optional<CopiedText> Arrived() override;
    bool IsWaiting() const override { return waits_; }
    bool HasText() const override;
    void SetText(std::u16string_view text) override;
    void SetRepaired(std::u16string_view text) override;
    void Clear() override;
    void HandOver() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Clock = std::chrono::steady_clock;
    enum class Form { Text, Uris };

    void NoteOwn();
    void SetOwn(std::unique_ptr<QMimeData> data);
    void Tell();
    bool IsRead() const;
    std::optional<CopiedText> TextAtHand() const;
    void ReadOn();
    void WaitWhile(const std::function<bool()>& isOpen, const std::function<Clock::time_point()>& end);
    std::unique_ptr<QMimeData> Fetch(const char* selection, Form form, std::uint32_t time,
                                     Clock::time_point end);
    bool TakeDrop(QObject* target, QEvent* event);
    bool TakeMiddleButton(QObject* target, QEvent* event);
    bool TakePasteKey(QObject* target, QEvent* event);
    std::optional<std::u16string> Wanted(std::optional<CopiedText> text) const;

    std::unique_ptr<X11SelectionReader> reader_; // null where the clipboard is Qt's alone
    std::unique_ptr<X11Requests> requests_;
    QTimer readOn_;
    QTimer markLimit_; // how long an owner that has sent its text is waited for once more
    CopiedText own_;   // what the toolkit gives out; asked again, it may have to ask another program
    bool waits_ = false;
    bool passesOn_ = false; // what another program has sent is in an event of our own
};

} // namespace quillshift
