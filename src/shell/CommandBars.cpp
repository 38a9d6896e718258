#include "shell/CommandBars.h"

#include "platform/qt/QtText.h"
#include "shell/CommandTable.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

namespace quillshift {
namespace {

QKeySequence ShortcutOf(const CommandEntry& entry) {
    if (entry.shortcutKey.empty())
        return {};
    QString keys;
    if ((entry.shortcutModifiers & kCtrl) != 0)
        keys += QLatin1String("Ctrl+");
    if ((entry.shortcutModifiers & kShift) != 0)
        keys += QLatin1String("Shift+");
    if ((entry.shortcutModifiers & kAlt) != 0)
        keys += QLatin1String("Alt+");
    return QKeySequence(keys + QLatin1String(entry.shortcutKey.data(), qsizetype(entry.shortcutKey.size())));
}

bool IsMenu(std::string_view key) {
    for (const CommandEntry& entry : CommandTable())
        if (ParentKey(entry.key) == key)
            return true;
    return false;
}

} // namespace

CommandBars::CommandBars(QComboBox* directions, std::function<void(std::string_view)> dispatch,
                         QWidget* window)
    : QObject(window), dispatch_(std::move(dispatch)), window_(window), directions_(directions) {
    bars_.push_back(BuildMenu());
    bars_.push_back(BuildToolBar(nullptr, {{"TOOLBAR:NEW", QStringLiteral("Создать")},
                                           {"TOOLBAR:OPEN", QStringLiteral("Открыть")},
                                           {"TOOLBAR:REOPEN", QStringLiteral("Открыть заново")},
                                           {"TOOLBAR:SAVE", QStringLiteral("Сохранить")},
                                           {"TOOLBAR:WIZARD", QStringLiteral("Мастер")}}));
    bars_.push_back(BuildToolBar(directions, {{"TOOLBAR2:START", QStringLiteral("Перекодировать")},
                                              {"TOOLBAR2:STOP", QStringLiteral("Остановить")},
                                              {"TOOLBAR2:UNDO", QStringLiteral("Отменить")}}));
}

QMenuBar* CommandBars::BuildMenu() {
    auto* bar = new QMenuBar(window_);
    bar->setNativeMenuBar(false);
    bar->setStyleSheet(QStringLiteral("QMenuBar { border: none; } QMenuBar::item { padding: 5px 8px; }"
                                      "QMenuBar::item:selected { background: palette(highlight);"
                                      " color: palette(highlighted-text); }"));
    std::map<std::string_view, QMenu*> menus;
    for (const CommandEntry& entry : CommandTable()) {
        const std::string_view parent = ParentKey(entry.key);
        QWidget* const place = menus.contains(parent) ? static_cast<QWidget*>(menus[parent]) : bar;
        if (IsMenu(entry.key)) {
            auto* menu = new QMenu(ToQString(entry.caption), window_);
            place->addAction(menu->menuAction());
            menus[entry.key] = menu;
            continue;
        }
        auto* action = new QAction(ToQString(entry.caption), window_);
        action->setSeparator(entry.style == CommandStyle::Separator);
        action->setCheckable(entry.style == CommandStyle::Check);
        action->setShortcut(ShortcutOf(entry));
        connect(action, &QAction::triggered, this, [this, key = entry.key] { dispatch_(key); });
        place->addAction(action);
        actions_.emplace(entry.key, action);
    }
    return bar;
}

QWidget* CommandBars::BuildToolBar(QWidget* first,
                                   const std::vector<std::pair<std::string_view, QString>>& buttons) {
    auto* bar = new QWidget(window_);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(4, 0, 4, 0);
    row->setSpacing(2);
    if (first)
        row->addWidget(first);
    for (const auto& [key, caption] : buttons) {
        auto* action = new QAction(caption, window_);
        connect(action, &QAction::triggered, this, [this, name = key] { dispatch_(name); });
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        row->addWidget(button);
        actions_.emplace(key, action);
    }
    row->addStretch();
    return bar;
}

QAction* CommandBars::ActionOf(std::string_view key) const {
    const auto found = actions_.find(key);
    return found == actions_.end() ? nullptr : found->second;
}

void CommandBars::SetChecked(std::string_view key, bool checked) {
    if (QAction* action = ActionOf(key))
        action->setChecked(checked);
}

void CommandBars::SetEnabled(std::string_view key, bool enabled) {
    if (key == "TOOLBAR2:DECODE")
        directions_->setEnabled(enabled);
    else if (QAction* action = ActionOf(key))
        action->setEnabled(enabled);
}

bool CommandBars::IsChecked(std::string_view key) const {
    const QAction* action = ActionOf(key);
    return action && action->isChecked();
}

} // namespace quillshift
