// The real surface and its fake, which have to agree: what is shown over the fake holds in the window.

#include "base/Texts.h"
#include "base/Windows1251.h"
#include "platform/qt/QtTextSurface.h"
#include "support/FakeSurface.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

/// What a surface tells, and what it shows then.
struct Listener {
    explicit Listener(TextSurface& listened) : surface(listened) {
        surface.OnChange = [this](const TextEdit& edit) {
            heard += Number(edit.place) + u" ";
            (((heard += edit.went) += u" to ") += edit.came) += u", ";
        };
        surface.OnSelChange = [this] { heard += u"sel, "; };
    }
    std::u16string Tell() {
        return std::exchange(heard, {}) + std::u16string(surface.Text()) + u" " + Number(surface.SelStart()) +
               u"+" + Number(surface.SelLength()) + u" " + surface.SelText();
    }
    static std::u16string Number(std::size_t number) { return WholeNumberText(static_cast<int>(number)); }
    TextSurface& surface;
    std::u16string heard;
};

struct TextSurfaces : testing::Test {
    TextSurfaces() {
        real.resize(500, 300);
        real.show();
    }
    QtTextSurface real;
    FakeSurface fake;
    Listener one{real}, other{fake};
};

TEST_F(TextSurfaces, AgreeInRandomCalls) {
    RandomText random(20260101);
    for (int step = 0; step < 4000; ++step) {
        const std::size_t at = random.Below(real.Text().size() + 3);
        const std::size_t length = random.Below(7);
        const std::u16string piece = random.Piece() + random.Piece();
        const auto call = [&, what = random.Below(13), second = random.Below(30)](TextSurface& surface) {
            switch (what) {
            case 0:
                return surface.SetText(piece);
            case 1:
                return surface.LoadPlain(piece);
            case 2:
                return surface.SetSelIndent(300_twips);
            case 3:
                return surface.Clear();
            case 4:
            case 5:
                return surface.SetSelStart(at);
            case 6:
            case 7:
                return surface.SetSelLength(length);
            case 8: {
                const std::u16string text(surface.Text());
                const std::size_t back = std::min(at, text.size());
                const std::size_t front = std::min(second, back);
                std::vector<Replacement> row{{back, text.substr(back, length)},
                                             {front, text.substr(front, std::min(length, back - front))}};
                std::erase_if(row, [&](const Replacement& each) {
                    return IsInsideCharacter(text, each.place) ||
                           IsInsideCharacter(text, each.place + each.went.size());
                });
                auto next = row.begin();
                return surface.ReplaceEach([&] { return next == row.end() ? nullptr : &*next++; }, piece);
            }
            default:
                return surface.SetSelText(piece);
            }
        };
        call(real);
        call(fake);
        ASSERT_EQ(one.Tell(), other.Tell()) << "step " << step;
        if (real.Text().size() > 60) {
            real.SetText(u"");
            fake.SetText(u"");
            EXPECT_EQ(one.Tell(), other.Tell());
        }
    }
}

TEST_F(TextSurfaces, AgreeInWhatIsFound) {
    std::string bytes;
    for (int byte = 32; byte < 256; ++byte)
        ((bytes += static_cast<char>(byte)) += "ab") += byte % 2 ? "AB\r\n" : "Ab ";
    const std::u16string text = windows1251::Decode(bytes);
    std::size_t found = 0;
    for (const std::u16string_view wanted : {u"ab", u"Ab", u"AB\r\n", u"ё", u"Ё", u"бab", u"", u"none"})
        for (const unsigned options : {0U, 2U, 4U, 6U}) {
            real.SetText(text);
            fake.SetText(text);
            std::size_t from = 0;
            for (int match = 0; match < 500; ++match) {
                const auto place = real.Find(wanted, from, static_cast<FindOptions>(options));
                ASSERT_EQ(place, fake.Find(wanted, from, static_cast<FindOptions>(options))) << from;
                ASSERT_EQ(one.Tell(), other.Tell());
                if (!place)
                    break;
                ASSERT_EQ(real.SelLength(), wanted.size());
                from = *place + 1;
                ++found;
            }
        }
    EXPECT_GT(found, 1000U);
    EXPECT_EQ(real.Find(u"Ab", text.size() + 5, FindOptions::None), std::nullopt);
}

TEST_F(TextSurfaces, AgreeWhereLinesBegin) {
    for (TextSurface* surface : {static_cast<TextSurface*>(&real), static_cast<TextSurface*>(&fake)}) {
        surface->SetText(u"one\r\n\r\nthree\r\n");
        EXPECT_EQ(surface->LineIndex(0), 0U);
        EXPECT_EQ(surface->LineIndex(1), 5U);
        EXPECT_EQ(surface->LineIndex(2), 7U);
        EXPECT_EQ(surface->LineIndex(3), 14U);
        EXPECT_EQ(surface->LineIndex(4), std::nullopt);
        for (const auto& [caret, line] : {std::pair{0U, 0U}, {3U, 0U}, {5U, 5U}, {9U, 7U}, {14U, 14U}}) {
            surface->SetSelStart(caret);
            EXPECT_EQ(surface->LineIndex(-1), line) << caret;
        }
        surface->SetSelStart(1);
        surface->SetSelLength(8);
        EXPECT_EQ(surface->LineIndex(-1), 7U) << "the caret is where a selection ends";
    }
}

} // namespace
} // namespace quillshift
