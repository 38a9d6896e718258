#include "recoding/frmDecode.h"

#include "platform/qt/QtText.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <string>

namespace quillshift {
namespace {

constexpr std::array<const char*, kCharsets> kOptionNames{"OptionDOS", "OptionWIN", "OptionKOI", "OptionISO",
                                                          "OptionMAC"};

Charset ChosenIn(const std::array<QRadioButton*, kCharsets>& options) {
    const auto* const chosen =
        std::find_if(options.begin(), options.end(), [](const auto* option) { return option->isChecked(); });
    return static_cast<Charset>(chosen - options.begin() + 1);
}

} // namespace

frmDecode::frmDecode(const DialogContext& context, RecodingJob& job)
    : Dialog(context, QStringLiteral("Перекодирование")), job_(job) {
    auto* label = Add<QLabel>("Label2", QStringLiteral("Выберите направление перекодирования и нажмите "
                                                       "'Перекодировать'. Чтобы выйти нажмите 'Отмена'."));
    label->setWordWrap(true);
    auto* cmdDecode = AddButton("cmdDecode", QStringLiteral("Перекодировать"));
    auto* cmdCancel = AddButton("cmdCancel", QStringLiteral("Отмена"));

    auto* frames = new QHBoxLayout;
    frames->addWidget(OptionFrame(QStringLiteral("Исходная кодировка:"), "1", sources_));
    frames->addWidget(OptionFrame(QStringLiteral("Конечная кодировка:"), "2", targets_));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdDecode);
    buttons->addWidget(cmdCancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addLayout(frames);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    for (QRadioButton* option : sources_)
        connect(option, &QRadioButton::toggled, this, &frmDecode::UpdateTargets);
    targets_[1]->setChecked(true);
    sources_[0]->setChecked(true);
    cmdDecode->setDefault(true);
    connect(cmdDecode, &QPushButton::clicked, this, &frmDecode::Recode);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

QGroupBox* frmDecode::OptionFrame(const QString& caption, const char* nameEnd, Options& options) {
    auto* frame = Add<QGroupBox>((std::string("Frame") + nameEnd).c_str(), caption);
    auto* rows = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < options.size(); ++i) {
        options[i] =
            Add<QRadioButton>((std::string(kOptionNames[i]) + nameEnd).c_str(), ToQString(kCharsetNames[i]));
        rows->addWidget(options[i]);
    }
    return frame;
}

// A disabled target that is chosen stays chosen. TAB then reaches the group at its first option instead.
void frmDecode::UpdateTargets() {
    for (std::size_t i = 0; i < targets_.size(); ++i)
        targets_[i]->setEnabled(!sources_[i]->isChecked());
    const auto enabled = [](const auto* option) { return option->isEnabled(); };
    const auto chosen = [&](const auto* option) { return option->isChecked() && enabled(option); };
    auto* entry = std::find_if(targets_.begin(), targets_.end(), chosen);
    if (entry == targets_.end())
        entry = std::find_if(targets_.begin(), targets_.end(), enabled);
    for (QRadioButton* option : targets_)
        option->setFocusPolicy(option == *entry ? Qt::StrongFocus : Qt::ClickFocus);
}

void frmDecode::Recode() {
    const Direction chosen{ChosenIn(sources_), ChosenIn(targets_)};
    if (chosen.source != chosen.target)
        job_.StartAndReport(chosen);
}

} // namespace quillshift
