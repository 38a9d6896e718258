#include "controls/Dialog.h"
#include "harness/TemporaryFolder.h"
#include "platform/qt/Appearance.h"
#include "shell/ProgramDialogs.h"
#include "support/TestProgram.h"
#include "support/TestsFolder.h"

#include <QtWidgets/QtWidgets>

namespace quillshift {
namespace {

/// All dialogs of the program, by what every one of them has to be. With a name in GALLERY each leaves a
/// picture under it.
struct AllDialogs : testing::TestWithParam<DialogKind> {
    TestProgram test;
    ProgramParts& parts = (test.Start(), test.program.Parts());
    QWidget owner;
    std::unique_ptr<Dialog> dialog;

    void SetUp() override {
        test.window.document.SetText(u"Жук");
        LoadDataFiles();
        dialog = ProgramDialogs(parts, owner).Make(GetParam());
        dialog->show();
        QCoreApplication::processEvents();
    }
    /// The pictures and texts that dialogs show.
    void LoadDataFiles() {
        namespace fs = std::filesystem;
        const fs::path root = TestsFolder().parent_path();
        const auto load = [&](const fs::directory_entry& entry) {
            const fs::path name = "/program" / fs::relative(entry.path(), root);
            if (entry.is_regular_file())
                test.files.files[name.u16string()] = Contents(entry.path());
        };
        std::ranges::for_each(fs::directory_iterator(root), load);
        std::ranges::for_each(fs::recursive_directory_iterator(root / "Data"), load);
    }
    /// Of each page, where there are several.
    void LeavePictures() {
        const QString folder = qEnvironmentVariable("GALLERY");
        if (folder.isEmpty() || !dialog->isVisible())
            return;
        const QString name = QString::fromLatin1(dialog->metaObject()->className()).section(u':', -1);
        const int pages = dialog->findChild<QWidget*>(QStringLiteral("tabSettings")) != nullptr ? 8 : 1;
        for (int page = 1; page <= pages; ++page) {
            dialog->TurnTo(page);
            QCoreApplication::processEvents(); // what is laid out only then
            const QString number = pages > 1 ? QString::number(page) : QString();
            EXPECT_TRUE(dialog->grab().save(folder + u'/' + name + number + QStringLiteral(".png")));
        }
    }
    template <typename Control>
    std::vector<Control*> Visible() const {
        std::vector<Control*> found;
        for (Control* control : dialog->findChildren<Control*>())
            if (control->isVisible())
                found.push_back(control);
        return found;
    }
};

/// The way down from the dialog to a control, both included.
std::vector<const QWidget*> WayTo(const QWidget* control) {
    std::vector<const QWidget*> way{control};
    while (!way.front()->isWindow())
        way.insert(way.begin(), way.front()->parentWidget());
    return way;
}

/// Whether a reader comes to `first` before `second`: frames are read one by one, lines from the left.
bool IsReadBefore(const QWidget* first, const QWidget* second) {
    const auto ways = std::pair(WayTo(first), WayTo(second));
    const auto [a, b] = std::ranges::mismatch(ways.first, ways.second);
    const QRect one = (*a)->geometry();
    const QRect other = (*b)->geometry();
    return one.bottom() < other.center().y() && one.center().y() < other.top()   ? true
           : other.bottom() < one.center().y() && other.center().y() < one.top() ? false
                                                                                 : one.left() < other.left();
}

TEST_P(AllDialogs, AreLaidOutAsByOneHand) {
    EXPECT_EQ(dialog->font().family(), DialogFont().family());
    for (const QLabel* label : Visible<QLabel>()) {
        const int height =
            label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        EXPECT_GE(label->height(), height) << label->text().toStdString();
        EXPECT_TRUE(label->wordWrap() || label->width() >= label->sizeHint().width())
            << label->text().toStdString();
    }
    for (const QWidget* part : dialog->findChildren<QWidget*>())
        if (part->layout() != nullptr && part->isVisible()) {
            const QSize needed = part->layout()->totalMinimumSize();
            EXPECT_EQ(part->size().expandedTo(needed), part->size()) << part->objectName().toStdString();
        }
    QSet<QString> mnemonics;
    for (const QAbstractButton* button : Visible<QAbstractButton>()) {
        EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
        const QString letter = QKeySequence::mnemonic(button->text()).toString();
        const bool hasText = std::ranges::any_of(button->text(), [](QChar c) { return c.isLetter(); });
        EXPECT_NE(letter.isEmpty(), hasText) << button->text().toStdString();
        EXPECT_FALSE(hasText && mnemonics.contains(letter)) << button->text().toStdString();
        mnemonics.insert(letter);
    }
    LeavePictures();
}

TEST_P(AllDialogs, AreWalkedByTabAsTheyAreRead) {
    const auto takesTab = [](const QWidget* control) {
        return control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0 &&
               control->focusProxy() == nullptr;
    };
    const QWidget* last = nullptr;
    for (const QWidget* next = dialog->nextInFocusChain(); next != dialog.get();
         next = next->nextInFocusChain()) {
        if (!takesTab(next))
            continue;
        EXPECT_TRUE(last == nullptr || IsReadBefore(last, next))
            << next->objectName().toStdString() << " is reached behind " << last->objectName().toStdString();
        last = next;
    }
}

TEST_P(AllDialogs, StayOnTheScreenAndCutNoCaptionHoweverLargeTheTextIs) {
    const QFont usual = QApplication::font();
    QApplication::setFont(QFont(usual.family(), 36));
    dialog.reset();
    dialog = ProgramDialogs(parts, owner).Make(GetParam());
    dialog->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(dialog->size().boundedTo(dialog->screen()->availableSize()), dialog->size());
    for (const QAbstractButton* button : Visible<QAbstractButton>())
        EXPECT_EQ(button->size().expandedTo(button->minimumSizeHint()), button->size())
            << button->text().toStdString();
    QApplication::setFont(usual);
}

INSTANTIATE_TEST_SUITE_P(Program, AllDialogs, testing::ValuesIn(ProgramDialogs::Kinds()));

} // namespace
} // namespace quillshift
