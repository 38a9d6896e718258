#pragma once

#include <string>
#include <string_view>

namespace quillshift {

/// The process itself and the desktop around it.
class Shell {
public:
    virtual ~Shell() = default;

    /// Folder of the program's own files, without a final separator.
    virtual std::u16string ProgramFolder() const = 0;
    /// Whether a copy of this program was already running for this user when this one started.
    virtual bool AnotherCopyRuns() const = 0;
    /// Starts a program as a process of its own and does not wait for it. False if it can't be started.
    virtual bool StartProcess(std::u16string_view program) = 0;
    /// Asks the desktop to open a link with its default handler. False if it has none,
    /// as far as that shows within a second.
    virtual bool OpenWithDefault(std::u16string_view link) = 0;
    /// Whether what the program holds is hidden from others for now: memory is neither dumped nor read by a
    /// debugger, a selection is not offered, and assistive programs lose what they knew of hidden windows.
    virtual void Conceal(bool concealed) = 0;
    /// Ends the process at once; other windows get no close event.
    virtual void EndProcess() = 0;
};

} // namespace quillshift
