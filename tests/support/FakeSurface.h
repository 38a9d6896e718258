#pragma once

#include "base/TextChange.h"
#include "base/Windows1251.h"
#include "document/modEdit.h"
#include "platform/TextSurface.h"

#include <gtest/gtest.h>

namespace quillshift {

/// A surface without a window: no formatting but what was loaded, and no line wider than the window. Where
/// the real one would know more, it fails the test.
class FakeSurface final : public TextSurface {
public:
    std::u16string_view Text() const override { return text_; }
    void SetText(std::u16string_view text) override {
        LoadPlain(text);
        Raise(OnSelChange);
    }
    void LoadPlain(std::u16string_view text) override {
        const std::u16string old = std::exchange(text_, WithWholeBreaks(text));
        start_ = length_ = top = 0;
        ++loads;
        const auto [place, removed, added] = ChangeBetween(old, text_, 0);
        Tell(place, std::u16string_view(old).substr(place, removed), added);
    }
    void LoadRich(const RichText& text) override { LoadPlain(text.text); }

    std::size_t SelStart() const override { return start_; }
    void SetSelStart(std::size_t position) override { Move(Snapped(position), 0); }
    std::size_t SelLength() const override { return length_; }
    void SetSelLength(std::size_t length) override {
        Move(start_, Snapped(start_ + std::min(length, text_.size() - start_)) - start_);
    }
    void Select(std::size_t start, std::size_t length) { SetSelStart(start), SetSelLength(length); }
    std::u16string SelText() const override { return text_.substr(start_, length_); }
    void SetSelText(std::u16string_view text) override {
        const std::u16string came = WithWholeBreaks(text);
        const auto [before, behind] = CutHalves(text_, {start_, length_, came.size()}, came);
        const std::size_t place = start_ - before;
        const std::u16string went = text_.substr(place, before + length_ + behind);
        const bool changes = SelText() != came;
        text_.replace(start_, length_, came);
        Move(start_ + came.size(), 0);
        if (changes)
            Tell(place, went, before + came.size() + behind);
    }
    void Clear() override {
        if (length_ > 0)
            SetSelText(u"");
    }

    Twips SelIndent() const override { return indent_; }
    void SetSelIndent(Twips indent) override { indent_ = indent; }
    void SetRightMargin(Twips) override {}
    SurfaceFont Font() const override { return font_; }
    void SetFont(const SurfaceFont& font) override { font_ = font; }
    std::optional<std::size_t> FindIn(std::u16string_view text, std::u16string_view wanted, std::size_t start,
                                      FindOptions options) const override {
        EXPECT_EQ(windows1251::FindUnencodable(text).count, 0U) << "the case of other letters";
        EXPECT_EQ(WithWholeBreaks(wanted), wanted);
        const bool matchCase = Has(options, FindOptions::MatchCase);
        const std::u16string in = matchCase ? std::u16string(text) : ToCase(text, LetterCase::Lower);
        const std::u16string what = matchCase ? std::u16string(wanted) : ToCase(wanted, LetterCase::Lower);
        for (std::size_t at = in.find(what, start); !what.empty() && at < in.size();
             at = in.find(what, at + 1)) {
            const std::size_t end = at + what.size();
            const bool isWhole =
                !IsInWord(at == 0 ? u' ' : text[at - 1]) && !IsInWord(end == text.size() ? u' ' : text[end]);
            if (isWhole || !Has(options, FindOptions::WholeWord))
                return at;
        }
        return std::nullopt;
    }
    void ReplaceEach(const std::function<const Replacement*()>& next, std::u16string_view by) override {
        const std::u16string came = WithWholeBreaks(by);
        std::u16string text = text_;
        std::vector<Replacement> told;
        std::vector<std::u16string> cames;
        while (const Replacement* const one = next()) {
            EXPECT_EQ(text.substr(one->place, one->went.size()), one->went);
            const std::size_t end = one->place + one->went.size();
            const auto [before, behind] = CutHalves(text, {one->place, one->went.size(), came.size()}, came);
            const std::size_t place = one->place - before;
            told.push_back({place, text.substr(place, before + one->went.size() + behind)});
            cames.push_back(text.substr(place, before) + came + text.substr(end, behind));
            text.replace(one->place, one->went.size(), came);
            start_ = one->place + came.size();
            length_ = 0;
        }
        text_ = text;
        for (std::size_t i = 0; i < told.size() && OnChange; ++i)
            OnChange({told[i].place, told[i].went, cames[i]});
        if (!told.empty())
            Raise(OnSelChange);
    }
    std::optional<std::size_t> LineIndex(int line) const override {
        std::size_t begin = 0;
        for (;; --line) {
            const std::size_t end = std::min(text_.find(u"\r\n", begin), text_.size());
            EXPECT_LT(end - begin, 40U) << "such a line may wrap";
            if (line == 0 || (line < 0 && start_ + length_ <= end))
                return begin;
            if (end == text_.size())
                return std::nullopt;
            begin = end + 2;
            line += line < 0 ? 1 : 0;
        }
    }
    std::size_t TopPosition() const override { return std::min(top, text_.size()); }
    void SetTopPosition(std::size_t position) override { top = position; }
    void SetReadOnly(bool value) override { readOnly = value; }
    int LineCount() const override {
        int lines = 1;
        while (LineIndex(lines))
            ++lines;
        return lines;
    }
    Rect SelectionOnScreen() const override { return onScreen; }
    void SetFocus() override { ++focused; }
    /// Ten characters to the page.
    std::size_t PrintRange(Printer& /*printer*/, const TwipsRect& rectangle, const TwipsRect& page,
                           std::size_t from) override {
        printed.push_back({from, rectangle, page});
        return std::min(from + 10, text_.size());
    }
    void ForgetPrintLayout() override { ++layoutsForgotten; }

    struct PrintedRange {
        std::size_t from;
        TwipsRect rectangle, page;
    };
    std::vector<PrintedRange> printed;
    int layoutsForgotten = 0;

    std::size_t top = 0;
    bool readOnly = false;
    int loads = 0; ///< how often everything was replaced
    int focused = 0;
    Rect onScreen;

private:
    static void Raise(const std::function<void()>& notice) {
        if (notice)
            notice();
    }
    void Tell(std::size_t place, std::u16string_view went, std::size_t came) {
        if (OnChange)
            OnChange({place, went, std::u16string_view(text_).substr(place, came)});
    }
    static std::u16string WithWholeBreaks(std::u16string_view text) {
        std::u16string whole;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isSecond = i > 0 && text[i] == u'\n' && text[i - 1] == u'\r';
            const bool isBreak =
                text[i] == u'\r' || text[i] == u'\n' || text[i] == u'\u2028' || text[i] == u'\u2029';
            if (!isSecond)
                whole += isBreak ? std::u16string_view(u"\r\n") : text.substr(i, 1);
        }
        return whole;
    }
    static bool IsInWord(char16_t character) {
        const auto changes = [character](LetterCase to) {
            return ToCase({&character, 1}, to)[0] != character;
        };
        return changes(LetterCase::Upper) || changes(LetterCase::Lower) ||
               std::u16string_view(u"0123456789_µ").find(character) != std::u16string_view::npos;
    }
    std::size_t Snapped(std::size_t position) const {
        return IsInsideCharacter(text_, position) ? position - 1 : std::min(position, text_.size());
    }
    void Move(std::size_t start, std::size_t length) {
        const bool moves = start != start_ || length != length_;
        start_ = start;
        length_ = length;
        if (moves)
            Raise(OnSelChange);
    }

    std::u16string text_;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
    Twips indent_;
    SurfaceFont font_;
};

} // namespace quillshift
