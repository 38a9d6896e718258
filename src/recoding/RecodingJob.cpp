#include "recoding/RecodingJob.h"

#include "base/Error.h"
#include "base/Texts.h"

#include <utility>

namespace quillshift {
namespace {

// The stored form of a direction is its number, and nothing else counts: " 3" or "03" name none.
std::optional<int> DirectionNumber(std::u16string_view text) {
    for (int number = 0; number < kDirections; ++number)
        if (text == WholeNumberText(number))
            return number;
    return std::nullopt;
}

// Marks the job as walking for as long as it stands, also when it is left by a failure.
class WalkingMark {
public:
    WalkingMark(bool& walking, const std::function<void()>& ended) : walking_(walking), ended_(ended) {
        walking_ = true;
    }
    ~WalkingMark() {
        walking_ = false;
        if (ended_)
            ended_();
    }
    WalkingMark(const WalkingMark&) = delete;
    WalkingMark& operator=(const WalkingMark&) = delete;

private:
    bool& walking_;
    const std::function<void()>& ended_;
};

} // namespace

std::size_t WalkSteps(std::size_t length) {
    const std::size_t tens = length / 10;
    const std::size_t rest = length % 10;
    const bool up = rest > 5 || (rest == 5 && tens % 2 == 1);
    return up ? tens + 1 : tens;
}

void RecodingJob::StartDecode() {
    if (const auto number = DirectionNumber(services_.settings.Text(Setting::DefaultCode)))
        StartDirection(DirectionOf(*number));
}

void RecodingJob::StartDirection(Direction direction) {
    if (services_.state.walking)
        return;
    services_.state.SetPair(direction);
    RunRecodingJob();
}

void RecodingJob::StartAndReport(Direction direction) {
    services_.messageBox.Attempt([&] { StartDirection(direction); });
}

void RecodingJob::RunRecodingJob() {
    services_.gatherText();
    RecodingState& state = services_.state;
    if (services_.document.Length() == 0) {
        services_.messageBox.Inform(u"Нет текста для перекодирования !");
        return;
    }
    state.StopRequested = false;
    const WalkingMark mark(state.walking, OnEnded);
    ShowDialog();
    if (WalkTheBar() == Walk::Finished)
        Finish();
    else
        CloseDialog();
}

void RecodingJob::ShowDialog() {
    services_.dialogs.Show(DialogKind::Decoding);
    if (view_ == nullptr)
        return;
    view_->SetWaiting(true);
    view_->SetCode(DirectionName(services_.state.Pair()));
}

void RecodingJob::CloseDialog() {
    view_ = nullptr;
    services_.dialogs.Close(DialogKind::Decoding);
}

void RecodingJob::Detach(const DecodingView& view) {
    if (view_ == &view)
        view_ = nullptr;
}

RecodingJob::Walk RecodingJob::WalkTheBar() {
    RecodingState& state = services_.state;
    const std::size_t steps = WalkSteps(services_.document.Length());
    for (std::size_t i = 0; i <= steps && !state.StopRequested; ++i) {
        // Events ran at the last step, so the text may have changed, or be gone.
        const auto length = static_cast<float>(services_.document.Length());
        if (length == 0)
            return Walk::Stopped;
        if (view_ != nullptr)
            view_->SetProgress(static_cast<float>(i) / (length / 10) * 100);
    }
    // The last step ran events, too.
    if (std::exchange(state.StopRequested, false) || services_.document.Length() == 0)
        return Walk::Stopped;
    return Walk::Finished;
}

void RecodingJob::Finish() {
    services_.gatherText(); // the walk lets commands through
    RecodingState& state = services_.state;
    std::u16string text(services_.document.Text());
    std::u16string recoded;
    try {
        recoded = RecodeText(text, state.Pair());
    } catch (const Error&) {
        CloseDialog();
        throw;
    }
    state.SavedText = std::move(text);
    services_.document.SetText(recoded);
    if (view_ != nullptr) {
        view_->Hide();
        view_->SetWaiting(false);
    }
    state.RecodeUndoAvailable = true;
}

void RecodingJob::StopRecoding() {
    services_.state.StopRequested = true;
    services_.mainWindow.SetPointer(Pointer::Default);
}

void RecodingJob::AskToStop() {
    if (services_.messageBox.Ask(u"Вы действительно хотите отменить перекодирование?") != BoxAnswer::Yes)
        return;
    StopRecoding();
    CloseDialog();
}

void RecodingJob::UndoRecoding() {
    services_.document.SetText(services_.state.SavedText);
}

std::u16string RecodingJob::DocumentName() const {
    return services_.documentPath.empty() ? u"Документ не сохранен" : services_.documentPath;
}

} // namespace quillshift
