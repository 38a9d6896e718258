#include "settings/SettingForm.h"

#include "base/Texts.h"
#include "platform/qt/QtText.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

constexpr int kWholeRow = 3;
constexpr float kLargestFont = 1000;

/// Where frames stand that do not simply follow one another.
struct FramePlace {
    std::u16string_view title;
    int row, column, rows, columns;
};
constexpr std::array kPlaces{FramePlace{u"Установленные принтеры:", 0, 0, 1, 2},
                             FramePlace{u"Качество:", 1, 0, 2, 1},
                             FramePlace{u"Ориентация:", 1, 1, 1, 1},
                             FramePlace{u"Печать:", 2, 1, 1, 1},
                             FramePlace{u"Бумага:", 3, 0, 1, 1},
                             FramePlace{u"Поля:", 3, 1, 1, 1}};

void PlaceFrame(QGridLayout& page, QGroupBox* frame, std::u16string_view title) {
    const auto* place = std::ranges::find(kPlaces, title, &FramePlace::title);
    if (place == kPlaces.end())
        page.addWidget(frame, page.rowCount(), 0);
    else
        page.addWidget(frame, place->row, place->column, place->rows, place->columns);
}

bool IsOn(const SettingField& field, const std::optional<std::u16string>& stored,
          std::span<const SettingField> fields) {
    if (!field.Has(setting_flag::kOtherwise))
        return stored.value_or(u"") == field.option;
    return std::ranges::none_of(fields, [&](const SettingField& other) {
        return other.setting == field.setting && &other != &field && stored == other.option;
    });
}

} // namespace

SettingForm::SettingForm(const DialogContext& context, std::span<const SettingField> fields)
    : context_(context), fields_(fields) {}

QWidget*
SettingForm::MakePage(SettingPage page,
                      const std::function<void(std::u16string_view frame, QGridLayout& rows)>& atFrame) {
    auto* panel = new QWidget;
    auto* frames = new QGridLayout(panel);
    std::u16string_view title;
    QGridLayout* rows = nullptr;
    const auto close = [&] {
        if (rows != nullptr && atFrame)
            atFrame(title, *rows);
    };
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const SettingField& field = fields_[i];
        if (field.page != page)
            continue;
        if (rows == nullptr || field.frame != title) {
            close();
            title = field.frame;
            auto* frame = new QGroupBox(ToQString(title));
            rows = new QGridLayout(frame);
            rows->setColumnStretch(1, 1);
            PlaceFrame(*frames, frame, title);
        }
        QWidget* control = Make(field);
        const bool isNamed = field.kind == SettingKind::Check || field.kind == SettingKind::Option;
        const bool hasNeighbour =
            i + 1 < fields_.size() && fields_[i + 1].label.empty() && fields_[i + 1].frame == field.frame;
        if (field.label.empty() && rows->count() > 0) {
            At(field.name).setAccessibleName(ToQString(fields_[i - 1].label)); // the box that switches it
            rows->addWidget(control, rows->rowCount() - 1, 1, 1, kWholeRow - 1);
        } else if (isNamed || field.label.empty()) {
            rows->addWidget(control, rows->rowCount(), 0, 1, hasNeighbour ? 1 : kWholeRow);
        } else {
            const int row = rows->rowCount();
            auto* label = new QLabel(ToQString(field.label));
            label->setBuddy(&At(field.name));
            const bool hasUnit = field.Has(setting_flag::kMillimetres);
            rows->addWidget(label, row, 0);
            rows->addWidget(control, row, 1, 1, hasUnit ? 1 : kWholeRow - 1);
            if (hasUnit)
                rows->addWidget(new QLabel(QStringLiteral("мм")), row, 2);
        }
    }
    close();
    frames->setRowStretch(frames->rowCount(), 1);
    return panel;
}

void SettingForm::Remember(const char* name, QWidget* control) {
    control->setObjectName(QLatin1String(name));
    controls_[name] = control;
}

