#pragma once

#include "controls/PagedDialog.h"
#include "settings/SettingForm.h"
#include "settings/ToolBarItems.h"

#include <array>

class QListWidget;

namespace quillshift {

/// Chooses what the toolbars show, item by item, and how they and the menus behave.
class frmToolBarCustomize final : public PagedDialog {
    Q_OBJECT

public:
    frmToolBarCustomize(const DialogContext& context, ToolBarItems& toolBars);

private:
    QWidget* MakeToolBarsPage();
    QListWidget* MakeList(const char* name, ItemBar bar);
    void WriteFields() override;
    void ApplyDefaults() override;

    ToolBarItems& toolBars_;
    SettingForm form_;
    std::array<QListWidget*, 2> lists_{}; ///< by `ItemBar`
};

} // namespace quillshift
