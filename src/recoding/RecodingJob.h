#pragma once

#include "platform/Dialogs.h"
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
        Dialogs& dialogs;
        const std::u16string& documentPath; ///< empty while the document has no file
        std::function<void()> gatherText;   ///< the document gets what is being written elsewhere
    };

    explicit RecodingJob(const Services& services) : services_(services) {}

    /// Runs the direction of the setting `DefaultCode`; nothing without a valid one. Throws as below.
    void StartDecode();
    /// Recodes the document from the selectors' pair, which is `direction` from then on, and returns when
    /// that is done, stopped or refused. A start while a job walks is ignored. Throws Error 6 when the text
    /// is over the recoder's limit; all is then as it was.
    void StartDirection(Direction direction);
    /// As `StartDirection`, and shows a failure in a box: for roads that report none themselves.
    void StartAndReport(Direction direction);

    /// Asks a walking job to stop at its next step; without one nothing lasts.
    void StopRecoding();
    /// Asks the user whether to stop the job.
    void AskToStop();
    /// Brings back the text of before the last recoding, whatever has been done since.
    void UndoRecoding();

    /// What the progress dialog shows for the document's file.
    std::u16string DocumentName() const;
    /// The progress dialog tells of itself for as long as it lives.
    void Attach(DecodingView& view) { view_ = &view; }
    void Detach(const DecodingView& view);

    /// Raised when a job has ended, by whatever road.
    std::function<void()> OnEnded;

private:
    enum class Walk { Finished, Stopped };

    void RunRecodingJob();
    void ShowDialog();
    void CloseDialog();
    Walk WalkTheBar();
    void Finish();

    Services services_;
    DecodingView* view_ = nullptr; ///< none before the first job, and none once the user has closed it
};

/// Number of steps of the walk after its first: a tenth of the length, exact halves to the even neighbour.
std::size_t WalkSteps(std::size_t length);

} // namespace quillshift
