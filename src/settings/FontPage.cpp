#include "settings/FontPage.h"

#include "platform/qt/Appearance.h"
#include "platform/qt/QtText.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLineEdit>
#include <QListView>
#include <QStyledItemDelegate>

#include <array>

namespace quillshift {
namespace {

constexpr std::array kFontSizes{8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36};
constexpr std::chrono::milliseconds kFontsAfter(10);
constexpr qsizetype kFontsAtOnce = 10;
constexpr int kSampleHeight = 60;

// Each font's name in its own face, where that has letters. Only rows in sight are drawn.
class FontRows final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto systems = QFontDatabase::writingSystems(option->text);
        if (systems.contains(QFontDatabase::Latin) || systems.contains(QFontDatabase::Cyrillic))
            option->font.setFamily(option->text);
    }
};

} // namespace

FontPage::FontPage(const DialogContext& context, SettingForm& form, QWidget& dialog)
    : context_(context),
      form_(form),
      dialog_(dialog),
      timerFonts_(context.platform.timers.Make([this] { FillFonts(); })) {}

void FontPage::AddTo(QGridLayout& rows, QLabel* sample) {
    lblExample = sample;
    lblExample->setTextFormat(Qt::PlainText);
    lblExample->setAlignment(Qt::AlignCenter);
    lblExample->setFixedHeight(Larger(kSampleHeight));
    lblExample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    rows.addWidget(lblExample, rows.rowCount(), 0, 1, 3);
    for (const int size : kFontSizes)
        form_.At<QComboBox>("cboFontSize").addItem(QString::number(size));
    auto& cboFontName = form_.At<QComboBox>("cboFontName");
    auto* list = new QListView;
    list->setUniformItemSizes(true); // or each face would be loaded to be measured
    cboFontName.setView(list);
    cboFontName.setItemDelegate(new FontRows(&cboFontName));
}

void FontPage::Load() {
    const auto& cboFontName = form_.At<QComboBox>("cboFontName");
    const auto& txtExample = form_.At<QLineEdit>("txtExample");
    lblExample->setText(txtExample.text());
    SetSample([&](QFont& font) {
        font.setFamily(cboFontName.currentText());
        if (const float size = context_.settings.Number(Setting::FontSize); size > 0)
            font.setPointSizeF(static_cast<double>(size));
    });
    connect(&cboFontName, &QComboBox::textActivated, this,
            [this](const QString& name) { SetSample([&](QFont& font) { font.setFamily(name); }); });
    connect(&form_.At<QComboBox>("cboFontSize"), &QComboBox::textActivated, this,
            [this](const QString& size) {
                SetSample([&](QFont& font) { font.setPointSizeF(size.toDouble()); });
            });
    // As it always was: an edit of the text gives the sample the field's own font.
    connect(&txtExample, &QLineEdit::textChanged, this, [this, &txtExample](const QString& text) {
        lblExample->setText(text);
        lblExample->setFont(txtExample.font());
    });
    timerFonts_->StartOnce(kFontsAfter);
}

void FontPage::SetSample(const std::function<void(QFont&)>& change) {
    QFont font = lblExample->font();
    change(font);
    lblExample->setFont(font);
}

// The first time it begins, and then it goes on between events, until all fonts are there.
void FontPage::FillFonts() {
    auto& cboFontName = form_.At<QComboBox>("cboFontName");
    if (cboFontName.count() == 0) {
        dialog_.setCursor(Qt::WaitCursor);
        toAdd_ = QFontDatabase::families();
    }
    const QString typed = cboFontName.currentText();
    cboFontName.addItems(toAdd_.first(std::min(kFontsAtOnce, toAdd_.size())));
    cboFontName.setCurrentIndex(cboFontName.findText(typed, Qt::MatchFixedString | Qt::MatchCaseSensitive));
    cboFontName.setEditText(typed);
    toAdd_.remove(0, std::min(kFontsAtOnce, toAdd_.size()));
    if (toAdd_.isEmpty())
        dialog_.unsetCursor();
    else
        timerFonts_->StartOnce(std::chrono::milliseconds(0));
}

} // namespace quillshift
