#include "document/SearchDialog.h"

#include "document/Aside.h"
#include "platform/qt/QtText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QVBoxLayout>

#include <limits>

namespace quillshift {
namespace {

Rect ToRect(const QRect& rect) {
    return RectAt(rect.x(), rect.y(), rect.width(), rect.height());
}

} // namespace

SearchDialog::SearchDialog(const DialogContext& context, const QString& title, Search& search,
                           SearchState& state)
    : Dialog(context, title),
      search_(search),
      state_(state),
      fields_(new QGridLayout),
      buttons_(new QVBoxLayout),
      cboFind(AddText("cboFind", QStringLiteral("На&йти:"), &SearchState::wanted)),
      cmdFind(AddSearchButton("cmdFind", QStringLiteral("&Найти далее"))) {
    cboFind->addItem(cboFind->currentText());
    auto* const options = new QGroupBox(QStringLiteral("Параметры:"));
    auto* const rows = new QVBoxLayout(options);
    AddOption(*rows, "chkWholeWord", QStringLiteral("Искать только слово &целиком"), FindOptions::WholeWord);
    AddOption(*rows, "chkMatchCase", QStringLiteral("С учетом &регистра"), FindOptions::MatchCase);
    auto* const cmdCancel = AddButton("cmdCancel", QStringLiteral("&Отмена"));
    buttons_->addWidget(cmdCancel);
    buttons_->addStretch();

    // Two columns, and the one with the buttons is reached behind the other one.
    auto* const texts = new QWidget;
    auto* const left = new QVBoxLayout(texts);
    left->setContentsMargins({});
    left->addLayout(fields_);
    left->addWidget(options);
    auto* const right = new QWidget;
    right->setLayout(buttons_);
    buttons_->setContentsMargins({});
    auto* const all = new QHBoxLayout(this);
    all->addWidget(texts);
    all->addWidget(right);
    all->setSizeConstraint(QLayout::SetFixedSize);

    cmdFind->setDefault(true);
    cmdFind->setMinimumWidth(cmdFind->sizeHint().width()); // for the longer of its captions
    connect(cmdFind, &QPushButton::clicked, this, [this] { search_.Find(state_); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    search_.Attach(*this);
}

SearchDialog::~SearchDialog() {
    search_.Detach(*this);
}

// The list holds the text that the dialog began with, and there is no other history. Nothing is completed: a
// text that begins like another is a text of its own.
QComboBox* SearchDialog::AddText(const char* name, const QString& label, std::u16string SearchState::*text) {
    auto* const box = Add<QComboBox>(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);
    box->setMinimumWidth(260);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // whatever was selected
    box->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    box->setEditText(ToQString(state_.*text));
    connect(box, &QComboBox::editTextChanged, this,
            [this, text](const QString& now) { state_.*text = FromQString(now); });
    auto* const caption = new QLabel(label);
    caption->setBuddy(box);
    const int row = fields_->rowCount();
    fields_->addWidget(caption, row, 0);
    fields_->addWidget(box, row, 1);
    return box;
}

DialogButton* SearchDialog::AddSearchButton(const char* name, const QString& text) {
    auto* const button = AddButton(name, text);
    button->setAutoDefault(false); // Enter finds, wherever the keyboard is
    buttons_->insertWidget(std::max(buttons_->count() - 2, 0), button);
    return button;
}

void SearchDialog::AddOption(QVBoxLayout& rows, const char* name, const QString& text, FindOptions option) {
    auto* const box = Add<QCheckBox>(name, text);
    box->setChecked(Has(state_.options, option));
    connect(box, &QCheckBox::toggled, this, [this, option](bool on) {
        const auto bits = static_cast<unsigned>(state_.options);
        const auto bit = static_cast<unsigned>(option);
        state_.options = static_cast<FindOptions>(on ? bits | bit : bits & ~bit);
    });
    rows.addWidget(box);
}

void SearchDialog::ShowState() {
    cmdFind->setText(state_.goesOn ? QStringLiteral("&Найти далее") : QStringLiteral("&Найти"));
}

void SearchDialog::OnSearched() {
    ShowState();
    MoveAside();
}

void SearchDialog::MoveAside() {
    const Rect now = ToRect(frameGeometry());
    const Rect place = PlaceAside(now, search_.MatchOnScreen(), ToRect(screen()->availableGeometry()));
    if (isVisible() && place != now)
        move(place.left, place.top);
}

void SearchDialog::BringUp() {
    Dialog::BringUp();
    cboFind->setFocus();
    cboFind->lineEdit()->selectAll();
}

void SearchDialog::done(int result) {
    Search::Forget(state_);
    Dialog::done(result);
}

} // namespace quillshift
