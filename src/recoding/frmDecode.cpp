#include "recoding/frmDecode.h"

#include "platform/qt/QtText.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

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

frmDecode::frmDecode(Settings& settings, SoundEvents& sounds, QWidget* parent,
                     std::function<void(Direction)> recode)
    : Dialog(settings, sounds, parent),
      sourceOptions{},
      targetOptions{},
      cmdDecode(new DialogButton(QStringLiteral("Перекодировать"), sounds)),
      cmdCancel(new DialogButton(QStringLiteral("Отмена"), sounds)),
      recode_(std::move(recode)) {
    setWindowTitle(QStringLiteral("Перекодирование"));
    auto* label = new QLabel(QStringLiteral("Выберите направление перекодирования и нажмите "
                                            "'Перекодировать'. Чтобы выйти нажмите 'Отмена'."));
    label->setWordWrap(true);

    auto* frames = new QHBoxLayout;
    frames->addWidget(OptionFrame(QStringLiteral("Исходная кодировка:"), QStringLiteral("1"), sourceOptions));
    frames->addWidget(OptionFrame(QStringLiteral("Конечная кодировка:"), QStringLiteral("2"), targetOptions));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdDecode);
    buttons->addWidget(cmdCancel);
    auto* all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addLayout(frames);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    for (QRadioButton* option : sourceOptions)
        connect(option, &QRadioButton::toggled, this, &frmDecode::UpdateTargets);
    targetOptions[1]->setChecked(true);
    sourceOptions[0]->setChecked(true);
    cmdDecode->setDefault(true);
    connect(cmdDecode, &QPushButton::clicked, this, &frmDecode::Recode);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

QGroupBox* frmDecode::OptionFrame(const QString& caption, const QString& nameEnd,
                                  std::array<QRadioButton*, kCharsets>& options) {
    auto* frame = new QGroupBox(caption);
    auto* rows = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < options.size(); ++i) {
        options[i] = new QRadioButton(ToQString(kCharsetNames[i]));
        options[i]->setObjectName(QLatin1String(kOptionNames[i]) + nameEnd);
        rows->addWidget(options[i]);
    }
    return frame;
}

// A disabled target that is chosen stays chosen. TAB then reaches the group at its first option instead.
void frmDecode::UpdateTargets() {
    for (std::size_t i = 0; i < targetOptions.size(); ++i)
        targetOptions[i]->setEnabled(!sourceOptions[i]->isChecked());
    const auto enabled = [](const auto* option) { return option->isEnabled(); };
    const auto chosen = [&](const auto* option) { return option->isChecked() && enabled(option); };
    auto* entry = std::find_if(targetOptions.begin(), targetOptions.end(), chosen);
    if (entry == targetOptions.end())
        entry = std::find_if(targetOptions.begin(), targetOptions.end(), enabled);
    for (QRadioButton* option : targetOptions)
        option->setFocusPolicy(option == *entry ? Qt::StrongFocus : Qt::ClickFocus);
}

void frmDecode::Recode() {
    const Direction chosen{ChosenIn(sourceOptions), ChosenIn(targetOptions)};
    if (chosen.source != chosen.target)
        recode_(chosen);
}

} // namespace quillshift
