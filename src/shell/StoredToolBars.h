#pragma once

#include "settings/ToolBarItems.h"
#include "shell/Layout.h"
#include "shell/MainBars.h"

#include <memory>

namespace quillshift {

/// The toolbars as the store has them: the items they show, the size of their icons, their tips.
class StoredToolBars final : public ToolBarItems {
public:
    StoredToolBars(MainBars& bars, MainLayout& layout, Settings& settings, Timers& timers);

    /// Puts the bars into their controls, with icons of the stored size.
    void Attach();
    /// Shows each item, or hides it.
    void LoadToolBarButtons();
    /// Tips, the length of menus and the size of icons follow behind the present event, over what is there.
    void ApplyOptionsSoon() { timerCommandBars_->StartOnce(); }

    std::vector<ToolBarItem> Items(ItemBar bar) const override;
    void FollowStore() override;

private:
    void ApplyOptions();

    MainBars& bars_;
    MainLayout& layout_;
    Settings& settings_;
    std::unique_ptr<Timer> timerLoadToolBarButtons_, timerCommandBars_;
};

} // namespace quillshift
