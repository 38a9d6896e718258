#include "recoding/RecodingJob.h"

#include "base/Texts.h"

#include <algorithm>

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
    services_.state.Combo1 = direction.source - 1;
    services_.state.Combo2 = direction.target - 1;
    RunRecodingJob();
}

void RecodingJob::RunRecodingJob() {
    RecodingState& state = services_.state;
    if (state.walking)
        return;
    if (services_.document.Text().empty()) {
        services_.messageBox.Inform(u"Нет текста для перекодирования !");
        return;
    }
    state.StopRequested = false;
    const WalkingMark mark(state.walking, OnEnded);
    PrepareDialog();
    if (WalkTheBar() == Walk::Finished)
        Finish();
    else
        services_.dialog.Destroy();
}

void RecodingJob::PrepareDialog() {
    DecodingView& dialog = services_.dialog;
    if (!dialog.IsCreated())
        dialog.Create(services_.documentPath.empty() ? std::u16string_view(u"Документ не сохранен")
                                                     : std::u16string_view(services_.documentPath));
    dialog.SetWaiting(true);
    const Direction pair{static_cast<Charset>(services_.state.Combo1 + 1),
                         static_cast<Charset>(services_.state.Combo2 + 1)};
    dialog.SetCode(DirectionName(pair));
    dialog.Show();
}

RecodingJob::Walk RecodingJob::WalkTheBar() {
    RecodingState& state = services_.state;
    const std::size_t steps = WalkSteps(services_.document.Text().size());
    for (std::size_t i = 0; i <= steps; ++i) {
        if (state.StopRequested) {
            state.StopRequested = false;
            return Walk::Stopped;
        }
        // Events ran at the last step, so the text may have changed, or be gone.
        const auto length = static_cast<float>(services_.document.Text().size());
        if (length == 0)
            return Walk::Stopped;
        services_.dialog.SetProgress(static_cast<float>(i) / (length / 10) * 100);
    }
    return services_.document.Text().empty() ? Walk::Stopped : Walk::Finished;
}

void RecodingJob::Finish() {
    RecodingState& state = services_.state;
    state.SavedText = services_.document.Text();
    const std::u16string recoded = RecodeText(state.SavedText, static_cast<Charset>(state.Combo1 + 1),
                                              static_cast<Charset>(state.Combo2 + 1));
    services_.document.SetText(recoded);
    services_.dialog.Hide();
    services_.dialog.SetWaiting(false);
    state.RecodeUndoAvailable = true;
}

void RecodingJob::StopRecoding() {
    services_.state.StopRequested = true;
    services_.mainWindow.SetPointer(Pointer::Default);
}

void RecodingJob::UndoRecoding() {
    services_.document.SetText(services_.state.SavedText);
}

} // namespace quillshift