QWidget* SettingForm::Make(const SettingField& field) {
    const QString label = ToQString(field.label);
    QWidget* control = nullptr;
    switch (field.kind) {
    case SettingKind::Check:
        control = new QCheckBox(label);
        break;
    case SettingKind::Option:
        control = new QRadioButton(label);
        break;
    case SettingKind::Position:
    case SettingKind::Choice: {
        auto* list = new QComboBox;
        list->setEditable(field.kind == SettingKind::Choice);
        list->setInsertPolicy(QComboBox::NoInsert);
        control = list;
        break;
    }
    case SettingKind::Text:
        control = new QLineEdit;
        break;
    case SettingKind::Printers:
        control = new QListWidget;
        break;
    }
    Remember(field.name, control);
    Connect(field, control);
    return field.browse == nullptr ? control : MakeWithButtons(field, static_cast<QLineEdit*>(control));
}

QWidget* SettingForm::MakeWithButtons(const SettingField& field, QLineEdit* line) {
    auto* row = new QWidget;
    auto* parts = new QHBoxLayout(row);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->addWidget(line);
    auto* browse = new DialogButton(QStringLiteral("..."), context_.sounds);
    Remember(field.browse, browse);
    browse->setAutoDefault(false);
    browse->setAccessibleName(QStringLiteral("Обзор"));
    browse->setFixedWidth(browse->fontMetrics().horizontalAdvance(QStringLiteral("......")) + 12);
    parts->addWidget(browse);
    connect(browse, &QPushButton::clicked, this, [this, &field] { emit Browse(field); });
    const bool folder = field.Has(setting_flag::kFolder);
    connect(line, &QLineEdit::textChanged, this, [this, line, folder] { CheckPath(*line, folder); });
    if (folder)
        return row;
    auto* play = new QToolButton;
    play->setArrowType(Qt::RightArrow); // in the desktop's colour, which the toolkit's picture has not
    play->setToolTip(QStringLiteral("Прослушать"));
    play->setAccessibleName(play->toolTip());
    play->setObjectName(line->objectName() + QStringLiteral("Play"));
    play->setFocusPolicy(Qt::StrongFocus);
    parts->addWidget(play);
    connect(play, &QToolButton::clicked, this,
            [this, line] { context_.platform.sound.Play(ViewOf(line->text())); });
    return row;
}

// Elsewhere: a path may lead to a machine that doesn't answer. One look at a time for each field.
void SettingForm::CheckPath(QLineEdit& line, bool folder) {
    if (!checked_.insert(&line).second)
        return;
    context_.platform.background.Run([form = QPointer(this), &line, folder, path = line.text()] {
        const QFileInfo file(path);
        const bool missing = !path.isEmpty() && !(folder ? file.isDir() : file.isFile());
        return [form, &line, folder, path, missing] {
            if (form == nullptr)
                return;
            form->checked_.erase(&line);
            if (line.text() == path)
                Mark(line, folder, missing);
            else
                form->CheckPath(line, folder);
        };
    });
}

// The mark says so and refuses nothing: the folder may be on a disk that comes later.
void SettingForm::Mark(QLineEdit& line, bool folder, bool missing) {
    auto* mark = line.findChild<QAction*>(QStringLiteral("missing"));
    if (mark == nullptr) {
        mark = line.addAction(line.style()->standardIcon(QStyle::SP_MessageBoxWarning),
                              QLineEdit::TrailingPosition);
        mark->setObjectName(QStringLiteral("missing"));
        mark->setToolTip(folder ? QStringLiteral("Такой папки нет") : QStringLiteral("Такого файла нет"));
        mark->setText(mark->toolTip());
    }
    mark->setVisible(missing);
}

