#pragma once

#include "platform/Clipboard.h"

#include <QObject>

#include <memory>

namespace quillshift {

class X11SelectionReader;

/// The clipboard of the desktop. Under X11, where each text is asked of the program that copied it, it is
/// read as soon as it changes. Copied lines end with a line feed, as other programs expect.
class QtClipboard final : public QObject, public Clipboard {
    Q_OBJECT

public:
    QtClipboard();
    ~QtClipboard() override;

    std::optional<std::u16string> Text() override;
    bool HasText() const override;
    void SetText(std::u16string_view text) override;
    void Clear() override;

private:
    void OnDataChanged();
    void Tell();
    void NoteUnread();
    bool IsRead() const;

    std::unique_ptr<X11SelectionReader> reader_; // null where the clipboard is Qt's alone
    bool hasUnreadText_ = false;                 // the clipboard, not read by it, holds text
};

} // namespace quillshift
