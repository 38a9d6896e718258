#include "controls/ProgressBar.h"
#include "recoding/frmDecode.h"
#include "recoding/frmDecoding.h"
#include "support/FailureOf.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include <optional>

namespace quillshift {
namespace {

struct RecodingDialogs : testing::Test {
    FakePlatform fakes;
    Settings settings{fakes.store};
    SoundEvents sounds{settings, fakes.sound};

    void SwitchSoundsOn() {
        for (const SoundEvent& event : {sound_event::kButtonMouseMove, sound_event::kButtonMouseClick,
                                        sound_event::kFormLoad, sound_event::kFormUnload}) {
            settings.Switch(event.on, true);
            settings.Set(event.path, event.defaultFile);
        }
    }
};

TEST_F(RecodingDialogs, ATargetIsDisabledWhileItsSourceIsChosen) {
    std::optional<Direction> recoded;
    frmDecode dialog(settings, sounds, nullptr, [&](Direction direction) { recoded = direction; });
    EXPECT_FALSE(dialog.targetOptions[0]->isEnabled());
    QTest::mouseClick(dialog.cmdDecode, Qt::LeftButton);
    EXPECT_EQ(recoded, (Direction{1, 2}));

    for (Charset source = 1; source <= kCharsets; ++source)
        for (Charset target = 1; target <= kCharsets; ++target) {
            recoded.reset();
            dialog.sourceOptions[static_cast<std::size_t>(source - 1)]->setChecked(true);
            dialog.targetOptions[static_cast<std::size_t>(target - 1)]->setChecked(true);
            QTest::mouseClick(dialog.cmdDecode, Qt::LeftButton);
            EXPECT_EQ(recoded, source == target ? std::nullopt : std::optional(Direction{source, target}));
        }
}

TEST_F(RecodingDialogs, PlayTheirSoundsAtLoadMovePressAndUnload) {
    SwitchSoundsOn();
    {
        frmDecode dialog(settings, sounds, nullptr, [](Direction) {});
        dialog.show();
        QTest::mouseMove(dialog.cmdCancel);
        QTest::mousePress(dialog.cmdCancel, Qt::RightButton);
    }
    ASSERT_GE(fakes.sound.played.size(), 3U);
    EXPECT_EQ(fakes.sound.played.front(), u"FormLoad.wav");
    EXPECT_EQ(fakes.sound.played[fakes.sound.played.size() - 2], u"ButtonClick.wav");
    EXPECT_EQ(fakes.sound.played.back(), u"FormUnload.wav");
}

TEST(ProgressBarTest, InvertsTheLabelUnderTheFilledPart) {
    ProgressBar bar;
    bar.resize(200, 24);
    bar.SetText(u"MMMMMMMM");
    bar.SetValue(50);
    const QImage image = bar.grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), QColor(0, 0, 128));
    EXPECT_EQ(image.pixelColor(197, 2), QColor(Qt::white));
    const auto shows = [&](QColor colour, int from, int to) {
        for (int x = from; x < to; ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) == colour)
                    return true;
        return false;
    };
    EXPECT_TRUE(shows(QColor(255, 255, 127), 60, 99)) << "the inverse of the label's black";
    EXPECT_TRUE(shows(QColor(Qt::black), 101, 140));
    EXPECT_FALSE(shows(QColor(Qt::black), 0, 99));
}

TEST(ProgressBarTest, ReckonsPercentagesAndRefusesAnEmptyWhole) {
    ProgressBar bar;
    bar.SetTotalValue(-1); // has no effect without `CalculatePercentage`
    bar.SetCalculatePercentage(true);
    EXPECT_EQ(bar.TotalValue(), 100);
    bar.SetTotalValue(8);
    bar.SetValue(1);
    EXPECT_EQ(bar.Label(), u" 13%");
    const Error error = FailureOf([&] { bar.SetTotalValue(0); });
    EXPECT_EQ(static_cast<unsigned>(error.Number()), 0x800403E9U);
    EXPECT_EQ(error.Source(), u"spbProgressBar");
    bar.SetCalculatePercentage(false);
    EXPECT_EQ(bar.TotalValue(), 0);
}

} // namespace
} // namespace quillshift