void SettingForm::Connect(const SettingField& field, QWidget* control) {
    switch (field.kind) {
    case SettingKind::Check:
    case SettingKind::Option:
        connect(static_cast<QAbstractButton*>(control), &QAbstractButton::toggled, this,
                &SettingForm::Edited);
        break;
    case SettingKind::Position:
        connect(static_cast<QComboBox*>(control), &QComboBox::currentIndexChanged, this,
                &SettingForm::Edited);
        break;
    case SettingKind::Choice:
        connect(static_cast<QComboBox*>(control), &QComboBox::activated, this, &SettingForm::Edited);
        break;
    case SettingKind::Text:
        if (!field.Has(setting_flag::kQuiet))
            connect(static_cast<QLineEdit*>(control), &QLineEdit::textChanged, this, &SettingForm::Edited);
        break;
    case SettingKind::Printers:
        connect(static_cast<QListWidget*>(control), &QListWidget::currentRowChanged, this,
                &SettingForm::Edited);
        connect(static_cast<QListWidget*>(control), &QListWidget::itemClicked, this, &SettingForm::Edited);
        break;
    }
}

void SettingForm::Load() {
    for (const SettingField& field : fields_) {
        std::optional<std::u16string> stored = context_.settings.Find(field.setting);
        if (field.kind == SettingKind::Check &&
            !(field.Has(setting_flag::kOnWhereAbsent) && !stored)) // a switch may be a number
            stored = context_.settings.Is(field.setting) ? u"1" : u"0";
        Show(field, stored);
    }
}

void SettingForm::Show(const SettingField& field, const std::optional<std::u16string>& stored) {
    const QString text = ToQString(stored.value_or(u""));
    switch (field.kind) {
    case SettingKind::Check:
        At<QCheckBox>(field.name).setChecked(stored.value_or(u"1") == u"1");
        break;
    case SettingKind::Option:
        if (IsOn(field, stored, fields_))
            At<QRadioButton>(field.name).setChecked(true);
        break;
    case SettingKind::Position: {
        auto& list = At<QComboBox>(field.name);
        const int position = static_cast<int>(NumberIn(stored.value_or(u"")));
        list.setCurrentIndex(position >= 0 && position < list.count() ? position : 0);
        break;
    }
    case SettingKind::Choice:
        At<QComboBox>(field.name).setCurrentText(text);
        break;
    case SettingKind::Text:
        At<QLineEdit>(field.name).setText(text);
        break;
    case SettingKind::Printers: {
        auto& list = At<QListWidget>(field.name);
        const int row = static_cast<int>(NumberIn(stored.value_or(u"")));
        list.setCurrentRow(row >= 0 && row < list.count() ? row : std::min(0, list.count() - 1));
        break;
    }
    }
}

void SettingForm::ApplyChoices() {
    for (const SettingField& field : fields_)
        if (field.kind == SettingKind::Check)
            context_.settings.Switch(field.setting, At<QCheckBox>(field.name).isChecked());
        else if (field.kind == SettingKind::Option && At<QRadioButton>(field.name).isChecked())
            context_.settings.Set(field.setting, field.option);
        else if (field.kind == SettingKind::Position)
            context_.settings.Set(field.setting, WholeNumberText(At<QComboBox>(field.name).currentIndex()));
}

void SettingForm::ApplyTexts() {
    for (const SettingField& field : fields_) {
        if (field.kind != SettingKind::Text && field.kind != SettingKind::Choice)
            continue;
        const QString text = field.kind == SettingKind::Text ? At<QLineEdit>(field.name).text()
                                                             : At<QComboBox>(field.name).currentText();
        const float size = NumberIn(ViewOf(text));
        if (field.Has(setting_flag::kFontSize) && !(size > 0 && size <= kLargestFont))
            Show(field, context_.settings.Find(field.setting));
        else if (!text.isEmpty() || !field.Has(setting_flag::kKeepIfEmpty))
            context_.settings.Set(field.setting, ViewOf(text));
    }
}

void SettingForm::Reset() {
    for (const SettingField& field : fields_)
        if (field.reset)
            Show(field, std::u16string(*field.reset));
}

void SettingForm::Choose(std::string_view name, const QString& path) {
    At<QLineEdit>(name).setText(path);
    emit Edited();
}

} // namespace quillshift
