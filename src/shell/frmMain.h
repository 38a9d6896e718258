#pragma once

#include "platform/qt/QtBarWindow.h"
#include "platform/qt/QtTextSurface.h"
#include "recoding/frmDecoding.h"
#include "shell/MainBars.h"

#include <QFrame>
#include <QWidget>

class QComboBox;

namespace quillshift {

class Program;

/// What the main window is built on; all of it outlives the window.
struct MainWindowServices {
    MessageBox& messageBox;
    mCommandBars& bars;
    QtWindowMessages& windowIds;
    const QtTextMeasurer& texts;
    FileSystem& files;
    std::u16string programFolder;
};

/// The main window: shows state and forwards events to the program.
class frmMain final : public QWidget, public MainView {
    Q_OBJECT

public:
    frmMain(Program& program, const MainWindowServices& services);
    ~frmMain() override;

    TextSurface& RichTextBox() override { return *richTextBox_; }
    TextSurface& RichTextBoxBackup() override { return richTextBoxBackup_; }
    TextSurface& RichTextBoxImport() override { return richTextBoxImport_; }
    DecodingView& Decoding() override { return decoding_; }

    void BuildBars() override { bars_.Build(); }
    void SetBarStyle(std::u16string_view style) override { bars_.ApplyStyle(style); }
    void AttachMenu() override { bars_.AttachMenu(); }
    void AttachToolBar(int bar, ToolBarIcons icons) override { bars_.AttachToolBar(bar, icons); }
    Twips MenuHeight() const override { return FromPixels(barWindows_[0]->height()); }
    void SetBarVisible(int bar, bool visible) override;
    void SetChecked(std::string_view key, bool checked) override { bars_.Button(key).SetChecked(checked); }
    void SetEnabled(std::string_view key, bool enabled) override;
    bool IsChecked(std::string_view key) const override { return bars_.Button(key).Checked(); }
    void SetItemVisible(std::string_view key, bool visible) override {
        bars_.Button(key).SetVisible(visible);
    }
    int Direction() const override;
    void SetDirection(int number) override;
    void LayOut(const EditorLayout& layout) override;
    void ShowDecodeDialog() override;
    void ShowEditMenu(Point screen) override { bars_.ShowMenu("MENU:EDIT", screen); }
    void Show() override { show(); }
    void Close() override { close(); }

    void SetToolTip(std::string_view key, std::u16string_view text) override {
        bars_.Button(key).SetToolTip(std::u16string(text));
    }
    void SetHideInfrequentlyUsed(bool on) override { bars_.Bar(0).SetHideInfrequentlyUsed(on); }

    void SetTitle(std::u16string_view title) override;
    void SetTopMost(bool topMost) override;
    void SetPointer(Pointer pointer) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    TwipsRect Bounds() const override;
    TwipsRect RestoredBounds() const override;
    void SetBounds(const TwipsRect& bounds) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    class DirectionsPanel;

    void StackBars();
    MainBars::Host BarsHost(const MainWindowServices& services);

    Program& program_;
    DecodingDialog decoding_;
    QComboBox* cmbDecode_;
    std::unique_ptr<DirectionsPanel> directionsPanel_;
    std::array<QtBarWindow*, 3> barWindows_; // owned by the window, as the popups' windows are
    mutable MainBars bars_;
    QWidget* picEditor_;
    QFrame* shapeRichTextBox_;
    QtTextSurface* richTextBox_;
    QtTextSurface richTextBoxBackup_;
    QtTextSurface richTextBoxImport_;
    QFrame* lines_[3] = {}; // under the menu, the standard and the recoding toolbar
};

} // namespace quillshift
