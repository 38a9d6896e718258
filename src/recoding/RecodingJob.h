#pragma once

#include "platform/MessageBox.h"
#include "platform/TextSurface.h"
#include "platform/Window.h"
#include "recoding/DecodingView.h"
#include "recoding/RecodingState.h"
#include "settings/Settings.h"

#include <cstddef>
#include <functional>

namespace quillshift {

/// Takes the recoder to the whole document: the walk of the progress dialog, the stop and the one-step way
/// back.
class RecodingJob {
public:
    struct Services {
        RecodingState& state;
        Settings& settings;
        MessageBox& messageBox;
        TextSurface& document;
        Window& mainWindow;
        DecodingView& dialog;
        const std::u16string& documentPath; ///< empty while the document has no file
    };

    explicit RecodingJob(const Services& services) : services_(services) {}

    /// Runs the direction of the setting `DefaultCode`; nothing without a valid one. Throws as below.
    void StartDecode();
    /// Runs one direction.
    void StartDirection(Direction direction);
    /// Recodes the document from the selectors' pair and returns when that is done, stopped or refused. A
    /// start while a job walks is ignored. Throws Error 6 when the text is over the recoder's limit; the
    /// progress dialog then is still on screen.
    void RunRecodingJob();
    /// Asks a walking job to stop at its next step; without one nothing lasts.
    void StopRecoding();
    /// Brings back the text of before the last recoding, whatever has been done since.
    void UndoRecoding();

    /// Raised when a job has ended, by whatever road.
    std::function<void()> OnEnded;

private:
    enum class Walk { Finished, Stopped };

    void PrepareDialog();
    Walk WalkTheBar();
    void Finish();

    Services services_;
};

/// Number of steps of the walk after its first: a tenth of the length, exact halves to the even neighbour.
std::size_t WalkSteps(std::size_t length);

} // namespace quillshift
