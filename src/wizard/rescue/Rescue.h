#pragma once

#include "platform/Clipboard.h"
#include "wizard/rescue/RescueFiles.h"
#include "wizard/rescue/RescueJob.h"
#include "wizard/rescue/RescueRow.h"

#include <deque>
#include <memory>
#include <unordered_map>

namespace quillshift::wizard {

enum class Doing { Nothing, Listing, Repairing, Returning, Reading }; ///< the last one is of a text

/// The list of files and what is done with them: found out, chosen, repaired and taken back. The work runs in
/// the background; its news comes with `Poll`, which is to be called now and then while something is done.
class Rescue {
public:
    Rescue(RescueFiles& files, Clipboard& clipboard)
        : files_(files), clipboard_(clipboard), canReturn_(!files.LastReport().empty()) {}

    /// Lists these files, and those in these folders. While something else is done they wait.
    void Add(std::vector<std::string> names);
    /// Lists a text; there is one at most. While something else is done it waits. False for an empty one.
    bool AddText(std::u16string text);
    /// Empties the list; only while nothing is done.
    void Clear();

    const std::vector<RescueRow>& Rows() const { return rows_; }
    Target WritesIn() const { return target_; }
    void WriteIn(Target target);

    /// Chooses by hand what becomes of a row.
    void Choose(std::size_t row, const std::optional<Chain>& chain);
    /// Whether others in its folder are unsure and could go the row's way.
    bool HasLikeIt(std::size_t row) const;
    /// They go its way, too. How many.
    std::size_t ChooseForLikeIt(std::size_t row);

    /// How many rows would be repaired.
    std::size_t Repairable() const;
    /// Repairs what is sure or chosen.
    void RepairAll();
    /// Puts a text as it was chosen on the clipboard. While something else is done that waits.
    void CopyText(std::size_t row);
    /// Whether there is a way back, from this run or an earlier one, as far as was looked for last.
    bool CanReturn() const { return canReturn_; }
    void ReturnAll();

    Doing WhatIsDone() const { return doing_; }
    std::size_t Done() const { return job_ ? job_->Done() : 0; }
    std::size_t Total() const { return job_ ? job_->Total() : 0; }
    /// What waits is forgotten with it.
    void Stop();
    /// How much waits for its turn.
    std::size_t Waiting() const { return waiting_.size(); }
    /// Gives the work on a short text a moment to end by itself.
    void Linger();

    struct News {
        bool ended = false;                ///< what was done has come to its end
        bool noReport = false;             ///< and no report could be written, so that no file was repaired
        std::size_t first = 0, last = 0;   ///< rows that have changed, up to but not with the last
        std::optional<std::size_t> text{}; ///< where the text has come
    };
    News Poll();
    /// What the last work came to; empty at first.
    const std::string& Summary() const { return summary_; }

private:
    void Begin(Doing doing, std::function<void(RescueJob&)> work);
    void WhenIdle(std::function<void()> begin);
    void List(std::vector<std::string> names);
    void ReadText(const std::u16string& text);
    void Take(Finding finding);
    void Borrow();
    void NoteChange(std::size_t row);
    void Repaired(std::size_t row, Outcome outcome);
    void BroughtBack(const Finding& now, Returned returned);
    void RepairFiles(RescueJob& job, const std::vector<std::pair<std::size_t, Finding>>& files);
    void Copied(std::size_t row, bool isRepaired, const std::u16string& text);
    bool IsLike(const RescueRow& row, const RescueRow& other) const;
    void SumUp();

    RescueFiles& files_;
    Clipboard& clipboard_;
    Target target_ = Target::Utf8;
    std::vector<RescueRow> rows_;
    std::unordered_map<std::string, std::size_t> byPath_;
    std::deque<std::function<void()>> waiting_; ///< what begins when nothing else is done
    Doing doing_ = Doing::Nothing;
    News news_;
    bool canReturn_;
    bool isShort_ = true;   ///< the text that is being read
    bool isPushed_ = false; ///< from the clipboard, so that the repaired text did not go back there
    std::string report_, summary_;
    std::size_t good_ = 0, left_ = 0; ///< files of the running work that came out well, or stayed
    std::unique_ptr<RescueJob> job_;  ///< last, so that it ends first
};

} // namespace quillshift::wizard
