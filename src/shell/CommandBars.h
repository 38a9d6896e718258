#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class QAction;
class QComboBox;
class QMenuBar;
class QWidget;

namespace quillshift {

/// A plain menu bar and two plain toolbars made from the command table. They stand in for the program's own
/// command bars and go when those come.
class CommandBars final : public QObject {
    Q_OBJECT

public:
    /// `dispatch` is called with the key of the command given; a check item has been flipped by then.
    CommandBars(QComboBox* directions, std::function<void(std::string_view)> dispatch, QWidget* window);

    /// 0: the menu, 1: the standard toolbar, 2: the recoding toolbar.
    QWidget* Bar(int index) const { return bars_[static_cast<std::size_t>(index)]; }

    void SetChecked(std::string_view key, bool checked);
    void SetEnabled(std::string_view key, bool enabled);
    bool IsChecked(std::string_view key) const;

private:
    QMenuBar* BuildMenu();
    QWidget* BuildToolBar(QWidget* first, const std::vector<std::pair<std::string_view, QString>>& buttons);
    QAction* ActionOf(std::string_view key) const;

    std::function<void(std::string_view)> dispatch_;
    QWidget* window_;
    QComboBox* directions_;
    std::map<std::string, QAction*, std::less<>> actions_;
    std::vector<QWidget*> bars_;
};

} // namespace quillshift
