#pragma once

#include "platform/TextSurface.h"

#include <algorithm>

namespace quillshift {

/// A surface without a window: one line per line break, no formatting but what was loaded.
class FakeSurface final : public TextSurface {
public:
    std::u16string_view Text() const override { return text_; }
    void SetText(std::u16string_view text) override {
        LoadPlain(text);
        Raise(OnSelChange);
    }
    void LoadPlain(std::u16string_view text) override {
        text_ = text;
        start_ = length_ = 0;
        ++loads;
        Raise(OnChange);
    }
    void LoadRich(const RichText& text) override { LoadPlain(text.text); }

    std::size_t SelStart() const override { return start_; }
    void SetSelStart(std::size_t position) override { Select(std::min(position, text_.size()), 0); }
    std::size_t SelLength() const override { return length_; }
    void SetSelLength(std::size_t length) override {
        Select(start_, std::min(length, text_.size() - start_));
    }
    std::u16string SelText() const override { return text_.substr(start_, length_); }
    void SetSelText(std::u16string_view text) override {
        const bool changes = SelText() != text;
        text_.replace(start_, length_, text);
        Select(start_ + text.size(), 0);
        if (changes)
            Raise(OnChange);
    }
    void Clear() override { SetSelText(u""); }

    Twips SelIndent() const override { return indent_; }
    void SetSelIndent(Twips indent) override { indent_ = indent; }
    void SetRightMargin(Twips) override {}
    SurfaceFont Font() const override { return font_; }
    void SetFont(const SurfaceFont& font) override { font_ = font; }
    std::optional<std::size_t> Find(std::u16string_view wanted, std::size_t start, FindOptions) override {
        const auto at = text_.find(wanted, start);
        return at == std::u16string::npos ? std::nullopt : std::optional(at);
    }
    std::optional<std::size_t> LineIndex(int) const override { return 0; }
    void SetFocus() override {}

    int loads = 0; ///< how often everything was replaced

private:
    static void Raise(const std::function<void()>& notice) {
        if (notice)
            notice();
    }
    void Select(std::size_t start, std::size_t length) {
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
